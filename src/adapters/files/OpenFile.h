#pragma once

#include <cerrno>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace wmoutlook {

/// A file that could not be read or written: the end of a sentence about it, and the system's number.
class FileFault : public std::runtime_error {
public:
    FileFault(int number, const std::string& what) : std::runtime_error(what), number_(number) {}
    [[nodiscard]] int number() const { return number_; }

private:
    int number_;
};

/// With the system's own words for the number.
[[noreturn]] void failAsFile(int number);

/// The result of a call of the system, which was none when it is negative.
template <class Result>
Result requireDone(Result result) {
    if (result < 0) failAsFile(errno);
    return result;
}

/// The same call again when a signal came in between.
template <class Call>
auto uninterrupted(Call call) {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

/// A file of the system, closed at the end.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&&) = delete;
    ~OpenFile();

    [[nodiscard]] int descriptor() const { return descriptor_; }
    [[nodiscard]] struct stat status() const;
    /// Through to the disk. Some file systems tell only here that a write has failed.
    void finish();

private:
    int descriptor_;
};

/// Nothing when there is none. Throws FileFault also for a folder, a pipe or a device: opening one does not wait, and what was
/// looked at is what is read, whatever the name leads to by then.
[[nodiscard]] std::optional<OpenFile> openRegularFile(const std::string& path);
/// Throws FileFault with EFBIG when there is more than that, whatever becomes of the file meanwhile.
[[nodiscard]] std::string readAll(const OpenFile& file, std::size_t most);
void writeAll(const OpenFile& file, std::string_view bytes);

}  // namespace wmoutlook

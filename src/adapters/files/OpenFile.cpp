#include "adapters/files/OpenFile.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace wmoutlook {

void failAsFile(int number) {
    throw FileFault{number, std::system_category().message(number)};
}

OpenFile::OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

OpenFile::~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

struct stat OpenFile::status() const {
    struct stat status {};
    requireDone(::fstat(descriptor_, &status));
    return status;
}

void OpenFile::finish() {
    requireDone(::fsync(descriptor_));
    requireDone(::close(std::exchange(descriptor_, -1)));
}

std::optional<OpenFile> openRegularFile(const std::string& path) {
    const int descriptor = uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); });
    if (descriptor < 0 && errno == ENOENT) return std::nullopt;
    OpenFile file{requireDone(descriptor)};
    const mode_t mode = file.status().st_mode;
    if (S_ISDIR(mode)) failAsFile(EISDIR);
    if (!S_ISREG(mode)) throw FileFault{ENODEV, "It is no regular file"};
    return file;
}

std::string readAll(const OpenFile& file, std::size_t most) {
    const auto size = static_cast<std::size_t>(file.status().st_size);
    if (size > most) failAsFile(EFBIG);
    std::size_t room = size + 1;  // one more, to meet the end at once
    std::string bytes;
    for (std::size_t count = 0; count <= most; room = 2 * count) {
        room = std::min(room, most + 1);
        bytes.resize(room);
        while (count < room) {
            const auto read = requireDone(uninterrupted([&] { return ::read(file.descriptor(), &bytes[count], room - count); }));
            if (read == 0) return bytes.resize(count), bytes;
            count += static_cast<std::size_t>(read);
        }
    }
    failAsFile(EFBIG);
}

void writeAll(const OpenFile& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = requireDone(uninterrupted([&] { return ::write(file.descriptor(), bytes.data(), bytes.size()); }));
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace wmoutlook

#include "adapters/headless/SafeFile.h"

#include <cerrno>
#include <chrono>
#include <climits>
#include <random>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wmoutlook {

namespace {

constexpr std::size_t kLargestFile = 256U << 20U;  // no settings: something else is behind the name
constexpr int kMostAttempts = 100;
constexpr int kMostLinks = 40;
constexpr auto kLockWait = std::chrono::milliseconds{10};
constexpr int kMostLockWaits = 200;

[[noreturn]] void fail(int number) {
    throw FileFault{number, std::system_category().message(number)};
}

template <class Result>
Result require(Result result) {
    if (result < 0) fail(errno);
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

class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    [[nodiscard]] int descriptor() const { return descriptor_; }
    /// Some file systems tell only here that a write has failed.
    void close() { require(::close(std::exchange(descriptor_, -1))); }

private:
    int descriptor_;
};

struct stat statusOf(const OpenFile& file) {
    struct stat status {};
    require(::fstat(file.descriptor(), &status));
    return status;
}

/// Nothing when there is none. A pipe or a folder would be opened too, and is refused here.
std::optional<OpenFile> openForReading(const std::string& path) {
    const int descriptor = uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); });
    if (descriptor < 0 && errno == ENOENT) return std::nullopt;
    OpenFile file{require(descriptor)};
    const mode_t mode = statusOf(file).st_mode;
    if (S_ISDIR(mode)) fail(EISDIR);
    if (!S_ISREG(mode)) throw FileFault{ENODEV, "It is no regular file"};
    return file;
}

std::string readAll(const OpenFile& file) {
    std::size_t room = static_cast<std::size_t>(statusOf(file).st_size) + 1;  // one more, to meet the end at once
    std::string bytes;
    for (std::size_t count = 0;; room = 2 * count) {
        if (room > kLargestFile) fail(EFBIG);
        bytes.resize(room);
        while (count < room) {
            const auto read = require(uninterrupted([&] { return ::read(file.descriptor(), &bytes[count], room - count); }));
            if (read == 0) return bytes.resize(count), bytes;
            count += static_cast<std::size_t>(read);
        }
    }
}

void writeAll(const OpenFile& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = require(uninterrupted([&] { return ::write(file.descriptor(), bytes.data(), bytes.size()); }));
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);  // empty for a name alone
}

/// Where a link leads to in the end, whether or not anything is there: a rename would replace the link itself.
std::string targetOf(std::string path) {
    for (int links = 0; links < kMostLinks; ++links) {
        std::string target(PATH_MAX, '\0');
        const auto size = ::readlink(path.c_str(), target.data(), target.size());
        if (size < 0) return path;
        target.resize(static_cast<std::size_t>(size));
        path = target.starts_with('/') ? target : folderOf(path) + target;
    }
    fail(ELOOP);
}

/// Waits a while for another process that is changing the file. Where the file system knows no locks, there is none.
void lock(const OpenFile& file) {
    for (int waits = 0; ::flock(file.descriptor(), LOCK_EX | LOCK_NB) != 0; ++waits) {
        if (errno != EWOULDBLOCK && errno != EINTR) return;
        if (waits == kMostLockWaits) throw FileFault{EWOULDBLOCK, "Another program holds it"};
        std::this_thread::sleep_for(kLockWait);
    }
}

bool isStillAt(const std::string& path, const struct stat& status) {
    struct stat now {};
    return ::stat(path.c_str(), &now) == 0 && now.st_dev == status.st_dev && now.st_ino == status.st_ino;
}

/// Asked before, since a file that is replaced is never opened for writing.
void requireWritable(const std::string& path, const struct stat& status) {
    constexpr mode_t kAnyoneMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((status.st_mode & kAnyoneMayWrite) == 0) throw FileFault{EACCES, "It is read-only"};
    require(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
}

/// The new file next to the old one, until it takes its place; removed when it does not.
class Aside {
public:
    Aside(const std::string& target, const struct stat* old)
        : target_(target), old_(old), file_(create(old == nullptr ? 0666 : 0600)) {}
    ~Aside() {
        if (!isMoved_) ::unlink(path_.c_str());
    }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

    void write(std::string_view bytes) {
        writeAll(file_, bytes);
        if (old_ != nullptr) takeAfter(*old_);
        require(::fsync(file_.descriptor()));
        file_.close();
    }

    void replace() {
        require(::rename(path_.c_str(), target_.c_str()));
        isMoved_ = true;
    }

    /// False when there is a file by now, which is left alone: a link, unlike a rename, never replaces one.
    bool takeFreeName() {
        if (::link(path_.c_str(), target_.c_str()) == 0) return true;
        if (errno == EEXIST) return false;
        if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) fail(errno);
        if (::access(target_.c_str(), F_OK) == 0) return false;  // a file system without links
        replace();
        return true;
    }

private:
    OpenFile create(mode_t mode) {
        static std::minstd_rand random{std::random_device{}()};
        const std::string folder = folderOf(target_);
        const std::string name = target_.substr(folder.size(), 200);
        for (int attempt = 0;; ++attempt) {
            path_ = folder + '.' + name + '.' + std::to_string(::getpid()) + '-' + std::to_string(random()) + ".tmp";
            const int descriptor =
                uninterrupted([&] { return ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
            if (descriptor >= 0) return OpenFile{descriptor};
            if (errno == ENOENT) throw FileFault{ENOENT, "Its folder is not there"};
            if (errno == EACCES || errno == EROFS) throw FileFault{errno, "Its folder cannot be written to"};
            if (errno != EEXIST || attempt == kMostAttempts) fail(errno);
        }
    }

    /// Before the mode the owner: a change of owner takes bits of the mode away. Not everybody may give files away.
    void takeAfter(const struct stat& old) {
        const struct stat now = statusOf(file_);
        const bool isOwned = now.st_uid == old.st_uid && now.st_gid == old.st_gid;
        if (!isOwned && ::fchown(file_.descriptor(), old.st_uid, old.st_gid) != 0)
            static_cast<void>(::fchown(file_.descriptor(), static_cast<uid_t>(-1), old.st_gid) == 0);
        const bool isOfAnotherGroup = statusOf(file_).st_gid != old.st_gid;  // which the mode was not meant for
        require(::fchmod(file_.descriptor(), old.st_mode & (isOfAnotherGroup ? 07707U : 07777U)));
    }

    std::string target_;
    const struct stat* old_;
    std::string path_;
    OpenFile file_;
    bool isMoved_ = false;
};

/// False when another process was faster, so that all has to be looked at again.
bool tryToRewrite(const std::string& path, const FileChange& change) {
    const std::string target = targetOf(path);
    const std::optional<OpenFile> present = openForReading(target);
    if (!present) {
        const auto bytes = change(std::nullopt);
        if (!bytes) return true;
        Aside aside{target, nullptr};
        aside.write(*bytes);
        return aside.takeFreeName();
    }
    lock(*present);
    const struct stat status = statusOf(*present);
    if (!isStillAt(target, status)) return false;
    const std::optional<std::string> old = readAll(*present);
    const auto bytes = change(old);
    if (!bytes || *bytes == *old) return true;
    requireWritable(target, status);
    Aside aside{target, &status};
    aside.write(*bytes);
    aside.replace();
    return true;
}

}  // namespace

std::optional<std::string> readWholeFile(const std::string& path) {
    const auto file = openForReading(path);
    if (!file) return std::nullopt;
    return readAll(*file);
}

void rewriteFile(const std::string& path, const FileChange& change) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt)
        if (tryToRewrite(path, change)) return;
    throw FileFault{EWOULDBLOCK, "Another program keeps changing it"};
}

}  // namespace wmoutlook

#include "adapters/files/SafeFile.h"

#include "adapters/files/NewFile.h"

#include <cerrno>
#include <chrono>
#include <climits>
#include <thread>

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

/// Where a link leads to in the end, whether or not anything is there: a rename would replace the link itself.
std::string targetOf(std::string path) {
    for (int links = 0; links < kMostLinks; ++links) {
        std::string target(PATH_MAX, '\0');
        const auto size = ::readlink(path.c_str(), target.data(), target.size());
        if (size < 0) return path;
        target.resize(static_cast<std::size_t>(size));
        path = target.starts_with('/') ? target : folderOf(path) + target;
    }
    failAsFile(ELOOP);
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
    requireDone(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
}

/// False when another process was faster, so that all has to be looked at again.
bool tryToRewrite(const std::string& path, const FileChange& change) {
    const std::string target = targetOf(path);
    const std::optional<OpenFile> present = openRegularFile(target);
    if (!present) {
        const auto bytes = change(std::nullopt);
        if (!bytes) return true;
        NewFile aside{target};
        writeAll(aside.file(), *bytes);
        return aside.takeFreeName();
    }
    lock(*present);
    const struct stat status = present->status();
    if (!isStillAt(target, status)) return false;
    const std::optional<std::string> old = readAll(*present, kLargestFile);
    const auto bytes = change(old);
    if (!bytes || *bytes == *old) return true;
    requireWritable(target, status);
    NewFile aside{target, status};
    writeAll(aside.file(), *bytes);
    aside.replace();
    return true;
}

}  // namespace

std::optional<std::string> readWholeFile(const std::string& path) {
    const auto file = openRegularFile(path);
    if (!file) return std::nullopt;
    return readAll(*file, kLargestFile);
}

void rewriteFile(const std::string& path, const FileChange& change) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt)
        if (tryToRewrite(path, change)) return;
    throw FileFault{EWOULDBLOCK, "Another program keeps changing it"};
}

}  // namespace wmoutlook

#include "adapters/files/NewFile.h"

#include <random>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace wmoutlook {

namespace {

constexpr int kMostAttempts = 100;

/// Before the mode the owner: a change of owner takes bits of the mode away. Not everybody may give files away.
void takeAfter(const OpenFile& file, const struct stat& old) {
    const struct stat now = file.status();
    const bool isOwned = now.st_uid == old.st_uid && now.st_gid == old.st_gid;
    if (!isOwned && ::fchown(file.descriptor(), old.st_uid, old.st_gid) != 0)
        static_cast<void>(::fchown(file.descriptor(), static_cast<uid_t>(-1), old.st_gid) == 0);
    const bool isOfAnotherGroup = file.status().st_gid != old.st_gid;  // which the mode was not meant for
    requireDone(::fchmod(file.descriptor(), old.st_mode & (isOfAnotherGroup ? 07707U : 07777U)));
}

}  // namespace

NewFile::NewFile(std::string target, unsigned mode) : target_(std::move(target)), file_(create(mode)) {}

NewFile::NewFile(std::string target) : NewFile(std::move(target), 0666U) {}

NewFile::NewFile(std::string target, const struct stat& old) : NewFile(std::move(target), 0600U) {
    takeAfter(file_, old);
}

NewFile::~NewFile() {
    if (!isMoved_) ::unlink(path_.c_str());
}

OpenFile NewFile::create(unsigned mode) {
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
        if (errno != EEXIST || attempt == kMostAttempts) failAsFile(errno);
    }
}

void NewFile::move() {
    requireDone(::rename(path_.c_str(), target_.c_str()));
    isMoved_ = true;
}

void NewFile::replace() {
    file_.finish();
    move();
}

/// A link, unlike a rename, never replaces a file.
bool NewFile::takeFreeName() {
    file_.finish();
    if (::link(path_.c_str(), target_.c_str()) == 0) return true;
    if (errno == EEXIST) return false;
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) failAsFile(errno);
    struct stat there {};
    if (::lstat(target_.c_str(), &there) == 0) return false;  // a file system without links
    move();
    return true;
}

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

}  // namespace wmoutlook

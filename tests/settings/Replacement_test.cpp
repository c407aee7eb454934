#include "tests/settings/SettingsFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>

namespace {

/// What happens at the n-th call of the system from now on.
enum class Plan { none, fail, die };
Plan plan = Plan::none;
int callsLeft = 0;
bool wasReached = false;

constexpr int kKilled = 42;

bool isItsTurn() {
    if (plan == Plan::none || --callsLeft != 0) return false;
    wasReached = true;
    return true;
}

/// True when the call is to fail; does not return when it is to be the last one.
bool fails() {
    if (!isItsTurn()) return false;
    if (plan == Plan::die) _exit(kKilled);
    errno = EIO;
    return true;
}

}  // namespace

// NOLINTBEGIN: the linker gives these names
extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_write(int file, const void* data, size_t size);
ssize_t __real_read(int file, void* data, size_t size);
int __real_fsync(int file);
int __real_fchmod(int file, mode_t mode);
int __real_close(int file);
int __real_rename(const char* from, const char* to);
int __real_link(const char* from, const char* to);
int __real_flock(int file, int operation);
int __real_fstat(int file, struct stat* status);

int __wrap_open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return fails() ? -1 : __real_open(path, flags, mode);
}
ssize_t __wrap_write(int file, const void* data, size_t size) {
    if (!isItsTurn()) return __real_write(file, data, size);
    __real_write(file, data, size / 2);
    if (plan == Plan::die) _exit(kKilled);
    errno = ENOSPC;
    return -1;
}
ssize_t __wrap_read(int file, void* data, size_t size) {
    return fails() ? -1 : __real_read(file, data, size);
}
int __wrap_fsync(int file) {
    return fails() ? -1 : __real_fsync(file);
}
int __wrap_fchmod(int file, mode_t mode) {
    return fails() ? -1 : __real_fchmod(file, mode);
}
int __wrap_close(int file) {
    const bool isFailing = fails();
    const int result = __real_close(file);
    if (isFailing) errno = EIO;
    return isFailing ? -1 : result;
}
int __wrap_rename(const char* from, const char* to) {
    return fails() ? -1 : __real_rename(from, to);
}
int __wrap_link(const char* from, const char* to) {
    return fails() ? -1 : __real_link(from, to);
}
int __wrap_flock(int file, int operation) {
    return fails() ? -1 : __real_flock(file, operation);
}
int __wrap_fstat(int file, struct stat* status) {
    return fails() ? -1 : __real_fstat(file, status);
}
}
// NOLINTEND

namespace wmoutlook::testing {
namespace {

class Replacement : public SettingsFolder, public ::testing::WithParamInterface<bool> {
protected:
    /// Changes the file with the n-th call failing or being the last; false when there are not so many.
    bool change(Plan what, int call) {
        const pid_t child = what == Plan::die ? ::fork() : 0;
        if (child != 0) {
            int status = 0;
            ::waitpid(child, &status, 0);
            return WEXITSTATUS(status) == kKilled;
        }
        plan = what;
        callsLeft = call;
        wasReached = false;
        isRefused = false;
        try {
            profile.write("S", "k", "new", file);
        } catch (const SettingsError&) {
            isRefused = true;
        }
        plan = Plan::none;
        if (what == Plan::die) _exit(0);
        return wasReached;
    }

    void prepare() {
        std::filesystem::remove_all(folder.workingFolderPath());
        std::filesystem::create_directory(folder.workingFolderPath());
        if (isThere) put(old);
    }

    const bool isThere = GetParam();
    const std::string old = isThere ? "[S]\r\nk=old\r\nl=other\r\n" : "";
    const std::string changed = isThere ? "[S]\r\nk=new\r\nl=other\r\n" : "[S]\r\nk=new\r\n";
    bool isRefused = false;
};

INSTANTIATE_TEST_SUITE_P(Of, Replacement, ::testing::Bool(),
                         [](const auto& isThere) { return isThere.param ? "AnOldFile" : "NoFile"; });

TEST_P(Replacement, CallThatFailsLeavesTheOldFileAndNothingElse) {
    int call = 1;
    for (prepare(); change(Plan::fail, call); prepare(), ++call) {
        SCOPED_TRACE(call);
        EXPECT_EQ(bytes(), isRefused ? old : changed);
        EXPECT_EQ(filesInFolder(), !isThere && isRefused ? 0 : 1);
    }
    EXPECT_GT(call, 5);  // the sweep has really gone through a change
    EXPECT_EQ(bytes(), changed);
}

TEST_P(Replacement, ProcessThatDiesLeavesTheOldOrTheNewFile) {
    int call = 1;
    for (prepare(); change(Plan::die, call); prepare(), ++call) {
        SCOPED_TRACE(call);
        EXPECT_TRUE(bytes() == old || bytes() == changed) << bytes();
        EXPECT_EQ(std::filesystem::exists(file), isThere || bytes() == changed);  // never an empty one
        change(Plan::none, 0);  // what the dead one left behind is in nobody's way
        EXPECT_EQ(bytes(), changed);
    }
    EXPECT_GT(call, 5);
}

}  // namespace
}  // namespace wmoutlook::testing

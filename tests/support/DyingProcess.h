#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <map>
#include <string>

namespace wmoutlook::testing {

inline constexpr int kKilled = 42;

/// A file system in which the process dies in the middle of the n-th write to any file.
class DyingFileSystem {
public:
    static void install(int dieAtWrite) {
        dieAt_ = dieAtWrite;
        sqlite3_vfs* const real = sqlite3_vfs_find(nullptr);
        realOpen_ = real->xOpen;
        vfs_ = *real;
        vfs_.zName = "dying";
        vfs_.xOpen = &open;
        sqlite3_vfs_register(&vfs_, 1);
    }

private:
    static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
        const int result = realOpen_(vfs, name, file, flags, outFlags);
        if (file->pMethods == nullptr) return result;
        realWrite_ = file->pMethods->xWrite;  // the same for every kind of file
        const auto [methods, isNew] = methods_.try_emplace(file->pMethods, *file->pMethods);
        methods->second.xWrite = &write;
        file->pMethods = &methods->second;
        return result;
    }

    static int write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
        if (++writes_ == dieAt_) {
            realWrite_(file, data, size / 2, offset);
            _exit(kKilled);
        }
        return realWrite_(file, data, size, offset);
    }

    static inline sqlite3_vfs vfs_{};
    static inline std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods_;  ///< a copy of each real table
    static inline int (*realWrite_)(sqlite3_file*, const void*, int, sqlite3_int64) = nullptr;
    static inline int (*realOpen_)(sqlite3_vfs*, const char*, sqlite3_file*, int, int*) = nullptr;
    static inline int writes_ = 0;
    static inline int dieAt_ = 0;
};

/// Does the work in a process of its own that dies in its n-th write; true when it did.
inline bool dies(int atWrite, const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        DyingFileSystem::install(atWrite);
        work();
        _exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_TRUE(WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == kKilled) << WEXITSTATUS(status);
    return WIFEXITED(status) && WEXITSTATUS(status) == kKilled;
}

}  // namespace wmoutlook::testing

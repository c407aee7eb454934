#include "bench/Cost.h"

#include <sqlite3.h>

#include <ctime>

namespace {

std::int64_t prepared = 0;

}  // namespace

// The names are the linker's: with --wrap=f a call of f arrives at __wrap_f, and __real_f is the function itself.
extern "C" {

int __real_sqlite3_prepare_v2(sqlite3*, const char*, int, sqlite3_stmt**, const char**);
int __real_sqlite3_prepare_v3(sqlite3*, const char*, int, unsigned, sqlite3_stmt**, const char**);
int __real_sqlite3_exec(sqlite3*, const char*, int (*)(void*, int, char**, char**), void*, char**);

int __wrap_sqlite3_prepare_v2(sqlite3* database, const char* text, int size, sqlite3_stmt** statement, const char** tail);
int __wrap_sqlite3_prepare_v3(sqlite3* database, const char* text, int size, unsigned flags, sqlite3_stmt** statement,
                              const char** tail);
int __wrap_sqlite3_exec(sqlite3* database, const char* text, int (*callback)(void*, int, char**, char**), void* context,
                        char** message);

int __wrap_sqlite3_prepare_v2(sqlite3* database, const char* text, int size, sqlite3_stmt** statement, const char** tail) {
    ++prepared;
    return __real_sqlite3_prepare_v2(database, text, size, statement, tail);
}

int __wrap_sqlite3_prepare_v3(sqlite3* database, const char* text, int size, unsigned flags, sqlite3_stmt** statement,
                              const char** tail) {
    ++prepared;
    return __real_sqlite3_prepare_v3(database, text, size, flags, statement, tail);
}

int __wrap_sqlite3_exec(sqlite3* database, const char* text, int (*callback)(void*, int, char**, char**), void* context,
                        char** message) {
    ++prepared;
    return __real_sqlite3_exec(database, text, callback, context, message);
}

}  // extern "C"

namespace wmoutlook::bench {

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

std::int64_t preparedStatements() {
    return prepared;
}

}  // namespace wmoutlook::bench

#include "adapters/sql/SqliteDatabase.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/SqlDatabase.h"
#include "adapters/sql/SqliteDriver.h"
#include "adapters/sql/SqliteOpening.h"
#include "adapters/sql/schema/ReferenceSchema.h"

#include <cstdio>
#include <filesystem>

namespace wmoutlook {

namespace {

std::filesystem::path nativePath(const std::string& path) {
    return std::filesystem::path{std::u8string{path.begin(), path.end()}};
}

/// An empty file that is there for us alone; a file that exists is never opened.
void reserveFile(const std::string& path) {
    if (std::filesystem::exists(nativePath(path)))
        sql::fail(sql::Fault::cannotOpen, "The file \"" + path + "\" exists already and is left as it is; choose another name.");
    std::FILE* const file = std::fopen(path.c_str(), "wbx");
    if (file == nullptr)
        sql::fail(sql::Fault::cannotOpen,
                  "The file \"" + path + "\" cannot be created; check its folder and the permissions there.");
    std::fclose(file);
}

void fill(const std::string& path) {
    sql::SqliteConnection connection{path, sql::SqliteConnection::Mode::readWrite, 0};
    connection.execute("PRAGMA journal_mode = WAL");
    connection.execute("BEGIN");
    for (const std::string_view statement : referenceSchema()) connection.execute(std::string{statement});
    connection.execute("COMMIT");
}

}  // namespace

std::shared_ptr<HostDatabase> openSqliteDatabase(const std::string& path, const SqliteOptions& options) {
    return sql::makeDatabase(
        std::make_unique<sql::SqliteDriver>(sql::connectToFirm(path, options), options, sql::SqliteDriver::Journal::log));
}

void createSqliteDatabase(const std::string& path) {
    reserveFile(path);
    try {
        fill(path);
    } catch (...) {
        std::error_code error;
        for (const char* const suffix : {"", "-wal", "-shm"}) std::filesystem::remove(nativePath(path + suffix), error);
        throw;
    }
}

}  // namespace wmoutlook

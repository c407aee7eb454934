#include "adapters/sql/SqliteOpening.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/schema/ReferenceSchema.h"

#include <sqlite3.h>

#include <filesystem>

namespace wmoutlook::sql {

namespace {

std::string named(const std::string& path) {
    return "The database file \"" + path + "\"";
}

std::filesystem::path nativePath(const std::string& path) {
    return std::filesystem::path{std::u8string{path.begin(), path.end()}};
}

void requireFile(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(nativePath(path), error);
    if (status.type() == std::filesystem::file_type::not_found)
        fail(Fault::cannotOpen, named(path) + " does not exist; check the path, or create the file first.");
    if (status.type() != std::filesystem::file_type::regular)
        fail(Fault::cannotOpen, named(path) + " is not a regular file; give the path of a firm's file.");
}

/// The first access tells whether it is a database; what the engine reports then is put into the user's words.
[[noreturn]] void failToOpen(const std::string& path, const DatabaseError& error) {
    switch (error.number() & 0xFF) {
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            throw DatabaseError{error.number(),
                                named(path) + " is damaged or no database at all; choose another file or restore a backup."};
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            throw DatabaseError{error.number(), named(path) + " is locked by another program; close that program and try again."};
        case SQLITE_PERM:
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
            throw DatabaseError{error.number(), named(path) +
                                                    " cannot be opened for the wanted access; check the permissions of the file "
                                                    "and of its folder."};
        default: throw DatabaseError{error.number(), named(path) + " cannot be opened: " + error.what()};
    }
}

bool hasTable(SqliteConnection& connection, std::string_view table) {
    const auto statement =
        connection.prepare("SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = ?1 COLLATE NOCASE", TextOrigin::adapter);
    const Run run{*statement};
    run->bind(1, Cell::of(table));
    return run->step();
}

void requireTables(SqliteConnection& connection) {
    for (const std::string_view table : referenceTables())
        if (!hasTable(connection, table))
            fail(Fault::cannotOpen, named(connection.path()) + " lacks the table \"" + std::string{table} +
                                        "\"; choose a firm's file, or create one with this program.");
}

/// A file that may be written is opened so even for reading, with writing switched off, because only then the engine tidies up
/// its log at the end. One in a folder that cannot be written to is read as it lies there.
std::unique_ptr<SqliteConnection> connectForReading(const std::string& path, int timeout) {
    try {
        auto connection = std::make_unique<SqliteConnection>(path, SqliteConnection::Mode::readWrite, timeout);
        hasTable(*connection, "");
        connection->execute("PRAGMA query_only = ON");
        return connection;
    } catch (const DatabaseError& error) {
        const int code = error.number() & 0xFF;
        if (code != SQLITE_CANTOPEN && code != SQLITE_READONLY && code != SQLITE_PERM) throw;
    }
    return std::make_unique<SqliteConnection>(path, SqliteConnection::Mode::immutable, timeout);
}

std::unique_ptr<SqliteConnection> connectForWriting(const std::string& path, int timeout) {
    auto connection = std::make_unique<SqliteConnection>(path, SqliteConnection::Mode::readWrite, timeout);
    hasTable(*connection, "");  // reads the file for the first time
    if (sqlite3_db_readonly(connection->get(), "main") != 0)
        fail(Fault::readOnly, named(path) + " cannot be written to; change its permissions, or open it for reading only.");
    connection->execute("BEGIN IMMEDIATE");  // another program that holds the file shows now and not in the middle of a run
    connection->execute("ROLLBACK");
    return connection;
}

/// The log may grow to 16 MB before it is copied into the file: fewer syncs, and a bound to the file beside it.
void tune(SqliteConnection& connection, const SqliteOptions& options) {
    connection.execute(options.durability == Durability::full ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    connection.execute("PRAGMA wal_autocheckpoint = 4000");
    connection.execute("PRAGMA cache_size = -16384");
    connection.execute("PRAGMA temp_store = MEMORY");
}

std::unique_ptr<SqliteConnection> connect(const std::string& path, const SqliteOptions& options) {
    requireFile(path);
    auto connection = options.readOnly ? connectForReading(path, options.busyTimeoutMilliseconds)
                                       : connectForWriting(path, options.busyTimeoutMilliseconds);
    tune(*connection, options);
    return connection;
}

}  // namespace

std::unique_ptr<SqliteConnection> connectToFirm(const std::string& path, const SqliteOptions& options) {
    try {
        auto connection = connect(path, options);
        requireTables(*connection);
        if (!options.readOnly && !options.dryRun) connection->execute("PRAGMA journal_mode = WAL");
        return connection;
    } catch (const DatabaseError& error) {
        if (std::string_view{error.what()}.starts_with(named(path))) throw;
        failToOpen(path, error);
    }
}

std::unique_ptr<SqliteConnection> connectToStore(const std::string& path, const SqliteOptions& options) {
    return connect(path, options);
}

}  // namespace wmoutlook::sql

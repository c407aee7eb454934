#include "adapters/sql/SqliteOpening.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/schema/ReferenceSchema.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <utility>

namespace wmoutlook::sql {

namespace {

std::string named(const std::string& path) {
    return "The database file \"" + path + "\"";
}

std::filesystem::path nativePath(const std::string& path) {
    return std::filesystem::path{std::u8string{path.begin(), path.end()}};
}

void requireFile(const std::string& path) {
    if (path.empty()) fail(Fault::cannotOpen, named(path) + " has no name; give the path of a firm's file.");
    std::error_code error;
    const auto status = std::filesystem::status(nativePath(path), error);
    if (status.type() == std::filesystem::file_type::not_found)
        fail(Fault::cannotOpen, named(path) + " does not exist; check the path, or create the file first.");
    if (status.type() == std::filesystem::file_type::directory)
        fail(Fault::cannotOpen, named(path) + " is a folder; give the path of a firm's file.");
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

std::int64_t numberOf(SqliteConnection& connection, const std::string& text) {
    const auto statement = connection.prepare(text, TextOrigin::adapter);
    const Run run{*statement};
    return run->step() ? run->cell(0).integer : 0;
}

/// Reads the file for the first time.
void readTables(SqliteConnection& connection) {
    static_cast<void>(numberOf(connection, "SELECT count(*) FROM sqlite_schema"));
}

/// The engine takes a last page that is cut short for a whole one. What still stands in the log may end behind the file.
void requireLength(SqliteConnection& connection) {
    std::error_code error;
    const auto logSize = std::filesystem::file_size(nativePath(connection.path() + "-wal"), error);
    if (!error && logSize > 0) return;
    const std::int64_t expected = numberOf(connection, "PRAGMA page_count") * numberOf(connection, "PRAGMA page_size");
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(nativePath(connection.path()), error));
    if (!error && size < expected)
        fail(Fault::cannotOpen, named(connection.path()) + " is damaged: it is cut short to " + std::to_string(size) + " of " +
                                    std::to_string(expected) + " bytes; choose another file or restore a backup.");
}

std::string lower(std::string_view name) {
    std::string result{name};
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return result;
}

/// One query for all tables of the reference schema, so that a host with many more of its own is opened as fast.
std::string presentColumnsText() {
    std::string text =
        "SELECT lower(t.name), lower(c.name) FROM sqlite_schema t JOIN pragma_table_info(t.name) c WHERE t.type = 'table' AND "
        "lower(t.name) IN (";
    std::string_view last;
    for (const auto& [table, name] : referenceColumns())
        if (table != std::exchange(last, table)) text += "'" + lower(table) + "',";
    text.back() = ')';
    return text;
}

using Columns = std::map<std::string, std::set<std::string>>;

/// By table, all names in lower case: their spelling is the host's affair.
Columns presentColumns(SqliteConnection& connection) {
    const auto statement = connection.prepare(presentColumnsText(), TextOrigin::adapter);
    const Run run{*statement};
    Columns present;
    while (run->step()) present[std::string{run->cell(0).text}].emplace(run->cell(1).text);
    return present;
}

void requireColumns(SqliteConnection& connection) {
    const Columns present = presentColumns(connection);
    std::string first;
    int more = -1;
    for (const auto& [table, name] : referenceColumns()) {
        const auto columns = present.find(lower(table));
        if (columns == present.end())
            fail(Fault::cannotOpen, named(connection.path()) + " lacks the table \"" + std::string{table} +
                                        "\"; choose a firm's file, or create one with \"tallowsync new-firm FILE\".");
        if (columns->second.contains(lower(name))) continue;
        if (++more == 0) first = "the column \"" + std::string{name} + "\" of the table \"" + std::string{table} + "\"";
    }
    if (more < 0) return;
    fail(Fault::cannotOpen,
         named(connection.path()) + " lacks " + first + (more > 0 ? " and " + std::to_string(more) + " more" : "") +
             "; add what is missing as docs/schema.md declares it, or choose a firm's file that this version made.");
}

/// Without writing beside the file its log cannot be read, and what stands in there is the newest.
void requireNoLog(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(nativePath(path + "-wal"), error);
    if (!error && size > 0)
        fail(Fault::cannotOpen, named(path) + " has changes in \"" + path +
                                    "-wal\" that cannot be read in a folder that cannot be written to; copy both files to "
                                    "another folder and open the copy.");
}

bool isReadOnly(const SqliteConnection& connection) {
    return sqlite3_db_readonly(connection.get(), "main") != 0;
}

/// A log that is begun by one who may only read is one that the file's owner cannot write to.
bool wouldBeginLog(const SqliteConnection& connection) {
    constexpr std::streamoff kFormatVersion = 18;
    std::ifstream file{nativePath(connection.path()), std::ios::binary};
    const bool isLogged = file.seekg(kFormatVersion).get() == 2;
    return isReadOnly(connection) && isLogged && !std::filesystem::exists(nativePath(connection.path() + "-shm"));
}

/// A file that may be written is opened so even for reading, with writing switched off, because only then the engine tidies up
/// its log at the end. One that cannot be written to, or lies in such a folder, is read as it lies there.
std::unique_ptr<SqliteConnection> connectForReading(const std::string& path, int timeout) {
    try {
        auto connection = std::make_unique<SqliteConnection>(path, SqliteConnection::Mode::readWrite, timeout);
        if (!wouldBeginLog(*connection)) {
            readTables(*connection);
            connection->execute("PRAGMA query_only = ON");
            return connection;
        }
    } catch (const DatabaseError& error) {
        const int code = error.number() & 0xFF;
        if (code != SQLITE_CANTOPEN && code != SQLITE_READONLY && code != SQLITE_PERM) throw;
    }
    requireNoLog(path);
    return std::make_unique<SqliteConnection>(path, SqliteConnection::Mode::immutable, timeout);
}

/// What others may be doing with a file that is opened for writing. Without a log also a program that only reads keeps all others
/// from storing what they write.
enum class OthersMay { read, doNothing };

/// Another program that holds the file, and a folder in which no journal can be made, show now and not in the middle of a run.
void requireWritable(SqliteConnection& connection, OthersMay others) {
    // With a log both come to the same.
    connection.execute(others == OthersMay::read ? "BEGIN IMMEDIATE" : "BEGIN EXCLUSIVE");
    connection.execute("PRAGMA user_version = 1");  // goes to the journal alone
    connection.execute("ROLLBACK");
}

std::unique_ptr<SqliteConnection> connectForWriting(const std::string& path, int timeout, OthersMay others) {
    auto connection = std::make_unique<SqliteConnection>(path, SqliteConnection::Mode::readWrite, timeout);
    if (isReadOnly(*connection))
        fail(Fault::readOnly, named(path) + " cannot be written to; change its permissions, or work on a copy.");
    readTables(*connection);
    requireWritable(*connection, others);
    return connection;
}

/// The log may grow to 16 MB before it is copied into the file: fewer syncs, and a bound to the file beside it.
void tune(SqliteConnection& connection, const SqliteOptions& options) {
    connection.execute(options.durability == Durability::full ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    connection.execute("PRAGMA wal_autocheckpoint = 4000");
    connection.execute("PRAGMA cache_size = -16384");
    connection.execute("PRAGMA temp_store = MEMORY");
}

std::unique_ptr<SqliteConnection> connect(const std::string& path, const SqliteOptions& options, OthersMay others) {
    requireFile(path);
    auto connection = options.readOnly ? connectForReading(path, options.busyTimeoutMilliseconds)
                                       : connectForWriting(path, options.busyTimeoutMilliseconds, others);
    tune(*connection, options);
    return connection;
}

}  // namespace

std::unique_ptr<SqliteConnection> connectToFirm(const std::string& path, const SqliteOptions& options) {
    try {
        auto connection = connect(path, options, options.dryRun ? OthersMay::read : OthersMay::doNothing);
        requireLength(*connection);
        requireColumns(*connection);
        return connection;
    } catch (const DatabaseError& error) {
        if (std::string_view{error.what()}.starts_with(named(path))) throw;
        failToOpen(path, error);
    }
}

std::unique_ptr<SqliteConnection> connectToStore(const std::string& path, const SqliteOptions& options) {
    return connect(path, options, OthersMay::read);
}

}  // namespace wmoutlook::sql

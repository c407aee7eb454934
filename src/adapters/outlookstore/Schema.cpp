#include "adapters/outlookstore/Schema.h"

#include "adapters/outlookstore/FolderStorage.h"
#include "adapters/outlookstore/SchemaUpdates.h"
#include "adapters/outlookstore/StoreCheck.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace wmoutlook::outlookstore {

namespace {

constexpr std::int64_t kApplicationID = 0x4F4C5354;  // "OLST"
constexpr std::int64_t kVersion = 3;
constexpr std::string_view kMaking = "making the file";
constexpr std::string_view kUpdating = "bringing the file up to date";
constexpr std::string_view kWayOut = "; name another file, or make one with \"tallowsync new-outlook FILE\"";

/// Numbers are never given twice: Folders by AUTOINCREMENT, Items by the highest number in use and HighestDeletedItem, which
/// spares the second write that AUTOINCREMENT costs with each new item. The keys are the indexed properties in lower
/// case, null when empty; StartKey of appointments and DueDateKey of tasks are whole seconds since day 0, null in other types.
/// Properties holds what ItemBlob.h describes.
constexpr std::string_view kTables = R"sql(
CREATE TABLE Stores (
    StoreNumber INTEGER PRIMARY KEY,
    StoreKey TEXT NOT NULL UNIQUE,
    Name TEXT NOT NULL,
    NameKey TEXT NOT NULL UNIQUE
);
CREATE TABLE Folders (
    FolderNumber INTEGER PRIMARY KEY AUTOINCREMENT,
    StoreNumber INTEGER NOT NULL REFERENCES Stores,
    ParentNumber INTEGER NOT NULL,
    Name TEXT NOT NULL,
    NameKey TEXT NOT NULL,
    ItemType INTEGER NOT NULL,
    Role INTEGER,
    UNIQUE (ParentNumber, NameKey),
    UNIQUE (StoreNumber, Role)
);
CREATE TABLE Items (
    ItemNumber INTEGER PRIMARY KEY,
    FolderNumber INTEGER NOT NULL REFERENCES Folders,
    ItemType INTEGER NOT NULL,
    Version INTEGER NOT NULL,
    Created REAL NOT NULL,
    Modified REAL NOT NULL,
    FileAsKey TEXT,
    FullNameKey TEXT,
    SubjectKey TEXT,
    Email1AddressKey TEXT,
    Properties BLOB NOT NULL,
    StartKey INTEGER,
    DueDateKey INTEGER
);
CREATE INDEX ItemsByFolder ON Items (FolderNumber);
CREATE INDEX ItemsByFileAs ON Items (FolderNumber, FileAsKey) WHERE FileAsKey IS NOT NULL;
CREATE INDEX ItemsByFullName ON Items (FolderNumber, FullNameKey) WHERE FullNameKey IS NOT NULL;
CREATE INDEX ItemsBySubject ON Items (FolderNumber, SubjectKey) WHERE SubjectKey IS NOT NULL;
CREATE INDEX ItemsByEmail1Address ON Items (FolderNumber, Email1AddressKey) WHERE Email1AddressKey IS NOT NULL;
CREATE TABLE Counters (Name TEXT PRIMARY KEY, Value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO Counters VALUES ('HighestDeletedItem', 0);
)sql";

std::string tables() {
    return std::string{kTables}.append(calendarTables()).append(mailTables());
}

/// What takes a file of version i + 1 to version i + 2.
constexpr std::array<void (*)(Connection& connection), kVersion - 1> kMigrations{addCalendar, addMails};

std::int64_t bigEndian(std::string_view bytes) {
    std::int64_t number = 0;
    for (const char c : bytes) number = number * 256 + static_cast<unsigned char>(c);
    return number;
}

[[noreturn]] void refuse(const std::string& path, std::string_view why) {
    throw OutlookError{-1, std::string{"The file \""}.append(path).append("\" ").append(why).append(kWayOut)};
}

void requireFile(const std::string& path) {
    if (path.empty()) throw OutlookError{-1, std::string{"The name of the Outlook store's file is empty"}.append(kWayOut)};
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    if (type == std::filesystem::file_type::not_found) refuse(path, "does not exist");
    if (type == std::filesystem::file_type::directory) refuse(path, "is a folder, not an Outlook store");
    if (type != std::filesystem::file_type::regular) refuse(path, "is no Outlook store");
}

void checkVersion(const Connection& connection, const std::string& path, std::int64_t version) {
    if (version < 1) connection.refuse("is damaged: its version is " + std::to_string(version));
    if (version > kVersion)
        throw OutlookError{-1, "The Outlook store \"" + path + "\" was made by a newer version of this program (file version " +
                                   std::to_string(version) + ", known up to " + std::to_string(kVersion) +
                                   "); open it with that one"};
}

/// The pages that the file's header counts are all there. What still stands in the log beside the file may end behind it.
void checkLength(const Connection& connection, const std::string& path, std::string_view header) {
    std::error_code error;
    const auto logSize = std::filesystem::file_size(path + "-wal", error);
    if (!error && logSize > 0) return;
    const std::int64_t pages = bigEndian(header.substr(28, 4));
    const std::int64_t pageSize = bigEndian(header.substr(16, 2));
    const std::int64_t expected = pages * (pageSize == 1 ? 65536 : pageSize);
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(path, error));
    if (!error && size < expected)
        connection.refuse("is damaged: it is cut short to " + std::to_string(size) + " of " + std::to_string(expected) +
                          " bytes");
}

/// By the file's own header, not by SQLite's reading, which would roll back or check point another program's file.
void checkHeader(const Connection& connection, const std::string& path) {
    constexpr std::string_view kMagic{"SQLite format 3\0", 16};
    const std::string header = connection.firstBytes(100);
    if (!header.starts_with(kMagic)) refuse(path, "is no Outlook store");
    const std::string_view bytes = header;
    if (bigEndian(bytes.substr(68, 4)) != kApplicationID) refuse(path, "is no Outlook store but another kind of database");
    checkVersion(connection, path, bigEndian(bytes.substr(60, 4)));
    checkLength(connection, path, bytes);
}

std::string setVersion() {
    return "PRAGMA user_version = " + std::to_string(kVersion) + ";";
}

/// What every run needs and what no update makes: to be known before anything is written.
void requireWhole(Connection& connection) {
    Connection model{":memory:", 0};
    model.execute(tables(), "making the tables to compare with");
    requireShape(connection, model);
    requireRows(connection);
    FolderStorage{connection}.requireDefaultFolders();
}

std::int64_t versionOf(Connection& connection) {
    Statement statement{connection, "PRAGMA user_version", "reading the file's version"};
    auto run = statement.run();
    return run.next() ? run.integer(0) : 0;
}

void checkAndMigrate(Connection& connection, const std::string& path) {
    if (versionOf(connection) == kVersion) return requireWhole(connection);
    Savepoint whole{connection, kUpdating};
    std::int64_t version = versionOf(connection);  // another program may have brought it up to date meanwhile
    checkVersion(connection, path, version);
    for (; version < kVersion; ++version) kMigrations.at(static_cast<std::size_t>(version - 1))(connection);
    requireWhole(connection);  // a store that lacks something stays as it was
    connection.execute(setVersion(), kUpdating);
    whole.release();
}

void setDurability(Connection& connection, Durability durability) {
    // A saved item takes about ten pages of the log: with 4,000 of them the log is synced once in some 400 items.
    connection.execute(std::string{"PRAGMA synchronous = "} + (durability == Durability::full ? "FULL" : "NORMAL") +
                           "; PRAGMA wal_autocheckpoint = 4000; PRAGMA cache_size = -32000; PRAGMA cell_size_check = ON;",
                       "opening it");
}

}  // namespace

void createStoreFile(const std::string& path, const std::function<void(Connection&)>& fill) {
    if (path.empty()) throw OutlookError{-1, "The name of the new Outlook store's file is empty; name another one"};
    // Opened for exclusive creation: a file that another process makes at this moment is not overwritten either.
    std::FILE* const file = std::fopen(path.c_str(), "wbx");
    std::error_code error;
    if (file == nullptr)
        throw OutlookError{
            -1, "The file \"" + path +
                    (std::filesystem::exists(path, error) ? "\" exists already; name another one"
                                                          : "\" cannot be made; name one in a folder that can be written to")};
    std::fclose(file);
    try {
        Connection connection{path, 0};
        Savepoint whole{connection, kMaking};
        connection.execute("PRAGMA application_id = " + std::to_string(kApplicationID) + ";" + setVersion() + tables(), kMaking);
        fill(connection);
        whole.release();
        connection.execute("PRAGMA journal_mode = WAL", kMaking);
    } catch (const OutlookError&) {
        std::filesystem::remove(path, error);
        throw;
    }
}

std::unique_ptr<Connection> openStoreFile(const std::string& path, Durability durability, int busyTimeoutMilliseconds) {
    requireFile(path);
    auto connection = std::make_unique<Connection>(path, busyTimeoutMilliseconds);
    checkHeader(*connection, path);
    if (connection->isReadOnly())
        throw OutlookError{-1,
                           "The Outlook store \"" + path + "\" cannot be written to; give this user the right to write the file"};
    setDurability(*connection, durability);
    checkAndMigrate(*connection, path);
    return connection;
}

}  // namespace wmoutlook::outlookstore

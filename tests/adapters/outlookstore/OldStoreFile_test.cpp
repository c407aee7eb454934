#include "TestStore.h"
#include "adapters/outlookstore/ItemBlob.h"
#include "platform/Errors.h"

#include <sqlite3.h>
#include <fstream>
#include <iterator>

namespace wmoutlook::testing {

namespace {

/// The tables as version 1 made them, with the folders that every store has.
constexpr const char* kVersion1 = R"sql(
PRAGMA application_id = 1330402132; PRAGMA user_version = 1;
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
    Properties BLOB NOT NULL
);
CREATE INDEX ItemsByFolder ON Items (FolderNumber);
CREATE INDEX ItemsByFileAs ON Items (FolderNumber, FileAsKey) WHERE FileAsKey IS NOT NULL;
CREATE INDEX ItemsByFullName ON Items (FolderNumber, FullNameKey) WHERE FullNameKey IS NOT NULL;
CREATE INDEX ItemsBySubject ON Items (FolderNumber, SubjectKey) WHERE SubjectKey IS NOT NULL;
CREATE INDEX ItemsByEmail1Address ON Items (FolderNumber, Email1AddressKey) WHERE Email1AddressKey IS NOT NULL;
CREATE TABLE Counters (Name TEXT PRIMARY KEY, Value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO Counters VALUES ('HighestDeletedItem', 0);
INSERT INTO Stores VALUES (1, '0123456789ABCDEF0123456789ABCDEF', 'Personal Folders', 'personal folders');
INSERT INTO Folders VALUES (1, 1, 0, 'Personal Folders', 'personal folders', 0, NULL),
    (2, 1, 1, 'Deleted Items', 'deleted items', 0, 3), (3, 1, 1, 'Inbox', 'inbox', 0, 6), (4, 1, 1, 'Outbox', 'outbox', 0, 4),
    (5, 1, 1, 'Sent Items', 'sent items', 0, 5), (6, 1, 1, 'Calendar', 'calendar', 1, 9),
    (7, 1, 1, 'Contacts', 'contacts', 2, 10), (8, 1, 1, 'Drafts', 'drafts', 0, 16), (9, 1, 1, 'Tasks', 'tasks', 3, 13);
)sql";

class OldFile {
public:
    explicit OldFile(const std::string& path) {
        sqlite3_open(path.c_str(), &handle_);
        run(kVersion1);
    }
    OldFile(const OldFile&) = delete;
    OldFile& operator=(const OldFile&) = delete;
    ~OldFile() { sqlite3_close(handle_); }

    void run(const std::string& sql) { EXPECT_EQ(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK); }
    void add(std::int64_t folder, outlook::ItemType type, std::string_view property, const Variant& value) {
        outlookstore::ItemData item{type};
        item.set(item.table().find(property).value(), value);
        std::string bytes;
        outlookstore::encodeItem(item, bytes);
        std::string digits;
        for (const char c : bytes) {
            constexpr const char* kDigits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            digits.append({kDigits[byte / 16], kDigits[byte % 16]});
        }
        run("INSERT INTO Items VALUES (NULL, " + std::to_string(folder) + ", " + std::to_string(static_cast<int>(type)) +
            ", 1, 46000, 46000, NULL, NULL, NULL, NULL, x'" + digits + "')");
    }

private:
    sqlite3* handle_ = nullptr;
};

TEST(OldStoreFile, AFileOfVersion1IsBroughtUpToDateWithItsItems) {
    const TestFolder folder;
    const std::string path = folder.file("old.db");
    {
        OldFile old{path};
        old.add(6, outlook::ItemType::appointment, "Start", *makeDate({2026, 11, 24, 9, 0, 0}));
        old.add(6, outlook::ItemType::appointment, "Start", *makeDate({2026, 11, 23, 9, 0, 0}));
        old.add(6, outlook::ItemType::appointment, "Location", "Room 1");
        old.add(7, outlook::ItemType::contact, "FileAs", "Tremblay, Zoé");
        old.add(9, outlook::ItemType::task, "DueDate", makeDay(2026, 11, 30));
        old.add(9, outlook::ItemType::task, "DueDate", makeDay(2026, 11, 29));
        old.run("INSERT INTO Items VALUES (NULL, 6, 1, 1, 46000, 46000, NULL, NULL, NULL, NULL, x'FF')");
    }
    const auto keysOf = [&] {
        sqlite3* file = nullptr;
        sqlite3_open(path.c_str(), &file);
        std::string keys;
        const auto take = [](void* to, int, char** values, char**) {
            return static_cast<std::string*>(to)->append(values[0]).append(" "), 0;
        };
        sqlite3_exec(file, "SELECT ifnull(StartKey, '-') || '/' || ifnull(DueDateKey, '-') FROM Items ORDER BY ItemNumber", take,
                     &keys, nullptr);
        sqlite3_close(file);
        return keys;
    };
    const auto seconds = [](Date date) { return std::to_string(secondsSinceDayZero(date)); };
    for (int opening = 0; opening < 2; ++opening) {
        const Session session{path};
        EXPECT_EQ(session.contacts->items()->count(), 1);
        const auto mail = session.application->createItem(outlook::ItemType::mail);
        mail->recipients()->add("anne@example.ca");
        EXPECT_NO_THROW(mail->send());
    }
    const std::string absent = seconds(absentDate()) + "/- ";
    EXPECT_EQ(keysOf(), seconds(*makeDate({2026, 11, 24, 9, 0, 0})) + "/- " + seconds(*makeDate({2026, 11, 23, 9, 0, 0})) +
                            "/- " + absent + "-/- -/" + seconds(makeDay(2026, 11, 30)) + " -/" + seconds(makeDay(2026, 11, 29)) +
                            " " + absent + "-/- -/- ")
        << "an item that cannot be read hinders nobody";
}

TEST(OldStoreFile, OneThatLacksWhatNoUpdateMakesIsRefusedAndNotUpdated) {
    const TestFolder folder;
    const std::string path = folder.file("old.db");
    const auto bytes = [&] {
        std::ifstream file{path, std::ios::binary};
        return std::string{std::istreambuf_iterator<char>{file}, {}};
    };
    struct Case {
        std::string damage, said;
    };
    for (const Case& c :
         {Case{"DROP TABLE Items", "no such table: Items"}, Case{"DROP TABLE Counters", R"(the table "Counters")"},
          Case{"ALTER TABLE Items DROP COLUMN Modified", R"(the column "Modified")"},
          Case{"UPDATE Folders SET Role = NULL WHERE Role = 13", R"(the default folder "Tasks")"}}) {
        SCOPED_TRACE(c.damage);
        std::filesystem::remove(path);
        OldFile{path}.run(c.damage);
        const std::string before = bytes();
        try {
            static_cast<void>(openOutlookStore(path));
            ADD_FAILURE() << "it was opened";
        } catch (const OutlookError& error) {
            EXPECT_NE(std::string{error.what()}.find(c.said), std::string::npos) << error.what();
            EXPECT_NE(std::string{error.what()}.find("; restore a backup"), std::string::npos) << error.what();
        }
        EXPECT_EQ(bytes(), before);
    }
}

}  // namespace

}  // namespace wmoutlook::testing

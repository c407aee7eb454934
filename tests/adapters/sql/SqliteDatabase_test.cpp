#include "tests/adapters/sql/HostDatabaseContract.h"

#include "adapters/sql/BulkInsert.h"
#include "adapters/sql/SqliteDatabase.h"
#include "tests/support/Files.h"
#include "tests/support/RawDatabase.h"

#include <fstream>

namespace wmoutlook {
namespace {

using wmoutlook::testing::bytesOf;
using wmoutlook::testing::RawDatabase;

std::shared_ptr<HostDatabase> openEmptySqlite(const std::filesystem::path& folder) {
    const std::string path = (folder / "firm.tallow").string();
    createSqliteDatabase(path);
    return openSqliteDatabase(path);
}

INSTANTIATE_TEST_SUITE_P(Sqlite, HostDatabaseContract, ::testing::Values(HostDatabaseEngine{"Sqlite", openEmptySqlite}),
                         [](const auto& engine) { return engine.param.name; });

class SqliteFile : public ::testing::Test {
protected:
    std::string path(std::string_view name = "firm.tallow") const { return (folder_.path() / name).string(); }
    std::string create() const {
        createSqliteDatabase(path());
        return path();
    }
    std::string write(std::string_view name, std::string_view content) const {
        std::ofstream{path(name), std::ios::binary} << content;
        return path(name);
    }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator{folder_.path()})
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    static std::string messageOfOpening(const std::string& file, SqliteOptions options = {}) {
        options.busyTimeoutMilliseconds = 20;
        try {
            (void)openSqliteDatabase(file, options);
        } catch (const DatabaseError& error) {
            return error.what();
        }
        return "it was opened";
    }
    static std::string first(HostDatabase& database, std::string_view sql, std::string_view field) {
        const auto rows = database.openRecordset(sql, LockCode::readOnly);
        const std::string value = database.hasRows(rows) ? database.getField(rows, field).toText() : "no row";
        database.closeRecordset(rows);
        return value;
    }

    TestFolder folder_;
};

TEST_F(SqliteFile, AFileThatIsNoFirmIsRefusedByNameAndStaysAsItIs) {
    const std::string firm = create();
    const std::string lacking = path("lacking");
    std::filesystem::copy_file(firm, lacking);
    RawDatabase{lacking}.run("DROP TABLE Reminders");
    const auto withoutColumns = [&](std::string_view name, const std::string& change) {
        std::filesystem::copy_file(firm, path(name));
        RawDatabase{path(name)}.run(change);
        return path(name);
    };
    std::filesystem::create_directory(path("folder"));
    struct Case {
        std::string file, said;
    };
    for (const Case& c :
         {Case{path("missing"), "does not exist"},
          {path("folder"), "is a folder; "},
          {"", "has no name; "},
          {"/dev/null", "not a regular file"},
          {write("letter.txt",
                 "Dear Sir, this is a letter of more than a hundred bytes, so that it could have the head of a database, "
                 "which it has not."),
           "no database"},
          {write("broken", bytesOf(firm).substr(0, 5000)), "damaged"},
          {write("cut", bytesOf(firm).substr(0, bytesOf(firm).size() - 1)), "is damaged: it is cut short to "},
          {write("empty", ""), "lacks the table"},
          {withoutColumns("oldContacts", "ALTER TABLE Contacts DROP COLUMN Gender"),
           R"(lacks the column "Gender" of the table "Contacts"; add )"},
          {withoutColumns("oldLinks",
                          "ALTER TABLE OutlookSync DROP COLUMN RepeatNum; ALTER TABLE OutlookScheme RENAME COLUMN "
                          "SchemeName TO Name; ALTER TABLE Companies DROP COLUMN WebSite"),
           R"(lacks the column "WebSite" of the table "Companies" and 2 more; add )"},
          {lacking, "lacks the table \"Reminders\""}}) {
        SCOPED_TRACE(c.file);
        const auto before = files();
        const std::string content = bytesOf(c.file);
        const std::string message = messageOfOpening(c.file);
        EXPECT_EQ(message.rfind("The database file \"" + c.file + "\" ", 0), 0U) << message;
        EXPECT_NE(message.find(c.said), std::string::npos) << message;
        EXPECT_EQ(files(), before);
        EXPECT_EQ(bytesOf(c.file), content);
    }
}

TEST_F(SqliteFile, AHostMaySpellNamesItsWayAndHaveMore) {
    RawDatabase{create()}.run(
        "CREATE TABLE Invoices (InvoiceID, Total); ALTER TABLE Contacts ADD COLUMN Nickname; ALTER TABLE Contacts RENAME COLUMN "
        "Gender TO gENDER; ALTER TABLE Reminders RENAME TO Renamed; ALTER TABLE Renamed RENAME TO REMINDERS");
    const auto database = openSqliteDatabase(path());
    addRow(*database, "Contacts", {{"DisplayName", "Ann"}, {"Gender", "1"}});
    EXPECT_EQ(first(*database, "SELECT Contacts.* FROM Contacts;", "Gender"), "1");
}

TEST_F(SqliteFile, AFileThatAnotherProgramHoldsIsSaidToBeLocked) {
    const RawDatabase other{create()};
    other.run("BEGIN IMMEDIATE");
    EXPECT_NE(messageOfOpening(path()).find("locked by another program"), std::string::npos);
    EXPECT_EQ(messageOfOpening(path(), {.readOnly = true}), "it was opened");
    other.run("ROLLBACK");
    EXPECT_EQ(messageOfOpening(path()), "it was opened");
}

TEST_F(SqliteFile, AWriteWhileAnotherProgramHoldsTheFileIsAnErrorAndCanBeTriedAgain) {
    const auto database = openSqliteDatabase(create(), {.busyTimeoutMilliseconds = 10});
    addRow(*database, "Contacts", {{"DisplayName", "Ann"}});
    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    const RawDatabase other{path()};
    other.run("BEGIN IMMEDIATE");
    EXPECT_THROW(database->updateField(rows, "LastName", "Roy"), DatabaseError);
    EXPECT_EQ(database->getField(rows, "LastName"), Variant{});
    other.run("ROLLBACK");
    database->updateField(rows, "LastName", "Roy");
    EXPECT_EQ(database->getField(rows, "LastName"), Variant{"Roy"});
}

TEST_F(SqliteFile, AFileWithoutALogGetsOneWithTheFirstWrite) {
    const auto journal = [&] {
        std::ifstream file{path(), std::ios::binary};
        file.seekg(18);  // the version of the file's format: 2 is the one with a log
        return file.get();
    };
    RawDatabase{create()}.run("PRAGMA journal_mode = DELETE");
    const auto database = openSqliteDatabase(path());
    EXPECT_EQ(first(*database, "SELECT CompanyName FROM Companies;", "CompanyName"), "no row");
    EXPECT_EQ(journal(), 1);
    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    const RawDatabase other{path()};
    other.run("BEGIN; SELECT * FROM Contacts");
    EXPECT_THROW(addRow(*database, "Contacts", {{"DisplayName", "Ann"}}), DatabaseError);
    other.run("COMMIT");
    addRow(*database, "Contacts", {{"DisplayName", "Ann"}});
    EXPECT_EQ(journal(), 2);
    database->closeRecordset(rows);
}

TEST_F(SqliteFile, WhatAnotherProgramDeletesIsNoticed) {
    const auto database = openSqliteDatabase(create());
    for (const std::string_view name : {"Ann", "Bob", "Cid"}) addRow(*database, "Contacts", {{"DisplayName", name}});
    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    database->moveNext(rows);
    (void)database->recordCount(rows);
    RawDatabase{path()}.run("DELETE FROM Contacts WHERE ContactID > 1");
    EXPECT_THROW(database->updateField(rows, "DisplayName", "Bob"), DatabaseError);
    database->moveNext(rows);
    EXPECT_TRUE(database->isEndOfRecordset(rows));
}

TEST_F(SqliteFile, WhatAnotherProgramWritesIsSeenBeforeItIsWrittenOver) {
    const auto database = openSqliteDatabase(create());
    for (const std::string_view name : {"Ann", "Bob"}) addRow(*database, "Contacts", {{"DisplayName", name}});
    const auto walk = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::readOnly);
    (void)database->moveFirst(walk);  // reads share a view from here on
    RawDatabase{path()}.run("UPDATE Contacts SET DisplayName = 'Intruder' WHERE ContactID = 2");
    RawDatabase{path()}.run("INSERT INTO Contacts (DisplayName) VALUES ('New')");
    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    EXPECT_TRUE(database->findFirst(rows, "DisplayName", "New"));  // otherwise the caller would add it once more
    ASSERT_TRUE(database->findFirst(rows, "ContactID", "2"));
    database->updateField(rows, "DisplayName", "Bob");
    EXPECT_EQ(first(*database, "SELECT DisplayName FROM Contacts WHERE ContactID = 2", "DisplayName"), "Bob");
}

TEST_F(SqliteFile, ColumnsThatAnotherProgramAddsOrDropsLeadToNoOtherRow) {
    create();
    RawDatabase{path()}.run("ALTER TABLE Contacts ADD COLUMN Early INTEGER DEFAULT 2");
    const auto database = openSqliteDatabase(path());
    for (const std::string_view name : {"Ann", "Bob", "Cid"})
        addRow(*database, "Contacts", {{"DisplayName", name}, {"Early", "2"}});
    const auto open = [&] { return database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable); };
    const auto rows = open();
    (void)database->moveFirst(rows);
    RawDatabase{path()}.run("ALTER TABLE Contacts ADD COLUMN Rank INTEGER DEFAULT 3");
    database->updateField(rows, "HomeCity", "Ottawa");
    database->moveNext(rows);
    database->deleteRecord(rows);
    const auto again = open();
    EXPECT_EQ(walk(*database, again, "DisplayName"), (std::vector<std::string>{"Ann", "Cid"}));
    EXPECT_EQ(first(*database, "SELECT HomeCity FROM Contacts WHERE ContactID = 1", "HomeCity"), "Ottawa");

    RawDatabase{path()}.run("ALTER TABLE Contacts DROP COLUMN Early");
    EXPECT_THROW((void)database->findFirst(open(), "ContactID", "1"), DatabaseError);
}

TEST_F(SqliteFile, FileWithoutALogIsNotKeptFromOthers) {
    const std::string local = path("local.db");
    RawDatabase{local}.run("CREATE TABLE OutlookLogin (ProfileName)");
    const auto store = openSqliteDatabase(create())->openLocalStore(local, "");
    ASSERT_NE(store, nullptr);
    (void)store->hasRows(store->openRecordset("SELECT OutlookLogin.* FROM OutlookLogin;", LockCode::readOnly));
    RawDatabase{local}.run("INSERT INTO OutlookLogin VALUES ('Office')");
}

TEST_F(SqliteFile, TwoProgramsAreNeverGivenTheSameNumber) {
    const auto here = openSqliteDatabase(create());
    const auto there = openSqliteDatabase(path());
    std::vector<std::string> numbers;
    for (int i = 0; i < 3; ++i) {
        for (HostDatabase* const database : {here.get(), there.get()}) {
            const auto rows = database->openRecordset("SELECT Companies.* FROM Companies;", LockCode::updatable);
            database->addNewRecord(rows);
            numbers.push_back(database->getField(rows, "CompanyID").toText());
            if (i != 1) database->saveNewRecord(rows);
        }
    }
    EXPECT_EQ(numbers, (std::vector<std::string>{"1", "2", "3", "4", "5", "6"}));
}

TEST_F(SqliteFile, ADryRunIsUndoneAtTheEnd) {
    create();
    {
        const auto database = openSqliteDatabase(path());
        addRow(*database, "Contacts", {{"DisplayName", "Ann"}});
    }
    const std::string before = bytesOf(path());
    {
        const auto database = openSqliteDatabase(path(), {.dryRun = true});
        addRow(*database, "Contacts", {{"DisplayName", "Bob"}});
        const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
        database->updateField(rows, "DisplayName", "Eve");
        EXPECT_EQ(first(*database, "SELECT DisplayName FROM Contacts WHERE ContactID = 2", "DisplayName"), "Bob");
    }
    EXPECT_EQ(bytesOf(path()), before);
    EXPECT_EQ(files(), (std::vector<std::string>{"firm.tallow"}));
}

TEST_F(SqliteFile, OpenedForReadingItCannotBeWritten) {
    create();
    const std::string before = bytesOf(path());
    {
        const auto database = openSqliteDatabase(path(), {.readOnly = true});
        EXPECT_THROW(addRow(*database, "Contacts", {{"DisplayName", "Ann"}}), DatabaseError);
        EXPECT_EQ(first(*database, "SELECT DisplayName FROM Contacts", "DisplayName"), "no row");
    }
    EXPECT_EQ(bytesOf(path()), before);
    EXPECT_EQ(files(), (std::vector<std::string>{"firm.tallow"}));
}

TEST_F(SqliteFile, CreatingNeverTouchesAFileThatIsThere) {
    write("firm.tallow", "something else");
    EXPECT_THROW(createSqliteDatabase(path()), DatabaseError);
    EXPECT_EQ(bytesOf(path()), "something else");
    EXPECT_THROW(createSqliteDatabase(path("no/such/folder")), DatabaseError);
}

TEST_F(SqliteFile, ALocalStoreNeedsNoTablesOfAFirm) {
    const auto database = openSqliteDatabase(create());
    RawDatabase{path("legacy.mdb")}.run(
        "CREATE TABLE OutlookLogin (ProfileName Text(100)); INSERT INTO OutlookLogin VALUES ('Old');");
    const std::string before = bytesOf(path("legacy.mdb"));
    const auto store = database->openLocalStore(path("legacy.mdb"), "secret");
    ASSERT_TRUE(store->isDatabaseOpen());
    EXPECT_EQ(first(*store, "SELECT OutlookLogin.* From OutlookLogin;", "ProfileName"), "Old");
    EXPECT_EQ(bytesOf(path("legacy.mdb")), before);
    store->updateField(store->openRecordset("SELECT OutlookLogin.* From OutlookLogin;", LockCode::updatable), "ProfileName",
                       "New");
    store->closeDatabase();
    EXPECT_EQ(bytesOf(path("legacy.mdb"))[18], before[18]) << "it keeps the journal that its own program knows";
    EXPECT_FALSE(database->openLocalStore(write("text", std::string(200, 'x')), "")->isDatabaseOpen());
}

TEST_F(SqliteFile, ATextCanReachNothingButTheHostsTables) {
    const auto database = openSqliteDatabase(create());
    for (const std::string_view sql :
         {"SELECT name FROM sqlite_schema", "SELECT * FROM sqlite_sequence", "SELECT * FROM pragma_table_info('Contacts')",
          "SELECT load_extension('x') FROM Contacts", "SELECT randomblob(1000000000) FROM Contacts",
          "SELECT zeroblob(9) FROM Contacts", "SELECT * FROM Contacts WHERE ContactID IN (SELECT rootpage FROM sqlite_schema)",
          "SELECT sqlite_version() FROM Contacts"}) {
        SCOPED_TRACE(sql);
        EXPECT_THROW((void)database->openRecordset(sql, LockCode::updatable), DatabaseError);
    }
}

TEST_F(SqliteFile, TextsThatDifferInTheirLiteralsShareTheirStatements) {
    create();
    constexpr int kContacts = 50;
    {
        BulkInsert bulk{path()};
        bulk.into("Contacts", {"DisplayName", "Birthday", "InheritCompanyInfo"});
        for (int i = 0; i < kContacts; ++i) bulk.insert({Variant{"Person"}, Variant{makeDay(1980, 1, 2)}, Variant{true}});
        bulk.commit();
    }
    const auto database = openSqliteDatabase(path());
    std::int64_t afterTwo = 0;
    const auto walked = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::readOnly);
    for (int i = 1; i <= kContacts; ++i, database->moveNext(walked)) {
        const std::string id = database->getField(walked, "ContactID").toText();
        const std::string store = i % 2 == 0 ? "it''s" : "x";
        EXPECT_EQ(first(*database,
                        "SELECT Contacts.ContactID, Contacts.Birthday FROM Contacts WHERE ContactID=" + id +
                            " AND Birthday = #1980-01-02#;",
                        "ContactID"),
                  id);
        const auto links = database->openRecordset(
            "SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'D' AND FolderStoreID = '" + store + "';",
            LockCode::updatable);
        for (int pass = 0; pass < 2; ++pass) {
            if (database->findFirst(links, "ContactNum", id)) {
                database->updateField(links, "OutlookID", "E" + id);
            } else {
                database->addNewRecord(links);
                for (const auto& [field, value] :
                     Values{{"DataFileID", "D"}, {"FolderStoreID", i % 2 == 0 ? "it's" : "x"}, {"ContactNum", id}})
                    database->setNewField(links, field, value);
                database->saveNewRecord(links);
            }
        }
        database->closeRecordset(links);
        if (i == 2) afterTwo = sqlStatistics(*database).preparedStatements;
    }
    EXPECT_EQ(sqlStatistics(*database).preparedStatements, afterTwo);
}

/// What one fresh search costs the engine in a file of so many contacts.
std::int64_t stepsOfSearch(const std::string& path, int contacts, std::string_view field) {
    createSqliteDatabase(path);
    {
        BulkInsert bulk{path};
        bulk.into("Contacts", {"DisplayName"});
        for (int i = 0; i < contacts; ++i) bulk.insert({Variant{"Person " + std::to_string(i)}});
        bulk.into("OutlookSync", {"DataFileID", "FolderStoreID", "ContactNum", "OutlookID"});
        for (int i = 1; i <= contacts; ++i)
            bulk.insert({Variant{"D"}, Variant{"S"}, Variant{i}, Variant{"E" + std::to_string(i)}});
        bulk.commit();
    }
    const auto database = openSqliteDatabase(path);
    const bool isContact = field == "ContactID";
    const auto searchOnce = [&](const std::string& value) {
        const auto rows = database->openRecordset(
            isContact ? "SELECT Contacts.* FROM Contacts;"
                      : "SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'D' AND FolderStoreID = 'S';",
            LockCode::readOnly);
        EXPECT_TRUE(database->findFirst(rows, field, value));
        EXPECT_EQ(database->getField(rows, isContact ? "ContactID" : "ContactNum"), Variant{contacts - 1});
        database->closeRecordset(rows);
    };
    const std::string value = (field == "OutlookID" ? "E" : "") + std::to_string(contacts - 1);
    searchOnce(value);
    const SqlStatistics before = sqlStatistics(*database);
    searchOnce(value);
    const SqlStatistics after = sqlStatistics(*database);
    EXPECT_EQ(after.scannedRows, before.scannedRows);
    return after.engineSteps - before.engineSteps;
}

TEST_F(SqliteFile, AFreshSearchCostsTheSameInALargeFile) {
    for (const std::string_view field : {"ContactID", "ContactNum", "OutlookID"}) {
        SCOPED_TRACE(field);
        const std::int64_t small = stepsOfSearch(path("small" + std::string{field}), 10, field);
        const std::int64_t large = stepsOfSearch(path("large" + std::string{field}), 5000, field);
        EXPECT_GT(small, 0);
        EXPECT_EQ(small, large);
    }
}

TEST_F(SqliteFile, ASetThatIsSearchedAgainByAFieldWithoutAKeyReadsItsRowsOnce) {
    create();
    constexpr int kRows = 300;
    {
        BulkInsert bulk{path()};
        bulk.into("Contacts", {"LastName"});
        for (int i = 0; i < kRows; ++i) bulk.insert({Variant{"Name" + std::to_string(i)}});
        bulk.commit();
    }
    const auto database = openSqliteDatabase(path());
    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::readOnly);
    for (int i = kRows - 1; i >= 0; --i) {
        ASSERT_TRUE(database->findFirst(rows, "LastName", "NAME" + std::to_string(i)));
        ASSERT_EQ(database->getField(rows, "ContactID"), Variant{i + 1});
    }
    EXPECT_LE(sqlStatistics(*database).scannedRows, 4 * kRows);
}

TEST_F(SqliteFile, AnEqualValueIsNotWritten) {
    const auto database = openSqliteDatabase(create());
    addRow(*database, "Contacts", {{"DisplayName", "Ann"}, {"Birthday", "1980-01-02"}, {"InheritCompanyInfo", "True"}});
    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    const auto logSize = [&] { return std::filesystem::file_size(path() + "-wal"); };
    const auto before = logSize();
    for (const auto& [field, value] :
         Values{{"DisplayName", "Ann"}, {"Birthday", "January 2, 1980"}, {"InheritCompanyInfo", "True"}})
        database->updateField(rows, field, value);
    EXPECT_EQ(logSize(), before);
    database->updateField(rows, "DisplayName", "ANN");
    EXPECT_GT(logSize(), before);
}

TEST_F(SqliteFile, BulkRowsAreWrittenAllOrNone) {
    create();
    for (const bool isCommitted : {false, true}) {
        BulkInsert bulk{path()};
        bulk.into("Contacts", {"DisplayName", "Birthday"});
        EXPECT_EQ(bulk.insert({Variant{"Ann"}, Variant{makeDay(1885, 3, 1)}}), 1);
        EXPECT_THROW(bulk.insert({Variant{"too few"}}), DatabaseError);
        if (isCommitted) bulk.commit();
        EXPECT_THROW(bulk.into("Contacts", {"NoSuchField"}), DatabaseError);
        EXPECT_THROW(bulk.insert({Variant{"Bob"}, Variant{}}), DatabaseError);  // not into the table before
    }
    {
        BulkInsert bulk{path()};
        bulk.into("DataVersion", {"DataUniqueID"});
        EXPECT_THROW(bulk.insert({Variant{std::string(100, 'x') + std::string(1, '\0')}, Variant{}}), DatabaseError);
    }
    const auto database = openSqliteDatabase(path());
    EXPECT_EQ(first(*database, "SELECT Birthday FROM Contacts", "Birthday"), "1885-03-01");
    EXPECT_EQ(first(*database, "SELECT COUNT(*) AS Number FROM Contacts", "Number"), "1");
}

}  // namespace
}  // namespace wmoutlook

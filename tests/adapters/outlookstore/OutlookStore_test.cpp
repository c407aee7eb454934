#include "adapters/outlookstore/OutlookStore.h"

#include "OutlookContract.h"
#include "TestStore.h"
#include "adapters/outlookstore/StoreAutomation.h"
#include "tests/support/Files.h"
#include "tests/support/RawDatabase.h"

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <fstream>
#include <set>

namespace wmoutlook::testing {

namespace {

INSTANTIATE_TEST_SUITE_P(EmbeddedStore, OutlookContract,
                         ::testing::Values(OutlookUnderTest{
                             "EmbeddedStore",
                             [] {
                                 static int count =
                                     0;  // a contract test opens one session; its file lies in memory's folder until the next run
                                 const auto path =
                                     std::filesystem::temp_directory_path() /
                                     ("outlookcontract-" + std::to_string(getpid()) + "-" + std::to_string(++count));
                                 SeededRandom random;
                                 createOutlookStore(path.string(), random);
                                 auto application = openOutlookStore(path.string())->getRunning();
                                 for (const auto* const part : {"", "-wal", "-shm"})
                                     std::filesystem::remove(path.string() + part);  // open files live on
                                 return application;
                             }}),
                         [](const auto& test) { return test.param.name; });

class OutlookStoreFile : public ::testing::Test {
protected:
    void SetUp() override {
        SeededRandom random;
        createOutlookStore(path, random);
    }
    TestFolder folder;
    std::string path = folder.file("outlook.db");
};

TEST_F(OutlookStoreFile, AnotherKindOfFileIsRefusedInOneSentenceAndStaysAsItIs) {
    const std::string store = bytesOf(path);
    const auto make = [&](std::string_view name, std::string_view bytes) {
        std::ofstream{folder.file(name), std::ios::binary} << bytes;
    };
    make("empty.db", "");
    make("short.db", "SQLite format 3");
    make("letter.txt", std::string(5000, 'x'));
    make("cut.db", store.substr(0, 60));
    std::string other = store;
    other.replace(68, 4, std::string(4, '\0'));
    make("firm.db", other);
    std::string newer = store;
    newer[63] = '\x63';
    make("newer.db", newer);
    std::filesystem::create_directory(folder.file("folder.db"));
    EXPECT_NE(messageOf([] { static_cast<void>(openOutlookStore("")); }).find("is empty; "), std::string::npos);
    for (const auto* name : {"missing.db", "empty.db", "short.db", "letter.txt", "cut.db", "firm.db", "newer.db", "folder.db"}) {
        SCOPED_TRACE(name);
        const std::string before = bytesOf(folder.file(name));
        const std::string message = messageOf([&] { static_cast<void>(openOutlookStore(folder.file(name))); });
        EXPECT_NE(message.find('"' + folder.file(name) + '"'), std::string::npos) << message;
        EXPECT_NE(message.find("; "), std::string::npos) << "it names the way out: " << message;
        EXPECT_EQ(message.find('\n'), std::string::npos);
        EXPECT_EQ(bytesOf(folder.file(name)), before);
        for (const auto* const side : {"-wal", "-shm", "-journal"})
            EXPECT_FALSE(std::filesystem::exists(folder.file(name) + side));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing.db")));
}

TEST_F(OutlookStoreFile, MakingOneNeverTouchesWhatIsThere) {
    const std::string before = bytesOf(path);
    SeededRandom random{2};
    EXPECT_NE(messageOf([&] { createOutlookStore(path, random); }).find("exists already"), std::string::npos);
    EXPECT_NE(messageOf([&] { createOutlookStore(folder.file("no/such/folder.db"), random); }).find("cannot be made"),
              std::string::npos);
    EXPECT_EQ(bytesOf(path), before);
}

TEST_F(OutlookStoreFile, DamageIsAnErrorAndTheWalkGoesOnBehindIt) {
    {
        const Session session{path};
        for (const auto* name : {"First", "Broken", "Last"}) session.add(name);
    }
    for (const auto* const bytes :
         {"x''", "x'02'", "x'0165'", "x'01650105'", "x'016503'", "x'0165FFFFFFFFFFFFFFFFFFFF01'", "x'01FE7F0100'",
          "x'010001014101FF'", "x'01000901410100'", "x'01FA0104000000000000F07F'", "'text'"}) {
        SCOPED_TRACE(bytes);
        RawDatabase{path}.run(std::string{"UPDATE Items SET Properties = "} + bytes + " WHERE ItemNumber = 2");
        const Session session{path};
        const auto items = session.contacts->items();
        ASSERT_NE(items->getFirst(), nullptr);
        EXPECT_NE(messageOf([&] { static_cast<void>(items->getNext()); }).find("Item 2 "), std::string::npos);
        const auto last = items->getNext();
        ASSERT_NE(last, nullptr);
        EXPECT_EQ(last->get(outlook::property::FileAs), Variant{"Last"});
    }
}

TEST_F(OutlookStoreFile, AFolderTreeThatRunsInACircleIsDamage) {
    std::string clients;
    std::string store;
    {
        const Session session{path};
        clients = session.contacts->folders()->add("Clients", outlook::DefaultFolder::contacts)->entryID();
        store = session.contacts->storeID();
    }
    RawDatabase{path}.run("UPDATE Folders SET ParentNumber = FolderNumber WHERE Name = 'Clients'");
    const auto session = openOutlookStore(path)->getRunning()->getNamespace("MAPI");
    EXPECT_NE(messageOf([&] { static_cast<void>(session->getFolderFromID(clients, store)); }).find("is damaged"),
              std::string::npos);
}

TEST_F(OutlookStoreFile, DamageThatMattersToEveryRunIsToldAtOpeningAndNothingIsWritten) {
    const std::string whole = bytesOf(path);
    const auto page = [&](const std::string& name) {
        return std::stoul(RawDatabase{path}.text("SELECT rootpage FROM sqlite_schema WHERE name = '" + name + "'"));
    };
    struct Case {
        std::string damage, said;
        std::size_t size = std::string::npos;  ///< to which the file is cut
        std::size_t overwritten = 0;           ///< number of a page
    };
    for (const Case& c :
         {Case{"DROP TABLE Stores", R"(lacks the table "Stores")"}, Case{"DROP TABLE Counters", R"(lacks the table "Counters")"},
          Case{"ALTER TABLE Items RENAME TO Things; CREATE VIEW Items AS SELECT * FROM Things", R"(lacks the table "Items")"},
          Case{"ALTER TABLE Items DROP COLUMN Modified", R"(lacks the column "Modified" of the table "Items")"},
          Case{"DELETE FROM Counters", "HighestDeletedItem"}, Case{"DELETE FROM Stores", R"(the table "Stores" is empty)"},
          Case{"DELETE FROM Folders", "no root folder"},
          Case{"UPDATE Folders SET Role = NULL WHERE Name = 'Tasks'", R"(lacks the default folder "Tasks")"},
          Case{"UPDATE Folders SET ParentNumber = FolderNumber WHERE Name = 'Contacts'", "is damaged"},
          Case{"PRAGMA user_version = 0", "is damaged: its version is 0"},
          Case{"PRAGMA user_version = 99", "newer version of this program"}, Case{"", "cut short", 4096},
          Case{"", "cut short", whole.size() - 1},
          Case{"", "is damaged: reading a default folder failed", std::string::npos, page("Folders")},
          Case{"", "is damaged: reading a default folder failed", std::string::npos, page("Stores")},
          Case{"", "is damaged: opening it failed", std::string::npos, 1}}) {
        SCOPED_TRACE(c.damage + c.said);
        std::string bytes = whole.substr(0, c.size);
        const std::size_t head = c.overwritten == 1 ? 100 : 0;  // of the file, without which it is no store at all
        if (c.overwritten > 0) bytes.replace((c.overwritten - 1) * 4096 + head, 4096 - head, 4096 - head, '\x7E');
        std::ofstream{path, std::ios::binary} << bytes;
        RawDatabase{path}.run(c.damage);
        const std::string before = bytesOf(path);
        const std::string message = messageOf([&] { static_cast<void>(openOutlookStore(path)); });
        EXPECT_EQ(message.rfind("The Outlook store \"" + path + "\" ", 0), 0U) << message;
        EXPECT_NE(message.find(c.said), std::string::npos) << message;
        EXPECT_NE(message.find("; "), std::string::npos) << "it names the way out: " << message;
        EXPECT_EQ(bytesOf(path), before);
        for (const auto* const side : {"-wal", "-shm"}) EXPECT_FALSE(std::filesystem::exists(path + side));
    }
}

TEST_F(OutlookStoreFile, MoreTablesAndColumnsInAnotherSpellingAreNoDamage) {
    RawDatabase{path}.run(
        "CREATE TABLE Signatures (Text); ALTER TABLE Items ADD COLUMN Flag; ALTER TABLE items RENAME TO other; "
        "ALTER TABLE other RENAME TO ITEMS; ALTER TABLE ITEMS RENAME COLUMN Modified TO mODIFIED");
    EXPECT_NO_THROW(Session{path}.add("Anne"));
}

TEST_F(OutlookStoreFile, APageThatIsDamagedDuringARunIsOneSentence) {
    const Session session{path};
    for (int i = 0; i < 100; ++i) session.add("Somebody " + std::to_string(i));
    const RawDatabase raw{path};
    raw.run("PRAGMA wal_checkpoint(TRUNCATE)");
    const auto root = std::stol(raw.text("SELECT rootpage FROM sqlite_schema WHERE name = 'Items'"));
    std::fstream{path, std::ios::binary | std::ios::in | std::ios::out}.seekp((root - 1) * 4096) << std::string(4096, '\x7E');
    const Session later{path};
    const std::string message = messageOf([&] { static_cast<void>(later.contacts->items()->getFirst()); });
    EXPECT_EQ(message.rfind("The Outlook store \"" + path + "\" is damaged: reading the items of a folder failed; restore", 0),
              0U)
        << message;
    EXPECT_NE(messageOf([&] { static_cast<void>(later.add("Anne Tremblay")); }).find("is damaged: saving a new item failed"),
              std::string::npos);
}

TEST_F(OutlookStoreFile, EverythingIsThereAfterReopening) {
    auto clock = std::make_shared<SteppingClock>();
    OutlookStoreOptions options;
    options.clock = clock;
    std::string id;
    {
        const Session session{path, options};
        id = session.add("Nguyễn, Thị 東京");
        clock->time = *makeDate({2026, 11, 23, 10, 0, 0});
        session.item(id)->save();
        session.contacts->folders()->add("Clients/A", outlook::DefaultFolder::contacts);
    }
    const Session session{path, options};
    const auto item = session.item(id);
    EXPECT_EQ(item->get(outlook::property::FileAs), Variant{"Nguyễn, Thị 東京"});
    EXPECT_EQ(item->get("CreationTime"), Variant{*makeDate({2026, 11, 22, 9, 0, 0})});
    EXPECT_EQ(item->get("LastModificationTime"), Variant{clock->time}) << "saving an unchanged item is a save";
    EXPECT_EQ(session.contacts->folders()->item(1)->name(), "Clients/A");
}

TEST_F(OutlookStoreFile, IdentifiersAreNeverGivenTwice) {
    std::set<std::string> given;
    for (int round = 0; round < 4; ++round) {
        const Session session{path};
        std::string id;
        for (int i = 0; i < 3; ++i) {
            id = session.add("Somebody");
            EXPECT_TRUE(given.insert(id).second) << id;
        }
        session.item(id)->remove();
        if (round == 1)
            for (auto item = session.contacts->items()->getFirst(); item; item = session.contacts->items()->getFirst())
                item->remove();
    }
}

TEST_F(OutlookStoreFile, IdentifiersFollowFromTheRandomSource) {
    const auto idsOf = [&](std::string_view name, std::uint64_t seed) {
        SeededRandom random{seed};
        createOutlookStore(folder.file(name), random);
        const Session session{folder.file(name)};
        return session.contacts->storeID() + session.contacts->entryID() + session.add("Somebody");
    };
    EXPECT_EQ(idsOf("one.db", 7), idsOf("same.db", 7));
    EXPECT_NE(idsOf("again.db", 7), idsOf("other.db", 8));
}

TEST_F(OutlookStoreFile, ADryRunShowsItsWorkAndLeavesNone) {
    const std::string kept = Session{path}.add("Kept");
    OutlookStoreOptions dry;
    dry.dryRun = true;
    {
        const Session session{path, dry};
        session.item(kept)->remove();
        session.add("Dry");
        session.contacts->folders()->add("Dry", outlook::DefaultFolder::contacts);
        EXPECT_EQ(session.contacts->items()->find("[FileAs] = 'Kept'"), nullptr);
        EXPECT_NE(session.contacts->items()->find("[FileAs] = 'Dry'"), nullptr);
        EXPECT_THROW(session.contacts->folders()->add("Dry", outlook::DefaultFolder::contacts), OutlookError)
            << "an error within is undone alone";
        EXPECT_EQ(session.contacts->items()->count(), 1);
    }
    const Session session{path};
    EXPECT_EQ(session.contacts->items()->count(), 1);
    EXPECT_NO_THROW(static_cast<void>(session.item(kept)));
    EXPECT_EQ(session.contacts->folders()->count(), 0);
}

TEST_F(OutlookStoreFile, AFileThatAnotherProcessHoldsIsAnErrorAndUsableAfterwards) {
    OutlookStoreOptions impatient;
    impatient.busyTimeoutMilliseconds = 1;
    const Session session{path, impatient};
    const auto item = session.item(session.add("Before"));
    {
        const RawDatabase other{path};
        other.run("BEGIN IMMEDIATE");
        EXPECT_NE(messageOf([&] { static_cast<void>(openOutlookStore(path, impatient)); }).find(path + "\" is locked"),
                  std::string::npos);
        item->put(outlook::property::FileAs, "After");
        EXPECT_NE(messageOf([&] { item->save(); }).find("locked"), std::string::npos);
        EXPECT_NE(messageOf([&] { item->remove(); }).find("locked"), std::string::npos);
        EXPECT_NE(session.contacts->items()->find("[FileAs] = 'Before'"), nullptr) << "reading goes on";
        other.run("ROLLBACK");
    }
    item->save();
    EXPECT_NE(session.contacts->items()->find("[FileAs] = 'After'"), nullptr);
}

TEST_F(OutlookStoreFile, AFileThatCannotBeWrittenIsRefused) {
    if (geteuid() == 0) GTEST_SKIP() << "this user may write to any file";
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    EXPECT_NE(messageOf([&] { static_cast<void>(openOutlookStore(path)); }).find("cannot be written to"), std::string::npos);
}

/// Saves, changes and deletes until it is done, or killed by the system at the first write behind `fileSize`. What the child saw
/// saved it reports through the pipe, one byte each.
int savedUntilKilled(const std::string& path, rlim_t fileSize) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{fileSize, fileSize};
        setrlimit(RLIMIT_FSIZE, &limit);
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        const Session session{path};
        for (int i = 0; i < 12; ++i) {
            const std::string id = session.add("Saved " + std::to_string(i));
            if (write(ends[1], "s", 1) != 1) _exit(2);
            if (i % 4 == 3) session.item(id)->remove();
        }
        _exit(0);  // without closing the file
    }
    close(ends[1]);
    int saved = 0;
    for (char byte = 0; read(ends[0], &byte, 1) == 1;) ++saved;
    close(ends[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    return saved;
}

TEST_F(OutlookStoreFile, KilledAtAnyWriteItKeepsWhatWasSavedAndStaysWhole) {
    const std::string whole = bytesOf(path);
    int fewest = 12;
    int most = 0;
    for (rlim_t limit = 34000; limit < 34000 + 12 * 8 * 4120; limit += 6100) {  // behind the size of the shared-memory file
        SCOPED_TRACE(limit);
        for (const auto* const part : {"-wal", "-shm"}) std::filesystem::remove(path + part);
        std::ofstream{path, std::ios::binary} << whole;
        const int saved = savedUntilKilled(path, limit);
        fewest = std::min(fewest, saved);
        most = std::max(most, saved);
        const Session session{path};
        for (int i = 0; i < saved; ++i) {
            const bool isThere = session.contacts->items()->find("[FileAs] = 'Saved " + std::to_string(i) + "'") != nullptr;
            EXPECT_TRUE(isThere || i % 4 == 3) << i;
        }
        const auto id = session.add("Afterwards");
        EXPECT_GE(std::stoi(id.substr(id.size() - 4), nullptr, 16), saved + 1) << "no identifier comes back";
        EXPECT_TRUE(RawDatabase{path}.isSound());
    }
    EXPECT_LT(fewest, 3);
    EXPECT_EQ(most, 12) << "the sweep ends with a run that lives";
}

/// Instructions of SQLite's machine since the last call, over all statements; fails when one was prepared again.
std::int64_t stepsSince(sqlite3* handle) {
    std::int64_t steps = 0;
    for (auto* statement = sqlite3_next_stmt(handle, nullptr); statement != nullptr;
         statement = sqlite3_next_stmt(handle, statement)) {
        EXPECT_EQ(sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 1), 0);
        EXPECT_EQ(sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_SORT, 1), 0);
        steps += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_VM_STEP, 1);
    }
    return steps;
}

int statementCount(sqlite3* handle) {
    int count = 0;
    for (auto* statement = sqlite3_next_stmt(handle, nullptr); statement != nullptr;
         statement = sqlite3_next_stmt(handle, statement))
        ++count;
    return count;
}

TEST_F(OutlookStoreFile, WhatIsDonePerRecordCostsTheSameInALargeFolder) {
    const Session session{path};
    sqlite3* const handle = outlookstore::storeOf(*session.store).inspection()->file().connection().handle();
    const auto items = session.contacts->items();
    const auto costs = [&] {
        const std::string id = session.add("Tremblay, Zoé");
        static_cast<void>(stepsSince(handle));
        std::vector<std::int64_t> steps;
        const auto measure = [&](const std::function<void()>& action) {
            action();
            steps.push_back(stepsSince(handle));
        };
        measure([&] { EXPECT_NE(items->find("[FileAs] = \"tremblay, zoé\""), nullptr); });
        measure([&] { EXPECT_EQ(items->find("[FileAs] = 'Nobody'"), nullptr); });
        for (const auto* const property : {"FullName", "Subject", "Email1Address"})
            measure([&] { EXPECT_EQ(items->find(std::string{"["} + property + "] = 'Nobody' and [Gender] = 0"), nullptr); });
        measure([&] {
            EXPECT_NE(items->getFirst(), nullptr);
            EXPECT_NE(items->getNext(), nullptr);
        });
        const auto item = session.item(id);
        measure([&] { item->save(); });
        measure([&] {
            item->put(outlook::property::FileAs, "Other");
            item->save();
        });
        measure([&] { static_cast<void>(session.add("New")); });
        measure([&] { item->remove(); });
        return steps;
    };
    for (int i = 0; i < 10; ++i) session.add("Somebody " + std::to_string(i));
    const int statements = statementCount(handle);
    const auto small = costs();
    for (int i = 0; i < 2000; ++i) session.add("Somebody else " + std::to_string(i));
    const auto large = costs();
    for (std::size_t i = 0; i < small.size(); ++i) EXPECT_LE(large[i], small[i] + 5) << "operation " << i;
    EXPECT_EQ(statementCount(handle), statements) << "nothing is prepared once the file is open";
}

TEST_F(OutlookStoreFile, SeveralStoresKeepTheirFoldersAndItemsApart) {
    SeededRandom random;  // begins as it did for the first store
    addOutlookStore(path, "Archive", random);
    EXPECT_NE(messageOf([&] { addOutlookStore(path, "archive", random); }).find("already"), std::string::npos);
    const Session session{path};
    const auto stores = session.nameSpace->folders();
    ASSERT_EQ(stores->count(), 2);
    const auto archive = stores->item(2);
    EXPECT_EQ(archive->name(), "Archive");
    EXPECT_NE(archive->storeID(), session.contacts->storeID());
    EXPECT_EQ(stores->item(1)->storeID(), session.contacts->storeID()) << "the first store stays the default one";
    std::shared_ptr<outlook::port::MAPIFolder> contacts;
    for (int i = 1; i <= archive->folders()->count(); ++i)
        if (archive->folders()->item(i)->name() == "Contacts") contacts = archive->folders()->item(i);
    ASSERT_NE(contacts, nullptr);
    const auto item = contacts->items()->add(std::nullopt);
    item->save();
    const std::string id = item->get(outlook::property::EntryID).toText();
    EXPECT_EQ(session.contacts->items()->count(), 0);
    EXPECT_NO_THROW(static_cast<void>(session.nameSpace->getItemFromID(id, archive->storeID())));
    EXPECT_NO_THROW(static_cast<void>(session.nameSpace->getItemFromID(id, "")));
    EXPECT_THROW(static_cast<void>(session.nameSpace->getItemFromID(id, session.contacts->storeID())), OutlookError);
    // The number with the first store's digits names nothing.
    std::string mixed = id;
    mixed.replace(8, 32, session.contacts->storeID().substr(8));
    EXPECT_THROW(static_cast<void>(session.nameSpace->getItemFromID(mixed, session.contacts->storeID())), OutlookError);
}

TEST_F(OutlookStoreFile, OutlookIsFoundRunningOrStartedAsTheOptionsSay) {
    struct Case {
        bool isRunning, canStart, acceptsLogon;
        std::string_view expected;
    };
    for (const Case& c :
         {Case{true, true, true, "found, started, logged on, used"}, Case{true, false, true, "found, started, logged on, used"},
          Case{false, true, true, "started, logged on, used"}, Case{false, false, true, ""},
          Case{true, true, false, "found, started, used"}, Case{false, true, false, "started"}}) {
        OutlookStoreOptions options;
        options.isRunning = c.isRunning;
        options.canStart = c.canStart;
        options.acceptsLogon = c.acceptsLogon;
        const auto store = openOutlookStore(path, options);
        std::string did;
        const auto attempt = [&](const char* what, const std::function<void()>& action) {
            if (messageOf(action).empty()) did += (did.empty() ? "" : ", ") + std::string{what};
        };
        std::shared_ptr<outlook::port::Application> application;
        attempt("found", [&] { static_cast<void>(store->getRunning()); });
        attempt("started", [&] { application = store->createNew(); });
        if (application) {
            const auto session = application->getNamespace("MAPI");
            attempt("logged on", [&] { session->logon(std::nullopt, std::nullopt, false, false); });
            attempt("used", [&] { static_cast<void>(session->getDefaultFolder(outlook::DefaultFolder::contacts)); });
        }
        EXPECT_EQ(did, c.expected) << c.isRunning << c.canStart << c.acceptsLogon;
    }
}

TEST_F(OutlookStoreFile, ANewOutlookTakesThePlaceOfOneThatWasQuit) {
    const auto store = openOutlookStore(path);
    const auto first = store->getRunning();
    first->quit();
    EXPECT_THROW(static_cast<void>(store->getRunning()), OutlookError);
    const auto second = store->createNew();
    EXPECT_NO_THROW(static_cast<void>(second->getNamespace("MAPI")->getDefaultFolder(outlook::DefaultFolder::contacts)));
    EXPECT_NO_THROW(static_cast<void>(store->getRunning()));
    EXPECT_THROW(static_cast<void>(first->getNamespace("MAPI")), OutlookError) << "the old one stays quit";
}

}  // namespace

}  // namespace wmoutlook::testing

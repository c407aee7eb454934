#include "contacts/SynchronizeContacts.h"

#include "platform/outlook/PropertyNames.h"
#include "tests/support/FaultyDatabase.h"
#include "tests/support/FaultyOutlook.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

namespace wmoutlook::testing {
namespace {

namespace property = outlook::property;

class ContactPass : public ::testing::Test {
protected:
    TestHost host;
    std::unique_ptr<clsOutlookSynchronization> component = host.component();

    std::vector<std::string> fileAs() {
        std::vector<std::string> names;
        for (const auto& item : contactItems(*host.outlookStore)) names.push_back(textOf(*item, property::FileAs));
        return names;
    }
};

using Names = std::vector<std::string>;

TEST_F(ContactPass, WritesTheSelectionInTheOrderOfTheTablesAndLinksIt) {
    const auto birch = addCompany(*host.database, {{"CompanyName", "Birch"}});
    const auto alder = addCompany(*host.database, {{"CompanyName", "Alder"}});
    addCompany(*host.database, {{"CompanyName", "not selected"}});
    const auto ann = addContact(*host.database, {{"DisplayName", "Ann"}});
    TestHost::select(*component, {alder, birch, 4711}, {{ann, kNoRecord}});
    component->startOutlook();
    component->synchronize();

    EXPECT_EQ(fileAs(), (Names{"Birch", "Alder", "Ann"}));
    EXPECT_EQ(host.messageLoop->yields, 2 * (3 + 1));  // twice per row, chosen or not
    const auto links = linksOf(*host.database);
    const auto items = contactItems(*host.outlookStore);
    ASSERT_EQ(links.size(), 3U);
    const std::string store = component->outlookImportFolderEntryID();
    EXPECT_FALSE(store.empty());  // the default folder was put there
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(links[i].dataFileID, "DF");
        EXPECT_EQ(links[i].outlookID, textOf(*items[i], property::EntryID));
        EXPECT_EQ(links[i].dateLastSync, "2026-11-22");
    }
    EXPECT_EQ(links[0].companyNum + links[1].companyNum + links[2].contactNum, toText(birch) + toText(alder) + toText(ann));
    EXPECT_EQ(links[2].companyNum, "");
}

TEST_F(ContactPass, SecondRunUpdatesEveryItemAndCreatesNone) {
    const auto company = addCompany(*host.database, {{"CompanyName", "Birch"}});
    TestHost::select(*component, {company}, {});
    component->startOutlook();
    component->synchronize();
    const auto before = linksOf(*host.database);
    host.clock->time = makeDay(2026, 12, 1);
    component->synchronize();
    EXPECT_EQ(fileAs(), Names{"Birch"});
    const auto after = linksOf(*host.database);
    ASSERT_EQ(after.size(), 1U);
    EXPECT_EQ(after[0].outlookID, before[0].outlookID);
    EXPECT_EQ(after[0].dateLastSync, "2026-12-01");
}

TEST_F(ContactPass, ItemDeletedInOutlookComesBackUnderANewIdentifier) {
    const auto company = addCompany(*host.database, {{"CompanyName", "Birch"}});
    TestHost::select(*component, {company}, {});
    component->startOutlook();
    component->synchronize();
    const std::string first = linksOf(*host.database)[0].outlookID;
    contactItems(*host.outlookStore)[0]->remove();
    component->synchronize();
    const auto links = linksOf(*host.database);
    ASSERT_EQ(links.size(), 1U);
    EXPECT_NE(links[0].outlookID, first);
    EXPECT_EQ(links[0].outlookID, textOf(*contactItems(*host.outlookStore)[0], property::EntryID));
}

TEST_F(ContactPass, NothingIsTouchedWithoutADirectionOrAConnection) {
    struct Case {
        outlookSyncTypeEnum direction;
        bool connected;
    };
    const auto company = addCompany(*host.database, {{"CompanyName", "Birch"}});
    Faults calls;
    host.outlookStore = std::make_shared<FaultyAutomation>(host.outlookStore, calls);
    const auto watched = std::make_shared<FaultyDatabase>(host.database, calls);
    for (const Case& c : {Case{outlookSyncTypeEnum::syncBothsWays, true}, Case{static_cast<outlookSyncTypeEnum>(0), true},
                          Case{outlookSyncTypeEnum::syncFromTallowbrookToOutlook, false}}) {
        auto fresh = host.component(watched);
        TestHost::select(*fresh, {company}, {});
        if (c.connected) {
            ASSERT_TRUE(fresh->startOutlook());
        }
        fresh->syncDirectionType(c.direction);
        fresh->showProgress(true);
        const int before = calls.calls;
        fresh->synchronize();
        EXPECT_EQ(calls.calls, before);
        EXPECT_FALSE(host.dialog->isUp);  // it opened and closed
        EXPECT_EQ(host.dialog->calls.back(), "close");
    }
}

TEST_F(ContactPass, ContactsAloneStepABarWhoseMaximumIsTheCountOfCompanies) {
    const auto ann = addContact(*host.database, {{"DisplayName", "Ann"}});
    addContact(*host.database, {{"DisplayName", "not selected"}});
    TestHost::select(*component, {}, {{ann, kNoRecord}});
    component->startOutlook();
    component->showProgress(true);
    component->synchronize();
    EXPECT_EQ(host.dialog->maximum, 0);
    EXPECT_EQ(host.dialog->shownValue, 2);
    EXPECT_EQ(host.dialog->messages, (Names{"Synchronizing Outlook information, please wait ...", "Synchronizing Ann"}));
}

TEST_F(ContactPass, SelectionTakenAwayDuringTheRunIsAFailureAndNoCrash) {
    /// The host gets a turn after each record and takes the list away in the first.
    class Taking : public MessageLoop {
    public:
        clsOutlookSynchronization* component = nullptr;
        void yield() override { component->companyCollection = nullptr; }
    };
    const auto loop = std::make_shared<Taking>();
    Platform platform = host.platform();
    platform.messageLoop = loop;
    clsOutlookSynchronization watched{platform};
    loop->component = &watched;
    watched.errorClass(host.errors);
    watched.DatabaseReference(host.database);
    watched.showProgress(false);
    TestHost::select(
        watched, {addCompany(*host.database, {{"CompanyName", "Birch"}}), addCompany(*host.database, {{"CompanyName", "Alder"}})},
        {});
    watched.startOutlook();
    watched.synchronize();
    EXPECT_EQ(fileAs(), Names{"Birch"});
    EXPECT_EQ(host.errors->reports.back().number, 91);
}

TEST_F(ContactPass, RecordWhoseRowVanishesUnderTheWalkIsLinkedToNothingWritten) {
    /// The row goes while its link is looked up, between the walk and the write.
    class Vanishing : public FaultyDatabase {
    public:
        using FaultyDatabase::FaultyDatabase;
        std::int32_t companyID = kNoRecord;
        RecordsetHandle openRecordset(std::string_view sql, LockCode lock) override {
            if (sql.find("Companies.CompanyName FROM") != std::string_view::npos) {
                const RecordsetHandle rows =
                    FaultyDatabase::openRecordset("SELECT Companies.* FROM Companies;", LockCode::updatable);
                if (findFirst(rows, "CompanyID", toText(companyID))) deleteRecord(rows);
                closeRecordset(rows);
            }
            return FaultyDatabase::openRecordset(sql, lock);
        }
    };
    Faults none;
    const auto database = std::make_shared<Vanishing>(host.database, none);
    database->companyID = addCompany(*host.database, {{"CompanyName", "Birch"}});
    auto fresh = host.component(database);
    TestHost::select(*fresh, {database->companyID}, {});
    fresh->startOutlook();
    fresh->synchronize();
    EXPECT_TRUE(contactItems(*host.outlookStore).empty());
    ASSERT_EQ(linksOf(*host.database).size(), 1U);
    EXPECT_EQ(linksOf(*host.database)[0].outlookID, "-1");
}

TEST_F(ContactPass, WritesIntoTheChosenFolder) {
    const auto root = host.outlookStore->getRunning()->getNamespace("MAPI")->getDefaultFolder(outlook::DefaultFolder::contacts);
    const auto chosen = root->folders()->add("Clients", outlook::DefaultFolder::contacts);
    component->outlookImportFolderStoreID(chosen->storeID());
    component->outlookImportFolderEntryID(chosen->entryID());
    TestHost::select(*component, {addCompany(*host.database, {{"CompanyName", "Birch"}})}, {});
    component->startOutlook();
    component->synchronize();
    component->synchronize();
    EXPECT_EQ(chosen->items()->count(), 1);
    EXPECT_TRUE(contactItems(*host.outlookStore).empty());
}

}  // namespace
}  // namespace wmoutlook::testing

#include "syncstore/ContactLinks.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modSettings.h"
#include "platform/Routine.h"
#include "platform/outlook/PropertyNames.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

namespace wmoutlook::testing {
namespace {

namespace property = outlook::property;

/// Finders that answer as told and note how they are driven.
template <class Port>
class ScriptedFinder : public Port {
public:
    std::vector<std::string> calls;
    void setErrorService(std::shared_ptr<ErrorService>) override {}
    void setMessageBoxService(std::shared_ptr<MessageBoxService>) override {}
    void setDatabase(std::shared_ptr<HostDatabase>) override {}
    void setLocaleService(std::shared_ptr<LocaleService>) override {}
    void setMatchSettings(const DuplicateMatchSettings&) override {}
    DuplicateMatchSettings matchSettings() const override { return {}; }
    void setLookAtInactiveClients(bool option) override { note(option ? "option on" : "option off"); }
    void setCheckingOn(bool) override {}
    bool isCheckingOn() const override { return true; }
    void startRun() override {}
    void clear() override { note("clear"); }
    void setTelephone(std::string_view) override {}
    void setEmailAddress(std::string_view) override {}
    void setSearchKind(std::int32_t wanted) override {
        kind = wanted;
        note("kind " + std::to_string(kind));
    }
    void search() override { note("search"); }

    std::int32_t kind = 0;
    std::int32_t foundInKind = 0;

protected:
    void note(std::string call) { calls.push_back(std::move(call)); }
};

class ScriptedCompanyFinder : public ScriptedFinder<CompanyDuplicateFinder> {
public:
    void setCompanyName(std::string_view name) override { note("name " + std::string{name}); }
    bool isFound() const override { return kind == foundInKind; }
    std::int32_t foundNumber() const override { return 100 + kind; }
    bool isFoundTolerantly() const override { return kind == foundInKind; }
    std::int32_t tolerantlyFoundNumber() const override { return 200 + kind; }
};

class ScriptedContactFinder : public ScriptedFinder<ContactDuplicateFinder> {
public:
    void setFullName(std::string_view name) override { note("full " + std::string{name}); }
    void setFirstName(std::string_view name) override { note("first " + std::string{name}); }
    void setLastName(std::string_view name) override { note("last " + std::string{name}); }
    bool isFound() const override { return kind == foundInKind; }
    std::int32_t foundNumber() const override { return 300; }
};

class Links : public ::testing::Test {
protected:
    TestHost host;
    SyncRun run;
    ContactLinks links{run};
    std::shared_ptr<outlook::port::MAPIFolder> contacts;
    std::string store;
    std::shared_ptr<ScriptedCompanyFinder> companyFinder = std::make_shared<ScriptedCompanyFinder>();
    std::shared_ptr<ScriptedContactFinder> contactFinder = std::make_shared<ScriptedContactFinder>();

    void SetUp() override {
        setErrorService(host.errors);
        hostServices().database = host.database;
        hostServices().clock = host.clock;
        run.options.dataFileUniqueID = "DF";
        const auto application = host.outlookStore->getRunning();
        const auto nameSpace = application->getNamespace("MAPI");
        run.outlook.application = outlook::Application{application};
        run.outlook.nameSpace = outlook::NameSpace{nameSpace};
        run.companyDuplicateFinder = companyFinder;
        run.contactDuplicateFinder = contactFinder;
        contacts = nameSpace->getDefaultFolder(outlook::DefaultFolder::contacts);
        store = contacts->storeID();
    }

    std::string addItem(const std::vector<std::pair<std::string_view, std::string>>& values) {
        const auto item = contacts->items()->add(std::nullopt);
        for (const auto& [name, value] : values) item->put(name, value);
        item->save();
        return textOf(*item, property::EntryID);
    }
    std::vector<Link> all() { return linksOf(*host.database); }
};

TEST_F(Links, AreScopedByDataFileAndStore) {
    links.saveCompanyOutlookID(7, "A", store);
    links.saveContactOutlookID(7, "B", store);
    links.saveCompanyOutlookID(7, "C", "other store");
    run.options.dataFileUniqueID = "OTHER";
    links.saveCompanyOutlookID(7, "D", store);
    EXPECT_EQ(all().size(), 4U);
    EXPECT_EQ(links.getOutlookIDFromTallowbrookCompanyID(7, store), "D");
    run.options.dataFileUniqueID = "DF";
    EXPECT_EQ(links.getOutlookIDFromTallowbrookCompanyID(7, store), "A");
    EXPECT_EQ(links.getOutlookIDFromTallowbrookContactID(7, store), "B");
    EXPECT_EQ(links.getOutlookIDFromTallowbrookCompanyID(7, "other store"), "C");
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(Links, EachDirectionKeepsTheRowUniqueOnItsOwnSideOnly) {
    links.saveContactOutlookID(7, "A", store);
    links.saveContactOutlookID(7, "B", store);
    EXPECT_EQ(all(), (std::vector<Link>{{"DF", store, "", "7", "B", "2026-11-22"}}));
    links.saveOutlookContactID("B", store, 8);
    EXPECT_EQ(all(), (std::vector<Link>{{"DF", store, "", "8", "B", "2026-11-22"}}));
    links.saveOutlookContactID("C", store, 8);  // one record, written out and imported from another item
    EXPECT_EQ(all().size(), 2U);
    links.saveOutlookCompanyID("B", store, 9);  // the same item as a company: found by its identifier
    EXPECT_EQ(all()[0], (Link{"DF", store, "9", "8", "B", "2026-11-22"}));
}

TEST_F(Links, ItemFiledUnderTheNameIsAdoptedFromTheDefaultFolderWhateverTheStore) {
    const auto company = addCompany(*host.database, {{"CompanyName", "Birch Inc."}});
    EXPECT_EQ(links.getOutlookIDFromTallowbrookCompanyID(company, store), "");
    const auto entryID = addItem({{property::FileAs, "birch inc."}});
    EXPECT_EQ(links.getOutlookIDFromTallowbrookCompanyID(company, store), entryID);
    EXPECT_EQ(links.getOutlookIDFromTallowbrookCompanyID(company, "other store"), entryID);
}

TEST_F(Links, ContactIsSearchedByDisplayNameAndThenAsTheUserSeesIt) {
    const auto contact = addContact(*host.database, {{"DisplayName", "Annie B"}, {"FirstName", "Ann"}, {"LastName", "Birch"}});
    const RecordsetHandle row =
        host.database->openRecordset("SELECT UserGeneralSettings.* FROM UserGeneralSettings;", LockCode::updatable);
    host.database->addNewRecord(row);
    host.database->setNewField(row, "UserIDNum", "1");
    host.database->setNewField(row, "OptionsContactNameDisplayType", "3");
    host.database->saveNewRecord(row);
    host.database->closeRecordset(row);
    modSettings::initializeNameDisplayType(1);

    const auto displayed = addItem({{property::FileAs, "Birch, Ann"}});
    EXPECT_EQ(links.getOutlookIDFromTallowbrookContactID(contact, store), displayed);
    const auto byDisplayName = addItem({{property::FileAs, "Annie B"}});
    EXPECT_EQ(links.getOutlookIDFromTallowbrookContactID(contact, store), byDisplayName);
}

TEST_F(Links, NameWithADoubleQuoteFailsThroughTheHandler) {
    const auto company = addCompany(*host.database, {{"CompanyName", "The \"Best\" Inc."}});
    EXPECT_EQ(links.getOutlookIDFromTallowbrookCompanyID(company, store), "");
    ASSERT_EQ(host.errors->reports.size(), 1U);
    EXPECT_EQ(host.errors->reports[0].errorTag, "wmoutlooktb.dll-clsOutlookSynchronization-getOutlookIDFromTallowbrookCompanyID");
    EXPECT_EQ(host.errors->reports[0].message.find("Best"), std::string::npos);  // no names in reports
}

TEST_F(Links, BlankNumberIsNoLinkAndMinusOneIsOne) {
    bool isNew = true;
    const auto entryID = addItem({{property::CompanyName, "Birch"}});
    links.saveContactOutlookID(7, entryID, store);  // a row of this item without a CompanyNum
    companyFinder->foundInKind = 1;
    EXPECT_EQ(links.getTallowbrookCompanyIDFromOutlookID(entryID, store, true, isNew), 101);
    EXPECT_FALSE(isNew);
    EXPECT_EQ(links.getTallowbrookContactIDFromOutlookID(entryID, store, true, isNew), 7);
    EXPECT_TRUE(contactFinder->calls.empty());
    links.saveOutlookCompanyID(entryID, store, -1);
    EXPECT_EQ(links.getTallowbrookCompanyIDFromOutlookID(entryID, store, false, isNew), -1);
    EXPECT_FALSE(isNew);
}

TEST_F(Links, UnlinkedItemIsNewWithoutTheFinderOrWithoutAnItem) {
    const auto entryID = addItem({{property::CompanyName, "Birch"}});
    companyFinder->foundInKind = 1;
    bool isNew = false;
    EXPECT_EQ(links.getTallowbrookCompanyIDFromOutlookID(entryID, store, false, isNew), kNoRecord);
    EXPECT_TRUE(isNew);
    isNew = false;
    EXPECT_EQ(links.getTallowbrookCompanyIDFromOutlookID("no such item", store, true, isNew), kNoRecord);
    EXPECT_TRUE(isNew);
    EXPECT_TRUE(companyFinder->calls.empty());
    EXPECT_TRUE(host.errors->reports.empty());  // a missing item is no failure
}

TEST_F(Links, CompanyFinderIsDrivenInThreePassesThatStopAtTheFirstHit) {
    using Calls = std::vector<std::string>;
    const Calls first{"clear", "name Birch", "option off", "kind 1", "search"};
    const Calls second{"kind 2", "search"};
    const Calls third{"option on", "kind 3", "search"};
    struct Case {
        std::int32_t foundInKind;
        std::int32_t number;
        std::vector<Calls> parts;
    };
    const auto entryID = addItem({{property::CompanyName, "Birch"}});
    for (const Case& c : {Case{1, 101, {first}}, Case{2, 102, {first, second}}, Case{3, 203, {first, second, third}},
                          Case{0, kNoRecord, {first, second, third}}}) {
        SCOPED_TRACE(c.foundInKind);
        companyFinder->calls.clear();
        companyFinder->foundInKind = c.foundInKind;
        bool isNew = false;
        EXPECT_EQ(links.getTallowbrookCompanyIDFromOutlookID(entryID, store, true, isNew), c.number);
        EXPECT_EQ(isNew, c.number == kNoRecord);
        Calls expected;
        for (const Calls& part : c.parts) expected.insert(expected.end(), part.begin(), part.end());
        EXPECT_EQ(companyFinder->calls, expected);
    }
}

TEST_F(Links, ContactFinderIsDrivenOnceWithTheNamesThatAreThere) {
    using Calls = std::vector<std::string>;
    bool isNew = false;
    contactFinder->foundInKind = 3;
    EXPECT_EQ(links.getTallowbrookContactIDFromOutlookID(addItem({{property::LastName, "Birch"}}), store, true, isNew), 300);
    EXPECT_EQ(contactFinder->calls, (Calls{"clear", "last Birch", "option on", "kind 3", "search"}));
    contactFinder->calls.clear();
    contactFinder->foundInKind = 0;
    EXPECT_EQ(links.getTallowbrookContactIDFromOutlookID(addItem({}), store, true, isNew), kNoRecord);
    EXPECT_EQ(contactFinder->calls, (Calls{"clear", "option on", "kind 3", "search"}));  // searched without any name too
}

}  // namespace
}  // namespace wmoutlook::testing

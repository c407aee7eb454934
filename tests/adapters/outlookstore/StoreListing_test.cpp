#include "adapters/outlookstore/StoreListing.h"

#include "TestStore.h"
#include "platform/Errors.h"

#include <map>

namespace wmoutlook::testing {

namespace {

using namespace outlookstore;
using outlook::DefaultFolder;

class ListedStore : public ::testing::Test {
protected:
    void SetUp() override {
        SeededRandom random;
        createOutlookStore(path, random);
        addOutlookStore(path, "Archive", random);
        OutlookStoreOptions options;
        options.isRunning = false;  // the owner of the file lists it without an Outlook
        store = openOutlookStore(path, options);
    }
    TestFolder folder;
    std::string path = folder.file("outlook.db");
    std::shared_ptr<outlook::port::Automation> store;
};

TEST_F(ListedStore, EachFolderIsFoundByThePathUnderWhichItIsListed) {
    addFolder(*store, "Contacts/Clients", DefaultFolder::contacts);
    addFolder(*store, "contacts\\clients\\Été", DefaultFolder::contacts);
    findFolder(*store, "Contacts")->folders()->add("A/B", DefaultFolder::tasks);
    addFolder(*store, "\\\\Archive\\2019", DefaultFolder::inbox);
    std::string paths;
    for (const ListedFolder& listed : listFolders(*store)) {
        paths += listed.path + "\n";
        EXPECT_EQ(findFolder(*store, listed.path)->entryID(), listed.entryID) << listed.path;
    }
    EXPECT_EQ(
        paths,
        "\\\\Personal Folders\nDeleted Items\nInbox\nOutbox\nSent Items\nCalendar\nContacts\nContacts/Clients\n"
        "Contacts/Clients/Été\n\\\\Personal Folders\\Contacts\\A/B\nDrafts\nTasks\n\\\\Archive\n\\\\Archive\\Deleted Items\n"
        "\\\\Archive\\Inbox\n\\\\Archive\\Outbox\n\\\\Archive\\Sent Items\n\\\\Archive\\Calendar\n\\\\Archive\\Contacts\n"
        "\\\\Archive\\Drafts\n\\\\Archive\\Tasks\n\\\\Archive\\2019\n");
    EXPECT_EQ(findFolder(*store, "")->name(), "Personal Folders");
    EXPECT_EQ(findFolder(*store, "CONTACTS/CLIENTS/ÉTÉ/")->name(), "Été");
    for (const auto* const missing : {"Contact", "Contacts/Nobody", "\\\\", "\\\\Nobody", "\\\\Personal Folders\\Nobody"})
        EXPECT_THROW(static_cast<void>(findFolder(*store, missing)), OutlookError) << missing;
    for (const auto* const refused : {"", "\\\\New Store", "Contacts/Clients", "Nobody/Clients"})
        EXPECT_THROW(addFolder(*store, refused, DefaultFolder::contacts), OutlookError) << refused;
}

TEST_F(ListedStore, AnItemIsListedWithWhatWasSet) {
    const auto item = findFolder(*store, "Contacts")->items()->add(std::nullopt);
    item->put("FullName", "Zoé Tremblay");
    item->put("Birthday", makeDay(1961, 3, 5));
    item->put("NickName", "");
    item->put("Importance", 1);
    item->userProperties()->add("TallowbrookID", outlook::UserPropertyType::number, false);
    item->userProperties()->add("Checked", outlook::UserPropertyType::yesNo, false)->setValue(true);
    EXPECT_EQ(describe(*item).entryID, "");
    item->save();

    std::vector<ListedItem> items;
    forEachItem(*store, std::nullopt, [&](const ListedItem& listed) { items.push_back(listed); });
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].folder, "Contacts");
    EXPECT_EQ(items[0].entryID, item->get("EntryID").toText());
    EXPECT_EQ(items[0].itemClass, outlook::ItemClass::contact);
    std::map<std::string_view, Variant> properties;
    for (const ListedProperty& property : items[0].properties) properties[property.name] = property.value;
    EXPECT_EQ(properties.size(), 4u) << "two set ones and two moments; blanks and defaults are not listed";
    EXPECT_EQ(properties["FullName"], Variant{"Zoé Tremblay"});
    EXPECT_EQ(properties["Birthday"], Variant{makeDay(1961, 3, 5)});
    ASSERT_EQ(items[0].userProperties.size(), 2u);
    EXPECT_TRUE(items[0].userProperties[0].value.isNull()) << "never set";
    EXPECT_EQ(items[0].userProperties[1].value, Variant{true});
}

TEST_F(ListedStore, ItemsCanBeDeletedWhileTheyAreListed) {
    const auto items = findFolder(*store, "\\\\Archive\\Tasks")->items();
    for (int i = 0; i < 5; ++i) items->add(std::nullopt)->save();
    int seen = 0;
    forEachItem(*store, "\\\\archive\\tasks", [&](const ListedItem& listed) {
        if (++seen != 3) deleteItem(*store, listed.entryID);
    });
    EXPECT_EQ(seen, 5);
    EXPECT_EQ(items->count(), 1);
    EXPECT_THROW(deleteItem(*store, "0"), OutlookError);
}

TEST(PropertyTables, EachNameAndCodeStandsOnceAndMeansTheSameInEachType) {
    std::map<std::string_view, PropertyRow> byName;
    std::map<std::uint16_t, std::string_view> byCode;
    for (const auto type :
         {outlook::ItemType::mail, outlook::ItemType::appointment, outlook::ItemType::contact, outlook::ItemType::task}) {
        std::map<std::string_view, int> inType;
        for (const PropertyRow& row : propertyTable(type)) {
            SCOPED_TRACE(row.name);
            EXPECT_EQ(++inType[row.name], 1);
            EXPECT_GT(row.code, 0);
            EXPECT_EQ(byCode.try_emplace(row.code, row.name).first->second, row.name);
            const PropertyRow& first = byName.try_emplace(row.name, row).first->second;
            EXPECT_TRUE(first.code == row.code && first.kind == row.kind && first.access == row.access);
            EXPECT_EQ(PropertyTable::of(type).rows()[*PropertyTable::of(type).find(row.name)].code, row.code);
        }
    }
}

}  // namespace

}  // namespace wmoutlook::testing

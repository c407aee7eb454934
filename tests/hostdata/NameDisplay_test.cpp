#include "tests/hostdata/HostDataTest.h"

namespace wmoutlook::testing {
namespace {

using namespace modDatabaseFunctions;
using modSettings::ContactNameDisplay;

class NameDisplay : public HostDataTest {
protected:
    /// Puts the user's choices into the settings and reads them.
    void choose(std::int32_t contactName, std::int32_t family, std::int32_t companyName) {
        const RecordsetHandle row =
            host.database->openRecordset("SELECT UserGeneralSettings.* FROM UserGeneralSettings;", LockCode::updatable);
        host.database->updateField(row, "OptionsContactNameDisplayType", toText(contactName));
        host.database->updateField(row, "OptionsFamilyDisplayOption", toText(family));
        host.database->updateField(row, "OptionsCompanyNameDisplayType", toText(companyName));
        host.database->closeRecordset(row);
        modSettings::initializeNameDisplayType(1);
    }
};

TEST_F(NameDisplay, UserWithoutSettingsGetsARowAndDisplayNames) {
    EXPECT_EQ(rows("SELECT UserGeneralSettings.* FROM UserGeneralSettings;", {"UserIDNum"}), std::vector<std::string>{"1"});
    const auto contact = addContact(*host.database, {{"FirstName", "Ann"}, {"LastName", "Birch"}, {"DisplayName", "A. Birch"}});
    EXPECT_EQ(getContactNameDisplayed(contact, kNoRecord, false), "A. Birch");
}

TEST_F(NameDisplay, NamesOfOneAndOfCouples) {
    struct Case {
        const char *first, *last, *spouseFirst, *spouseLast;
        const char* displayType;
        std::string_view firstNameFirst, lastNameFirst;
    };
    for (const Case& c : {
             Case{" Ann ", "Birch", "", "", "2", "Ann Birch", "Birch, Ann"},
             Case{"Ann", "", "", "", "2", "Ann", "Ann"},
             Case{"", "Birch", "", "", "2", "Birch", "Birch"},
             Case{"", " ", "", "", "2", "The Birches", "The Birches"},
             Case{"Ann", "Birch", "Bob", "Birch", "1", "Ann Birch", "Birch, Ann"},  // not shown with the spouse
             Case{"Ann", "Birch", " ", "Birch", "2", "Ann Birch", "Birch, Ann"},
             Case{"Ann", "Birch", "Bob", "BIRCH", "2", "Ann & Bob Birch", "Birch, Ann & Bob"},
             Case{"Zoé", "Émond", "Luc", "émond", "2", "Zoé & Luc Émond", "Émond, Zoé & Luc"},
             Case{"", "Birch", "Bob", "Birch", "2", "Bob Birch", "Birch, Bob"},
             Case{"Ann", "Birch", "Bob", "Alder", "2", "Ann Birch & Bob Alder", "Birch, Ann & Alder, Bob"},
             Case{"Ann", "", "Bob", "Alder", "2", "Ann & Bob Alder", "Ann & Alder, Bob"},
             Case{"", "Birch", "Bob", "Alder", "2", "Birch & Bob Alder", "Birch & Alder, Bob"},
             Case{"", "", "Bob", "Alder", "2", "The Birches & Bob Alder", "The Birches & Alder, Bob"},
         }) {
        const auto id = addContact(*host.database, {{"FirstName", c.first},
                                                    {"LastName", c.last},
                                                    {"SpouseFirstName", c.spouseFirst},
                                                    {"SpouseLastName", c.spouseLast},
                                                    {"DisplayName", "The Birches"},
                                                    {"ContactPersonalTaxDisplayType", c.displayType}});
        SCOPED_TRACE(c.firstNameFirst);
        EXPECT_EQ(getContactNameDisplayedByType(ContactNameDisplay::firstNameFirst, id, kNoRecord, false), c.firstNameFirst);
        EXPECT_EQ(getContactNameDisplayedByType(ContactNameDisplay::lastNameFirst, id, kNoRecord, false), c.lastNameFirst);
        EXPECT_EQ(getContactNameDisplayedByType(static_cast<ContactNameDisplay>(1), id, kNoRecord, false), "The Birches");
    }
    EXPECT_EQ(getContactNameDisplayedByType(ContactNameDisplay::firstNameFirst, 4711, kNoRecord, false), "");
}

TEST_F(NameDisplay, RelationshipStandsBehindTheNameWhereAParentIsGiven) {
    const auto parent = addContact(*host.database, {{"DisplayName", "Ann"}});
    const auto child = addContact(*host.database, {{"DisplayName", "Eve"}});
    const auto cousin = addContact(*host.database, {{"DisplayName", "Max"}});
    const auto link = [&](std::int32_t contact, const char* relationship) {
        addRow(*host.database, "ContactLinks", "",
               {{"ContactNum", toText(parent)}, {"ContactIDNum", toText(contact)}, {"FamilyRelationship", relationship}});
    };
    link(child, "Daughter");
    link(cousin, "Not Specified");

    EXPECT_EQ(getContactNameDisplayed(child, parent, true), "Eve (Daughter)");
    EXPECT_EQ(getContactNameDisplayed(child, parent, false), "Eve");
    EXPECT_EQ(getContactNameDisplayed(child, kTrueAsNumber, true), "Eve");  // True stands where a parent is expected
    EXPECT_EQ(getContactNameDisplayed(cousin, parent, true), "Max");
    choose(0, modSettings::kShowFamilyRelationship, 0);
    EXPECT_EQ(getContactNameDisplayed(child, parent, false), "Eve (Daughter)");
}

TEST_F(NameDisplay, CompanyNodesFollowTheUsersChoice) {
    addCompany(*host.database, {{"CompanyName", "Birch Inc."}, {"CorporateName", "123 Ontario"}, {"ClientID", "B7"}});
    addCompany(*host.database, {{"CompanyName", "Alder"}});
    struct Case {
        std::int32_t option;
        std::string_view full, bare;
    };
    for (const Case& c : {Case{1, "Birch Inc.", "Alder"}, Case{2, "123 Ontario", "Alder"}, Case{3, "B7", "Alder"},
                          Case{4, "B7 - Birch Inc.", "Alder"}, Case{9, "Birch Inc.", "Alder"}}) {
        SCOPED_TRACE(c.option);
        choose(0, 0, c.option);
        Recordset companies{"SELECT Companies.* FROM Companies;"};
        EXPECT_EQ(getNodeCompanyNameDisplayed(companies), c.full);
        companies.moveNext();
        EXPECT_EQ(getNodeCompanyNameDisplayed(companies), c.bare);
    }
}

TEST_F(NameDisplay, ContactNodeReadsTheRowOfTheWalkAndNothingElse) {
    const auto parent = addContact(*host.database, {{"DisplayName", "Max"}});
    const auto child = addContact(*host.database, {{"FirstName", "Ann"},
                                                   {"LastName", "Birch"},
                                                   {"SpouseFirstName", "Bob"},
                                                   {"SpouseLastName", "Alder"},
                                                   {"ContactPersonalTaxDisplayType", "2"}});
    addRow(*host.database, "ContactLinks", "",
           {{"ContactNum", toText(parent)}, {"ContactIDNum", toText(child)}, {"FamilyRelationship", "Daughter"}});
    choose(3, 0, 0);
    const Recordset links{
        "SELECT ContactLinks.*, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName FROM ContactLinks "
        "INNER JOIN Contacts ON ContactLinks.ContactIDNum = Contacts.ContactID;"};
    EXPECT_EQ(getNodeContactNameDisplayed(links, kNoRecord, true), "Birch, Ann");
    EXPECT_EQ(getNodeContactNameDisplayed(links, parent, true), "Birch, Ann (Daughter)");
    const Recordset whole{"SELECT Contacts.* FROM Contacts ORDER BY Contacts.FirstName DESC;"};
    EXPECT_EQ(getNodeContactNameDisplayed(whole, kNoRecord, false, ContactRow::whole), "Birch, Ann & Alder, Bob");
    EXPECT_TRUE(host.errors->reports.empty());
}

}  // namespace
}  // namespace wmoutlook::testing

#include "tests/hostdata/HostDataTest.h"

namespace wmoutlook::testing {
namespace {

using namespace modDatabaseFunctions;

class LookUps : public HostDataTest {
protected:
    std::int32_t company = addCompany(*host.database, {{"CompanyName", "Birch"}});
    std::int32_t contact = addContact(*host.database, {{"DisplayName", "Ann"}});
    std::int32_t client =
        addRow(*host.database, "ClientData", "ClientDataID", {{"CompanyIDNum", toText(company)}, {"ActiveStatus", "2"}});
};

TEST_F(LookUps, FindNamesAndNumbersAndSayWhenTheRowIsMissing) {
    constexpr std::int32_t kMissing = 4711;
    EXPECT_EQ(getCompanyNameFromCompanyID(company), "Birch");
    EXPECT_EQ(getCompanyNameFromCompanyID(kMissing), "<Client no longer exists>");
    EXPECT_EQ(getContactNameFromContactID(contact), "Ann");
    EXPECT_EQ(getContactNameFromContactID(kMissing), "<Client no longer exists>");
    EXPECT_EQ(getDisplayNameFromContactID(contact), "Ann");
    EXPECT_EQ(getDisplayNameFromContactID(kMissing), "");
    EXPECT_EQ(getCategoryNameFromCategoryID(kMissing), "");
    EXPECT_EQ(getClientDataIDFromCompanyID(company), client);
    EXPECT_EQ(getClientDataIDFromCompanyID(kMissing), kNoRecord);
    EXPECT_EQ(getCompanyIDFromClientDataID(client), company);
    EXPECT_EQ(getBusinessClientActiveStatusFromClientID(client), 2);
    EXPECT_EQ(getBusinessClientActiveStatusFromClientID(kMissing), kNoRecord);
    EXPECT_EQ(getPersonalClientActiveStatus(contact, 2025), kNoRecord);
    addRow(*host.database, "PersonalTaxStatus", "",
           {{"ContactNum", toText(contact)}, {"TaxYear", "2025"}, {"ActiveStatus", "1"}});
    EXPECT_EQ(getPersonalClientActiveStatus(contact, 2025), 1);
    EXPECT_EQ(getPersonalClientActiveStatus(contact, 2024), kNoRecord);
}

TEST_F(LookUps, TellWhichNumbersNameARow) {
    struct Case {
        const char *table, *key;
        bool (*isValid)(std::int32_t);
    };
    for (const Case& c : {Case{"Companies", "CompanyID", validCompanyID}, Case{"Contacts", "ContactID", validContactID},
                          Case{"Categories", "CategoryID", validCategoryID},
                          Case{"Appointments", "AppointmentID", validAppointmentID}, Case{"Dockets", "DocketID", validDocketID},
                          Case{"Tasks", "TaskID", validTaskID}, Case{"AccountantFirmInfo", "CompanyID", validFirmID}}) {
        SCOPED_TRACE(c.table);
        const auto id = addRow(*host.database, c.table, c.key, {});
        EXPECT_TRUE(c.isValid(id));
        EXPECT_FALSE(c.isValid(id + 1));
        EXPECT_FALSE(c.isValid(kNoRecord));
    }
    // A member of staff carries the number of the contact.
    addRow(*host.database, "AccountantEmployeeInfo", "", {{"ContactID", "815"}});
    EXPECT_TRUE(validEmployeeID(815));
    EXPECT_FALSE(validEmployeeID(816));
}

TEST_F(LookUps, DefaultContactIsTheFlaggedLinkOfTheCompany) {
    const auto other = addContact(*host.database, {{"DisplayName", "Bob"}});
    addRow(*host.database, "ContactLinks", "",
           {{"CompanyNum", toText(company)}, {"ContactIDNum", toText(other)}, {"DefaultContact", "False"}});
    EXPECT_EQ(getDefaultContactIDFromCompanyID(company), kNoRecord);
    makeDefaultContact(*host.database, company, contact);
    EXPECT_EQ(getDefaultContactIDFromCompanyID(company), contact);
    EXPECT_TRUE(isContactDefaultContact(contact, company));
    EXPECT_FALSE(isContactDefaultContact(other, company));
}

TEST_F(LookUps, ClosedDatabaseAnswersNothingAndReportsNothing) {
    host.database->closeDatabase();
    EXPECT_EQ(getCompanyNameFromCompanyID(company), "");
    EXPECT_EQ(getClientDataIDFromCompanyID(company), kNoRecord);
    EXPECT_FALSE(validCompanyID(company));
    EXPECT_EQ(getBusinessCategoryNum(), kNoRecord);
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(LookUps, QueryOfBusinessClientsRunsInEveryForm) {
    for (const char* side :
         {"AccountingServices", "ClientOptions", "CorpTaxInfo", "LawInfo", "OtherInfo", "WSIB_EHTInfo", "ClientUSInfo"}) {
        std::string key{side};
        if (key.back() == 's') key.pop_back();
        addRow(*host.database, side, "", {{key + "ID", toText(client)}});
    }
    addRow(*host.database, "CompaniesNotes", "", {{"CompanyNum", toText(company)}});
    for (const std::int32_t country : {country::kCanada, country::kUnitedStates}) {
        SCOPED_TRACE(country);
        host.locale->countryNumber = country;
        const auto count = [&](bool filtered, ClientActivity activity, std::int32_t id) {
            return rows(getMainBusinessSQLString(filtered, activity, id), {"CompanyName"}).size();
        };
        EXPECT_EQ(count(false, ClientActivity::any, client), 1U);
        EXPECT_EQ(count(false, ClientActivity::any, client + 1), 0U);
        EXPECT_EQ(count(false, ClientActivity::any, kNoRecord), 1U);
        EXPECT_EQ(count(false, ClientActivity::active, kNoRecord), 0U);
        EXPECT_EQ(count(false, ClientActivity::inactive, kNoRecord), 1U);
    }
}

}  // namespace
}  // namespace wmoutlook::testing

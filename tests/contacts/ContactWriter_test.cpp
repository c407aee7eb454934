#include "contacts/ContactWriter.h"

#include "platform/outlook/PropertyNames.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

#include <map>

namespace wmoutlook::testing {
namespace {

namespace property = outlook::property;

/// A run that writes into the default folder of a connected Outlook.
class ContactWriting : public ::testing::Test {
protected:
    TestHost host;
    std::unique_ptr<clsOutlookSynchronization> component = host.component();

    void SetUp() override { ASSERT_TRUE(component->startOutlook()); }

    /// Runs the selection and gives the only item.
    std::shared_ptr<outlook::port::Item> writeCompany(std::int32_t id) {
        TestHost::select(*component, {id}, {});
        return run();
    }
    std::shared_ptr<outlook::port::Item> writeContact(std::int32_t id, std::int32_t company = kNoRecord) {
        TestHost::select(*component, {}, {{id, company}});
        return run();
    }
    std::shared_ptr<outlook::port::Item> run() {
        component->synchronize();
        const auto items = contactItems(*host.outlookStore);
        EXPECT_EQ(items.size(), 1U);
        EXPECT_TRUE(host.errors->reports.empty());
        return items.empty() ? nullptr : items.front();
    }
};

std::string valueOf(std::string_view field) {
    return "the " + std::string{field};
}

/// A row in which every text field holds a value of its own.
Fields distinctValues(std::initializer_list<const char*> names) {
    Fields fields;
    for (const char* name : names) fields.emplace_back(name, valueOf(name));
    return fields;
}

const std::initializer_list<const char*> kContactFields = {
    "NamePrefix",         "FirstName",       "MiddleName",         "LastName",          "NameSuffix",
    "DisplayName",        "HomePhone_Main",  "HomePhone_Cell",     "HomePhone_Pager",   "HomePhone_Fax",
    "HomeAddress",        "HomeCity",        "HomeProvince",       "HomePostalCode",    "HomeCountry",
    "PersonalWebSite",    "SpouseName",      "Children",           "BusinessJobTitle",  "BusinessOffice",
    "BusinessDepartment", "BusinessName",    "BusinessAddress",    "BusinessCity",      "BusinessProvince",
    "BusinessPostalCode", "BusinessCountry", "BusinessPhone_Main", "BusinessPhone_Fax", "BusinessPhone_Cell",
    "BusinessWebSite",    "BusinessEmail",   "PersonalEmail"};

const std::initializer_list<const char*> kCompanyFields = {"CompanyName", "Address",      "City",      "Province", "PostalCode",
                                                           "Country",     "OfficeNumber", "FaxNumber", "WebSite",  "Email"};

using Expected = std::map<std::string_view, std::string_view>;

// What a contact's own data fills, whatever the company.
const Expected kPersonal = {{property::Title, "NamePrefix"},
                            {property::FirstName, "FirstName"},
                            {property::MiddleName, "MiddleName"},
                            {property::LastName, "LastName"},
                            {property::Suffix, "NameSuffix"},
                            {property::FullName, "DisplayName"},
                            {property::HomeTelephoneNumber, "HomePhone_Main"},
                            {property::MobileTelephoneNumber, "HomePhone_Cell"},
                            {property::PagerNumber, "HomePhone_Pager"},
                            {property::HomeFaxNumber, "HomePhone_Fax"},
                            {property::HomeAddressStreet, "HomeAddress"},
                            {property::HomeAddressCity, "HomeCity"},
                            {property::HomeAddressState, "HomeProvince"},
                            {property::HomeAddressPostalCode, "HomePostalCode"},
                            {property::HomeAddressCountry, "HomeCountry"},
                            {property::PersonalHomePage, "PersonalWebSite"},
                            {property::Spouse, "SpouseName"},
                            {property::Children, "Children"},
                            {property::JobTitle, "BusinessJobTitle"},
                            {property::Department, "BusinessDepartment"},
                            {property::OfficeLocation, "BusinessOffice"}};

const Expected kCompany = {{property::CompanyName, "CompanyName"},
                           {property::BusinessAddressStreet, "Address"},
                           {property::BusinessAddressCity, "City"},
                           {property::BusinessAddressState, "Province"},
                           {property::BusinessAddressPostalCode, "PostalCode"},
                           {property::BusinessAddressCountry, "Country"}};

void expectAll(const outlook::port::Item& item, const Expected& expected) {
    for (const auto& [name, field] : expected) EXPECT_EQ(textOf(item, name), valueOf(field)) << name;
}

TEST_F(ContactWriting, ContactOfACompanyTakesAddressFromTheCompanyAndPhonesFromItself) {
    const auto company = addCompany(*host.database, distinctValues(kCompanyFields));
    const auto contact = addContact(*host.database, distinctValues(kContactFields));
    const auto item = writeContact(contact, company);
    expectAll(*item, kPersonal);
    expectAll(*item, kCompany);
    expectAll(*item, {{property::BusinessTelephoneNumber, "BusinessPhone_Main"},
                      {property::BusinessFaxNumber, "BusinessPhone_Fax"},
                      {property::Email1Address, "BusinessEmail"},
                      {property::Email2Address, "PersonalEmail"}});
    for (const auto untouched : {property::Email3Address, property::Business2TelephoneNumber, property::WebPage, property::Body})
        EXPECT_EQ(textOf(*item, untouched), "") << untouched;
    EXPECT_EQ(textOf(*item, property::Categories), "Business");
}

TEST_F(ContactWriting, ContactWithoutCompanyTakesItsOwnBusinessBlock) {
    const auto contact = addContact(*host.database, distinctValues(kContactFields));
    const auto item = writeContact(contact);
    expectAll(*item, kPersonal);
    expectAll(*item, {{property::CompanyName, "BusinessName"},
                      {property::BusinessAddressStreet, "BusinessAddress"},
                      {property::BusinessAddressCity, "BusinessCity"},
                      {property::BusinessAddressState, "BusinessProvince"},
                      {property::BusinessAddressPostalCode, "BusinessPostalCode"},
                      {property::BusinessAddressCountry, "BusinessCountry"},
                      {property::BusinessTelephoneNumber, "BusinessPhone_Main"},
                      {property::BusinessFaxNumber, "BusinessPhone_Fax"},
                      {property::Business2TelephoneNumber, "BusinessPhone_Cell"},
                      {property::WebPage, "BusinessWebSite"}});
}

TEST_F(ContactWriting, CompanyWithDefaultContactKeepsItsOwnNumbersAndAddsThePerson) {
    const auto company = addCompany(*host.database, distinctValues(kCompanyFields));
    const auto contact = addContact(*host.database, distinctValues(kContactFields));
    makeDefaultContact(*host.database, company, contact);
    const auto item = writeCompany(company);
    expectAll(*item, kPersonal);
    expectAll(*item, kCompany);
    expectAll(*item, {{property::BusinessTelephoneNumber, "OfficeNumber"},
                      {property::BusinessFaxNumber, "FaxNumber"},
                      {property::WebPage, "WebSite"},
                      {property::Business2TelephoneNumber, "BusinessPhone_Cell"},
                      {property::Email1Address, "Email"},
                      {property::Email2Address, "BusinessEmail"},
                      {property::Email3Address, "PersonalEmail"},
                      {property::FileAs, "CompanyName"}});
}

TEST_F(ContactWriting, DefaultContactFillsOnlyTheNumbersThatTheCompanyLeftBlank) {
    const auto company = addCompany(*host.database, {{"CompanyName", "Birch Inc."}, {"FaxNumber", "555-0102"}});
    const auto contact = addContact(*host.database, distinctValues(kContactFields));
    makeDefaultContact(*host.database, company, contact);
    const auto item = writeCompany(company);
    EXPECT_EQ(textOf(*item, property::BusinessTelephoneNumber), valueOf("BusinessPhone_Main"));
    EXPECT_EQ(textOf(*item, property::BusinessFaxNumber), "555-0102");
    EXPECT_EQ(textOf(*item, property::WebPage), valueOf("BusinessWebSite"));
}

TEST_F(ContactWriting, CompanyWithoutDefaultContactTouchesNoPersonField) {
    component->syncCompanyDisplayType(syncCompanyDisplayEnum::companyShowContactName);
    const auto item = writeCompany(addCompany(*host.database, {{"CompanyName", "Birch Inc."}, {"Email", "info@example.com"}}));
    EXPECT_EQ(textOf(*item, property::FileAs), "Birch Inc.");
    EXPECT_EQ(textOf(*item, property::Email1Address), "");  // e-mail goes out with the person only
}

TEST_F(ContactWriting, FileAsFollowsTheDisplayOptions) {
    using Information = syncCompanyInformationEnum;
    using Display = syncCompanyDisplayEnum;
    struct Case {
        Information information;
        Display display;
        std::string_view fileAs;
    };
    const auto company = addCompany(*host.database, {{"CompanyName", "Birch Inc."}});
    makeDefaultContact(*host.database, company, addContact(*host.database, {{"DisplayName", "Ann Birch"}}));
    for (const Case& c : {Case{Information::companyWithDefaultContact, Display::companyShowCompanyName, "Birch Inc."},
                          Case{Information::companyWithDefaultContact, Display::companyShowContactName, "Ann Birch"},
                          Case{Information::companyOnly, Display::companyShowContactName, "Birch Inc."}}) {
        SCOPED_TRACE(c.fileAs);
        component->syncCompanyInformation(c.information);
        component->syncCompanyDisplayType(c.display);
        component->companyCollection->clear();
        EXPECT_EQ(textOf(*writeCompany(company), property::FileAs), c.fileAs);
    }
}

TEST_F(ContactWriting, ContactIsFiledUnderTheCompanyOnlyWhenTheItemHasOne) {
    component->syncContactDisplayType(syncContactDisplayEnum::contactShowCompanyName);
    component->syncContactInformation(syncContactInformationEnum::contactOnly);
    const auto contact = addContact(*host.database, {{"DisplayName", "Ann Birch"}, {"BusinessName", "Birch Inc."}});
    const auto item = writeContact(contact);
    EXPECT_EQ(textOf(*item, property::FileAs), "Ann Birch");
    EXPECT_EQ(textOf(*item, property::CompanyName), "");

    component->syncContactInformation(syncContactInformationEnum::contactWithCompanyInfo);
    EXPECT_EQ(textOf(*run(), property::FileAs), "Birch Inc.");

    component->syncContactInformation(syncContactInformationEnum::contactOnly);  // the item keeps the name it has
    EXPECT_EQ(textOf(*run(), property::FileAs), "Birch Inc.");
}

TEST_F(ContactWriting, BirthdayHasAYearTestAndAnniversaryHasNone) {
    struct Case {
        const char* date;
        std::string_view birthday, anniversary;
    };
    constexpr std::string_view kAbsent = "4501-01-01";
    for (const Case& c : {Case{"1885-12-31", kAbsent, "1885-12-31"}, Case{"1886-01-01", "1886-01-01", "1886-01-01"},
                          Case{"2999-12-31", "2999-12-31", "2999-12-31"}, Case{"3000-01-01", kAbsent, "3000-01-01"},
                          Case{"", kAbsent, kAbsent}}) {
        SCOPED_TRACE(c.date);
        TestHost other;
        auto fresh = other.component();
        ASSERT_TRUE(fresh->startOutlook());
        const auto id = addContact(*other.database, {{"DisplayName", "A"}, {"Birthday", c.date}, {"Anniversary", c.date}});
        TestHost::select(*fresh, {}, {{id, kNoRecord}});
        fresh->synchronize();
        const auto items = contactItems(*other.outlookStore);
        ASSERT_EQ(items.size(), 1U);
        EXPECT_EQ(textOf(*items[0], property::Birthday), c.birthday);
        EXPECT_EQ(textOf(*items[0], property::Anniversary), c.anniversary);
    }
}

TEST_F(ContactWriting, UpdateOverwritesWithBlanksAndLeavesUnmappedPropertiesAlone) {
    const auto company = addCompany(*host.database, {{"CompanyName", "Birch Inc."}});
    const auto contact =
        addContact(*host.database, {{"DisplayName", "Ann Birch"}, {"Gender", "female"}, {"Birthday", "1980-05-06"}});
    const auto item = writeContact(contact, company);
    EXPECT_EQ(item->get(property::Gender).toInteger(), 1);
    for (const auto name : {property::JobTitle, property::BusinessTelephoneNumber, property::HomeAddressCity, property::Body})
        item->put(name, "typed in Outlook");
    item->save();

    const RecordsetHandle row = host.database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    host.database->updateField(row, "Birthday", "");
    host.database->closeRecordset(row);
    const auto updated = run();
    EXPECT_EQ(textOf(*updated, property::JobTitle), "");
    EXPECT_EQ(textOf(*updated, property::HomeAddressCity), "");
    EXPECT_EQ(textOf(*updated, property::BusinessTelephoneNumber), "typed in Outlook");  // both sources are blank
    EXPECT_EQ(textOf(*updated, property::Body), "typed in Outlook");
    EXPECT_EQ(textOf(*updated, property::Birthday), "1980-05-06");  // a blank date is not written
}

TEST_F(ContactWriting, EveryItemIsStampedWithTheDayOfTheRunAndTwoEmptyProperties) {
    const auto item = writeCompany(addCompany(*host.database, {{"CompanyName", "Birch Inc."}}));
    const auto properties = item->userProperties();
    ASSERT_EQ(properties->count(), 3);
    struct Case {
        std::string_view name;
        outlook::UserPropertyType type;
        std::string_view value;
    };
    std::int32_t index = 0;
    for (const Case& c :
         {Case{"TallowbrookID", outlook::UserPropertyType::number, "0"}, Case{"EntryID", outlook::UserPropertyType::text, ""},
          Case{"DateLastSynched", outlook::UserPropertyType::dateTime, "2026-11-22"}}) {
        const auto found = properties->item(++index);
        EXPECT_EQ(found->name(), c.name);
        EXPECT_EQ(found->type(), c.type);
        EXPECT_EQ(found->value().toText(), c.value);
    }
}

TEST(SortEmailAddresses, FillsGapsAndNeverClears) {
    struct Case {
        std::string in, out;  // three slots, "-" is blank
    };
    const auto slot = [](char c) { return c == '-' ? std::string{} : std::string{c}; };
    for (const Case& c : {Case{"ABC", "ABC"}, Case{"AB-", "AB-"}, Case{"A-C", "ACC"}, Case{"-BC", "BBC"}, Case{"A--", "AA-"},
                          Case{"-B-", "BB-"}, Case{"--C", "CCC"}, Case{"---", "---"}}) {
        SCOPED_TRACE(c.in);
        std::string first = slot(c.in[0]), second = slot(c.in[1]), third = slot(c.in[2]);
        sortEmailAddresses(first, second, third);
        EXPECT_EQ(first + "|" + second + "|" + third, slot(c.out[0]) + "|" + slot(c.out[1]) + "|" + slot(c.out[2]));
    }
}

}  // namespace
}  // namespace wmoutlook::testing

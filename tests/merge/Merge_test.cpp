#include "tests/merge/MergeFirm.h"

#include "merge/FieldTexts.h"

namespace wmoutlook::testing {
namespace {

class Merging : public MergeFirm {
protected:
    Merging() {
        company = addCompany(*host.database, {{"CompanyName", "Birch & Co"},
                                              {"CompanyType", "2"},
                                              {"City", "Laval"},
                                              {"Province", "Ontario"},
                                              {"Address", "1 Main\r\nSuite 2"},
                                              {"OfficeNumber", "555-0100"},
                                              {"Custom1", "own"}});
        contact = addContact(*host.database, {{"DisplayName", "Bob Alder"},
                                              {"FirstName", "Bob"},
                                              {"LastName", "Alder"},
                                              {"SpouseFirstName", "Ann"},
                                              {"SpouseLastName", "ALDER"},
                                              {"BusinessCity", "Own City"},
                                              {"BusinessPhone_Main", "555-9999"},
                                              {"HomeProvince", "Nfld."},
                                              {"Birthday", "1961-03-05"},
                                              {"Anniversary", "1899-12-29"},
                                              {"SocialInsuranceNumber", "046 454 286"},
                                              {"SpouseBirthday", "1962-01-02"}});
        merge.companyID = company;
        merge.contactID = contact;
        merge.ListType = clsInsertFieldsInRTB::kCompanyAndContact;
        merge.ConvertStrToRTF = false;
    }
    void addClient() {
        const std::int32_t client = add("ClientData", "ClientDataID", {{"CompanyIDNum", toText(company)}});
        for (const auto& [table, key] :
             std::initializer_list<std::pair<const char*, const char*>>{{"AccountingServices", "AccountingServiceID"},
                                                                        {"ClientOptions", "ClientOptionID"},
                                                                        {"CorpTaxInfo", "CorpTaxInfoID"},
                                                                        {"LawInfo", "LawInfoID"},
                                                                        {"OtherInfo", "OtherInfoID"},
                                                                        {"WSIB_EHTInfo", "WSIB_EHTInfoID"}})
            add(table, "", {{key, toText(client)}});
        add("CompaniesNotes", "", {{"CompanyNum", toText(company)}});
    }
    std::int32_t company = -1, contact = -1;
};

TEST_F(Merging, ValuesAreShownByTheirKind) {
    struct Case {
        std::string text, merged;
    };
    for (const Case& c : {
             Case{"Dear «Contact Display Name»,", "Dear Bob Alder,"},
             Case{"«company name»: «Company Type», «City», «Abbreviated Province»", "Birch & Co: Partnership, Laval, ON"},
             Case{"«Contact & Spouse Name»", "Bob & Ann Alder"},
             Case{"«Contact Home Abbreviated Province»", "Nfld."},
             Case{"«(Contact Birthday, dd/mm/yy)» «(Contact Birthday, dddd, mmmm d yyyy)»", "05/Mar/61 Sunday, March 5 1961"},
             Case{"[«(Contact Anniversary, yyyy)»]", "[]"},  // before 1900
             Case{"[«Contact Birthday»]", "[]"},
             Case{"«(Todays Date, dd/mm/yy)» «(Todays Date, d)»", "22/11/26 22"},
             Case{"«Company Custom Field 1»", "own"},
             Case{"a «Unknown Field» b", "a  b"},
             Case{"<<City>>", "Laval"},
             Case{"«Contact SSN»", "046 454 286"},
             Case{"no marks", "no marks"},
             Case{"\\'abCity\\'bb and «City»", "Laval and Laval"},
         }) {
        EXPECT_EQ(merged(c.text), c.merged) << c.text;
    }
    EXPECT_TRUE(host.errors->reports.empty());
    EXPECT_EQ(merged("[«Company Notes»]"), "[]");  // its search goes to a column that is not there
    EXPECT_EQ(host.errors->reports.size(), 1U);
}

/// Numbers that stand for texts, and a text for a blank.
TEST_F(Merging, ClientsNumbersAreTexts) {
    addClient();
    const auto write = [&](const std::string& table, const std::string& column, const std::string& number) {
        const RecordsetHandle rows =
            host.database->openRecordset("SELECT " + table + ".* FROM " + table + ";", LockCode::updatable);
        host.database->updateField(rows, column, number);
        host.database->closeRecordset(rows);
    };
    const auto with = [&](const std::string& number) {
        for (const auto* const column : {"RC59Permission", "RC59Status", "GSTFilingMethod", "FinancialStatements"})
            if (!number.empty()) write("AccountingServices", column, number);
        for (const auto* const column : {"CorporationType", "CorporationLevel"})
            if (!number.empty()) write("CorpTaxInfo", column, number);
        return merged(
            "«RC59 Permission Level»|«RC59 Form Status»|«GST Filing Method»|«Financial Statements»|«Corporation Type»|"
            "«Corporation Level»");
    };
    host.locale->provinceNumber = province::kAlberta;  // where the tax is called GST
    EXPECT_EQ(with(""), "None|Not Filed|Not Specified|Not Specified|CCPC|Federal Corporation");
    EXPECT_EQ(with("1"), "Full|Awaiting Signature|Traditional|Review Engagement|Regular Corporation|Federal Corporation");
    EXPECT_EQ(with("2"),
              "Limited|CRA Processing|Simple Method|Review Engagement with Differential Reporting|CCPC|Provincial Corporation");
    EXPECT_EQ(with("3"), "None|Completed|Quick Method|Audit|CCPC|Federal Corporation");
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(Merging, RecordsOfAllSourcesAreFound) {
    merge.firmID = add("AccountantFirmInfo", "CompanyID", {{"City", "Hull"}});
    add("ContactsNotes", "", {{"ContactNum", toText(contact)}, {"Notes", "Calls on Mondays"}});
    merge.docketId = add("Dockets", "DocketID",
                         {{"Subject", "Audit"},
                          {"TimeFrom", "11:00:00"},
                          {"TimeTo", "09:30:00"},
                          {"DocketLocked", "True"},
                          {"TotalAmountFinal", "-1234.5"},
                          {"TotalTimeFinal", "1.5"}});
    merge.ListType = clsInsertFieldsInRTB::kTimeEntry;
    EXPECT_EQ(merged("«Your City»|«Contact Notes»|«Time Entry Name»|«Time Duration»"), "Hull|Calls on Mondays|Audit|1 hr 30 min");
    EXPECT_EQ(merged("«Total Amount (Final)»|«Time Entry Locked»|«Is Invoiced»|«Total Time (Final)»"),
              "$-1,234.50|Yes|No|1 hr 30 min");
    EXPECT_TRUE(host.errors->reports.empty());
    merge.docketId = add("Dockets", "DocketID", {{"Subject", "No times"}});
    EXPECT_EQ(merged("[«Time Duration»]"), "[]");
    EXPECT_TRUE(host.errors->reports.empty());
}

/// Recordsets that hold every record serve one record after the other.
TEST_F(Merging, WholeTablesServeAllRecords) {
    const std::int32_t other = addCompany(*host.database, {{"CompanyName", "Alder"}, {"City", "Ottawa"}});
    merge.contactID = addContact(*host.database, {{"DisplayName", "I"}, {"InheritCompanyInfo", "True"}});
    merge.MergeFieldListUse(clsInsertFieldsInRTB::kWholeTables);
    bool skipList = true, clearList = true;
    merge.createDefaultFieldListStructure(skipList, clearList);
    EXPECT_EQ(merge.getMergeDataFromFieldName("BusinessCity"), "Laval");
    merge.companyID = other;
    EXPECT_EQ(merge.getMergeDataFromFieldName("BusinessCity"), "Ottawa");
    EXPECT_EQ(merge.getMergeDataFromFieldName("CompanyName"), "Alder");
}

TEST_F(Merging, RichTextProtectsControlWordsAndBreaksLines) {
    merge.ConvertStrToRTF = true;
    EXPECT_EQ(merged("\\par«Address»"), "\\par 1 Main\\par \r\nSuite 2");
    merge.UseWordWrap(false);
    EXPECT_EQ(merged("«Address»"), "1 Main, \r\nSuite 2");
    EXPECT_EQ(merge.getTodaysDate(""), "Nov 22, 2026");
}

TEST_F(Merging, ContactThatInheritsShowsItsCompany) {
    const auto text = "«Contact Business City» «Contact Business Phone» «Contact Business Province»";
    EXPECT_EQ(merged(text), "Own City 555-9999 ");
    const auto inheriting = addContact(*host.database, {{"DisplayName", "I"},
                                                        {"BusinessCity", "Own City"},
                                                        {"BusinessPhone_Main", "555-9999"},
                                                        {"BusinessPostalCode", "K1A"},
                                                        {"InheritCompanyInfo", "True"}});
    merge.contactID = inheriting;
    EXPECT_EQ(merged(text + std::string{" «Contact Business Postal Code»"}), "Laval 555-9999 Ontario K1A");
    merge.companyID = -1;
    EXPECT_EQ(merged(text), "Own City 555-9999 ");
}

TEST_F(Merging, NothingIsReadWithoutRecordsOrForASample) {
    merge.TestComment = true;
    host.database->closeDatabase();
    EXPECT_EQ(merged("«(Contact Birthday, d)»"), "Nov 22, 2026");
    merge.TestComment = false;
    EXPECT_EQ(merged("[«City»]"), "[]");
    EXPECT_TRUE(host.errors->reports.empty());
    clsInsertFieldsInRTB empty;
    empty.TemplateText = "«City» <<x>>";
    EXPECT_EQ(empty.parseRTBComment(), "«City» «x»");  // the list was not there yet
    EXPECT_EQ(empty.parseRTBComment(), " ");
}

TEST_F(Merging, LookUpsByNameGiveOneValue) {
    merge.initializeDataRecordsetsForSingleDocMerge();
    EXPECT_EQ(merge.getMergeDataFromFieldName("CompanyName"), "Birch & Co");
    EXPECT_EQ(merge.getMergeDataFromDisplayName("CITY"), "Laval");
    EXPECT_EQ(merge.getMergeDataFromFieldName(""), "");
    EXPECT_EQ(merge.getMergeDataFromFieldName("Nothing"), "");
    EXPECT_EQ(merge.getMergeDataFromFieldName("Birthday"), "Mar 5, 1961");
    EXPECT_EQ(merge.getContactAndSpouseName(contact, true), "Alder, Bob & Ann");
    EXPECT_EQ(merge.getContactAndSpouseName(999, true), "");
    merge.contactID = -1;
    merge.companyID = -1;
    EXPECT_EQ(merge.getMergeDataFromFieldName("CompanyName"), "");
}

TEST_F(Merging, ContactAloneIsNamedWhereTheCompanyWould) {
    merge.companyID = -1;
    merge.ConvertCompanyNameToContactNameForContacts = true;
    EXPECT_EQ(merged("«Company Name»«Company Name»"), "Bob AlderBob Alder");
    EXPECT_EQ(merged("\\'abCompany Name\\'bb"), "Bob Alder");
    EXPECT_EQ(merged("«Company Name», «Contact Display Name»"), ", Bob Alder");
}

/// What was found in a template is kept for the next merge; what the firm calls its fields, and where it is, can change in between.
TEST_F(Merging, KnownTemplateFollowsTheNamesOfTheDay) {
    const auto mergedAnew = [&] {
        clsInsertFieldsInRTB next;
        next.companyID = company;
        next.contactID = contact;
        next.ListType = merge.ListType;
        next.ConvertStrToRTF = merge.ConvertStrToRTF;
        next.initializeDataRecordsetsForSingleDocMerge();
        next.TemplateText = "[«Branch»]«Province»«Company Name»\\par«City»";
        return next.parseRTBComment();
    };
    EXPECT_EQ(mergedAnew(), "[]OntarioBirch & Co\\parLaval");
    add("CustomAddressFields", "", {{"CompanyLabel1", "Branch"}});
    EXPECT_EQ(mergedAnew(), "[own]OntarioBirch & Co\\parLaval");
    merge.ConvertStrToRTF = true;
    EXPECT_EQ(mergedAnew(), "[ own] Ontario Birch & Co\\par Laval");
    host.locale->countryNumber = 0;  // where nothing is called Province
    EXPECT_EQ(mergedAnew(), "[ own] Birch & Co\\par Laval");
    merge.ListType = clsInsertFieldsInRTB::kContactAlone;
    EXPECT_EQ(mergedAnew(), "[ own] Birch & Co\\par Laval");
}

TEST_F(Merging, ValuesAreWrittenBackInTheKindOfTheirColumn) {
    merge.MergeFieldListUse(clsInsertFieldsInRTB::kWriteBack);
    merge.initializeDataRecordsetsForSingleDocMerge();
    merge.writeDataToField("City", "Hull");
    merge.writeDataToField("AbbreviatedProvince", "QC");
    merge.writeDataToField("Birthday", makeDay(1962, 3, 6));
    merge.writeDataToField("Anniversary", makeDay(1800, 1, 1));
    merge.writeDataToField("ContactAndSpouseName", "Nobody");
    EXPECT_EQ(merged("«City» «Province» «(Contact Birthday, mmmm d yyyy)»"), "Hull QC March 6 1962");
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(Merging, EveryKindIsWrittenBackAsTheHostStoresIt) {
    merge.docketId = add("Dockets", "DocketID", {{"Subject", "Review"}});
    addClient();
    Recordset{"SELECT Contacts.* FROM Contacts;", LockCode::updatable}.update("InheritCompanyInfo", "True");
    struct Case {
        std::int32_t list;
        std::string field;
        Variant value;
        std::string table, column, stored;
    };
    const auto timeEntry = clsInsertFieldsInRTB::kTimeEntry, both = clsInsertFieldsInRTB::kCompanyAndContact;
    for (const Case& c : {
             Case{timeEntry, "TimeFrom", Date{45000.375}, "Dockets", "TimeFrom", "09:00:00"},
             Case{timeEntry, "TimeTo", Date{45000}, "Dockets", "TimeTo", "1899-12-30"},  // midnight, as a reader shows it
             Case{timeEntry, "TotalAmountReal", 0.1, "Dockets", "TotalAmountReal", "0.1"},
             Case{timeEntry, "TotalTimeReal", 90.5, "Dockets", "TotalTimeReal", "90.5"},
             Case{timeEntry, "Invoiced", 1, "Dockets", "Invoiced", "True"},
             Case{both, "GSTFilingMethod", 2.0, "AccountingServices", "GSTFilingMethod", "2"},  // a 16-bit number
             Case{both, "CorporationLevel", "1", "CorpTaxInfo", "CorporationLevel", "1"},
             Case{both, "Notes", "Called twice", "CompaniesNotes", "Notes", "Called twice"},
             Case{both, "BusinessCity", "Hull", "Contacts", "BusinessCity", "Hull"},
             Case{both, "BusinessPhone_Main", "555-0199", "Companies", "OfficeNumber", "555-0199"},  // the contact inherits it
         }) {
        SCOPED_TRACE(c.field);
        merge.ListType = c.list;
        build(c.list);
        merge.MergeFieldListUse(clsInsertFieldsInRTB::kWriteBack);
        merge.initializeDataRecordsetsForSingleDocMerge();
        merge.writeDataToField(c.field, c.value);
        EXPECT_EQ((Recordset{"SELECT " + c.column + " FROM " + c.table + ";"}.text(c.column)), c.stored);
    }
    EXPECT_EQ(Recordset{"SELECT City FROM Companies;"}.text("City"), "Hull");
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(Merging, TextIsValidated) {
    struct Case {
        std::string text, message;
    };
    std::string heard;
    const auto listener = merge.MergeCommentError.subscribe([&](const std::string& message) { heard += message + "|"; });
    merge.initializeDataRecordsetsForSingleDocMerge();
    const std::string opening = "You are missing your opening brackets, '«' in one of your expressions|";
    for (const Case& c : {
             Case{"", ""},
             Case{"a » b", ""},
             Case{"«Company Name» «(Todays Date, mmm d yyyy)» «(Contact Birthday,d )»", ""},
             Case{"« b", opening},
             Case{"» «City»", opening},
             Case{"«City» «", opening},
             Case{"«(Todays Date, d»", "You are missing the closing round bracket, ')' in one of your date expressions|"},
             Case{"«Todays Date, d)»", "You are missing the opening round bracket, '(' in one of your date expressions|"},
             Case{"«(Todays Date, D)»", "The date format of: 'D' is not valid.  Please see help for valid date formats.|"},
             Case{"«" + std::string(41, 'x') + "»",
                  "You are missing a closing bracket, '»' in one of your expressions.  Make sure you have a bracket immediately "
                  "before and after a field.\r\n\r\neg. «Company Name»|"},
             Case{"«Citi»", "The Tallow Brook Pad did not recognize: «Citi» as a valid placeholder field name.|"},
             Case{"«Citi» «", "The Tallow Brook Pad did not recognize: «Citi» as a valid placeholder field name.|" + opening},
         }) {
        SCOPED_TRACE(c.text);
        heard.clear();
        EXPECT_EQ(merge.testRTBComment(c.text, false, true, false), !c.message.empty());
        EXPECT_EQ(heard, c.message);
    }
    heard.clear();
    EXPECT_TRUE(merge.testRTBComment("«Citi» «", false, false, true));
    EXPECT_FALSE(merge.testRTBComment("\\'abCiti\\'bb", true, true, true));
    EXPECT_EQ(heard, "");
    EXPECT_TRUE(host.errors->reports.empty());
    EXPECT_TRUE(merge.testRTBComment("«(Todays Date)»", false, true, false));
    EXPECT_EQ(heard, "");
    EXPECT_EQ(host.errors->reports.size(), 1U);
}

TEST(FieldTexts, CouplesAreNamedByWhatIsKnown) {
    struct Case {
        merge::CoupleNames names;
        std::string lastFirst, firstFirst;
    };
    for (const Case& c : {
             Case{{"Bob", "Alder", "B. Alder", "Ann", "ALDER"}, "Alder, Bob & Ann", "Bob & Ann Alder"},
             Case{{"", "Alder", "B. Alder", "Ann", "Alder"}, "Alder, Ann", "Ann Alder"},
             Case{{"Bob", "", "B. Alder", "Ann", ""}, "Bob & , Ann", "Bob & Ann "},
             Case{{"Bob", "Alder", "B. Alder", "Ann", "Birch"}, "Alder, Bob & Birch, Ann", "Bob Alder & Ann Birch"},
             Case{{"", "Alder", "B. Alder", "Ann", "Birch"}, "Alder & Birch, Ann", "Alder & Ann Birch"},
             Case{{"Bob", "", "B. Alder", "Ann", "Birch"}, "Bob & Birch, Ann", "Bob & Ann Birch"},
             Case{{"", "", "B. Alder", "Ann", "Birch"}, "B. Alder & Birch, Ann", "B. Alder & Ann Birch"},
             Case{{"Bob", "Alder", "B. Alder", "", ""}, "Alder, Bob", "Bob Alder"},
             Case{{"Bob", "", "B. Alder", "", ""}, "B. Alder", "B. Alder"},
         }) {
        EXPECT_EQ(merge::contactAndSpouseName(c.names, true), c.lastFirst);
        EXPECT_EQ(merge::contactAndSpouseName(c.names, false), c.firstFirst);
    }
}

TEST(FieldTexts, NumbersMoneyAndProvinces) {
    struct Case {
        double amount;
        std::string text;
    };
    for (const Case& c : {Case{0, "$0.00"}, Case{1234567.5, "$1,234,567.50"}, Case{-12.345, "$-12.35"},
                          Case{999.999, "$1,000.00"}, Case{8.165, "$8.17"}, Case{1e16, "$10,000,000,000,000,000.00"},
                          Case{-0.001, "$0.00"}, Case{1e-300, "$0.00"}, Case{123, "$123.00"}})
        EXPECT_EQ(merge::moneyText(c.amount), c.text);
    for (const auto& [spelling, code] :
         std::initializer_list<std::pair<const char*, const char*>>{{"alta.", "AB"},
                                                                    {"Québec", "Québec"},
                                                                    {"quebec", "QC"},
                                                                    {"Nfld.", "Nfld."},
                                                                    {"Newfoundland and Labrador", "Newfoundland and Labrador"},
                                                                    {"p.e.i.", "PEI"},
                                                                    {"nova scotia", "NS"},
                                                                    {"", ""},
                                                                    {"yt", "YT"}})
        EXPECT_EQ(merge::getAbbreviatedProvince(spelling), code);
    for (const auto& [code, name] : std::initializer_list<std::pair<const char*, const char*>>{{"b.c.", "British Columbia"},
                                                                                               {"AB", "Alberta"},
                                                                                               {"mb", "Manitoba"},
                                                                                               {"ont", "Ontario"},
                                                                                               {"SK", "Saskatchewan"},
                                                                                               {"NB", "New Brunswick"},
                                                                                               {"nl", "Newfoundland"},
                                                                                               {"PEI", "Prince Edward Island"},
                                                                                               {"nwt", "Northwest Territories"},
                                                                                               {"NU", "Nunavut"},
                                                                                               {"yt", "Yukon"}})
        EXPECT_EQ(merge::getFullProvinceString(code), name);
    EXPECT_EQ(merge::getCompanyTypeStringFromCompanyTypeNum(2, true), "General Partnership");
    EXPECT_EQ(merge::getCompanyTypeStringFromCompanyTypeNum(12, false), "Unknown");
    EXPECT_EQ(merge::textOfClientColumn("RC59Status")(3), "Completed");
    EXPECT_EQ(merge::textOfClientColumn("City"), nullptr);
}

}  // namespace
}  // namespace wmoutlook::testing

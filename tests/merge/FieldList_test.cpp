#include "tests/merge/MergeFirm.h"

#include <algorithm>
#include <map>

namespace wmoutlook::testing {
namespace {

using FieldListing = MergeFirm;
using Texts = std::vector<std::string>;

/// What lies between two rows, both included.
Texts between(const Texts& rows, const std::string& first, const std::string& last) {
    const auto begin = std::find(rows.begin(), rows.end(), first);
    const auto end = std::find(begin, rows.end(), last);
    if (begin == rows.end() || end == rows.end()) return {"no " + first + " ... " + last};
    return {begin, end + 1};
}

bool has(const Texts& rows, const std::string& row) {
    return std::find(rows.begin(), rows.end(), row) != rows.end();
}

TEST_F(FieldListing, GroupsFollowTheTypeOfList) {
    struct Case {
        std::int32_t listType;
        Texts headers;
    };
    const Texts company{"[Company Address Info]",  "", "[Default Contact Name]", "", "[Company Accounting Info]", "",
                        "[Company Software Info]", "", "[More Contact Info]"};
    const auto behind = [&](Texts headers, bool hasBlank) {
        if (hasBlank) headers.emplace_back();
        headers.insert(headers.end(), company.begin(), company.end());
        return headers;
    };
    Texts own = company;
    own[2] = "[Contact Name]";
    const auto box = std::make_shared<RecordedList>();
    merge.ListBox = box;
    for (const Case& c : {Case{1, company}, Case{2, own}, Case{3, {"[Contact Name]", "", "[More Contact Info]"}},
                          Case{5, behind({"[Appointment Info]"}, true)}, Case{6, behind({"[Time Entry Info]"}, false)},
                          Case{8, behind({"[Task Info]", "", "[Task Info]"}, true)}, Case{0, {}}}) {
        SCOPED_TRACE(c.listType);
        build(c.listType);
        Texts headers;
        for (const auto& [text, data] : box->items) {
            if (data == -1) headers.push_back(text);
            const bool isNamedOtherwise = text.starts_with("Custom ") && text.ends_with("Field 5");
            if (data == -1 || isNamedOtherwise) continue;
            EXPECT_NE(merge.parseListItem(data, false).find(text), std::string::npos) << text;
        }
        EXPECT_EQ(headers, c.headers);
        EXPECT_EQ(rows().back(), "Your Company Custom Field 5=FirmCustom5");
    }
    merge.companyID = 1;
    build(3);
    EXPECT_TRUE(has(box->texts(), "[Company Info]"));
    EXPECT_EQ(merge.parseListItem(-1, true), "");
    EXPECT_EQ(box->refreshed, 8);
}

TEST_F(FieldListing, AddressListsAskForWholeLines) {
    const auto box = std::make_shared<RecordedList>();
    const auto firmBox = std::make_shared<RecordedList>();
    merge.ListBox = box;
    merge.ListBox2 = firmBox;
    merge.MergeFieldListUse(3);
    EXPECT_FALSE(merge.ShowListCategoryHeaders);
    build(1);
    EXPECT_EQ(box->items[0], (std::pair<std::string, std::int32_t>{"Not Assigned", -1}));
    EXPECT_EQ(box->items[1].first, "Company Name");
    EXPECT_EQ(between(rows(), "Industry Type=IndustryType", "Country=Country"),
              (Texts{"Industry Type=IndustryType", "Address 1=Address1", "Address 2=Address2", "Address 3=Address3", "City=City",
                     "Province=Province", "Postal Code=PostalCode", "Country=Country"}));
    EXPECT_TRUE(has(rows(), "Contact Full Name=DisplayName"));
    for (const auto* const missing :
         {"Contact & Spouse Name=ContactAndSpouseName", "Address=Address", "Contact Display Name=DisplayName"})
        EXPECT_FALSE(has(rows(), missing)) << missing;
    EXPECT_EQ(firmBox->texts()[0], "Insert your Letterhead");
    EXPECT_EQ(firmBox->items[1].second, merge.fieldList().count() - static_cast<std::int32_t>(firmBox->items.size()) + 2);
    merge.ShowListCategoryHeaders = true;
    build(1);
    EXPECT_EQ(box->items[1].first, "[Company Address Info]");
}

TEST_F(FieldListing, TaxNamesFollowTheProvince) {
    struct Case {
        std::int32_t province;
        std::string tax, otherTax, corporate, mcbs, board;
    };
    for (const Case& c : {Case{0, "GST", "PST", "Alberta", "", "WCB"}, Case{1, "HST", "PST", "BC", "", "WCB"},
                          Case{2, "GST", "PST", "Manitoba", "", "WCB"},
                          Case{3, "HST", "PST", "ON", "ON Corp. MCBS Number", "WSIB"}, Case{4, "GST", "PST", "Sask.", "", "WCB"},
                          Case{8, "GST", "QST", "Que.", "Quebec ID Number", "CSST"}, Case{9, "HST", "PST", "N.S.", "", "WCB"},
                          Case{10, "HST", "PST", "N.B.", "", "WHSCC"}, Case{11, "HST", "PST", "Nfld.", "", "WHSCC"},
                          Case{12, "GST", "PST", "P.E.I.", "", "WCB"}, Case{7, "GST", "PST", "ON", "", "WSIB"}}) {
        SCOPED_TRACE(c.province);
        host.locale->provinceNumber = c.province;
        build(1);
        Texts expected{"Business Number=BusinessNumber",
                       "RC59 Permission Level=RC59Permission",
                       "RC59 Form Status=RC59Status",
                       c.tax + " Number=GSTNumber",
                       c.tax + " Filing Method=GSTFilingMethod",
                       c.otherTax + " Number=PSTNumber",
                       "Payroll Number=PayrollNumber",
                       "Payroll Registered As=PayrollRegisteredAs",
                       "Year End Date=YearEndDate",
                       "Federal Corp. Tax Number=FederalCorpNumber",
                       c.corporate + " Corp. Tax Number=ONCorpNumber"};
        if (!c.mcbs.empty()) expected.push_back(c.mcbs + "=MCBS");
        for (const auto* const row :
             {"Incorporation Date=IncorporationDate", "Financial Statements=FinancialStatements",
              "Corporation Type=CorporationType", "Corporation Level=CorporationLevel", "Charitable Number=CharitableNum"})
            expected.emplace_back(row);
        expected.push_back((c.province == 8 ? "NEQ" : c.board) + " Number=WSIBNumber");
        if (c.province == 3) expected.push_back("WSIB Firm Number=WSIBFirmNumber");
        expected.push_back(c.board + " Premium Rate=WSIBPremiumRate");
        expected.push_back(c.board + " Coverage=Coverage");
        for (const auto* const row : {"EHT Number=EHTNumber", "EHT Premium Rate=EHTPremiumRate",
                                      "Name Renewal Date=NameRenewalDate", "Law Society Member Number=LawSocietyMemberNumber"})
            expected.emplace_back(row);
        EXPECT_EQ(between(rows(), "Business Number=BusinessNumber", "Law Society Member Number=LawSocietyMemberNumber"),
                  expected);
    }
    host.locale->provinceNumber = 3;
    host.clock->time = makeDay(2010, 6, 30);
    build(1);
    EXPECT_TRUE(has(rows(), "GST Number=GSTNumber"));
}

TEST_F(FieldListing, TheUnitedStatesHaveNamesOfTheirOwn) {
    host.locale->countryNumber = country::kUnitedStates;
    const auto box = std::make_shared<RecordedList>();
    merge.ListBox = box;
    build(2);
    EXPECT_EQ(between(rows(), "Federal Employer Identification Number=EIN", "Custom Field 1=ClientCustom1"),
              (Texts{"Federal Employer Identification Number=EIN", "Sellers Permit Number=SellersPermitNum",
                     "Year End Date=USYearEndDate", "Secretary of State File Number=SoSFileNum",
                     "Incorporation Date=USIncorporationDate", "Property Tax Number=PropertyTaxNum",
                     "Form 637 Registration Number=Form637RegNum", "Terminal Control Number=TCN", "Terminal Name=TerminalName",
                     "Terminal Location=TerminalLocation", "Alcohol Number=AlcoholNum", "Custom Field 1=ClientCustom1"}));
    EXPECT_TRUE(has(box->texts(), "Federal Employer Identification  Number"));
    for (const auto* const row : {"State=Province", "Contact Home Zip Code=HomePostalCode", "Contact SSN=SocialInsuranceNumber",
                                  "Spouse SSN=SpouseSIN", "Your State=Province", "Company Alternate Zip Code=AltPostalCode"})
        EXPECT_TRUE(has(rows(), row)) << row;
    for (const auto& row : rows()) EXPECT_EQ(row.find("Abbreviated"), std::string::npos) << row;
}

TEST_F(FieldListing, TypesOfRowsAreTheirColumns) {
    const auto countOfTypes = [&] {
        std::map<merge::DataType, int> types;
        merge::FieldList list = merge.fieldList();
        for (std::int32_t i = 1; list.moveTo(i); ++i) ++types[list.current()->type];
        return types;
    };
    const auto typeOf = [&](const char* name) {
        merge::FieldList list = merge.fieldList();
        return list.find(name, merge::fieldColumn::kDisplayName) < 0 ? merge::DataType{} : list.current()->type;
    };
    using merge::DataType;
    build(6);
    for (const auto& [name, type] : std::initializer_list<std::pair<const char*, DataType>>{{"Company Name", DataType::text},
                                                                                            {"Contact Birthday", DataType::date},
                                                                                            {"Spouse Birthday", DataType::text},
                                                                                            {"Your Web Site", DataType::text}})
        EXPECT_EQ(typeOf(name), type) << name;
    EXPECT_EQ(countOfTypes()[DataType::minutes], 4);
    EXPECT_EQ(countOfTypes()[DataType::money], 2);
}

TEST_F(FieldListing, ListsAreClearedWhenAsked) {
    const auto box = std::make_shared<RecordedList>();
    merge.ListBox = box;
    merge.ListType = clsInsertFieldsInRTB::kContactAlone;
    bool skipList = true, clearList = true;
    merge.createDefaultFieldListStructure(skipList, clearList);
    EXPECT_FALSE(skipList);
    const std::size_t once = box->items.size();
    ASSERT_GT(once, 10U);
    clearList = false;
    merge.createDefaultFieldListStructure(skipList, clearList);
    EXPECT_EQ(box->items.size(), 2 * once);
    merge.ListBox = nullptr;
    merge.ListBox2 = box;
    merge.createDefaultFieldListStructure(skipList, clearList);
    EXPECT_TRUE(skipList);
    EXPECT_GT(box->items.size(), 2 * once);
}

TEST_F(FieldListing, FirmsNameTheirOwnFields) {
    add("CustomFields", "", {{"CustomName1", "Fax tone:"}, {"CustomName2", "Custom 2"}, {"ApptCustomName5", "Custom 5"}});
    add("CustomAddressFields", "", {{"CompanyLabel1", "Branch"}, {"CompanyLabel5", "Custom 5"}});
    const auto box = std::make_shared<RecordedList>();
    merge.ListBox = box;
    build(5);
    for (const auto* const row : {"Fax tone=ClientCustom1", "Custom Field 2=ClientCustom2", "Branch=CompanyCustom1",
                                  "Branch=FirmCustom1", "Company Custom Field 5=CompanyCustom5",
                                  "Your Company Custom Field 5=FirmCustom5", "Custom Remmit Field 5=ApptCustom5"})
        EXPECT_TRUE(has(rows(), row)) << row;
    EXPECT_TRUE(has(box->texts(), "Custom Appt Field 5"));
    EXPECT_FALSE(has(box->texts(), "Custom Remmit Field 5"));
    host.database->closeDatabase();
    build(8);
    EXPECT_TRUE(has(rows(), "Custom Field 1=ClientCustom1"));
    EXPECT_FALSE(has(rows(), "Fax tone=ClientCustom1"));
    EXPECT_TRUE(has(rows(), "Custom Task Field 1=ScheduleCustom1"));
    EXPECT_TRUE(has(rows(), "Custom Remmit Field 5=TaskCustom5"));
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(FieldListing, PicksAreInsertedAsTheyStandInTemplates) {
    struct Box : RichTextBox {
        Variant start;
        std::string inserted;
        Variant SelStart() override { return start; }
        bool insertText(std::string_view text, std::int32_t position) override {
            inserted += std::to_string(position) + ":" + std::string{text} + "|";
            return true;
        }
    };
    const auto box = std::make_shared<Box>();
    merge.RTB = box;
    build(8);
    EXPECT_FALSE(merge.onListClick(-1));
    EXPECT_TRUE(merge.onListClick(1));
    box->start = 7;
    EXPECT_TRUE(merge.onListClick(2));
    EXPECT_TRUE(merge.insertCurrentDate(1));
    EXPECT_EQ(box->inserted, "1:«Task Name»|7:«(Task Due Date, mmmm d yyyy)»|7:«(Todays Date, dddd, mmmm d yyyy)»|");
    EXPECT_EQ(merge.getDBFieldFromListItem(1), "Subject");
    EXPECT_EQ(merge.getDBFieldFromListItem(2), "(Task Due Date, mmmm d yyyy)");
    EXPECT_EQ(merge.insertCurrentDateMergeField(15, false), "(Todays Date, )");
    EXPECT_EQ(merge.getDBFieldNameFromDisplayFieldName("task calendar date"), "CalendarDate");
    EXPECT_EQ(merge.getDisplayFieldNameFromDBFieldName("Subject"), "Task Name");
    EXPECT_EQ(merge.getDisplayFieldNameFromDBFieldName("Nothing"), "");
}

}  // namespace
}  // namespace wmoutlook::testing

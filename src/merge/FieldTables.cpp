#include "merge/FieldTables.h"

#include "platform/Services.h"

#include <array>

namespace wmoutlook::merge {

namespace {

namespace Of = wmoutlook::province;

bool isOntario(const ListTerms& terms) {
    return terms.province == Of::kOntario;
}

bool isQuebec(const ListTerms& terms) {
    return terms.province == Of::kQuebec;
}

bool isNotQuebec(const ListTerms& terms) {
    return !isQuebec(terms);
}

/// What a province calls something.
struct ProvinceWord {
    std::int32_t province;
    std::string_view word;
};

template <std::size_t count>
std::string_view wordOf(const ProvinceWord (&words)[count], std::int32_t province, std::string_view otherwise) {
    for (const ProvinceWord& row : words)
        if (row.province == province) return row.word;
    return otherwise;
}

std::string_view salesTax(const ListTerms& terms) {
    constexpr ProvinceWord kHst[] = {{Of::kNovaScotia, "HST"}, {Of::kNewBrunswick, "HST"}, {Of::kNewfoundland, "HST"}};
    const bool isLatecomer = terms.province == Of::kBritishColumbia || terms.province == Of::kOntario;
    return isLatecomer && terms.isHarmonized ? "HST" : wordOf(kHst, terms.province, "GST");
}

std::string_view provincialTax(const ListTerms& terms) {
    return isQuebec(terms) ? "QST" : "PST";
}

std::string_view corporateTax(const ListTerms& terms) {
    constexpr ProvinceWord kWords[] = {
        {Of::kAlberta, "Alberta"},    {Of::kBritishColumbia, "BC"},
        {Of::kManitoba, "Manitoba"},  {Of::kOntario, "ON"},
        {Of::kSaskatchewan, "Sask."}, {Of::kQuebec, "Que."},
        {Of::kNovaScotia, "N.S."},    {Of::kNewBrunswick, "N.B."},
        {Of::kNewfoundland, "Nfld."}, {Of::kPrinceEdwardIsland, "P.E.I."},
    };
    return wordOf(kWords, terms.province, "ON");
}

std::string_view safetyBoard(const ListTerms& terms) {
    constexpr ProvinceWord kWords[] = {
        {Of::kQuebec, "CSST"},    {Of::kNewBrunswick, "WHSCC"},     {Of::kNewfoundland, "WHSCC"}, {Of::kOntario, "WSIB"},
        {Of::kAlberta, "WCB"},    {Of::kBritishColumbia, "WCB"},    {Of::kManitoba, "WCB"},       {Of::kSaskatchewan, "WCB"},
        {Of::kNovaScotia, "WCB"}, {Of::kPrinceEdwardIsland, "WCB"},
    };
    return wordOf(kWords, terms.province, "WSIB");
}

constexpr FieldRow kAppointmentRows[] = {
    FieldRow{"Subject", "Appointment Name", Shape::name},        FieldRow{"DateFrom", "Appointment Date", Shape::date},
    FieldRow{"TimeFrom", "Appointment Start Time", Shape::time}, FieldRow{"TimeTo", "Appointment End Time", Shape::time},
    FieldRow{"TimeDuration", "Time Duration", Shape::duration},  FieldRow{"AppointmentText", "Appointment Text", Shape::notes},
};

constexpr FieldRow kTaskScheduleRows[] = {
    FieldRow{"Subject", "Task Name", Shape::name},
    FieldRow{"DueDate", "Task Due Date", Shape::date},
    FieldRow{"inHouseDueDate", "Task in-House Due Date", Shape::date},
    FieldRow{"PeriodEndDate", "Period End Date", Shape::date},
    FieldRow{"PeriodDescription", "Period Description", Shape::text},
    FieldRow{"CalendarDate", "Task Calendar Date", Shape::date},
    FieldRow{"EmployeeAssigned", "Employee Assigned", Shape::name},
    FieldRow{"Year", "Task Year", Shape::number},
    FieldRow{"Amount", "Amount Paid", Shape::number},
    FieldRow{"PersonCompleted", "Completed By", Shape::name},
    FieldRow{"DateCompleted", "Date Completed", Shape::date},
};

// "Task Calendar Date" stands in both lists of a task: the first one is found by its name.
constexpr FieldRow kTaskCalendarRows[] = {
    FieldRow{"Subject", "Task Subject", Shape::name},           FieldRow{"DateFrom", "Task Calendar Date", Shape::date},
    FieldRow{"TimeFrom", "Task Start Time", Shape::time},       FieldRow{"TimeTo", "Task End Time", Shape::time},
    FieldRow{"TimeDuration", "Time Duration", Shape::duration}, FieldRow{"AppointmentText", "Task Text", Shape::notes},
};

constexpr FieldRow kDocketRows[] = {
    FieldRow{"Subject", "Time Entry Name", Shape::name},
    FieldRow{"DateFrom", "Time Entry Date", Shape::date},
    FieldRow{"TimeFrom", "Time Entry Start Time", Shape::time},
    FieldRow{"TimeTo", "Time Entry End Time", Shape::time},
    FieldRow{"TimeDuration", "Time Duration", Shape::duration},
    FieldRow{"AppointmentText", "Time Entry Text", Shape::notes},
    FieldRow{"DocketLocked", "Time Entry Locked", Shape::truth},
    FieldRow{"Invoiced", "Is Invoiced", Shape::truth},
    FieldRow{"UsedRealTime", "Used Time Entry Timer", Shape::truth},
    FieldRow{"RealTimeFrom", "Time From (Actual Time)", Shape::time},
    FieldRow{"RealTimeTo", "Time To (Actual Time)", Shape::time},
    FieldRow{"OriginalRealTimeFrom", "Time From (Original Time)", Shape::time},
    FieldRow{"OriginalRealTimeTo", "Time To (Original Time)", Shape::time},
    FieldRow{"RoundedTimeFrom", "Time From (Rounded Time)", Shape::time},
    FieldRow{"RoundedTimeTo", "Time To (Rounded Time)", Shape::time},
    FieldRow{"TextBody", "Time Entry Notes", Shape::notes},
    FieldRow{"DocketBillingType", "Billing Type", Shape::text},
    FieldRow{"BillingJobRate", "Billing Rate", Shape::number},
    FieldRow{"BillableTime", "Billable Time", Shape::truth},
    FieldRow{"TotalTimeReal", "Total Time (Actual)", Shape::minutes},
    FieldRow{"TotalTimeRounded", "Total Time (Rounded)", Shape::minutes},
    FieldRow{"UseAdjustedTime", "Use Adjusted Time", Shape::truth},
    FieldRow{"TotalTimeAdjusted", "Total Time (Adjusted)", Shape::minutes},
    FieldRow{"TotalTimeFinal", "Total Time (Final)", Shape::minutes},
    FieldRow{"TotalAmountReal", "Total Amount (Actual)", Shape::money},
    FieldRow{"TotalAmountFinal", "Total Amount (Final)", Shape::money},
    FieldRow{"DescriptionInternal", "Internal Time Entry Description", Shape::text},
    FieldRow{"DescriptionClient", "Invoice Time Entry Description", Shape::text},
};

constexpr FieldRow kCompanyRows[] = {
    FieldRow{"CompanyName", "Company Name", Shape::name},
    FieldRow{"ClientID", "Client ID", Shape::number},
    FieldRow{"CorporateName", "Corporate Name", Shape::name},
    FieldRow{"CompanyType", "Company Type", Shape::text},
    FieldRow{"IndustryType", "Industry Type", Shape::text},
    FieldRow{.databaseField = "Address", .displayName = "Address", .shape = Shape::address, .lines = Lines::single},
    FieldRow{.databaseField = "Address1", .displayName = "Address 1", .shape = Shape::address, .lines = Lines::whole},
    FieldRow{.databaseField = "Address2", .displayName = "Address 2", .shape = Shape::address, .lines = Lines::whole},
    FieldRow{.databaseField = "Address3", .displayName = "Address 3", .shape = Shape::address, .lines = Lines::whole},
    FieldRow{"City", "City", Shape::city},
    FieldRow{.databaseField = "Province", .displayName = "State", .shape = Shape::province, .where = Where::elsewhere},
    FieldRow{.databaseField = "PostalCode", .displayName = "Zip Code", .shape = Shape::postalCode, .where = Where::elsewhere},
    FieldRow{.databaseField = "Province", .displayName = "Province", .shape = Shape::province, .where = Where::canada},
    FieldRow{.databaseField = "AbbreviatedProvince",
             .displayName = "Abbreviated Province",
             .shape = Shape::province,
             .where = Where::canada,
             .lines = Lines::single},
    FieldRow{.databaseField = "PostalCode", .displayName = "Postal Code", .shape = Shape::postalCode, .where = Where::canada},
    FieldRow{"Country", "Country", Shape::country},
    FieldRow{"OfficeNumber", "Office Number", Shape::phone},
    FieldRow{"AltPhoneNumber", "Alternate Phone Number", Shape::phone},
    FieldRow{"FaxNumber", "Fax Number", Shape::phone},
    FieldRow{"Email", "Email", Shape::email},
    FieldRow{"WebSite", "Web Site", Shape::webAddress},
    FieldRow{"FaceBookURL", "Company FaceBook URL", Shape::webAddress},
    FieldRow{"TwitterAccount", "Company Twitter Account", Shape::webAddress},
    FieldRow{"PartnerName", "Supervising Partner", Shape::name},
    FieldRow{"AccountantName", "Managing Accountant", Shape::name},
    FieldRow{.databaseField = "AltAddress",
             .displayName = "Company Alternate Address",
             .shape = Shape::address,
             .lines = Lines::single},
    FieldRow{.databaseField = "AltAddress1",
             .displayName = "Company Alternate Address 1",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "AltAddress2",
             .displayName = "Company Alternate Address 2",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "AltAddress3",
             .displayName = "Company Alternate Address 3",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{"AltCity", "Company Alternate City", Shape::city},
    FieldRow{.databaseField = "AltProvince",
             .displayName = "Company Alternate State",
             .shape = Shape::province,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "AltPostalCode",
             .displayName = "Company Alternate Zip Code",
             .shape = Shape::postalCode,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "AltProvince",
             .displayName = "Company Alternate Province",
             .shape = Shape::province,
             .where = Where::canada},
    FieldRow{.databaseField = "AltAbbreviatedProvince",
             .displayName = "Company Alternate Abbreviated Province",
             .shape = Shape::province,
             .where = Where::canada,
             .lines = Lines::single},
    FieldRow{.databaseField = "AltPostalCode",
             .displayName = "Company Alternate Postal Code",
             .shape = Shape::postalCode,
             .where = Where::canada},
    FieldRow{"AltCountry", "Company Alternate Country", Shape::country},
};

constexpr FieldRow kContactNameRows[] = {
    FieldRow{.databaseField = "DisplayName", .displayName = "Contact Display Name", .shape = Shape::name, .lines = Lines::single},
    FieldRow{.databaseField = "DisplayName", .displayName = "Contact Full Name", .shape = Shape::name, .lines = Lines::whole},
    FieldRow{.databaseField = "ContactAndSpouseName",
             .displayName = "Contact & Spouse Name",
             .shape = Shape::name,
             .lines = Lines::single},
    FieldRow{"ClientID", "Client ID", Shape::number},
    FieldRow{"NamePrefix", "Contact Name Prefix", Shape::namePart},
    FieldRow{"FirstName", "Contact First Name", Shape::namePart},
    FieldRow{"MiddleName", "Contact Middle Name", Shape::namePart},
    FieldRow{"LastName", "Contact Last Name", Shape::namePart},
    FieldRow{"NameSuffix", "Contact Name Suffix", Shape::namePart},
};

// ONCorpNumber holds the corporate tax number of whichever province.
constexpr FieldRow kClientRows[] = {
    FieldRow{.databaseField = "EIN",
             .displayName = "Federal Employer Identification Number",
             .shape = Shape::number,
             .where = Where::elsewhere,
             .listText = "Federal Employer Identification  Number"},
    FieldRow{.databaseField = "SellersPermitNum",
             .displayName = "Sellers Permit Number",
             .shape = Shape::number,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "USYearEndDate", .displayName = "Year End Date", .shape = Shape::date, .where = Where::elsewhere},
    FieldRow{.databaseField = "SoSFileNum",
             .displayName = "Secretary of State File Number",
             .shape = Shape::number,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "USIncorporationDate",
             .displayName = "Incorporation Date",
             .shape = Shape::date,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "PropertyTaxNum",
             .displayName = "Property Tax Number",
             .shape = Shape::number,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "Form637RegNum",
             .displayName = "Form 637 Registration Number",
             .shape = Shape::number,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "TCN", .displayName = "Terminal Control Number", .shape = Shape::number, .where = Where::elsewhere},
    FieldRow{.databaseField = "TerminalName", .displayName = "Terminal Name", .shape = Shape::name, .where = Where::elsewhere},
    FieldRow{
        .databaseField = "TerminalLocation", .displayName = "Terminal Location", .shape = Shape::name, .where = Where::elsewhere},
    FieldRow{.databaseField = "AlcoholNum", .displayName = "Alcohol Number", .shape = Shape::number, .where = Where::elsewhere},
    FieldRow{.databaseField = "BusinessNumber", .displayName = "Business Number", .shape = Shape::number, .where = Where::canada},
    FieldRow{
        .databaseField = "RC59Permission", .displayName = "RC59 Permission Level", .shape = Shape::text, .where = Where::canada},
    FieldRow{.databaseField = "RC59Status", .displayName = "RC59 Form Status", .shape = Shape::text, .where = Where::canada},
    FieldRow{.databaseField = "GSTNumber",
             .displayName = "Number",
             .shape = Shape::number,
             .where = Where::canada,
             .prefix = salesTax},
    FieldRow{.databaseField = "GSTFilingMethod",
             .displayName = "Filing Method",
             .shape = Shape::text,
             .where = Where::canada,
             .prefix = salesTax},
    FieldRow{.databaseField = "PSTNumber",
             .displayName = "Number",
             .shape = Shape::number,
             .where = Where::canada,
             .prefix = provincialTax},
    FieldRow{.databaseField = "PayrollNumber", .displayName = "Payroll Number", .shape = Shape::number, .where = Where::canada},
    FieldRow{.databaseField = "PayrollRegisteredAs",
             .displayName = "Payroll Registered As",
             .shape = Shape::name,
             .where = Where::canada},
    FieldRow{.databaseField = "YearEndDate", .displayName = "Year End Date", .shape = Shape::date, .where = Where::canada},
    FieldRow{.databaseField = "FederalCorpNumber",
             .displayName = "Federal Corp. Tax Number",
             .shape = Shape::number,
             .where = Where::canada},
    FieldRow{.databaseField = "ONCorpNumber",
             .displayName = "Corp. Tax Number",
             .shape = Shape::number,
             .where = Where::canada,
             .prefix = corporateTax},
    FieldRow{.databaseField = "MCBS",
             .displayName = "ON Corp. MCBS Number",
             .shape = Shape::number,
             .where = Where::canada,
             .stands = isOntario},
    FieldRow{.databaseField = "MCBS",
             .displayName = "Quebec ID Number",
             .shape = Shape::number,
             .where = Where::canada,
             .stands = isQuebec},
    FieldRow{
        .databaseField = "IncorporationDate", .displayName = "Incorporation Date", .shape = Shape::date, .where = Where::canada},
    FieldRow{.databaseField = "FinancialStatements",
             .displayName = "Financial Statements",
             .shape = Shape::text,
             .where = Where::canada},
    FieldRow{.databaseField = "CorporationType", .displayName = "Corporation Type", .shape = Shape::text, .where = Where::canada},
    FieldRow{
        .databaseField = "CorporationLevel", .displayName = "Corporation Level", .shape = Shape::text, .where = Where::canada},
    FieldRow{
        .databaseField = "CharitableNum", .displayName = "Charitable Number", .shape = Shape::number, .where = Where::canada},
    FieldRow{.databaseField = "WSIBNumber",
             .displayName = "NEQ Number",
             .shape = Shape::number,
             .where = Where::canada,
             .stands = isQuebec},
    FieldRow{.databaseField = "WSIBNumber",
             .displayName = "Number",
             .shape = Shape::number,
             .where = Where::canada,
             .prefix = safetyBoard,
             .stands = isNotQuebec},
    FieldRow{.databaseField = "WSIBFirmNumber",
             .displayName = "Firm Number",
             .shape = Shape::number,
             .where = Where::canada,
             .prefix = safetyBoard,
             .stands = isOntario},
    FieldRow{.databaseField = "WSIBPremiumRate",
             .displayName = "Premium Rate",
             .shape = Shape::number,
             .where = Where::canada,
             .prefix = safetyBoard},
    FieldRow{.databaseField = "Coverage",
             .displayName = "Coverage",
             .shape = Shape::text,
             .where = Where::canada,
             .prefix = safetyBoard},
    FieldRow{.databaseField = "EHTNumber", .displayName = "EHT Number", .shape = Shape::number, .where = Where::canada},
    FieldRow{
        .databaseField = "EHTPremiumRate", .displayName = "EHT Premium Rate", .shape = Shape::number, .where = Where::canada},
    FieldRow{
        .databaseField = "NameRenewalDate", .displayName = "Name Renewal Date", .shape = Shape::date, .where = Where::canada},
    FieldRow{.databaseField = "LawSocietyMemberNumber",
             .displayName = "Law Society Member Number",
             .shape = Shape::number,
             .where = Where::canada},
};

constexpr FieldRow kSoftwareRows[] = {
    FieldRow{"SoftwareName", "Software Name", Shape::name},
    FieldRow{"SoftwareSerialNumber", "Software Serial Number", Shape::number},
    FieldRow{"SoftwareVersion", "Software Version", Shape::number},
    FieldRow{"SoftwareAccountNumber", "Software Account Number", Shape::number},
    FieldRow{"FileSavedAs", "Data File Saved As", Shape::name},
    FieldRow{"UserName", "User Name", Shape::name},
    FieldRow{"Password", "Password", Shape::number},
};

constexpr FieldRow kMoreContactRows[] = {
    FieldRow{
        .databaseField = "SocialInsuranceNumber", .displayName = "Contact SIN", .shape = Shape::number, .where = Where::canada},
    FieldRow{.databaseField = "SocialInsuranceNumber",
             .displayName = "Contact SSN",
             .shape = Shape::number,
             .where = Where::elsewhere},
    FieldRow{"EmployeeType", "Contact Employee Type", Shape::text},
    FieldRow{"PercentageOwnership", "Contact Percentage Ownership", Shape::number},
    FieldRow{"BusinessName", "Contact Business Name", Shape::name},
    FieldRow{"BusinessJobTitle", "Contact Job Title", Shape::name},
    FieldRow{"BusinessDepartment", "Contact Business Department", Shape::name},
    FieldRow{"BusinessOffice", "Contact Business Office", Shape::name},
    FieldRow{"BusinessPhone_Main", "Contact Business Phone", Shape::phone},
    FieldRow{"BusinessAltPhoneNumber", "Contact Business Alt. Phone", Shape::phone},
    FieldRow{"BusinessPhone_Cell", "Contact Business Cell", Shape::phone},
    FieldRow{"BusinessPhone_Pager", "Contact Business Pager", Shape::phone},
    FieldRow{"BusinessPhone_Fax", "Contact Business Fax", Shape::phone},
    FieldRow{.databaseField = "BusinessAddress",
             .displayName = "Contact Business Address",
             .shape = Shape::address,
             .lines = Lines::single},
    FieldRow{.databaseField = "BusinessAddress1",
             .displayName = "Contact Business Address 1",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "BusinessAddress2",
             .displayName = "Contact Business Address 2",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "BusinessAddress3",
             .displayName = "Contact Business Address 3",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{"BusinessCity", "Contact Business City", Shape::city},
    FieldRow{.databaseField = "BusinessProvince",
             .displayName = "Contact Business State",
             .shape = Shape::province,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "BusinessPostalCode",
             .displayName = "Contact Business Zip Code",
             .shape = Shape::postalCode,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "BusinessProvince",
             .displayName = "Contact Business Province",
             .shape = Shape::province,
             .where = Where::canada},
    FieldRow{.databaseField = "BusinessAbbreviatedProvince",
             .displayName = "Contact Business Abbreviated Province",
             .shape = Shape::province,
             .where = Where::canada,
             .lines = Lines::single},
    FieldRow{.databaseField = "BusinessPostalCode",
             .displayName = "Contact Business Postal Code",
             .shape = Shape::postalCode,
             .where = Where::canada},
    FieldRow{"BusinessCountry", "Contact Business Country", Shape::country},
    FieldRow{"BusinessWebSite", "Contact Business Web Site", Shape::webAddress},
    FieldRow{"BusinessEmail", "Contact Business Email", Shape::email},
    FieldRow{"BusinessFaceBookURL", "Contact Business FaceBook URL", Shape::webAddress},
    FieldRow{"BusinessTwitterAccount", "Contact Business Twitter Account", Shape::webAddress},
    FieldRow{"HomePhone_Main", "Contact Personal Phone", Shape::phone},
    FieldRow{"HomePhone_Cell", "Contact Personal Cell", Shape::phone},
    FieldRow{"HomePhone_Pager", "Contact Personal Pager", Shape::phone},
    FieldRow{"HomePhone_Fax", "Contact Personal Fax", Shape::phone},
    FieldRow{"PersonalWebSite", "Contact Personal Web Site", Shape::webAddress},
    FieldRow{"PersonalEmail", "Contact Personal Email", Shape::email},
    FieldRow{"PersonalFaceBookURL", "Contact Personal FaceBook URL", Shape::webAddress},
    FieldRow{"PersonalTwitterAccount", "Contact Personal Twitter Account", Shape::webAddress},
    FieldRow{
        .databaseField = "HomeAddress", .displayName = "Contact Home Address", .shape = Shape::address, .lines = Lines::single},
    FieldRow{
        .databaseField = "HomeAddress1", .displayName = "Contact Home Address 1", .shape = Shape::address, .lines = Lines::whole},
    FieldRow{
        .databaseField = "HomeAddress2", .displayName = "Contact Home Address 2", .shape = Shape::address, .lines = Lines::whole},
    FieldRow{
        .databaseField = "HomeAddress3", .displayName = "Contact Home Address 3", .shape = Shape::address, .lines = Lines::whole},
    FieldRow{"HomeCity", "Contact Home City", Shape::city},
    FieldRow{.databaseField = "HomeProvince",
             .displayName = "Contact Home State",
             .shape = Shape::province,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "HomePostalCode",
             .displayName = "Contact Home Zip Code",
             .shape = Shape::postalCode,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "HomeProvince",
             .displayName = "Contact Home Province",
             .shape = Shape::province,
             .where = Where::canada},
    FieldRow{.databaseField = "HomeAbbreviatedProvince",
             .displayName = "Contact Home Abbreviated Province",
             .shape = Shape::province,
             .where = Where::canada,
             .lines = Lines::single},
    FieldRow{.databaseField = "HomePostalCode",
             .displayName = "Contact Home Postal Code",
             .shape = Shape::postalCode,
             .where = Where::canada},
    FieldRow{"HomeCountry", "Contact Home Country", Shape::country},
    FieldRow{"Children", "Contact Children", Shape::text},
    FieldRow{"Gender", "Contact Gender", Shape::text},
    FieldRow{"Birthday", "Contact Birthday", Shape::date},
    FieldRow{"Anniversary", "Contact Anniversary", Shape::date},
    FieldRow{"SpokenLanguage", "Contact Spoken Language", Shape::text},
    FieldRow{"MaritialStatus", "Contact Marital Status", Shape::text},
    FieldRow{"SpouseNamePrefix", "Spouse Name Prefix", Shape::namePart},
    FieldRow{"SpouseFirstName", "Spouse First Name", Shape::namePart},
    FieldRow{"SpouseMiddleName", "Spouse Middle Name", Shape::namePart},
    FieldRow{"SpouseLastName", "Spouse Last Name", Shape::namePart},
    FieldRow{"SpouseNameSuffix", "Spouse Name Suffix", Shape::namePart},
    FieldRow{"SpouseName", "Spouse Display Name", Shape::name},
    FieldRow{"SpouseEmail", "Spouse Personal Email", Shape::email},
    FieldRow{"SpousePhone_Main", "Spouse Home Phone", Shape::phone},
    FieldRow{"SpousePhone_Cell", "Spouse Personal Cell", Shape::phone},
    FieldRow{
        .databaseField = "SpouseAddress", .displayName = "Spouse Home Address", .shape = Shape::address, .lines = Lines::single},
    FieldRow{.databaseField = "SpouseAddress1",
             .displayName = "Spouse Home Address 1",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "SpouseAddress2",
             .displayName = "Spouse Home Address 2",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "SpouseAddress3",
             .displayName = "Spouse Home Address 3",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{"SpouseCity", "Spouse Home City", Shape::city},
    FieldRow{.databaseField = "SpouseProvince",
             .displayName = "Spouse Home State",
             .shape = Shape::province,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "SpousePostalCode",
             .displayName = "Spouse Home Zip Code",
             .shape = Shape::postalCode,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "SpouseProvince",
             .displayName = "Spouse Home Province",
             .shape = Shape::province,
             .where = Where::canada},
    FieldRow{.databaseField = "SpouseAbbreviatedProvince",
             .displayName = "Spouse Home Abbreviated Province",
             .shape = Shape::province,
             .where = Where::canada,
             .lines = Lines::single},
    FieldRow{.databaseField = "SpousePostalCode",
             .displayName = "Spouse Home Postal Code",
             .shape = Shape::postalCode,
             .where = Where::canada},
    FieldRow{"SpouseCountry", "Spouse Home Country", Shape::country},
    FieldRow{"SpouseGender", "Spouse Gender", Shape::text},
    // A text on purpose, although it holds a date: it is no date expression.
    FieldRow{"SpouseBirthday", "Spouse Birthday", Shape::text},
    FieldRow{.databaseField = "SpouseSIN", .displayName = "Spouse SIN", .shape = Shape::number, .where = Where::canada},
    FieldRow{.databaseField = "SpouseSIN", .displayName = "Spouse SSN", .shape = Shape::number, .where = Where::elsewhere},
    FieldRow{.databaseField = "AltAddress",
             .displayName = "Contact Alternate Address",
             .shape = Shape::address,
             .lines = Lines::single},
    FieldRow{.databaseField = "AltAddress1",
             .displayName = "Contact Alternate Address 1",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "AltAddress2",
             .displayName = "Contact Alternate Address 2",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{.databaseField = "AltAddress3",
             .displayName = "Contact Alternate Address 3",
             .shape = Shape::address,
             .lines = Lines::whole},
    FieldRow{"AltCity", "Contact Alternate City", Shape::city},
    FieldRow{.databaseField = "AltProvince",
             .displayName = "Contact Alternate State",
             .shape = Shape::province,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "AltPostalCode",
             .displayName = "Contact Alternate Zip Code",
             .shape = Shape::postalCode,
             .where = Where::elsewhere},
    FieldRow{.databaseField = "AltProvince",
             .displayName = "Contact Alternate Province",
             .shape = Shape::province,
             .where = Where::canada},
    FieldRow{.databaseField = "AltAbbreviatedProvince",
             .displayName = "Contact Alternate Abbreviated Province",
             .shape = Shape::province,
             .where = Where::canada,
             .lines = Lines::single},
    FieldRow{.databaseField = "AltPostalCode",
             .displayName = "Contact Alternate Postal Code",
             .shape = Shape::postalCode,
             .where = Where::canada},
    FieldRow{"AltCountry", "Contact Alternate Country", Shape::country},
};

constexpr FieldRow kFirmRows[] = {
    FieldRow{"CompanyName", "Your Company Name", Shape::name},
    FieldRow{"CorporateName", "Your Corporate Name", Shape::name},
    FieldRow{"CompanyType", "Your Company Type", Shape::text},
    FieldRow{"IndustryType", "Your Industry Type", Shape::text},
    FieldRow{"Address", "Your Address", Shape::address},
    FieldRow{"City", "Your City", Shape::city},
    FieldRow{.databaseField = "Province", .displayName = "Your State", .shape = Shape::province, .where = Where::elsewhere},
    FieldRow{
        .databaseField = "PostalCode", .displayName = "Your Zip Code", .shape = Shape::postalCode, .where = Where::elsewhere},
    FieldRow{.databaseField = "Province", .displayName = "Your Province", .shape = Shape::province, .where = Where::canada},
    FieldRow{
        .databaseField = "PostalCode", .displayName = "Your Postal Code", .shape = Shape::postalCode, .where = Where::canada},
    FieldRow{"Country", "Your Country", Shape::country},
    FieldRow{"OfficeNumber", "Your Office Number", Shape::phone},
    FieldRow{"FaxNumber", "Your Fax Number", Shape::phone},
    FieldRow{"Email", "Your Email", Shape::email},
    FieldRow{"WebSite", "Your Web Site", Shape::webAddress},
};

struct ShapeRow {
    Shape shape;
    DataType type;
    std::int16_t length;
    std::string_view sample;
};

constexpr std::array kShapes{
    ShapeRow{Shape::name, DataType::text, 255, "Maple Leaf Accounting"},
    ShapeRow{Shape::namePart, DataType::text, 100, "Anne"},
    ShapeRow{Shape::address, DataType::text, 255, "12 Main Street"},
    ShapeRow{Shape::webAddress, DataType::text, 255, "www.example.ca"},
    ShapeRow{Shape::email, DataType::text, 255, "office@example.ca"},
    ShapeRow{Shape::phone, DataType::text, 50, "(555) 555-0100"},
    ShapeRow{Shape::city, DataType::text, 50, "Springfield"},
    ShapeRow{Shape::province, DataType::text, 50, "Ontario"},
    ShapeRow{Shape::country, DataType::text, 50, "Canada"},
    ShapeRow{Shape::postalCode, DataType::text, 50, "K1A 0B1"},
    ShapeRow{Shape::number, DataType::text, 50, "12345"},
    ShapeRow{Shape::text, DataType::text, 255, "Text"},
    ShapeRow{Shape::date, DataType::date, -1, "Nov 22, 2026"},
    ShapeRow{Shape::time, DataType::time, -1, "9:00 am"},
    ShapeRow{Shape::money, DataType::money, -1, "$1,234.00"},
    ShapeRow{Shape::truth, DataType::boolean, -1, "Yes"},
    ShapeRow{Shape::minutes, DataType::minutes, -1, "1 hr 30 min"},
    ShapeRow{Shape::duration, DataType::text, 255, "1 hr 30 min"},
    ShapeRow{Shape::notes, DataType::text, -1, "Notes"},
};
static_assert(std::size(kShapes) == static_cast<std::size_t>(Shape::notes) + 1);

}  // namespace

bool standsIn(const FieldRow& row, const ListTerms& terms) {
    const bool isCanada = terms.country == country::kCanada;
    if (row.where != Where::everywhere && (row.where == Where::canada) != isCanada) return false;
    if (row.lines != Lines::either && (row.lines == Lines::whole) != terms.hasWholeLines) return false;
    return row.stands == nullptr || row.stands(terms);
}

Field fieldOf(const FieldRow& row, SourceKind source, const ListTerms& terms) {
    const ShapeRow& shape = kShapes[static_cast<std::size_t>(row.shape)];
    std::string name{row.displayName};
    if (row.prefix != nullptr) name.insert(0, std::string{row.prefix(terms)} + " ");
    return {std::string{row.databaseField}, std::move(name), source, shape.type, std::string{shape.sample}, shape.length};
}

std::span<const FieldRow> appointmentRows() {
    return kAppointmentRows;
}

std::span<const FieldRow> taskScheduleRows() {
    return kTaskScheduleRows;
}

std::span<const FieldRow> taskCalendarRows() {
    return kTaskCalendarRows;
}

std::span<const FieldRow> docketRows() {
    return kDocketRows;
}

std::span<const FieldRow> companyRows() {
    return kCompanyRows;
}

std::span<const FieldRow> contactNameRows() {
    return kContactNameRows;
}

std::span<const FieldRow> clientRows() {
    return kClientRows;
}

std::span<const FieldRow> softwareRows() {
    return kSoftwareRows;
}

std::span<const FieldRow> moreContactRows() {
    return kMoreContactRows;
}

std::span<const FieldRow> firmRows() {
    return kFirmRows;
}

}  // namespace wmoutlook::merge

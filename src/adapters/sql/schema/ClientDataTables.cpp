#include "adapters/sql/schema/SchemaTexts.h"

namespace wmoutlook::schema {

namespace {

// ClientData gives the number; the eight side tables carry the same number as their key.
constexpr std::string_view kStatements[] = {
    R"(CREATE TABLE ClientData (
    ClientDataID INTEGER PRIMARY KEY AUTOINCREMENT,
    CompanyIDNum Long,
    ActiveStatus Long DEFAULT 1,
    ShowThisClient Boolean NOT NULL DEFAULT 1,
    ClientCustom1 Text(255), ClientCustom2 Text(255), ClientCustom3 Text(255), ClientCustom4 Text(255), ClientCustom5 Text(255)
))",
    R"(CREATE TABLE AccountingServices (
    AccountingServiceID Long NOT NULL PRIMARY KEY,
    BusinessNumber Text(50),
    RC59Permission Integer,
    RC59Status Integer,
    GSTNumber Text(50),
    GSTFilingMethod Integer,
    PSTNumber Text(50),
    PayrollNumber Text(50),
    PayrollRegisteredAs Text(255) COLLATE TEXTUAL,
    FinancialStatements Integer
))",
    R"(CREATE TABLE ClientOptions (
    ClientOptionID Long NOT NULL PRIMARY KEY
))",
    R"(CREATE TABLE ClientNotes (
    ClientNoteID Long NOT NULL PRIMARY KEY
))",
    R"(CREATE TABLE ClientUSInfo (
    ClientUSInfoID Long NOT NULL PRIMARY KEY,
    EIN Text(50),
    SellersPermitNum Text(50),
    USYearEndDate Date,
    SoSFileNum Text(50),
    USIncorporationDate Date,
    PropertyTaxNum Text(50),
    Form637RegNum Text(50),
    TCN Text(50),
    TerminalName Text(255) COLLATE TEXTUAL,
    TerminalLocation Text(255) COLLATE TEXTUAL,
    AlcoholNum Text(50)
))",
    R"(CREATE TABLE CorpTaxInfo (
    CorpTaxInfoID Long NOT NULL PRIMARY KEY,
    YearEndDate Date,
    FederalCorpNumber Text(50),
    ONCorpNumber Text(50),
    MCBS Text(50),
    IncorporationDate Date,
    CorporationType Integer,
    CorporationLevel Integer,
    CharitableNum Text(50)
))",
    R"(CREATE TABLE LawInfo (
    LawInfoID Long NOT NULL PRIMARY KEY,
    NameRenewalDate Date,
    LawSocietyMemberNumber Text(50)
))",
    R"(CREATE TABLE OtherInfo (
    OtherInfoID Long NOT NULL PRIMARY KEY,
    AccountantInfo LongText,
    LawyerInfo LongText,
    BankerInfo LongText,
    InsuranceInfo LongText,
    FinancialLendersInfo LongText,
    CRAInfo LongText
))",
    R"(CREATE TABLE WSIB_EHTInfo (
    WSIB_EHTInfoID Long NOT NULL PRIMARY KEY,
    WSIBNumber Text(50),
    WSIBFirmNumber Text(50),
    WSIBPremiumRate Text(50),
    Coverage Text(50) COLLATE TEXTUAL,
    EHTNumber Text(50),
    EHTPremiumRate Text(50)
))",
    R"(CREATE TABLE SoftwareInfo (
    CompanyIDNum Long,
    ContactIDNum Long,
    CompanyID Long,
    DefaultSoftware Boolean NOT NULL DEFAULT 0,
    SoftwareName Text(255) COLLATE TEXTUAL,
    SoftwareSerialNumber Text(50),
    SoftwareVersion Text(50),
    SoftwareAccountNumber Text(50),
    FileSavedAs Text(255) COLLATE TEXTUAL,
    UserName Text(255) COLLATE TEXTUAL,
    Password Text(255)
))",
    R"(CREATE TABLE CompanyProjects (
    CompanyIDNum Long,
    ContactIDNum Long,
    SavedProjectIDNum Long,
    Custom1 Text(255), Custom2 Text(255), Custom3 Text(255), Custom4 Text(255), Custom5 Text(255)
))",
    R"(CREATE TABLE PersonalTaxInfo (
    ContactNum Long,
    TaxYear Long
))",
    R"(CREATE TABLE PersonalTaxStatus (
    ContactNum Long,
    TaxYear Long,
    ActiveStatus Long DEFAULT 1,
    InHouseDueDate Date,
    ReturnDate Date,
    ReturnStatus Long DEFAULT 0,
    OverdueFlag Boolean NOT NULL DEFAULT 0,
    EmployeeAssigned Text(255) COLLATE TEXTUAL,
    Custom1 Text(255), Custom2 Text(255), Custom3 Text(255), Custom4 Text(255), Custom5 Text(255)
))",
    R"(CREATE TABLE PersonalTaxNotes (
    ContactNum Long,
    TaxYear Long,
    Notes LongText
))",
    R"(CREATE TABLE PersonalTaxProfileInfo (
    ContactNum Long,
    TaxYear Long,
    ProfileFileLocation Text(255) COLLATE TEXTUAL,
    DateLastSynched Date,
    ProfileClientStatus Long,
    T1InfoProfileClientStatus Long
))",
    R"(CREATE TABLE PersonalTaxClientSummary (
    ContactNum Long,
    TaxYear Long,
    PersonalTaxNotes LongText
))",
    R"(CREATE TABLE PersonalTaxTasks (
    ContactNum Long,
    TaxYear Long,
    StepNum Long
))",
    R"(CREATE TABLE PersonalTaxSteps (
    TaxYear Long,
    StepName Text(255) COLLATE TEXTUAL,
    StepDescription LongText,
    ColumnName Text(255) COLLATE TEXTUAL,
    DefaultWidth Long,
    SortIndex Long,
    OldSortIndex Long
))",
    R"(CREATE TABLE PersonalTaxDataImportInfo (
    TaxYear Long,
    ShowProfileT1InfoInSummary Boolean NOT NULL DEFAULT 0
))",
    "CREATE INDEX ClientData_CompanyIDNum ON ClientData (CompanyIDNum)",
    "CREATE INDEX SoftwareInfo_CompanyIDNum ON SoftwareInfo (CompanyIDNum)",
    "CREATE INDEX SoftwareInfo_ContactIDNum ON SoftwareInfo (ContactIDNum)",
    "CREATE INDEX CompanyProjects_CompanyIDNum ON CompanyProjects (CompanyIDNum)",
    "CREATE INDEX CompanyProjects_ContactIDNum ON CompanyProjects (ContactIDNum)",
    "CREATE INDEX PersonalTaxInfo_ContactYear ON PersonalTaxInfo (ContactNum, TaxYear)",
    "CREATE INDEX PersonalTaxStatus_ContactYear ON PersonalTaxStatus (ContactNum, TaxYear)",
    "CREATE INDEX PersonalTaxNotes_ContactYear ON PersonalTaxNotes (ContactNum, TaxYear)",
    "CREATE INDEX PersonalTaxProfileInfo_ContactNum ON PersonalTaxProfileInfo (ContactNum)",
    "CREATE INDEX PersonalTaxClientSummary_ContactYear ON PersonalTaxClientSummary (ContactNum, TaxYear)",
    "CREATE INDEX PersonalTaxTasks_ContactYear ON PersonalTaxTasks (ContactNum, TaxYear)",
    "CREATE INDEX PersonalTaxSteps_TaxYear ON PersonalTaxSteps (TaxYear)",
};

}  // namespace

std::span<const std::string_view> clientDataTables() {
    return kStatements;
}

}  // namespace wmoutlook::schema

#include "adapters/sql/schema/SchemaTexts.h"

namespace wmoutlook::schema {

namespace {

// The links are found by the number or the identifier alone: either names one item nearly always, and the long identifier of the
// store, of which a file knows one or two, would make each entry of an index ten times as long.
constexpr std::string_view kStatements[] = {
    R"(CREATE TABLE OutlookSync (
    DataFileID Text(50),
    CompanyContactType Long,
    CompanyNum Long,
    ContactNum Long,
    AppointmentNum Long,
    TaskNum Long,
    OutlookID Text(255),
    FolderStoreID LongText,
    OutlookCategory Text(255) COLLATE TEXTUAL,
    IsRecurringItem Boolean NOT NULL DEFAULT 0,
    RecurringItemDate Date,
    RepeatNum Long,
    DateLastSync Date,
    SchemeNum Long
))",
    R"(CREATE TABLE OutlookScheme (
    SchemeID INTEGER PRIMARY KEY AUTOINCREMENT,
    DataFileID Text(50),
    SchemeName Text(255) COLLATE TEXTUAL,
    SyncObject Long,
    CompanyListType Long,
    SyncType Long,
    CompanyInformationType Long,
    CompanyDisplayType Long,
    ContactInformationType Long,
    ContactDisplayType Long,
    ContactsCategory Text(255) COLLATE TEXTUAL,
    ImportTallowbrookLocation Long,
    FolderEntryID Text(255),
    FolderStoreID LongText,
    ImportCategory Long,
    DateLastSync Date,
    UseAppointmentDateRange Boolean NOT NULL DEFAULT 0,
    AppointmentSynchDateRangeType Long,
    ApptSynchStartRange Date,
    ApptSynchEndRange Date,
    ApptSynchDeleteMissingOutlookApptInTallowbrook Boolean NOT NULL DEFAULT 0,
    ApptSynchDeleteMissingTallowbrookApptInOutlook Boolean NOT NULL DEFAULT 0
))",
    R"(CREATE TABLE OutlookSchemeItems (
    ProfileName Text(100) COLLATE TEXTUAL,
    SchemeNum Integer,
    DataFileID Text(20),
    CompanyContactType Integer,
    CompanyNum Integer,
    ContactNum Integer,
    UserNum Integer,
    OutlookID Text(255)
))",
    R"(CREATE TABLE OutlookLogin (
    ProfileName Text(100) COLLATE TEXTUAL
))",
    "CREATE INDEX OutlookSync_CompanyNum ON OutlookSync (CompanyNum) WHERE CompanyNum IS NOT NULL",
    "CREATE INDEX OutlookSync_ContactNum ON OutlookSync (ContactNum) WHERE ContactNum IS NOT NULL",
    "CREATE INDEX OutlookSync_AppointmentNum ON OutlookSync (AppointmentNum) WHERE AppointmentNum IS NOT NULL",
    "CREATE INDEX OutlookSync_TaskNum ON OutlookSync (TaskNum) WHERE TaskNum IS NOT NULL",
    "CREATE INDEX OutlookSync_OutlookID ON OutlookSync (OutlookID)",
    "CREATE INDEX OutlookSchemeItems_SchemeNum ON OutlookSchemeItems (SchemeNum)",
};

}  // namespace

std::span<const std::string_view> syncStoreTables() {
    return kStatements;
}

}  // namespace wmoutlook::schema

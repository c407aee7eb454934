#include "merge/MergeRecords.h"

#include "hostdata/HostServices.h"
#include "hostdata/modDatabaseFunctions.h"

namespace wmoutlook::merge {

namespace {

struct SourceRow {
    SourceKind source;
    /// Two of them name columns that their tables lack: such a search fails, and the field is empty.
    std::string_view keyColumn;
    std::int32_t MergeRecordIDs::*id;
};

constexpr SourceRow kSourceRows[] = {
    {SourceKind::contact, "ContactID", &MergeRecordIDs::contactID},
    {SourceKind::contactNotes, "ContactNum", &MergeRecordIDs::contactID},
    {SourceKind::company, "CompanyID", &MergeRecordIDs::companyID},
    {SourceKind::companyNotes, "ComapnyNum", &MergeRecordIDs::companyID},
    {SourceKind::client, "CompanyID", &MergeRecordIDs::companyID},
    {SourceKind::software, "CompanyID", &MergeRecordIDs::companyID},
    {SourceKind::firm, "CompanyID", &MergeRecordIDs::firmID},
    {SourceKind::appointment, "AppointmentID", &MergeRecordIDs::AppointmentID},
    {SourceKind::task, "TaskID", &MergeRecordIDs::taskID},
    {SourceKind::docket, "DocketID", &MergeRecordIDs::docketId},
};

const SourceRow& rowOf(SourceKind source) {
    return kSourceRows[static_cast<std::size_t>(source)];
}

/// "Companies.Custom1 AS CompanyCustom1, ..."
std::string customColumns(const std::string& table, const std::string& alias) {
    std::string columns;
    for (const char* const number : {"1", "2", "3", "4", "5"})
        columns.append(columns.empty() ? "" : ", ").append(table + ".Custom" + number + " AS " + alias + number);
    return columns;
}

std::string wholeTable(const std::string& table, const std::string& alias) {
    return "SELECT " + table + ".*, " + customColumns(table, alias) + " From " + table;
}

std::string taskWithSchedule() {
    return "SELECT Schedule.*, Tasks.*, " + customColumns("Schedule", "ScheduleCustom") + ", " +
           customColumns("Tasks", "TaskCustom") + " FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum";
}

std::string taskAlone() {
    return "SELECT Tasks.*, " + customColumns("Tasks", "TaskCustom") + " FROM Tasks";
}

std::string clientQuery(std::int32_t clientDataID) {
    using modDatabaseFunctions::ClientActivity;
    return modDatabaseFunctions::getMainBusinessSQLString(false, ClientActivity::any, clientDataID);
}

std::string softwareOf(std::string_view column, std::int32_t id) {
    return "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND SoftwareInfo." +
           std::string{column} + "=" + toText(id) + ";";
}

/// The records of a source, up to the condition on the one that is wanted.
std::string recordsOf(SourceKind source) {
    switch (source) {
        case SourceKind::contact: return wholeTable("Contacts", "ContactCustom");
        case SourceKind::company: return wholeTable("Companies", "CompanyCustom");
        case SourceKind::firm: return wholeTable("AccountantFirmInfo", "FirmCustom");
        case SourceKind::appointment: return wholeTable("Appointments", "ApptCustom");
        case SourceKind::docket: return wholeTable("Dockets", "DocketCustom");
        case SourceKind::task: return taskWithSchedule();
        case SourceKind::contactNotes: return "SELECT ContactsNotes.* From ContactsNotes";
        case SourceKind::companyNotes: return "SELECT CompaniesNotes.* From CompaniesNotes";
        case SourceKind::client:
        case SourceKind::software: break;
    }
    return "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True";
}

/// How the one record is named in the condition.
std::string_view conditionOf(SourceKind source) {
    switch (source) {
        case SourceKind::contact: return "Contacts.ContactID=";
        case SourceKind::company: return "Companies.CompanyID=";
        case SourceKind::firm: return "CompanyID=";
        case SourceKind::appointment: return "Appointments.AppointmentID=";
        case SourceKind::docket: return "Dockets.DocketID=";
        case SourceKind::task: return "Tasks.TaskID=";
        case SourceKind::contactNotes: return "ContactsNotes.ContactNum=";
        default: return "CompaniesNotes.CompanyNum=";
    }
}

std::string oneRecord(SourceKind source, std::int32_t id) {
    if (source == SourceKind::client) return clientQuery(modDatabaseFunctions::getClientDataIDFromCompanyID(id));
    if (source == SourceKind::software) return softwareOf("CompanyIDNum", id);
    return recordsOf(source).append(" WHERE ").append(conditionOf(source)).append(toText(id)).append(";");
}

std::string allRecords(SourceKind source) {
    return source == SourceKind::client ? clientQuery(kNoRecord) : recordsOf(source) + ";";
}

}  // namespace

std::int32_t MergeRecords::idOf(SourceKind source, const MergeRecordIDs& ids) {
    return ids.*rowOf(source).id;
}

const Recordset* MergeRecords::of(SourceKind source) const {
    const auto& recordset = recordsets_[static_cast<std::size_t>(source)];
    return recordset ? &*recordset : nullptr;
}

bool MergeRecords::locate(SourceKind source, std::int32_t id) const {
    const Recordset* const records = of(source);
    return records != nullptr && records->findFirst(rowOf(source).keyColumn, id);
}

void MergeRecords::open(SourceKind source, std::string_view sql, LockCode lock) {
    auto& recordset = recordsets_[static_cast<std::size_t>(source)];
    close(recordset);
    recordset.emplace(sql, lock);
    if (recordset->handle() == kNoRecordset) recordset.reset();  // so that the next field tries again
}

void MergeRecords::openIfClosed(SourceKind source, std::int32_t id, Extent extent, LockCode lock) {
    if (of(source) != nullptr) return;
    if (extent == Extent::wholeTable)
        open(source, allRecords(source), lock);
    else if (source == SourceKind::task)
        openTask(id, lock);
    else
        open(source, oneRecord(source, id), lock);
}

/// A task that hangs on no schedule entry is read alone.
void MergeRecords::openTask(std::int32_t taskID, LockCode lock) {
    open(SourceKind::task, oneRecord(SourceKind::task, taskID), lock);
    const Recordset* const task = of(SourceKind::task);
    if (task != nullptr && task->hasRowsIfTold() == false)
        open(SourceKind::task, taskAlone() + " WHERE Tasks.TaskID=" + toText(taskID) + ";", lock);
}

void MergeRecords::openForMerge(const MergeRecordIDs& ids, LockCode lock) {
    const auto openOne = [&](SourceKind source, std::int32_t id) {
        if (id >= 0) openIfClosed(source, id, Extent::oneRecord, lock);
    };
    openOne(SourceKind::client, ids.companyID);
    openOne(SourceKind::company, ids.companyID);
    openOne(SourceKind::software, ids.companyID);
    openOne(SourceKind::contact, ids.contactID);
    if (ids.contactID >= 0 && of(SourceKind::software) == nullptr)
        open(SourceKind::software, softwareOf("ContactIDNum", ids.contactID), lock);
    openOne(SourceKind::firm, ids.firmID);
    if (ids.userID >= 0)
        employee_.emplace(
            "SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo WHERE ContactID=" + toText(ids.userID) + ";", lock);
    openOne(SourceKind::appointment, ids.AppointmentID);
    openOne(SourceKind::docket, ids.docketId);
    openOne(SourceKind::task, ids.taskID);
}

void MergeRecords::close(std::optional<Recordset>& recordset) {
    if (!recordset) return;
    recordset->close();
    recordset.reset();
}

void MergeRecords::close(SourceKind source) {
    close(recordsets_[static_cast<std::size_t>(source)]);
}

void MergeRecords::closeAll() {
    for (const SourceKind source :
         {SourceKind::client, SourceKind::company, SourceKind::companyNotes, SourceKind::contact, SourceKind::contactNotes,
          SourceKind::software, SourceKind::appointment, SourceKind::docket, SourceKind::task, SourceKind::firm})
        close(source);
    close(employee_);
}

}  // namespace wmoutlook::merge

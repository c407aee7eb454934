#include "calendar/SynchronizeAppointmentsOrTasks.h"

#include "calendar/CalendarWriter.h"
#include "calendar/DeletionReconciliation.h"
#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "syncstore/CalendarLinks.h"
#include "syncstore/TargetItem.h"

#include <optional>
#include <string>
#include <vector>

namespace wmoutlook {

namespace {

/// A user number of 0 in the selection stands for all users; -1 is a user like any other.
constexpr std::int32_t kAllUsers = 0;

/// How the host's rows are restricted by their day.
enum class DateRangeType : std::int32_t { onDay = 0, onOrAfter = 1, onOrBefore = 2, between = 3 };

std::string dayLiteral(Date date) {
    return "#" + formatDateForSql(dayOf(date)) + "#";  // the range is one of days, the rows hold days
}

/// Empty for a type that does not exist: the statement then ends in "AND ;" and fails.
std::string dateCondition(const SyncOptions& options) {
    const Date start = options.apptSynchStartRange;
    switch (static_cast<DateRangeType>(options.appointmentSynchDateRangeType)) {
        case DateRangeType::onDay: return "DateFrom = " + dayLiteral(start);
        case DateRangeType::onOrAfter: return "DateFrom >= " + dayLiteral(start);
        case DateRangeType::onOrBefore: return "DateFrom <= " + dayLiteral(start);
        case DateRangeType::between:
            return "DateFrom >= " + dayLiteral(start) + " AND DateFrom <= " + dayLiteral(options.apptSynchEndRange);
    }
    return {};
}

std::string rowsOfUser(const CalendarTable& table, std::int32_t userID, const SyncOptions& options) {
    const std::string name{table.name};
    std::string query = "SELECT " + name + ".* FROM " + name + " ";
    if (userID != kAllUsers) query += "WHERE " + name + ".UserIDNum = " + toText(userID) + " ";
    if (options.useAppointmentDateRange) query += (userID != kAllUsers ? "AND " : "WHERE ") + dateCondition(options);
    return query + ";";
}

/// The numbers of the selection's users. A row without one selects nobody's records.
std::vector<std::int32_t> chosenUsers(const SyncRun& run) {
    const auto list = statement([&] {
        if (!run.companyCollection) throw ObjectNotSet{"selection list"};
        return run.companyCollection;
    });
    std::vector<std::int32_t> users;
    if (!list) return users;
    for (list->moveFirst(); !list->isAtEnd(); list->moveNext()) {
        const Variant& number = list->value(selection::kUserNum);
        const auto user = statement([&]() -> std::optional<std::int32_t> { return number.toInteger(); });
        if (user) users.push_back(*user);
    }
    return users;
}

class HostToOutlookWalk {
public:
    HostToOutlookWalk(SyncRun& run, const CalendarTable& table)
        : run_(run), table_(table), links_(run, table), writer_(run, table), deletions_(run, table) {}

    void walk(const std::vector<std::int32_t>& users, std::string_view storeID) const {
        for (const std::int32_t userID : users) walkRows(userID, storeID);
        if (run_.options.apptSynchDeleteMissingTallowbrookApptInOutlook)
            deletions_.deleteMissingTallowbrookApptsInOutlook(storeID);
    }

private:
    void walkRows(std::int32_t userID, std::string_view storeID) const {
        if (!isDatabaseOpen()) return;
        Recordset rows{rowsOfUser(table_, userID, run_.options)};
        if (run_.options.showProgress) startProgress(run_.appointmentsProgress, rows.recordCount());
        for (rows.moveFirst(); !rows.isAtEnd(); rows.moveNext()) {
            const std::int32_t hostID = rows.number(table_.key, kNoRecord);
            if (hostID != kNoRecord) write(hostID, storeID);
            if (run_.options.showProgress) stepProgress(run_.appointmentsProgress);
            yieldTwice();
        }
    }

    void write(std::int32_t hostID, std::string_view storeID) const {
        const auto linked = links_.getOutlookIDFromTallowbrookAppointmentID(hostID, storeID);
        if (!linked) return;  // it could not be told: the next run makes up for it
        const auto written = table_.objects == outlookSyncObjectsEnum::syncTasks
                                 ? writer_.CreateTask(hostID, *linked, storeID)
                                 : writer_.createNewTallowbrookAppointmentInOutlook(hostID, *linked, storeID);
        if (written) links_.saveAppointmentOutlookID(hostID, *written, storeID);
    }

    SyncRun& run_;
    const CalendarTable& table_;
    CalendarLinks links_;
    CalendarWriter writer_;
    DeletionReconciliation deletions_;
};

}  // namespace

void SynchronizeAppointmentsOrTasks(SyncRun& run) {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-SynchronizeAppointmentsOrTasks", &run.ExitProgram};
    routine.run([&] {
        if (!run.outlook.isConnected) return;
        const CalendarTable& table = calendarTableOf(run.options.syncObjects);
        const std::vector<std::int32_t> users = chosenUsers(run);
        if (users.empty()) return;
        const std::string storeID = targetStore(run, table.folder);
        // Without a store there is no target: links would belong to none, and every item would be created once more.
        if (ValueHelper::isNullOrEmpty(storeID)) return;
        switch (run.options.syncDirectionType) {
            case outlookSyncTypeEnum::syncFromTallowbrookToOutlook: HostToOutlookWalk{run, table}.walk(users, storeID); break;
            case outlookSyncTypeEnum::syncFromOutlookToTallowbrook:  // has no pass for the calendar yet
            case outlookSyncTypeEnum::syncBothsWays: break;          // no direction wins, so neither side is touched
        }
    });
}

}  // namespace wmoutlook

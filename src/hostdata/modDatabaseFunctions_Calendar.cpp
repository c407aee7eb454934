#include "hostdata/modDatabaseFunctions_Calendar.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"

#include <limits>
#include <string>
#include <string_view>

namespace wmoutlook::modDatabaseFunctions {

namespace {

struct TypeRow {
    CalendarType type;
    std::string_view table;
    std::string_view notificationField;
    bool (*isValid)(std::int32_t id);
};

constexpr TypeRow kTypes[] = {
    {CalendarType::appointments, "Appointments", "AppointmentNum", validAppointmentID},
    {CalendarType::tasks, "Tasks", "TaskNum", validTaskID},
    {CalendarType::dockets, "Dockets", "DocketNum", validDocketID},
};

const TypeRow& rowOf(CalendarType type) {
    for (const TypeRow& row : kTypes)
        if (row.type == type) return row;
    return kTypes[0];
}

/// What marks a schedule entry that stands by itself.
constexpr std::int32_t kIndependentTotal = 111;
constexpr std::int32_t kIndependentNumber = 5;

enum class History { keep, forget };

History historyOf(bool keepHistory) {
    return keepHistory ? History::keep : History::forget;
}

/// Whether a row is history: done, and to be kept. A flag that could not be read counts as done.
bool isToKeep(const Recordset& rows, std::string_view doneField, History history) {
    if (history == History::forget) return false;
    const auto done = rows.textIfRead(doneField);
    if (!done) return true;
    return !ValueHelper::isNullOrEmpty(*done) && statement([&] { return Variant{*done}.toBoolean(); }, true);
}

/// Deletes the rows of a table that point at a record.
void deleteRowsOf(std::string_view table, std::string_view field, std::int32_t id, std::string_view doneField, History history) {
    const std::string name{table};
    const std::string pointer{field};
    Recordset rows{"SELECT " + name + "." + pointer + ", " + name + "." + std::string{doneField} + " FROM " + name + " WHERE " +
                       pointer + " = " + toText(id) + ";",
                   LockCode::updatable};
    for (rows.moveFirst(); !rows.isAtEnd(); rows.moveNext())
        if (!isToKeep(rows, doneField, history)) rows.deleteRecord();
}

void deleteReminders(std::string_view field, std::int32_t id, History history) {
    deleteRowsOf("Reminders", field, id, "Completed", history);
}

/// A calendar record without what hangs on it.
void deleteNotificationsAndRecord(const Recordset& record, CalendarType type, std::int32_t id, bool keepHistory) {
    {
        const KeptPosition position{record};
        deleteAppointmentClientNotifications(type, id, keepHistory);
    }
    record.deleteRecord();
}

}  // namespace

void deleteAppointment(std::int32_t appointmentID, bool keepHistory) {
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-deleteAppointment"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        Recordset appointment{
            "SELECT Appointments.AppointmentID FROM Appointments WHERE AppointmentID = " + toText(appointmentID) + ";",
            LockCode::updatable};
        if (!appointment.moveFirst()) return;
        deleteReminders("AppointmentIDNum", appointmentID, historyOf(keepHistory));
        deleteNotificationsAndRecord(appointment, CalendarType::appointments, appointmentID, keepHistory);
    });
}

void deleteTask(std::int32_t taskID, bool ignoreScheduleCheck, bool keepSchedule, bool keepHistory) {
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-deleteTask"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        if (!ignoreScheduleCheck && !isThisTaskAssociatedWithIndependentScheduleEntry(taskID)) return;
        std::int32_t scheduleID = kNoRecord;
        {
            Recordset task{"SELECT Tasks.TaskID FROM Tasks WHERE TaskID = " + toText(taskID) + ";", LockCode::updatable};
            if (!task.moveFirst()) return;
            scheduleID = getScheduleIDFromTaskID(taskID);
            deleteReminders("TaskIDNum", taskID, historyOf(keepHistory));
            deleteNotificationsAndRecord(task, CalendarType::tasks, taskID, keepHistory);
        }
        if (!keepSchedule) deleteScheduleTask(scheduleID, true);
    });
}

void deleteScheduleTask(std::int32_t scheduleID, bool keepTasks) {
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-deleteScheduleTask"};
    routine.run([&] {
        deleteScheduleClientNotifications(scheduleID);
        if (!isDatabaseOpen()) return;
        const std::string id = toText(scheduleID);
        // Tasks without an entry have -1, and that is also what a look-up that failed gives: they hang on nothing.
        if (!keepTasks && scheduleID > 0) {
            Recordset tasks{"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=" + id + ";"};
            for (tasks.moveFirst(); !tasks.isAtEnd(); tasks.moveNext()) {
                const std::int32_t taskID = tasks.number("TaskID", kNoRecord);
                const KeptPosition position{tasks};
                deleteTask(taskID, true, true, true);
            }
        }
        Recordset schedule{"SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = " + id + ";", LockCode::updatable};
        if (schedule.moveFirst()) schedule.deleteRecord();
    });
}

void deleteAppointmentClientNotifications(CalendarType type, std::int32_t id, bool keepHistory) {
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-deleteAppointmentClientNotifications"};
    routine.run([&] {
        const TypeRow& row = rowOf(type);
        if (!isDatabaseOpen() || !row.isValid(id)) return;
        deleteRowsOf("ClientNotification", row.notificationField, id, "NotificationSent", historyOf(keepHistory));
    });
}

void deleteScheduleClientNotifications(std::int32_t scheduleID) {
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-deleteScheduleClientNotifications"};
    routine.run([&] {
        if (!isDatabaseOpen() || scheduleID <= 0) return;
        deleteRowsOf("ClientNotification", "ScheduleNum", scheduleID, "NotificationSent", History::keep);
    });
}

bool isThisTaskAssociatedWithIndependentScheduleEntry(std::int32_t taskID) {
    bool isIndependent = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-isThisTaskAssociatedWithIndependentScheduleEntry"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::int32_t scheduleID = getScheduleIDFromTaskID(taskID);
        const Recordset schedule{
            "SELECT Schedule.ScheduleID, Schedule.scheduleNum, Schedule.totalNum FROM Schedule WHERE ScheduleID=" +
            toText(scheduleID) + ";"};
        if (!schedule.hasRows()) return;
        isIndependent = schedule.number("totalNum", kNoRecord) == kIndependentTotal &&
                        schedule.number("scheduleNum", kNoRecord) == kIndependentNumber;
    });
    return isIndependent;
}

std::int32_t getAppointmentRepeatUniqueID(CalendarType type) {
    std::int32_t repeatNum = kNoRecord;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getAppointmentRepeatUniqueID"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::string column = std::string{rowOf(type).table} + ".RepeatNum";
        const Recordset rows{"SELECT " + column + " FROM " + std::string{rowOf(type).table} + " ORDER BY " + column + ";"};
        for (std::int32_t candidate = 1; candidate < std::numeric_limits<std::int32_t>::max(); ++candidate) {
            const auto isTaken = rows.findFirstIfTold("RepeatNum", candidate);
            if (isTaken == false) repeatNum = candidate;
            if (isTaken != true) return;
        }
    });
    return repeatNum;
}

}  // namespace wmoutlook::modDatabaseFunctions

#pragma once

#include "platform/outlook/ObjectModel.h"
#include "syncstore/SyncEnumerations.h"

#include <string_view>

namespace wmoutlook {

/// What a calendar run works on: the host's table with its key, the field of the links that holds that key, and the
/// counterpart in Outlook. A run has one, from its start to its end.
struct CalendarTable {
    outlookSyncObjectsEnum objects = outlookSyncObjectsEnum::syncAppointments;
    std::string_view name;
    std::string_view key;
    std::string_view linkField;
    outlook::ItemType itemType = outlook::ItemType::appointment;
    outlook::DefaultFolder folder = outlook::DefaultFolder::calendar;
};

inline constexpr CalendarTable kAppointmentsTable{
    outlookSyncObjectsEnum::syncAppointments, "Appointments", "AppointmentID", "AppointmentNum", outlook::ItemType::appointment,
    outlook::DefaultFolder::calendar};
inline constexpr CalendarTable kTasksTable{
    outlookSyncObjectsEnum::syncTasks, "Tasks", "TaskID", "TaskNum", outlook::ItemType::task, outlook::DefaultFolder::tasks};

[[nodiscard]] constexpr const CalendarTable& calendarTableOf(outlookSyncObjectsEnum objects) {
    return objects == outlookSyncObjectsEnum::syncTasks ? kTasksTable : kAppointmentsTable;
}

}  // namespace wmoutlook

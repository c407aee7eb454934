#pragma once

#include "platform/Date.h"

#include <cstdint>

/// The host's appointments, tasks and schedule: deletions with all that hangs on a record, numbers of series, free hours. With
/// the database closed nothing is deleted and nothing is found.
namespace wmoutlook::modDatabaseFunctions {

/// The kinds of calendar records under the numbers that the host gives them.
enum class CalendarType : std::int32_t { appointments = 0, tasks = 1, dockets = 2 };

// Deletions (modDatabaseFunctions_Calendar.cpp). With keepHistory completed reminders and sent notifications stay behind,
// pointing at nothing; one that cannot be asked stays too.

void deleteAppointment(std::int32_t appointmentID, bool keepHistory);
/// Without ignoreScheduleCheck only a task of an independent schedule entry is deleted. Without keepSchedule the schedule entry
/// goes too; its other tasks stay.
void deleteTask(std::int32_t taskID, bool ignoreScheduleCheck, bool keepSchedule, bool keepHistory);
/// Without keepTasks the tasks of the entry go too, whatever the check of their schedule says, with their history kept. A number
/// of 0 or less is no entry and has no tasks.
void deleteScheduleTask(std::int32_t scheduleID, bool keepTasks);
void deleteAppointmentClientNotifications(CalendarType type, std::int32_t id, bool keepHistory);
void deleteScheduleClientNotifications(std::int32_t scheduleID);  ///< those that were not sent

/// Whether the task hangs on a schedule entry that stands by itself, outside of a series.
[[nodiscard]] bool isThisTaskAssociatedWithIndependentScheduleEntry(std::int32_t taskID);

/// The lowest number from 1 that no row has in RepeatNum; -1 when that cannot be told.
[[nodiscard]] std::int32_t getAppointmentRepeatUniqueID(CalendarType type);

// Times (modDatabaseFunctions_FreeTime.cpp). They are times of day; an end behind midnight
// stands on the day behind day 0.

/// The start of a free time of so many hours in the user's office day, 9:00 to 17:00. Only records of the given type are looked
/// at, and of these only those that start at 9:00 or later and end before 17:00. On a full day a full hour is picked at random.
[[nodiscard]] Date getBestTimeInCalendarForSpecificDayAndUser(CalendarType type, std::int32_t userID, Date day, float hours);
/// The start itself without hours; midnight when the day has not had more hours than that by the start.
[[nodiscard]] Date determineEndTimeFromEstimatedTime(Date start, float hours);
void verifyStartAndEndTime(Date& start, Date& end);  ///< exchanges them when the start is the later one

}  // namespace wmoutlook::modDatabaseFunctions

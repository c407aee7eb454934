#pragma once

#include "adapters/outlookstore/Recurrence.h"
#include "apps/tallowsync/Json.h"

#include <optional>
#include <string>

/// A series as JSON, by the names and numbers of Outlook's RecurrencePattern: RecurrenceType, Interval, what the type uses of
/// DayOfWeekMask, DayOfMonth, MonthOfYear and Instance, then Occurrences, PatternEndDate or NoEndDate, and Exceptions with
/// OriginalDate, Deleted and the properties that are other than the series' own.
namespace wmoutlook {

[[nodiscard]] Json recurrenceToJson(const outlookstore::Recurrence& recurrence);
/// Whether the numbers make a pattern is left to the store. When it is no such object, nothing, and `fault` is the end of a
/// sentence that says so.
[[nodiscard]] std::optional<outlookstore::Recurrence> recurrenceFromJson(const Json& json, std::string& fault);

}  // namespace wmoutlook

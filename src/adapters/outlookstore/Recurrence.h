#pragma once

#include "platform/Date.h"
#include "platform/Variant.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What makes an item a series, by the names and numbers of Outlook's RecurrencePattern. Terms: the *pattern* gives days; an
/// occurrence stands on such a day at the series' time of day; an *exception* is one that was deleted or is other than the series.
/// All is local wall-clock time.
namespace wmoutlook::outlookstore {

enum class RecurrenceType : std::int32_t { daily = 0, weekly = 1, monthly = 2, monthNth = 3, yearly = 5, yearNth = 6 };

struct ChangedProperty {
    std::string name{};
    Variant value{};  ///< null: Outlook's default
};

struct RecurrenceException {
    Date originalDate{};  ///< the day on which the pattern has it
    bool deleted = false;
    std::vector<ChangedProperty> changes{};  ///< what it has other than its series, Start and End among it when it was moved
};

struct Recurrence {
    RecurrenceType recurrenceType = RecurrenceType::daily;
    std::int32_t interval = 1;       ///< days, weeks, months or years from one to the next
    std::int32_t dayOfWeekMask = 0;  ///< weekly, monthNth, yearNth: sum of 1 Sunday, 2 Monday, 4 Tuesday ... 64 Saturday
    std::int32_t dayOfMonth = 0;     ///< monthly, yearly: 1 to 31; a shorter month has its last day instead
    std::int32_t monthOfYear = 0;    ///< yearly, yearNth
    std::int32_t instance = 0;       ///< monthNth, yearNth: 1 to 4, 5 for the last
    std::int32_t occurrences = 0;    ///< how many days the pattern has; 0 when it is not limited so
    /// The last day that can have one. Nothing: there is no end, or it follows from the number of occurrences.
    std::optional<Date> patternEndDate{};
    std::vector<RecurrenceException> exceptions{};
};

/// Days are whole numbers since day 0.
using DayNumber = std::int32_t;
[[nodiscard]] DayNumber dayNumberOf(Date date);

/// No occurrence is later: a series without an end goes on until 31 December 2500.
[[nodiscard]] DayNumber lastDayOfAll();

/// Throws OutlookError, one sentence, for numbers that make no pattern (Interval 0, day 40, ...). What a type of recurrence does
/// not use must be 0.
void checkNumbers(const Recurrence& recurrence);
/// The same, and for a pattern that has no day from `start` on.
void checkPattern(const Recurrence& recurrence, Date start);

/// The days of a sound pattern that began on `start`, in order, from `from` to `last`, the first `most` of them. The number of
/// occurrences is not looked at.
[[nodiscard]] std::vector<DayNumber> patternDays(const Recurrence& recurrence, DayNumber start, DayNumber from, DayNumber last,
                                                 std::size_t most);

/// The last day of a sound pattern, by its number of occurrences or its end; nothing when it has none.
[[nodiscard]] std::optional<DayNumber> endOf(const Recurrence& recurrence, DayNumber start);

}  // namespace wmoutlook::outlookstore

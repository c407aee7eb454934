#include "adapters/outlookstore/Recurrence.h"

#include "platform/Errors.h"

#include <libical/ical.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string_view>

namespace wmoutlook::outlookstore {

namespace {

constexpr std::int32_t kMostOccurrences = 999;
constexpr std::int32_t kLongestInterval = 999;
constexpr std::int32_t kEarliestYear = 1601;
constexpr std::int32_t kLastYear = 2500;
constexpr std::int32_t kLastInstance = 5;
constexpr std::int32_t kShortestMonth = 28;
constexpr std::int32_t kSecondsOfDay = 86400;

struct TypeRow {
    RecurrenceType type;
    icalrecurrencetype_frequency frequency;
    bool usesWeekDays, usesDayOfMonth, usesMonth, usesInstance;
};

constexpr std::array kTypes{
    TypeRow{RecurrenceType::daily, ICAL_DAILY_RECURRENCE, false, false, false, false},
    TypeRow{RecurrenceType::weekly, ICAL_WEEKLY_RECURRENCE, true, false, false, false},
    TypeRow{RecurrenceType::monthly, ICAL_MONTHLY_RECURRENCE, false, true, false, false},
    TypeRow{RecurrenceType::monthNth, ICAL_MONTHLY_RECURRENCE, true, false, false, true},
    TypeRow{RecurrenceType::yearly, ICAL_YEARLY_RECURRENCE, false, true, true, false},
    TypeRow{RecurrenceType::yearNth, ICAL_YEARLY_RECURRENCE, true, false, true, true},
};

constexpr std::array kWeekDays{ICAL_SUNDAY_WEEKDAY,   ICAL_MONDAY_WEEKDAY, ICAL_TUESDAY_WEEKDAY, ICAL_WEDNESDAY_WEEKDAY,
                               ICAL_THURSDAY_WEEKDAY, ICAL_FRIDAY_WEEKDAY, ICAL_SATURDAY_WEEKDAY};

[[noreturn]] void refuse(std::string_view why) {
    throw OutlookError{-1, std::string{"The recurrence cannot be: "}.append(why)};
}

const TypeRow& rowOf(RecurrenceType type) {
    for (const TypeRow& row : kTypes)
        if (row.type == type) return row;
    refuse("RecurrenceType is none of 0, 1, 2, 3, 5 and 6");
}

void checkField(std::string_view name, bool isUsed, std::int32_t value, std::int32_t least, std::int32_t most) {
    const std::string field{name};
    if (!isUsed && value != 0) refuse(field + " is not used by this RecurrenceType");
    if (isUsed && (value < least || value > most))
        refuse(field + " is not from " + std::to_string(least) + " to " + std::to_string(most));
}

void addDaysOfMonth(icalrecurrencetype& rule, std::int32_t dayOfMonth) {
    // The last of all days up to the wanted one that the month has.
    std::size_t i = 0;
    for (std::int32_t day = std::min(dayOfMonth, kShortestMonth); day <= dayOfMonth; ++day)
        rule.by_month_day[i++] = static_cast<short>(day);
    rule.by_month_day[i] = ICAL_RECURRENCE_ARRAY_MAX;
    if (i > 1) rule.by_set_pos[0] = -1;
}

icalrecurrencetype ruleOf(const Recurrence& recurrence) {
    const TypeRow& row = rowOf(recurrence.recurrenceType);
    icalrecurrencetype rule;
    icalrecurrencetype_clear(&rule);
    rule.freq = row.frequency;
    rule.interval = static_cast<short>(recurrence.interval);
    rule.week_start = ICAL_SUNDAY_WEEKDAY;
    std::size_t days = 0;
    for (std::size_t i = 0; i < kWeekDays.size(); ++i)
        if (row.usesWeekDays && ((recurrence.dayOfWeekMask >> i) & 1) != 0)
            rule.by_day[days++] = static_cast<short>(kWeekDays[i]);
    rule.by_day[days] = ICAL_RECURRENCE_ARRAY_MAX;
    if (row.usesDayOfMonth) addDaysOfMonth(rule, recurrence.dayOfMonth);
    if (row.usesInstance)
        rule.by_set_pos[0] = static_cast<short>(recurrence.instance == kLastInstance ? -1 : recurrence.instance);
    rule.by_set_pos[1] = ICAL_RECURRENCE_ARRAY_MAX;
    if (row.usesMonth) {
        rule.by_month[0] = static_cast<short>(recurrence.monthOfYear);
        rule.by_month[1] = ICAL_RECURRENCE_ARRAY_MAX;
    }
    return rule;
}

Date dateOf(DayNumber day) {
    return Date{static_cast<double>(day)};
}

icaltimetype icalDay(DayNumber day) {
    const CivilDate parts = civil(dateOf(day));
    icaltimetype time = icaltime_null_time();
    time.year = parts.year;
    time.month = parts.month;
    time.day = parts.day;
    time.is_date = 1;
    return time;
}

DayNumber firstDayOfAll() {
    static const DayNumber day = dayNumberOf(makeDay(kEarliestYear, 1, 1));
    return day;
}

struct IteratorEnd {
    void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};

}  // namespace

DayNumber dayNumberOf(Date date) {
    return static_cast<DayNumber>(std::floor(static_cast<double>(secondsSinceDayZero(date)) / kSecondsOfDay));
}

DayNumber lastDayOfAll() {
    static const DayNumber day = dayNumberOf(makeDay(kLastYear, 12, 31));
    return day;
}

void checkNumbers(const Recurrence& recurrence) {
    const TypeRow& row = rowOf(recurrence.recurrenceType);
    checkField("Interval", true, recurrence.interval, 1, kLongestInterval);
    checkField("DayOfWeekMask", row.usesWeekDays, recurrence.dayOfWeekMask, 1, 127);
    checkField("MonthOfYear", row.usesMonth, recurrence.monthOfYear, 1, 12);
    constexpr std::array<std::int32_t, 13> kLongest{31, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    checkField("DayOfMonth", row.usesDayOfMonth, recurrence.dayOfMonth, 1,
               kLongest[static_cast<std::size_t>(recurrence.monthOfYear)]);
    checkField("Instance", row.usesInstance, recurrence.instance, 1, kLastInstance);
    checkField("Occurrences", true, recurrence.occurrences, 0, kMostOccurrences);
}

void checkPattern(const Recurrence& recurrence, Date start) {
    checkNumbers(recurrence);
    const std::int32_t year = civil(start).year;
    if (year < kEarliestYear || year > kLastYear)
        refuse("the item has no date of the years 1601 to 2500 at which the series could start");
    const DayNumber startDay = dayNumberOf(start);
    if (recurrence.patternEndDate && dayNumberOf(*recurrence.patternEndDate) < startDay)
        refuse("PatternEndDate is earlier than the start");
    const auto end = endOf(recurrence, startDay);
    if (recurrence.occurrences > 0 && recurrence.patternEndDate && end != dayNumberOf(*recurrence.patternEndDate))
        refuse("Occurrences and PatternEndDate do not agree; give one of them");
    if (patternDays(recurrence, startDay, startDay, end.value_or(lastDayOfAll()), 1).empty())
        refuse("no day from its start to its end fulfils it");
}

std::vector<DayNumber> patternDays(const Recurrence& recurrence, DayNumber start, DayNumber from, DayNumber last,
                                   std::size_t most) {
    std::vector<DayNumber> days;
    last = std::min(last, lastDayOfAll());
    from = std::max(from, start);
    if (from > last || start < firstDayOfAll()) return days;
    icalrecurrencetype rule = ruleOf(recurrence);
    const std::unique_ptr<icalrecur_iterator, IteratorEnd> iterator{icalrecur_iterator_new(rule, icalDay(start))};
    if (!iterator || (from > start && icalrecur_iterator_set_start(iterator.get(), icalDay(from)) == 0)) return days;
    // The iterator may give a day of the first period again or one before `from`: never more than that period has.
    constexpr std::size_t kDaysBefore = 64;
    for (std::size_t step = 0; days.size() < most && step < most + kDaysBefore; ++step) {
        const icaltimetype time = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(time) != 0) break;
        const DayNumber day = dayNumberOf(makeDay(time.year, time.month, time.day));
        if (day > last) break;
        if (day >= from && (days.empty() || day > days.back())) days.push_back(day);
    }
    return days;
}

std::optional<DayNumber> endOf(const Recurrence& recurrence, DayNumber start) {
    if (recurrence.occurrences > 0) {
        const auto days = patternDays(recurrence, start, start, lastDayOfAll(), static_cast<std::size_t>(recurrence.occurrences));
        return days.empty() ? start : days.back();
    }
    if (!recurrence.patternEndDate) return std::nullopt;
    return dayNumberOf(*recurrence.patternEndDate);
}

}  // namespace wmoutlook::outlookstore

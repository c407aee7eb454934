#include "apps/tallowsync/sample/SampleSeries.h"

#include "adapters/outlookstore/StoreListing.h"

#include <memory>
#include <string_view>

namespace wmoutlook::sample {

namespace {

using outlookstore::Recurrence;
using outlookstore::RecurrenceType;

constexpr std::int32_t kMonday = 2;
constexpr std::int32_t kThursday = 16;

Date at(Date day, std::int32_t hour) {
    constexpr std::int64_t kHour = 3600;
    return fromSecondsSinceDayZero(secondsSinceDayZero(dayOf(day)) + hour * kHour);
}

/// Sunday of the week that was so many weeks ago.
Date weekBefore(Date now, std::int32_t weeks) {
    constexpr std::int32_t kWeek = 7;
    const std::int32_t sinceSunday = ((outlookstore::dayNumberOf(now) - 1) % kWeek + kWeek) % kWeek;  // day 1 was a Sunday
    return addDays(dayOf(now), -sinceSunday - weeks * kWeek);
}

void addSeriesOf(const Sample& sample, outlook::port::MAPIFolder& folder, std::string_view subject, std::string_view dateProperty,
                 Date date, const Recurrence& recurrence) {
    sample.rows.passCheckpoint();
    const std::shared_ptr<outlook::port::Item> item = folder.items()->add(std::nullopt);
    item->put("Subject", subject);
    item->put(dateProperty, date);
    outlookstore::setRecurrence(*item, recurrence);
    item->save();
}

/// Twelve Thursdays; the second is held a day later, the third not at all.
void addMovedSeries(const Sample& sample, outlook::port::MAPIFolder& calendar) {
    const Date sunday = weekBefore(sample.options.now, 3);
    const Date second = addDays(sunday, 4 + 7);
    const Date third = addDays(sunday, 4 + 14);
    Recurrence weekly{RecurrenceType::weekly, 1, kThursday, 0, 0, 0, 12};
    weekly.exceptions = {
        {second,
         false,
         {{"Start", at(addDays(second, 1), 10)}, {"End", at(addDays(second, 1), 11)}, {"Location", "Client's office"}}},
        {third, true, {}}};
    addSeriesOf(sample, calendar, "Bookkeeping review", "Start", at(addDays(sunday, 4), 14), weekly);
}

}  // namespace

void addSeries(Sample& sample, outlook::port::MAPIFolder& calendar, outlook::port::MAPIFolder& tasks) {
    const Date now = sample.options.now;
    const std::int32_t year = civil(now).year;
    addSeriesOf(sample, calendar, "Team meeting", "Start", at(addDays(weekBefore(now, 10), 1), 9),
                {RecurrenceType::weekly, 1, kMonday});
    addSeriesOf(sample, calendar, "Month-end close", "Start", at(makeDay(year, 1, 31), 16), {RecurrenceType::monthly, 1, 0, 31});
    addSeriesOf(sample, calendar, "Leap-day lunch", "Start", at(makeDay(2024, 2, 29), 12), {RecurrenceType::yearly, 1, 0, 29, 2});
    addMovedSeries(sample, calendar);
    addSeriesOf(sample, tasks, "Payroll remittance", "DueDate", makeDay(year, 1, 15), {RecurrenceType::monthly, 1, 0, 15});
}

}  // namespace wmoutlook::sample

#include "adapters/outlookstore/ItemRules.h"

#include "platform/DateHelper.h"

#include <array>
#include <cstdint>

namespace wmoutlook::outlookstore {

namespace {

using outlook::ItemType;

constexpr std::int32_t kNotStarted = 0;
constexpr std::int32_t kInProgress = 1;
constexpr std::int32_t kComplete = 2;

std::size_t indexOf(const ItemData& item, std::string_view property) {
    return item.table().find(property).value();
}

Variant valueOf(const ItemData& item, std::string_view property) {
    return item.valueOrDefault(indexOf(item, property));
}

void set(ItemData& item, std::string_view property, Variant value) {
    item.set(indexOf(item, property), std::move(value));
}

bool isSet(const ItemData& item, std::string_view property) {
    return !item.stored(indexOf(item, property)).isNull();
}

void moveEnd(ItemData& item, [[maybe_unused]] Date now) {
    if (!isSet(item, "Start")) return;
    const std::int64_t seconds = std::int64_t{60} * valueOf(item, "Duration").toInteger();
    const Date end = fromSecondsSinceDayZero(secondsSinceDayZero(valueOf(item, "Start").toDate()) + seconds);
    if (isEarlier(end, makeDay(9999, 12, 31)) && isEarlier(makeDay(100, 1, 1), end)) set(item, "End", end);
}

void measureDuration(ItemData& item, [[maybe_unused]] Date now) {
    if (!isSet(item, "Start") || !isSet(item, "End")) return;
    const double minutes = DateHelper::minutesBetween(valueOf(item, "Start").toDate(), valueOf(item, "End").toDate());
    set(item, "Duration", Variant{minutes}.toInteger());
}

bool isAllDay(const ItemData& item) {
    return valueOf(item, "AllDayEvent").toBoolean();
}

/// An all-day event starts at midnight and ends at the midnight behind its last day, of which it has one at least.
void fillDays(ItemData& item, Date now) {
    if (!isAllDay(item) || !isSet(item, "Start")) return;
    const Date start = dayOf(valueOf(item, "Start").toDate());
    const Date end = isSet(item, "End") ? valueOf(item, "End").toDate() : start;
    Date midnight = dayOf(end);
    if (!isEarlier(midnight, makeDay(9999, 12, 31))) return;
    if (midnight != end || !isEarlier(start, midnight)) midnight = addDays(isEarlier(midnight, start) ? start : midnight, 1);
    set(item, "Start", start);
    set(item, "End", midnight);
    measureDuration(item, now);
}

void followStart(ItemData& item, Date now) {
    if (isAllDay(item) && isSet(item, "Start")) set(item, "Start", dayOf(valueOf(item, "Start").toDate()));
    moveEnd(item, now);
    fillDays(item, now);
}

void followEnd(ItemData& item, Date now) {
    measureDuration(item, now);
    fillDays(item, now);
}

void followDuration(ItemData& item, Date now) {
    moveEnd(item, now);
    fillDays(item, now);
}

void complete(ItemData& item, Date now) {
    set(item, "Complete", true);
    set(item, "PercentComplete", 100);
    set(item, "Status", kComplete);
    if (!isSet(item, "DateCompleted")) set(item, "DateCompleted", dayOf(now));
}

void reopen(ItemData& item, std::int32_t percent, std::int32_t status) {
    set(item, "Complete", false);
    set(item, "PercentComplete", percent);
    set(item, "Status", status);
    set(item, "DateCompleted", absentDate());
}

void followFlag(ItemData& item, Date now) {
    valueOf(item, "Complete").toBoolean() ? complete(item, now) : reopen(item, 0, kNotStarted);
}

void followPercentage(ItemData& item, Date now) {
    const std::int32_t percent = valueOf(item, "PercentComplete").toInteger();
    percent >= 100 ? complete(item, now) : reopen(item, percent, percent > 0 ? kInProgress : kNotStarted);
}

void followStatus(ItemData& item, Date now) {
    const std::int32_t status = valueOf(item, "Status").toInteger();
    if (status == kComplete)
        complete(item, now);
    else if (valueOf(item, "Complete").toBoolean())
        reopen(item, 0, status);
}

struct Rule {
    ItemType type;
    std::string_view property;
    void (*apply)(ItemData& item, Date now);
};

constexpr std::array kRules{
    Rule{ItemType::appointment, "Start", followStart},
    Rule{ItemType::appointment, "End", followEnd},
    Rule{ItemType::appointment, "Duration", followDuration},
    Rule{ItemType::appointment, "AllDayEvent", fillDays},
    Rule{ItemType::task, "Complete", followFlag},
    Rule{ItemType::task, "PercentComplete", followPercentage},
    Rule{ItemType::task, "Status", followStatus},
};

}  // namespace

void followUp(ItemData& item, std::string_view changedProperty, Date now) {
    for (const Rule& rule : kRules)
        if (rule.type == item.type() && rule.property == changedProperty) rule.apply(item, now);
}

}  // namespace wmoutlook::outlookstore

#include "platform/Date.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace wmoutlook {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;

/// Days since day 0, as in the civil calendar, and seconds since midnight.
struct DayAndSecond {
    std::int64_t day = 0;
    std::int64_t second = 0;
};

DayAndSecond split(Date date) {
    const double wholeDays = std::trunc(date.days);
    const double fraction = std::abs(date.days - wholeDays);  // counts forward from midnight on either side of day 0
    DayAndSecond parts{static_cast<std::int64_t>(wholeDays), std::llround(fraction * static_cast<double>(kSecondsPerDay))};
    if (parts.second == kSecondsPerDay) parts = {parts.day + 1, 0};
    return parts;
}

Date join(DayAndSecond parts) {
    const double fraction = static_cast<double>(parts.second) / static_cast<double>(kSecondsPerDay);
    const auto day = static_cast<double>(parts.day);
    return Date{parts.day < 0 ? day - fraction : day + fraction};
}

/// Reads exactly `count` digits.
std::optional<std::int32_t> digits(std::string_view text, std::size_t at, std::size_t count) {
    if (at + count > text.size()) return std::nullopt;
    std::int32_t number = 0;
    for (const char c : text.substr(at, count)) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + (c - '0');
    }
    return number;
}

bool readTime(std::string_view text, CivilDate& parts) {
    const auto hour = digits(text, 0, 2);
    const auto minute = digits(text, 3, 2);
    const auto second = digits(text, 6, 2);
    if (text.size() != 8 || !hour || !minute || !second || text[2] != ':' || text[5] != ':') return false;
    parts.hour = *hour;
    parts.minute = *minute;
    parts.second = *second;
    return true;
}

}  // namespace

Date absentDate() {
    return makeDay(4501, 1, 1);
}

std::optional<Date> makeDate(const CivilDate& parts) {
    const auto isWithin = [](std::int32_t number, std::int32_t least, std::int32_t most) {
        return number >= least && number <= most;
    };
    // before the calendar sees them: its months and days are single bytes, and 257 would pass as 1
    if (!isWithin(parts.year, 100, 9999) || !isWithin(parts.month, 1, 12) || !isWithin(parts.day, 1, 31)) return std::nullopt;
    if (!isWithin(parts.hour, 0, 23) || !isWithin(parts.minute, 0, 59) || !isWithin(parts.second, 0, 59)) return std::nullopt;
    const std::chrono::year_month_day day{std::chrono::year{parts.year}, std::chrono::month{static_cast<unsigned>(parts.month)},
                                          std::chrono::day{static_cast<unsigned>(parts.day)}};
    if (!day.ok()) return std::nullopt;
    const std::int64_t days = (std::chrono::sys_days{day} - kDayZero).count();
    return join({days, (parts.hour * 60 + parts.minute) * 60 + parts.second});
}

Date makeDay(std::int32_t year, std::int32_t month, std::int32_t day) {
    return makeDate({year, month, day, 0, 0, 0}).value_or(Date{});
}

CivilDate civil(Date date) {
    const DayAndSecond parts = split(date);
    const std::chrono::year_month_day day{kDayZero + std::chrono::days{parts.day}};
    const auto second = static_cast<std::int32_t>(parts.second);
    return {static_cast<std::int32_t>(static_cast<int>(day.year())),
            static_cast<std::int32_t>(static_cast<unsigned>(day.month())),
            static_cast<std::int32_t>(static_cast<unsigned>(day.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

std::int64_t secondsSinceDayZero(Date date) {
    const DayAndSecond parts = split(date);
    return parts.day * kSecondsPerDay + parts.second;
}

Date fromSecondsSinceDayZero(std::int64_t seconds) {
    std::int64_t day = seconds / kSecondsPerDay;
    std::int64_t second = seconds % kSecondsPerDay;
    if (second < 0) {
        second += kSecondsPerDay;
        --day;
    }
    return join({day, second});
}

Date dayOf(Date date) {
    return join({split(date).day, 0});
}

Date timeOf(Date date) {
    return join({0, split(date).second});
}

Date minuteOf(Date date) {
    constexpr std::int64_t kSeconds = 60;
    const std::int64_t seconds = secondsSinceDayZero(timeOf(date));
    return fromSecondsSinceDayZero(seconds - seconds % kSeconds);
}

Date addDays(Date date, std::int32_t days) {
    const DayAndSecond parts = split(date);
    return join({parts.day + days, parts.second});
}

bool isEarlier(Date left, Date right) {
    return secondsSinceDayZero(left) < secondsSinceDayZero(right);
}

std::string toIsoText(Date date) {
    const CivilDate c = civil(date);
    const bool hasTime = c.hour != 0 || c.minute != 0 || c.second != 0;
    const bool isTimeAlone = hasTime && split(date).day == 0;
    char text[40] = "";
    if (isTimeAlone)
        std::snprintf(text, sizeof text, "%02d:%02d:%02d", c.hour, c.minute, c.second);
    else if (hasTime)
        std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", c.year, c.month, c.day, c.hour, c.minute, c.second);
    else
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", c.year, c.month, c.day);
    return text;
}

std::optional<Date> fromIsoText(std::string_view text) {
    CivilDate parts;
    if (text.size() == 8) return readTime(text, parts) ? makeDate(parts) : std::nullopt;
    const auto year = digits(text, 0, 4);
    const auto month = digits(text, 5, 2);
    const auto day = digits(text, 8, 2);
    if (!year || !month || !day || text[4] != '-' || text[7] != '-') return std::nullopt;
    parts = {*year, *month, *day, 0, 0, 0};
    if (text.size() == 10) return makeDate(parts);
    if (text[10] != ' ' && text[10] != 'T') return std::nullopt;
    return readTime(text.substr(11), parts) ? makeDate(parts) : std::nullopt;
}

}  // namespace wmoutlook

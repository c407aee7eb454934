#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// A moment as the host and Outlook keep it: a day number in a double. Day 0 is 30 December 1899, the fraction is the
/// time of day. For days before day 0 the fraction still counts forward from midnight: -1.25 is 29 December 1899, 06:00.
/// A time of day alone stands on day 0. Valid from the year 100 to the year 9999.
struct Date {
    double days = 0;

    friend bool operator==(Date, Date) = default;
};

/// The parts of a date in the Gregorian calendar and of its time of day, to the second.
struct CivilDate {
    std::int32_t year = 1899;
    std::int32_t month = 12;  ///< 1 to 12
    std::int32_t day = 30;    ///< 1 to 31
    std::int32_t hour = 0;    ///< 0 to 23
    std::int32_t minute = 0;
    std::int32_t second = 0;

    friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

/// What Outlook shows for a date that is not there: 1 January 4501.
[[nodiscard]] Date absentDate();

/// Nothing when the parts name no day of the years 100 to 9999 or no time of a day.
[[nodiscard]] std::optional<Date> makeDate(const CivilDate& parts);
[[nodiscard]] Date makeDay(std::int32_t year, std::int32_t month, std::int32_t day);
/// The parts, rounded to the whole second, so that a computed time and the same time read from a text agree.
[[nodiscard]] CivilDate civil(Date date);
/// Whole seconds since day 0, counting forward over the days; the order of moments, also before day 0.
[[nodiscard]] std::int64_t secondsSinceDayZero(Date date);
[[nodiscard]] Date fromSecondsSinceDayZero(std::int64_t seconds);

[[nodiscard]] Date dayOf(Date date);     ///< the same day at midnight
[[nodiscard]] Date timeOf(Date date);    ///< the time of day on day 0
[[nodiscard]] Date minuteOf(Date date);  ///< the time of day on day 0, its seconds dropped
[[nodiscard]] Date addDays(Date date, std::int32_t days);
[[nodiscard]] bool isEarlier(Date left, Date right);

/// The form in which values travel to the host database: "2026-11-22", with a time "2026-11-22 09:00:00",
/// a time of day alone "09:00:00".
[[nodiscard]] std::string toIsoText(Date date);
/// Reads what toIsoText writes (also with a "T" between day and time). Nothing for any other text.
[[nodiscard]] std::optional<Date> fromIsoText(std::string_view text);

}  // namespace wmoutlook

#pragma once

#include "platform/Date.h"

#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook::DateHelper {

/// The difference in minutes, negative when `later` is the earlier one.
[[nodiscard]] double minutesBetween(Date earlier, Date later);
[[nodiscard]] Date addHoursToTime(Date time, float hours);
/// "1 hr 30 min", "45 min", "2 hr", and "0 min" for nothing; the sign of `minutes` is dropped.
[[nodiscard]] std::string formatDuration(std::int32_t minutes);

/// In which order day/month/year with slashes is read and written.
enum class DateOrder { monthFirst, dayFirst };

/// A date that a user typed: "November 22, 2026", "Nov 22 2026", "2026-11-22", or with slashes in the given order.
/// Nothing for any other text.
[[nodiscard]] std::optional<Date> parseUserDate(std::string_view text, DateOrder order);

/// A date, a time of day or both, as filters, statements and other programs write them: the forms of parseUserDate with the
/// month first, month names long or short with and without a comma; "9:00", "09:00:30", "9:00 AM", "21:30"; ISO moments also
/// with a "T". A time alone stands on day 0. Nothing for any other text.
[[nodiscard]] std::optional<Date> parseMoment(std::string_view text);

/// Formats with the usual letters, in English whatever the machine's locale: d, dd, dddd, m, mm, mmm, mmmm, yy, yyyy,
/// h, hh, n, nn, s, ss, am/pm, AMPM; any other character stands for itself. "h" is 1 to 12 with an am/pm mark, 0 to 23 without.
[[nodiscard]] std::string format(Date date, std::string_view pattern);

}  // namespace wmoutlook::DateHelper

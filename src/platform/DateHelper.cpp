#include "platform/DateHelper.h"

#include "platform/MonthNames.h"
#include "platform/Text.h"
#include "platform/Variant.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace wmoutlook::DateHelper {

namespace {

constexpr std::array<std::string_view, 7> kWeekdays{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

std::string padded(std::int32_t number, int width) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*d", width, number);
    return text;
}

std::string_view weekdayOf(Date date) {
    const auto day = secondsSinceDayZero(dayOf(date)) / 86400;  // day 0 was a Saturday
    return kWeekdays[static_cast<std::size_t>(((day + 6) % 7 + 7) % 7)];
}

/// How many times the letter at `at` stands there in a row, in either case.
std::size_t runLength(std::string_view pattern, std::size_t at) {
    const char letter = static_cast<char>(pattern[at] | 0x20);
    std::size_t length = 1;
    while (at + length < pattern.size() && (pattern[at + length] | 0x20) == letter) ++length;
    return length;
}

struct Formatter {
    Date date;
    CivilDate parts = civil(date);
    bool hasMark = false;

    std::string_view mark(bool isUpper) const {
        if (isUpper) return parts.hour < 12 ? "AM" : "PM";
        return parts.hour < 12 ? "am" : "pm";
    }

    std::string letters(char letter, std::size_t count) const {
        const auto month = static_cast<std::size_t>(parts.month - 1);
        const int width = count >= 2 ? 2 : 1;
        switch (letter) {
            case 'd':
                if (count == 3) return std::string{weekdayOf(date).substr(0, 3)};
                return count > 3 ? std::string{weekdayOf(date)} : padded(parts.day, width);
            case 'm':
                if (count == 3) return std::string{kMonthNames[month].substr(0, 3)};
                return count > 3 ? std::string{kMonthNames[month]} : padded(parts.month, width);
            case 'y': return count > 2 ? padded(parts.year, 4) : padded(parts.year % 100, 2);
            case 'h': return padded(hasMark ? (parts.hour + 11) % 12 + 1 : parts.hour, width);
            case 'n': return padded(parts.minute, width);
            default: return padded(parts.second, width);
        }
    }
};

}  // namespace

double minutesBetween(Date earlier, Date later) {
    return static_cast<double>(secondsSinceDayZero(later) - secondsSinceDayZero(earlier)) / 60.0;
}

Date addHoursToTime(Date time, float hours) {
    return fromSecondsSinceDayZero(secondsSinceDayZero(time) + std::llround(static_cast<double>(hours) * 3600.0));
}

std::string formatDuration(std::int32_t minutes) {
    const std::int64_t total = std::llabs(static_cast<long long>(minutes));
    const auto hours = static_cast<std::int32_t>(total / 60);
    const auto rest = static_cast<std::int32_t>(total % 60);
    if (hours == 0) return toText(rest) + " min";
    return toText(hours) + " hr" + (rest == 0 ? std::string{} : " " + toText(rest) + " min");
}

std::string format(Date date, std::string_view pattern) {
    std::string lower{pattern};  // of ASCII letters only: lower cases of others may be shorter, and both are read at one place
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c | 0x20);
    Formatter formatter{date};
    formatter.hasMark = lower.find("am/pm") != std::string::npos || lower.find("ampm") != std::string::npos;
    std::string text;
    for (std::size_t at = 0; at < pattern.size();) {
        const std::string_view rest = std::string_view{lower}.substr(at);
        if (rest.starts_with("am/pm") || rest.starts_with("ampm")) {
            text += formatter.mark(pattern[at] == 'A');
            at += std::string_view{rest.starts_with("am/pm") ? "am/pm" : "ampm"}.size();
        } else if (std::string_view{"dmyhns"}.find(rest.front()) != std::string_view::npos) {
            const std::size_t count = runLength(pattern, at);
            text += formatter.letters(rest.front(), count);
            at += count;
        } else {
            text += pattern[at++];
        }
    }
    return text;
}

}  // namespace wmoutlook::DateHelper

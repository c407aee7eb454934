#include "platform/DateHelper.h"

#include "platform/MonthNames.h"
#include "platform/Text.h"

#include <charconv>

namespace wmoutlook::DateHelper {

namespace {

/// A whole number of `least` to `most` digits at the front, taken off the text.
std::optional<std::int32_t> takeNumber(std::string_view& text, std::size_t least, std::size_t most) {
    std::size_t length = 0;
    while (length < text.size() && text[length] >= '0' && text[length] <= '9') ++length;
    if (length < least || length > most) return std::nullopt;
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + length, number);
    text.remove_prefix(length);
    return number;
}

bool take(std::string_view& text, char expected) {
    if (text.empty() || text.front() != expected) return false;
    text.remove_prefix(1);
    return true;
}

/// A month by its long or short name; "May" is both.
struct MonthName {
    std::int32_t month = 0;
    bool isLong = false;
    bool isShort = false;
};

MonthName monthFrom(std::string_view name) {
    for (std::size_t i = 0; i < kMonthNames.size(); ++i) {
        const bool isLong = equalsTextually(name, kMonthNames[i]);
        const bool isShort = equalsTextually(name, kMonthNames[i].substr(0, 3));
        if (isLong || isShort) return {static_cast<std::int32_t>(i) + 1, isLong, isShort};
    }
    return {};
}

enum class Comma { asPrinted, anyWay };

/// "mmmm d, yyyy" and "mmm d yyyy"; with Comma::anyWay either name with or without the comma.
std::optional<Date> readMonthName(std::string_view text, Comma comma) {
    const std::size_t end = text.find(' ');
    if (end == std::string_view::npos) return std::nullopt;
    const MonthName name = monthFrom(text.substr(0, end));
    text = trimmed(text.substr(end));
    const auto day = takeNumber(text, 1, 2);
    const bool hasComma = take(text, ',');
    const bool isSpaced = take(text, ' ');
    text = trimmed(text);
    const auto year = takeNumber(text, 4, 4);
    if (name.month == 0 || !day || !isSpaced || !year || !text.empty()) return std::nullopt;
    if (comma == Comma::asPrinted && !(hasComma ? name.isLong : name.isShort)) return std::nullopt;
    return makeDate({*year, name.month, *day, 0, 0, 0});
}

std::optional<Date> readSlashes(std::string_view text, DateOrder order) {
    const auto first = takeNumber(text, 1, 2);
    if (!first || !take(text, '/')) return std::nullopt;
    const auto second = takeNumber(text, 1, 2);
    if (!second || !take(text, '/')) return std::nullopt;
    const auto year = takeNumber(text, 4, 4);
    if (!year || !text.empty()) return std::nullopt;
    const bool isMonthFirst = order == DateOrder::monthFirst;
    return makeDate({*year, isMonthFirst ? *first : *second, isMonthFirst ? *second : *first, 0, 0, 0});
}

std::optional<Date> readDay(std::string_view text, DateOrder order, Comma comma) {
    text = withoutWhiteSpaceAround(text);
    if (text.size() == 10 && text[4] == '-') return fromIsoText(text);
    if (const auto date = readSlashes(text, order)) return date;
    return readMonthName(text, comma);
}

/// Writes the time into the parts; false when the text is no time.
bool readTime(std::string_view text, CivilDate& parts) {
    const auto hour = takeNumber(text, 1, 2);
    const auto minute = take(text, ':') ? takeNumber(text, 1, 2) : std::nullopt;
    if (!hour || !minute) return false;
    const auto second = take(text, ':') ? takeNumber(text, 1, 2) : std::optional<std::int32_t>{0};
    if (!second) return false;
    const std::string_view mark = withoutWhiteSpaceAround(text);
    const bool isAfternoon = equalsTextually(mark, "PM");
    if (!mark.empty() && !isAfternoon && !equalsTextually(mark, "AM")) return false;
    if (!mark.empty() && (*hour < 1 || *hour > 12)) return false;
    parts.hour = mark.empty() ? *hour : *hour % 12 + (isAfternoon ? 12 : 0);
    parts.minute = *minute;
    parts.second = *second;
    return true;
}

/// Where the time begins: behind the blank or "T" in front of the first colon's digits. The end when there is no time.
std::size_t startOfTime(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return text.size();
    const std::size_t gap = text.find_last_of(" \tT", colon);
    return gap == std::string_view::npos ? 0 : gap + 1;
}

}  // namespace

std::optional<Date> parseUserDate(std::string_view text, DateOrder order) {
    return readDay(text, order, Comma::asPrinted);
}

std::optional<Date> parseMoment(std::string_view text) {
    text = withoutWhiteSpaceAround(text);
    const std::size_t time = startOfTime(text);
    CivilDate parts;  // day 0
    if (time > 0) {
        const std::string_view dayText = time == text.size() ? text : text.substr(0, time - 1);
        const auto day = readDay(dayText, DateOrder::monthFirst, Comma::anyWay);
        if (!day) return std::nullopt;
        parts = civil(*day);
    }
    if (time < text.size() && !readTime(text.substr(time), parts)) return std::nullopt;
    return text.empty() ? std::nullopt : makeDate(parts);
}

}  // namespace wmoutlook::DateHelper

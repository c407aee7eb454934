#include "adapters/outlookstore/DateText.h"

#include "platform/DateHelper.h"
#include "platform/Text.h"

#include <cstdint>

namespace wmoutlook::outlookstore {

namespace {

/// Seconds since midnight.
using Time = std::optional<std::int32_t>;

/// Takes one or two digits off the front.
std::optional<std::int32_t> takeNumber(std::string_view& text) {
    std::int32_t number = 0;
    std::size_t length = 0;
    for (; length < text.size() && length < 2 && text[length] >= '0' && text[length] <= '9'; ++length)
        number = number * 10 + (text[length] - '0');
    text.remove_prefix(length);
    return length == 0 ? std::nullopt : std::optional{number};
}

bool takeColon(std::string_view& text) {
    if (!text.starts_with(':')) return false;
    text.remove_prefix(1);
    return true;
}

enum class Half { none, morning, afternoon };

/// Takes "am" or "pm" off the end.
Half takeHalf(std::string_view& text) {
    if (text.size() < 2) return Half::none;
    const std::string_view mark = text.substr(text.size() - 2);
    const Half half = equalsTextually(mark, "am") ? Half::morning : equalsTextually(mark, "pm") ? Half::afternoon : Half::none;
    if (half != Half::none) text = withoutWhiteSpaceAround(text.substr(0, text.size() - 2));
    return half;
}

Time readClock(std::string_view text, Half half) {
    const auto hour = takeNumber(text);
    if (!hour || !takeColon(text)) return std::nullopt;
    const auto minute = takeNumber(text);
    const auto second = takeColon(text) ? takeNumber(text) : std::optional<std::int32_t>{0};
    if (!minute || !second || !text.empty() || *minute > 59 || *second > 59) return std::nullopt;
    const bool isTwelveHours = half != Half::none;
    if (isTwelveHours ? *hour < 1 || *hour > 12 : *hour > 23) return std::nullopt;
    const std::int32_t hours = isTwelveHours ? *hour % 12 + (half == Half::afternoon ? 12 : 0) : *hour;
    return (hours * 60 + *minute) * 60 + *second;
}

}  // namespace

std::optional<Date> readDateText(std::string_view text) {
    text = withoutWhiteSpaceAround(text);
    if (const auto date = fromIsoText(text)) return date;
    const Half half = takeHalf(text);
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return half == Half::none ? DateHelper::parseUserDate(text, DateHelper::DateOrder::monthFirst) : std::nullopt;
    const std::size_t gap = text.find_last_of(" \tT", colon);
    if (gap == std::string_view::npos) return std::nullopt;
    const auto time = readClock(text.substr(gap + 1), half);
    const auto day = DateHelper::parseUserDate(withoutWhiteSpaceAround(text.substr(0, gap)), DateHelper::DateOrder::monthFirst);
    if (!time || !day) return std::nullopt;
    return fromSecondsSinceDayZero(secondsSinceDayZero(*day) + *time);
}

}  // namespace wmoutlook::outlookstore

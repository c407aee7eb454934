#include "adapters/sql/DateText.h"

#include "adapters/sql/Tokenizer.h"
#include "platform/DateHelper.h"
#include "platform/Text.h"

#include <cstdint>

namespace wmoutlook::sql {

namespace {

/// One or two digits at the front, taken off the text.
std::optional<std::int32_t> takeNumber(std::string_view& text) {
    std::int32_t number = 0;
    std::size_t length = 0;
    for (; length < 3 && length < text.size() && text[length] >= '0' && text[length] <= '9'; ++length)
        number = number * 10 + (text[length] - '0');
    if (length == 0 || length > 2) return std::nullopt;
    text.remove_prefix(length);
    return number;
}

std::optional<std::int32_t> takeNumberBehindColon(std::string_view& text) {
    if (text.empty() || text.front() != ':') return std::nullopt;
    text.remove_prefix(1);
    return takeNumber(text);
}

/// "9:00", "09:00:30", "9:00 pm"; the hour of the civil day is written into the parts.
bool readTime(std::string_view text, CivilDate& parts) {
    const auto hour = takeNumber(text);
    const auto minute = takeNumberBehindColon(text);
    if (!hour || !minute) return false;
    std::int32_t second = 0;
    if (!text.empty() && text.front() == ':') {
        const auto seconds = takeNumberBehindColon(text);
        if (!seconds) return false;
        second = *seconds;
    }
    const std::string_view mark = trimmed(text);
    const bool isMorning = equalsAscii(mark, "AM");
    const bool isAfternoon = equalsAscii(mark, "PM");
    if (!mark.empty() && !isMorning && !isAfternoon) return false;
    if (!mark.empty() && (*hour < 1 || *hour > 12)) return false;
    parts.hour = mark.empty() ? *hour : *hour % 12 + (isAfternoon ? 12 : 0);
    parts.minute = *minute;
    parts.second = second;
    return true;
}

/// Where the time begins: the blank or "T" in front of the digits that end at the first colon.
std::size_t startOfTime(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return text.size();
    const std::size_t before = text.substr(0, colon).find_last_of(" T");
    return before == std::string_view::npos ? 0 : before;
}

}  // namespace

std::optional<Date> readDate(std::string_view text) {
    text = withoutWhiteSpaceAround(text);
    const std::size_t split = startOfTime(text);
    CivilDate parts;  // a time alone stands on day 0
    if (split > 0) {
        const auto day = DateHelper::parseUserDate(text.substr(0, split), DateHelper::DateOrder::monthFirst);
        if (!day) return std::nullopt;
        parts = civil(*day);
    }
    if (split < text.size() && !readTime(text.substr(split == 0 ? 0 : split + 1), parts)) return std::nullopt;
    if (text.empty()) return std::nullopt;
    return makeDate(parts);
}

}  // namespace wmoutlook::sql

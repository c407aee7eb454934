#include "apps/tallowsync/items/ValueLimits.h"

#include "apps/tallowsync/PlainText.h"
#include "platform/Text.h"

#include <algorithm>

namespace wmoutlook {

namespace {

constexpr std::int32_t kUnlimited = std::numeric_limits<std::int32_t>::max();

constexpr NumberRange kRanges[] = {
    {"Importance", 0, 2},
    {"Sensitivity", 0, 3},
    {"FlagStatus", 0, 2},
    {"SelectedMailingAddress", 0, 3},
    {"Gender", 0, 2},
    {"ReminderMinutesBeforeStart", 0, kUnlimited},
    {"Duration", 0, kUnlimited},
    {"BusyStatus", 0, 4},
    {"MeetingStatus", 0, 7},
    {"PercentComplete", 0, 100},
    {"Status", 0, 4},
    {"TotalWork", 0, kUnlimited},
    {"ActualWork", 0, kUnlimited},
    {"BodyFormat", 0, 3},
};

// Far above what a person writes: a file that was taken for a text is told instead of being stored.
constexpr std::size_t kLongestText = 1'000'000;
constexpr std::size_t kLongestBody = 16'000'000;

}  // namespace

NumberRange rangeOf(std::string_view property) {
    const auto* const found = std::find_if(std::begin(kRanges), std::end(kRanges),
                                           [&](const NumberRange& range) { return range.property == property; });
    return found == std::end(kRanges) ? NumberRange{property} : *found;
}

std::string wordsOf(const NumberRange& range) {
    if (range.least == NumberRange{}.least) return "a whole number of 32 bits";
    if (range.most == kUnlimited) return "a whole number of 32 bits from " + std::to_string(range.least) + " up";
    return "a whole number from " + std::to_string(range.least) + " to " + std::to_string(range.most);
}

std::string faultOfText(std::string_view property, std::string_view text) {
    if (text.find('\0') != std::string_view::npos) return "holds a NUL character, at which Outlook's texts end";
    if (!isUtf8(text)) return "is no valid UTF-8";
    const std::size_t longest = property == "Body" || property == "HTMLBody" ? kLongestBody : kLongestText;
    if (text.size() <= longest || characterCount(text) <= longest) return {};
    return "has more than " + std::to_string(longest) + " characters";
}

}  // namespace wmoutlook

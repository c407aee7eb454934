#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

/// What Outlook takes of a value beside its kind.
namespace wmoutlook {

/// Of a property that is a number: an enumeration, or a number that cannot be negative.
struct NumberRange {
    std::string_view property;
    std::int32_t least = std::numeric_limits<std::int32_t>::min();
    std::int32_t most = std::numeric_limits<std::int32_t>::max();
};

/// Without limits for a property that is not in the table.
[[nodiscard]] NumberRange rangeOf(std::string_view property);
/// "a whole number from 0 to 2"
[[nodiscard]] std::string wordsOf(const NumberRange& range);

/// Why a text cannot be stored under the property, as the end of a sentence; nothing when it can.
[[nodiscard]] std::string faultOfText(std::string_view property, std::string_view text);

}  // namespace wmoutlook

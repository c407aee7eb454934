#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace wmoutlook {

inline constexpr std::size_t kLongestName = 255;  ///< in characters: of a firm, a folder, a user property

/// Why a text cannot be a name, as the end of a sentence ("is empty"); nothing when it can be one: it is not blank, of at most
/// kLongestName characters, and holds neither control characters nor bytes that are no UTF-8.
[[nodiscard]] std::string faultOfName(std::string_view name);

[[nodiscard]] bool isUtf8(std::string_view text);

/// A text from outside as one line that cannot steer a terminal: control characters and bytes that are no UTF-8 become \x1B and
/// the like.
[[nodiscard]] std::string onOneLine(std::string_view text);

/// In quotes for a sentence, cut where it is too long for one.
[[nodiscard]] std::string inQuotes(std::string_view text);

}  // namespace wmoutlook

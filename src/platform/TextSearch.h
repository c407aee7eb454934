#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Where something was found, in bytes. The length may differ from that of what was looked for: cases of a letter differ in length.
struct TextMatch {
    std::size_t position = 0;
    std::size_t length = 0;
};

// Searches with the comparison of equalsTextually. Nothing is ever found by an empty text.

/// The first match at or behind `from`.
[[nodiscard]] std::optional<TextMatch> findTextually(std::string_view text, std::string_view what, std::size_t from = 0);
[[nodiscard]] bool startsTextually(std::string_view text, std::string_view what);
/// Replaces every match from left to right; what is put in is not searched.
[[nodiscard]] std::string replaceTextually(std::string_view text, std::string_view what, std::string_view by);

}  // namespace wmoutlook

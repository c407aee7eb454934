#pragma once

#include <string>
#include <string_view>

namespace wmoutlook {

// The ANSI code page, Windows-1252. A byte that the page leaves open is the control character of its number, as in Windows.

[[nodiscard]] std::string utf8FromAnsi(std::string_view ansi);
/// A character without a place in the page, and a byte that is no UTF-8, become "?".
[[nodiscard]] std::string ansiFromUtf8(std::string_view utf8);
/// Without regard to the case of letters, accented ones included.
[[nodiscard]] bool equalsInAnsi(std::string_view left, std::string_view right);

}  // namespace wmoutlook

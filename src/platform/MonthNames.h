#pragma once

#include <array>
#include <string_view>

namespace wmoutlook {

/// In English whatever the machine's locale; the short names are their first three letters.
inline constexpr std::array<std::string_view, 12> kMonthNames{
    "January", "February", "March", "April", "May", "June", "July", "August", "September", "October", "November", "December"};

}  // namespace wmoutlook

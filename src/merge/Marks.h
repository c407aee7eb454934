#pragma once

#include <array>
#include <string_view>

/// What a placeholder of a template stands between.
namespace wmoutlook::merge {

struct Marks {
    std::string_view open;
    std::string_view close;
};

inline constexpr Marks kPlainMarks{"«", "»"};
inline constexpr Marks kEscapedMarks{R"(\'ab)", R"(\'bb)"};  ///< the same two characters inside of rich text

/// In the order in which a merge goes through them.
inline constexpr std::array kAllMarks{kPlainMarks, kEscapedMarks};

}  // namespace wmoutlook::merge

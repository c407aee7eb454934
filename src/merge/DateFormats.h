#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// The formats of a date placeholder, as in «(Todays Date, mmmm d yyyy)».
namespace wmoutlook::merge {

struct DateFormat {
    std::string_view written;  ///< in the placeholder, and for the current date
    std::string_view ofField;  ///< in which the date of a field is shown
};

/// In the order in which they are tried; they are numbered from 1. The sixth shows a field's month as a word on purpose.
inline constexpr std::array kDateFormats{
    DateFormat{"dddd, mmmm d yyyy", "dddd, mmmm d yyyy"},
    DateFormat{"dddd mmmm d yyyy", "dddd mmmm d yyyy"},
    DateFormat{"mmmm d, yyyy", "mmmm d, yyyy"},
    DateFormat{"mmmm d yyyy", "mmmm d yyyy"},
    DateFormat{"mmm d yyyy", "mmm d yyyy"},
    DateFormat{"dd/mm/yy", "dd/mmm/yy"},
    DateFormat{"mm/dd/yy", "mm/dd/yy"},
    DateFormat{"d", "d"},
    DateFormat{"dddd", "dddd"},
    DateFormat{"mmmm", "mmmm"},
    DateFormat{"mmm", "mmm"},
    DateFormat{"yyyy", "yyyy"},
    DateFormat{"mmmm yyyy", "mmmm yyyy"},
    DateFormat{"mmmm d", "mmmm d"},
};

inline constexpr std::string_view kDefaultDateFormat = "mmm d, yyyy";
inline constexpr std::string_view kFormatOfPickedDate = "mmmm d yyyy";  ///< what the pick list inserts
inline constexpr std::string_view kTodaysDate = "Todays Date";

}  // namespace wmoutlook::merge

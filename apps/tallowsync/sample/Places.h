#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace wmoutlook::sample {

/// A city in which the people of the sample live.
struct Place {
    std::string_view provinceCode;
    std::string_view province;
    std::string_view city;
    std::string_view postalStart;  ///< the first three characters of its postal or zip codes
    std::string_view areaCode;
    bool isFrench = false;  ///< most people there have French names and streets
};

/// The cities of a country (see namespace country), those of one province side by side.
[[nodiscard]] std::span<const Place> placesOf(std::int32_t country);
/// The cities of one province or state by its code; none when the code is unknown.
[[nodiscard]] std::span<const Place> placesOf(std::int32_t country, std::string_view provinceCode);

}  // namespace wmoutlook::sample

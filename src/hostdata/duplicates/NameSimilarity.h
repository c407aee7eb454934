#pragma once

#include <cstddef>
#include <string_view>

namespace wmoutlook {

// The Jaro-Winkler similarity of two texts, from 0 (nothing in common) to 1 (equal): the share of characters that both have
// at about the same place, raised when they begin alike. It counts bytes and is meant for ASCII.

/// What a common beginning adds: a tenth of what is missing for each of up to four characters.
inline constexpr double kWeightOfPrefix = 0.1;
inline constexpr std::size_t kLongestPrefix = 4;

/// From here on two names count as one. With one slip a name of n letters has 1 - 2/(3n) (a wrong letter) or 1 - 1/(3n) (a
/// missing or doubled letter, two that changed places) of Jaro's similarity. 0.92 forgives a wrong letter from eight letters
/// on, or from five when the first four are right, and the other slips from four on. 0.90 would take four-letter names for one
/// another, 0.95 a misspelt "Trembley" for another firm. No threshold tells "Smith Dental" from "Smith Rental": that is the
/// price of the tolerant search.
inline constexpr double kSameNameSimilarity = 0.92;

[[nodiscard]] double jaroSimilarity(std::string_view left, std::string_view right);
[[nodiscard]] double nameSimilarity(std::string_view left, std::string_view right);

}  // namespace wmoutlook

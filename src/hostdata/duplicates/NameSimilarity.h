#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace wmoutlook {

// The Jaro-Winkler similarity of two texts, from 0 (nothing in common) to 1 (equal): the share of characters that both have
// at about the same place, raised when they begin alike. It counts bytes and is meant
// for ASCII. The first 64 characters count; a firm whose normalised name goes on behind them says who it is before.

/// What a common beginning adds: a tenth of what is missing for each of up to four characters.
inline constexpr double kWeightOfPrefix = 0.1;
inline constexpr std::size_t kLongestPrefix = 4;

inline constexpr std::size_t kComparedLength = 64;

/// From here on two names count as one. With one slip a name of n letters has 1 - 2/(3n) (a wrong letter) or 1 - 1/(3n) (a
/// missing or doubled letter, two that changed places) of Jaro's similarity. 0.92 forgives a wrong letter from eight letters
/// on, or from five when the first four are right, and the other slips from four on. 0.90 would take four-letter names for one
/// another, 0.95 a misspelt "Trembley" for another firm. No threshold tells "Smith Dental" from "Smith Rental": that is the
/// price of the tolerant search.
inline constexpr double kSameNameSimilarity = 0.92;

/// The similarity of many names to one: what depends on that one is prepared once.
class SimilarityTo {
public:
    explicit SimilarityTo(std::string_view name);

    [[nodiscard]] double jaro(std::string_view other) const;
    [[nodiscard]] double jaroWinkler(std::string_view other) const;

private:
    std::string_view name_;
    std::array<std::uint64_t, 256> placesOf_{};  ///< by character: a bit for each place where it stands
};

[[nodiscard]] inline double nameSimilarity(std::string_view name, std::string_view other) {
    return SimilarityTo{name}.jaroWinkler(other);
}

}  // namespace wmoutlook

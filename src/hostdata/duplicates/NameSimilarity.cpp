#include "hostdata/duplicates/NameSimilarity.h"

#include <algorithm>
#include <bit>

namespace wmoutlook {

namespace {

using Places = std::uint64_t;  ///< a bit for each place in a name, the first the lowest

constexpr Places placesFrom(std::size_t first, std::size_t end) {
    const Places upToEnd = end < kComparedLength ? (Places{1} << end) - 1 : ~Places{0};
    return upToEnd & ~((Places{1} << first) - 1);
}

std::size_t lengthOfCommonPrefix(std::string_view left, std::string_view right) {
    const std::size_t most = std::min({left.size(), right.size(), kLongestPrefix});
    std::size_t length = 0;
    while (length < most && left[length] == right[length]) ++length;
    return length;
}

/// How many of the matched characters of two names differ, taken in the order of each.
int countOutOfOrder(std::string_view left, Places matchedLeft, std::string_view right, Places matchedRight) {
    int outOfOrder = 0;
    for (; matchedLeft != 0; matchedLeft &= matchedLeft - 1, matchedRight &= matchedRight - 1)
        if (left[static_cast<std::size_t>(std::countr_zero(matchedLeft))] !=
            right[static_cast<std::size_t>(std::countr_zero(matchedRight))])
            ++outOfOrder;
    return outOfOrder;
}

}  // namespace

SimilarityTo::SimilarityTo(std::string_view name) : name_(name.substr(0, kComparedLength)) {
    for (std::size_t i = 0; i < name_.size(); ++i) placesOf_[static_cast<unsigned char>(name_[i])] |= Places{1} << i;
}

double SimilarityTo::jaro(std::string_view wholeOther) const {
    const std::string_view other = wholeOther.substr(0, kComparedLength);
    if (name_ == other) return 1;
    const std::size_t half = std::max(name_.size(), other.size()) / 2;
    const std::size_t reach = half > 0 ? half - 1 : 0;
    Places matchedHere = 0;
    Places matchedThere = 0;
    const std::size_t end = std::min(other.size(), name_.size() + reach);
    for (std::size_t i = 0; i < end; ++i) {
        const Places near = placesFrom(i > reach ? i - reach : 0, i + reach + 1);
        const Places partners = placesOf_[static_cast<unsigned char>(other[i])] & near & ~matchedHere;
        matchedHere |= partners & (~partners + 1);  // the first of them
        matchedThere |= Places{partners != 0 ? 1U : 0U} << i;
    }
    if (matchedHere == 0) return 0;
    const double matched = std::popcount(matchedHere);
    const double transpositions = countOutOfOrder(name_, matchedHere, other, matchedThere) / 2.0;
    return (matched / static_cast<double>(name_.size()) + matched / static_cast<double>(other.size()) +
            (matched - transpositions) / matched) /
           3;
}

double SimilarityTo::jaroWinkler(std::string_view other) const {
    const double similarity = jaro(other);
    return similarity + static_cast<double>(lengthOfCommonPrefix(name_, other)) * kWeightOfPrefix * (1 - similarity);
}

}  // namespace wmoutlook

#include "hostdata/duplicates/NameSimilarity.h"

#include <algorithm>
#include <string>

namespace wmoutlook {

namespace {

std::size_t lengthOfCommonPrefix(std::string_view left, std::string_view right) {
    const std::size_t most = std::min({left.size(), right.size(), kLongestPrefix});
    std::size_t length = 0;
    while (length < most && left[length] == right[length]) ++length;
    return length;
}

/// The characters of `from` that have a partner of their own in `other`, not too far off, in the order of `from`. The
/// partners are marked.
std::string matchedCharacters(std::string_view from, std::string_view other, std::string& isPartner) {
    const std::size_t half = std::max(from.size(), other.size()) / 2;
    const std::size_t reach = half > 0 ? half - 1 : 0;
    std::string matched;
    for (std::size_t i = 0; i < from.size(); ++i) {
        const std::size_t end = std::min(other.size(), i + reach + 1);
        for (std::size_t k = i > reach ? i - reach : 0; k < end; ++k) {
            if (isPartner[k] != 0 || other[k] != from[i]) continue;
            isPartner[k] = 1;
            matched += from[i];
            break;
        }
    }
    return matched;
}

}  // namespace

double jaroSimilarity(std::string_view left, std::string_view right) {
    if (left == right) return 1;
    std::string isPartner(right.size(), 0);
    const std::string matched = matchedCharacters(left, right, isPartner);
    if (matched.empty()) return 0;
    std::size_t next = 0;
    std::size_t outOfOrder = 0;
    for (std::size_t k = 0; k < right.size(); ++k)
        if (isPartner[k] != 0 && right[k] != matched[next++]) ++outOfOrder;
    const auto count = static_cast<double>(matched.size());
    const double transpositions = static_cast<double>(outOfOrder) / 2;
    return (count / static_cast<double>(left.size()) + count / static_cast<double>(right.size()) +
            (count - transpositions) / count) /
           3;
}

double nameSimilarity(std::string_view left, std::string_view right) {
    const double jaro = jaroSimilarity(left, right);
    return jaro + static_cast<double>(lengthOfCommonPrefix(left, right)) * kWeightOfPrefix * (1 - jaro);
}

}  // namespace wmoutlook

#include "hostdata/duplicates/SimilarNames.h"

#include "hostdata/duplicates/NameSimilarity.h"
#include "hostdata/duplicates/NormalisedNames.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace wmoutlook {

namespace {

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string blockOf(std::string_view name) {
    return digitsOf(name).insert(0, 1, name.front());
}

/// A set of bits for the letters of a name: one for each letter, one for each that occurs twice, and one for the commonest that
/// occur three times. (Digits are equal within a block.) Each bit that one name has and another has not stands for a letter
/// of the one that finds no partner in the other.
std::uint64_t lettersOf(std::string_view name) {
    constexpr std::string_view kCommonest = "eairnostluce";
    constexpr std::size_t kLetters = 26;
    std::uint64_t bits = 0;
    std::array<std::size_t, kLetters> seen{};
    for (const char c : name) {
        if (c < 'a' || c > 'z') continue;
        const auto letter = static_cast<std::size_t>(c - 'a');
        const std::size_t times = seen[letter]++;
        if (times < 2) bits |= std::uint64_t{1} << (times * kLetters + letter);
        const std::size_t common = kCommonest.find(c);
        if (times == 2 && common != std::string_view::npos) bits |= std::uint64_t{1} << (2 * kLetters + common);
    }
    return bits;
}

/// The first four characters as one number, the first in the highest byte.
std::uint32_t beginningOf(std::string_view name) {
    std::uint32_t beginning = 0;
    for (std::size_t i = 0; i < kLongestPrefix; ++i)
        beginning = beginning << 8 | (i < name.size() ? static_cast<unsigned char>(name[i]) : 0u);
    return beginning;
}

std::size_t commonPrefix(std::uint32_t one, std::uint32_t other) {
    return static_cast<std::size_t>(std::countl_zero(one ^ other)) / 8;
}

/// How many characters without a partner a similar name may have, by its length and the common prefix, for one name that is
/// searched. It loses no similar name: with m partners in names of a and b characters, Jaro's similarity is at most
/// (m/a + m/b + 1) / 3, and the Winkler similarity of a prefix of n reaches the threshold from (threshold - 0.1n) / (1 - 0.1n)
/// of Jaro's on.
class Allowance {
public:
    explicit Allowance(std::size_t length) : length_(length), longest_(2 * length) {
        for (std::size_t prefix = 0; prefix <= kLongestPrefix; ++prefix)
            for (std::size_t other = 0; other <= longest_; ++other) rows_.push_back(allowed(prefix, other));
    }

    [[nodiscard]] bool mayBeSimilar(std::uint64_t letters, std::uint64_t otherLetters, std::size_t prefix,
                                    std::size_t otherLength) const {
        if (otherLength > longest_) return false;  // at twice the length Jaro is 0.83 at most, raised 0.90
        const Allowed& allowed = rows_[prefix * (longest_ + 1) + otherLength];
        return std::popcount(letters & ~otherLetters) <= allowed.here && std::popcount(otherLetters & ~letters) <= allowed.there;
    }

private:
    struct Allowed {
        int here = -1;
        int there = -1;
    };

    [[nodiscard]] Allowed allowed(std::size_t prefix, std::size_t otherLength) const {
        const double raised = kWeightOfPrefix * static_cast<double>(prefix);
        const double jaro = (kSameNameSimilarity - raised) / (1 - raised);
        const auto here = static_cast<double>(length_);
        const auto there = static_cast<double>(otherLength);
        constexpr double kRounding = 1e-9;
        const double partners = std::ceil((3 * jaro - 1) * here * there / (here + there) - kRounding);
        if (partners > std::min(here, there)) return {};
        return {static_cast<int>(here - partners), static_cast<int>(there - partners)};
    }

    std::size_t length_;
    std::size_t longest_;
    std::vector<Allowed> rows_;
};

}  // namespace

void SimilarNames::add(std::string name, const HostRecord& record) {
    const NumbersByKey::Added added = equal_.add(std::move(name), record);
    if (!added.isNewKey || !isAscii(added.key)) return;
    const std::string_view compared = added.key.substr(0, kComparedLength);
    blocks_[blockOf(added.key)].push_back({lettersOf(compared), beginningOf(compared),
                                           static_cast<std::uint32_t>(compared.size()), compared.data(), added.numbers});
}

std::int32_t SimilarNames::find(std::string_view name, LookAt lookAt) const {
    const std::int32_t equal = findEqual(name, lookAt);
    if (equal != kNoRecord || name.empty() || !isAscii(name)) return equal;
    const auto block = blocks_.find(blockOf(name));
    if (block == blocks_.end()) return kNoRecord;

    const std::string_view compared = name.substr(0, kComparedLength);
    const Allowance allowance{compared.size()};
    const SimilarityTo similarityTo{compared};
    const std::uint64_t letters = lettersOf(compared);
    const std::uint32_t beginning = beginningOf(compared);
    std::int32_t found = kNoRecord;
    double best = kSameNameSimilarity;
    for (const Entry& entry : block->second) {
        const std::size_t prefix = commonPrefix(beginning, entry.beginning);
        if (!allowance.mayBeSimilar(letters, entry.letters, prefix, entry.length)) continue;
        const double similarity = similarityTo.jaroWinkler({entry.name, entry.length});
        if (similarity < best) continue;
        const std::int32_t number = entry.numbers->among(lookAt);
        if (number == kNoRecord) continue;
        found = similarity > best ? number : lowerNumber(found, number);
        best = similarity;
    }
    return found;
}

}  // namespace wmoutlook

#pragma once

#include "hostdata/duplicates/NumbersByKey.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook {

/// Normalised company names by likeness. The most similar name at or above kSameNameSimilarity wins, an equal one before all;
/// among equally similar ones the lowest number. Narrower than the similarity on purpose, since a wrong match overwrites
/// another client's record:
/// - names with different digits are different firms, however similar ("9123-4567 Québec", "9123-4568 Québec");
/// - so are names whose first characters differ ("Gates Plumbing", "Bates Plumbing");
/// - a name in another script than the Latin one matches its equal alone.
class SimilarNames {
public:
    /// The name as normalisedCompanyName gives it.
    void add(std::string name, const HostRecord& record);

    [[nodiscard]] std::int32_t find(std::string_view name, LookAt lookAt) const;  ///< by likeness
    [[nodiscard]] std::int32_t findEqual(std::string_view name, LookAt lookAt) const { return equal_.find(name, lookAt); }

private:
    struct Entry {
        std::uint64_t letters = 0;  ///< see lettersOf
        std::uint32_t beginning = 0;
        std::uint32_t length = 0;
        const char* name = nullptr;
        const LowestNumber* numbers = nullptr;
    };

    NumbersByKey equal_;
    /// What may match each other: names with the same digits and first character.
    std::unordered_map<std::string, std::vector<Entry>> blocks_;
};

}  // namespace wmoutlook

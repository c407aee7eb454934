#pragma once

#include "merge/FoldedName.h"
#include "merge/Marks.h"
#include "platform/Date.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook::merge {

/// Where and when a template is merged, as far as names depend on it.
struct RenameLocale {
    std::int32_t country = 0;   ///< see namespace country; neither of the two: no local names
    std::int32_t province = 0;  ///< see namespace province
    bool isHarmonized = false;  ///< see isHarmonizedOn

    friend bool operator==(const RenameLocale&, const RenameLocale&) = default;
};

/// Whether the HST is in force in Ontario and British Columbia: since 1 July 2010.
[[nodiscard]] bool isHarmonizedOn(Date day);

/// Templates outlive the names of placeholders: those of earlier versions, of other provinces and of the other country are brought to
/// the names that a firm has now. Every rename acts on all occurrences, one rename after the other (RenameTables.h); a text that holds
/// none of them is read once.
class PlaceholderRenames {
public:
    explicit PlaceholderRenames(const RenameLocale& locale);

    [[nodiscard]] std::string apply(std::string text) const;
    [[nodiscard]] const RenameLocale& locale() const { return locale_; }

private:
    struct Rule {
        std::string from;
        std::string to;
    };
    /// The rules for whole placeholders between marks of one kind, by the name in lower case.
    using RulesOfNames = std::unordered_map<std::string, std::vector<std::size_t>, HashOfName, std::equal_to<>>;

    void add(std::string from, std::string to);
    void addNames(std::string_view from, std::string_view to, const Marks& marks);
    void addProvince();
    void index(std::size_t rule);
    /// The first rule, not in front of `from`, whose text is there.
    [[nodiscard]] std::optional<std::size_t> firstPresent(std::string_view text, std::size_t from) const;
    void lookForBareWords(std::string_view text, std::size_t from, std::optional<std::size_t>& first) const;
    void lookBetween(const Marks& marks, std::string_view text, std::size_t from, std::optional<std::size_t>& first) const;

    RenameLocale locale_;
    std::vector<Rule> rules_;
    std::vector<std::size_t> bareWords_;
    std::array<std::vector<std::size_t>, kAllMarks.size()> beginnings_;  ///< rules for all that begins so behind an opening mark
    std::array<RulesOfNames, kAllMarks.size()> names_;
};

/// Those of a locale; kept for the next time, in this thread.
[[nodiscard]] const PlaceholderRenames& renamesFor(const RenameLocale& locale);

}  // namespace wmoutlook::merge

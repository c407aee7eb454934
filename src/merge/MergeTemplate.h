#pragma once

#include "merge/MergeText.h"
#include "merge/Placeholders.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wmoutlook::merge {

/// A template with what stands where found once: a firm sends one letter to many clients.
///
/// The rules of a merge are told as replacements one after the other: the placeholders between plain marks by their rank, then those
/// between escaped marks, then what is left of placeholders. All of it is done in one reading as long as that comes to the same, which
/// it does unless placeholders stand inside of each other or a value holds marks of its own.
class MergeTemplate {
public:
    /// The names in the text are those of today (PlaceholderRenames.h).
    MergeTemplate(std::string text, std::shared_ptr<const Placeholders> placeholders);

    /// The finished text. A value is asked for only when the text holds its placeholder, and once for each kind of marks.
    [[nodiscard]] std::string merged(TextKind kind, const ValueOf& valueOf) const;
    [[nodiscard]] const std::string& text() const { return text_; }

private:
    /// A part of the text that does not stay.
    struct Stretch {
        std::size_t begin = 0;
        std::size_t end = 0;
        std::int32_t turn = kRemnant;  ///< when its placeholder is replaced: by the kind of marks, then by rank
        std::size_t slot = 0;
    };
    /// A placeholder that the text holds, once or more.
    struct Slot {
        std::int32_t turn = 0;
        std::size_t first = 0;  ///< stretch
        std::size_t count = 0;
    };
    static constexpr std::int32_t kRemnant = -1;
    class Values;
    struct Replacement;

    [[nodiscard]] bool findStretches();
    [[nodiscard]] bool findPlaceholders(std::size_t kindOfMarks);
    [[nodiscard]] bool findRemnants(const Marks& marks);
    [[nodiscard]] bool holdsStretch(std::size_t begin, std::size_t end) const;
    void add(const std::vector<Stretch>& stretches);
    void numberSlots();

    [[nodiscard]] std::optional<std::string> inOneReading(TextKind kind, Values& values) const;
    [[nodiscard]] bool needsBlank(const Slot& slot, const std::vector<Replacement>& earlier) const;
    [[nodiscard]] std::string oneByOne(TextKind kind, Values& values) const;

    std::string text_;
    std::shared_ptr<const Placeholders> placeholders_;
    std::vector<Stretch> stretches_;  ///< in the order of the text
    std::vector<Slot> slots_;         ///< in the order of turns
    bool isOneReading_ = false;
};

}  // namespace wmoutlook::merge

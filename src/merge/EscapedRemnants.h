#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook::merge {

/// Takes what is left of placeholders between escaped marks out of a text: from the opening mark through the backslash of the next closing
/// one. The rule takes them out one after the other, and each along with all that reads the same; as it ends with a backslash,
/// that can be the front of another one. Here each is remembered and looked for when the next opening mark is reached, so that
/// the text is read about once, however many there are.
class EscapedRemnants {
public:
    explicit EscapedRemnants(std::string_view text) : text_(text) {}

    /// Nothing when removals touch each other, so that only one after the other tells what stays.
    [[nodiscard]] std::optional<std::string> removeAll();

private:
    struct Remnant {
        std::string_view text;
        std::uint64_t hash = 0;
        friend bool operator==(const Remnant& left, const Remnant& right) { return left.text == right.text; }
    };
    struct HashOf {
        std::size_t operator()(const Remnant& remnant) const { return static_cast<std::size_t>(remnant.hash); }
    };

    [[nodiscard]] std::size_t closeBehind(std::size_t open);
    void remember(std::string_view remnant);
    /// Where the remnant ends that was the first of those that stand at the mark and end in front of the limit; none: npos.
    [[nodiscard]] std::size_t endOfKnown(std::size_t open, std::size_t limit) const;
    [[nodiscard]] bool isAnyKnownWithin(std::size_t open, std::size_t limit) const;

    std::string_view text_;
    std::size_t close_ = 0;                                   ///< the closing mark that was found last
    std::unordered_map<Remnant, std::size_t, HashOf> known_;  ///< by which turn they were found
    std::vector<bool> isCountKnown_;                          ///< by how many backslashes a remnant has
};

}  // namespace wmoutlook::merge

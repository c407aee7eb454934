#pragma once

#include "merge/TextDigest.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook::merge {

/// Takes away placeholders between plain marks that may stand inside of each other: every occurrence of the first one, from its opening
/// mark through the next closing mark, then of the one that is the first by then, until none is left. As a remnant ends with the only
/// closing mark that it holds, at most one ends at each closing mark; those that end alike are kept together, by their innermost part at
/// first and by more of them only when a longer remnant asks for it. The time goes with the length of the text; a text that is made for
/// it, with many long remnants that differ in their last parts alone, takes no more than the power of 1.5 of it.
///
/// A mark is one character: bytes that come to stand side by side never become one.
class NestedRemnants {
public:
    explicit NestedRemnants(std::string_view text);

    /// The text without them.
    [[nodiscard]] std::string removeAll();

private:
    using Index = std::size_t;
    static constexpr Index kNone = static_cast<Index>(-1);

    /// From an opening mark up to the next mark.
    struct Part {
        std::string text;
        TextDigest digest;
        Index outer = kNone;  ///< the opening mark in front of it
    };
    /// What stands in front of a closing mark, up to the one before. The last one has no closing mark.
    struct Stretch {
        std::string front;  ///< up to the first opening mark
        Index innermost = kNone, outermost = kNone;
        Index previous = kNone, next = kNone;
        bool isGone = false;
        Index known = kNone;  ///< the outermost part by which it was put with those that end alike
        TextDigest ending;    ///< from there to the closing mark
    };
    /// The stretches that end alike; some of them have gone.
    struct Alike {
        std::vector<Index> stretches;
        std::size_t told = 0;  ///< so many of them were told apart by one more part
    };

    [[nodiscard]] bool isClosed(Index stretch) const { return stretches_[stretch].next != kNone; }
    void addText(Stretch& stretch, std::string_view text);
    void addPart(Stretch& stretch);
    void tellOneMorePart(Index index);
    void tellApart(std::uint64_t hash);
    [[nodiscard]] std::string textOfParts(const Stretch& stretch) const;
    [[nodiscard]] bool endsWith(const Stretch& stretch, std::string_view remnant) const;
    void removeFirst();
    void remove(Index index, std::size_t length);
    void unlink(const Stretch& stretch);

    Index first_ = 0;
    std::vector<Part> parts_;
    std::vector<Stretch> stretches_;
    std::unordered_map<std::uint64_t, Alike> alike_;
};

}  // namespace wmoutlook::merge

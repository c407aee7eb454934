#pragma once

#include "merge/TextDigest.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <queue>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace wmoutlook::merge {

/// Takes what is left of placeholders between escaped marks out of a text: from the opening mark through the backslash of the next closing
/// one. The rule takes them out one after the other, in turns: every occurrence of the first one, then of the one that is the first by
/// then. A remnant ends with a backslash and leaves the rest of a mark behind, so that an occurrence may end at any backslash, and what
/// stands to both sides of it may become a mark, or part of a later remnant.
///
/// Here the text is read once. From the first opening mark to the next closing one it is taken apart at its backslashes; the remnants of
/// earlier turns, which are known by then, are looked for in it and go in the order of their turns; what is the first after that is the
/// remnant of the next turn. As no remnant holds a closing mark, what is behind has no part in that until an earlier remnant takes the
/// backslash of the closing one. The time goes with the length of the text, times the number of lengths that its remnants have: a
/// handful, unless a text is made for it.
class EscapedRemnants {
public:
    explicit EscapedRemnants(std::string_view text) : text_(text) {}

    /// The text without them.
    [[nodiscard]] std::string removeAll();

private:
    using Index = std::size_t;
    using Turn = std::size_t;
    static constexpr Index kNone = static_cast<Index>(-1);

    /// From a backslash up to the next one.
    struct Piece {
        std::string text;
        TextDigest digest;
        TextDigest rest;     ///< of what stands behind the backslash
        TextDigest through;  ///< of all pieces up to this one, as they were read
        Index previous = kNone, next = kNone;
        Turn searched = 0;  ///< the last turn whose remnant was looked for here
        Turn changed = 0;   ///< the last turn that joined a text to it
        bool isGone = false;
    };
    struct Remnant {
        std::string text;
        std::size_t pieces = 0;
    };
    /// A place where the remnant of a turn could stand.
    struct Place {
        Turn turn = 0;
        Index open = 0;
        friend bool operator>(const Place& left, const Place& right) {
            return left.turn != right.turn ? left.turn > right.turn : left.open > right.open;
        }
    };

    /// Pieces that stand side by side, without a closing mark.
    struct Window {
        std::vector<Index> pieces;
        std::vector<TextDigest> through;  ///< of so many of them
    };

    [[nodiscard]] bool readOn();
    void readPiece();
    void noteMark(Index index);
    void findKnown(Index from);
    void findKnownAround(Index changed);
    [[nodiscard]] Window windowOf(Index from, Index end) const;
    [[nodiscard]] bool areNeighbours(Index front, Index back) const;
    [[nodiscard]] std::uint64_t pairOf(Index front, Index back) const;
    void findKnownIn(const Window& window, std::size_t open, std::size_t least);
    void searchUpTo(Index close);
    [[nodiscard]] Index endOf(const Place& place) const;
    void removeKnown();
    void remove(const Place& place, Index end);
    void remember(Index open, Index close);
    void finishUpTo(Index index);
    void startWithUnfinishedMark(Piece& piece);

    std::string_view text_;
    std::size_t read_ = 0;
    std::string left_;      ///< the result as far as it is certain
    Turn leftChanged_ = 0;  ///< the last turn that joined a text to its last piece

    std::vector<Piece> pieces_;
    Index first_ = kNone, last_ = kNone;
    Index searched_ = 0;     ///< the opening marks in front of it were looked at by searchUpTo
    Turn searchedTurn_ = 0;  ///< in this turn
    std::set<Index> opens_, closes_;

    std::vector<Remnant> remnants_;                               ///< by turn, from 1
    std::unordered_map<std::uint64_t, std::vector<Turn>> turns_;  ///< of remnants that read the same
    std::set<std::size_t> lengths_;                               ///< of remnants, in pieces
    std::unordered_set<std::uint64_t> neighbours_;                ///< pieces that stand side by side in a remnant
    std::priority_queue<Place, std::vector<Place>, std::greater<>> places_;
};

}  // namespace wmoutlook::merge

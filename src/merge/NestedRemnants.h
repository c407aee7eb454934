#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook::merge {

/// Takes away placeholders between plain marks that may stand inside of each other: every occurrence of the first one, from its opening
/// mark through the next closing mark, then of the one that is the first by then, until none is left. Looking each of them up in the
/// whole text would take hours for a text that is nothing but marks; here the pieces from one opening mark to the next are
/// known by what stands between them and the next closing mark.
class NestedRemnants {
public:
    explicit NestedRemnants(std::string_view text);

    /// The text without them.
    [[nodiscard]] std::string removeAll();

private:
    using Hash = std::uint64_t;
    using Index = std::size_t;
    static constexpr Index kNone = static_cast<Index>(-1);

    /// A hash of a text that can be made from those of its parts.
    struct Digest {
        Hash hash = 0;
        Hash power = 1;  ///< of the base, by the length
    };
    /// From an opening mark up to the next one.
    struct Piece {
        std::string text;
        std::size_t head = std::string::npos;  ///< how much of it, the closing mark included; npos without one
        Digest own;                            ///< of the head, or of all of it
        Digest remnant;                        ///< through the next closing mark, in whichever piece that is
        bool isClosed = false;                 ///< there is such a mark
        Index previous = kNone, next = kNone;
        bool isGone = false;
    };

    [[nodiscard]] static Digest digestOf(std::string_view text);
    [[nodiscard]] static Digest joined(const Digest& front, const Digest& back);
    void append(Piece& piece, std::string_view text);
    void renew(Index index);
    void renewFrom(Index index);
    [[nodiscard]] std::string remnantOf(Index index) const;
    [[nodiscard]] bool isRemnant(Index index, std::string_view wanted) const;
    void remove(Index index);

    std::string done_;  ///< what stands in front of all opening marks
    std::vector<Piece> pieces_;
    Index first_ = kNone;
    std::unordered_map<Hash, std::vector<Index>> byRemnant_;  ///< some of what it holds is out of date
};

}  // namespace wmoutlook::merge

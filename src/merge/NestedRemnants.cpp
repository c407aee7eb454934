#include "merge/NestedRemnants.h"

#include "merge/Marks.h"

#include <algorithm>
#include <utility>

namespace wmoutlook::merge {

namespace {

constexpr std::uint64_t kPrime = (std::uint64_t{1} << 61U) - 1;
constexpr std::uint64_t kBase = 0x1F3D5B79A2C4E6F;

std::uint64_t multiplied(std::uint64_t left, std::uint64_t right) {
    __extension__ using Wide = unsigned __int128;
    const Wide product = Wide{left} * right;
    const auto low = static_cast<std::uint64_t>(product & kPrime);
    const auto high = static_cast<std::uint64_t>(product >> 61U);
    const std::uint64_t sum = low + high;
    return sum >= kPrime ? sum - kPrime : sum;
}

std::uint64_t added(std::uint64_t left, std::uint64_t right) {
    const std::uint64_t sum = left + right;
    return sum >= kPrime ? sum - kPrime : sum;
}

}  // namespace

NestedRemnants::Digest NestedRemnants::digestOf(std::string_view text) {
    Digest digest;
    for (const char c : text) {
        digest.hash = added(multiplied(digest.hash, kBase), static_cast<unsigned char>(c) + std::uint64_t{1});
        digest.power = multiplied(digest.power, kBase);
    }
    return digest;
}

NestedRemnants::Digest NestedRemnants::joined(const Digest& front, const Digest& back) {
    return {added(multiplied(front.hash, back.power), back.hash), multiplied(front.power, back.power)};
}

NestedRemnants::NestedRemnants(std::string_view text) {
    std::size_t open = text.find(kPlainMarks.open);
    done_ = text.substr(0, open);
    while (open != std::string_view::npos) {
        const std::size_t next = text.find(kPlainMarks.open, open + kPlainMarks.open.size());
        Piece& piece = pieces_.emplace_back();
        append(piece, text.substr(open, next - open));
        const Index index = pieces_.size() - 1;
        piece.previous = index == 0 ? kNone : index - 1;
        piece.next = next == std::string_view::npos ? kNone : index + 1;
        open = next;
    }
    first_ = pieces_.empty() ? kNone : 0;
    for (Index index = pieces_.size(); index-- > 0;) renew(index);
}

void NestedRemnants::append(Piece& piece, std::string_view text) {
    const std::size_t from = piece.text.size();
    piece.text.append(text);
    if (piece.head != std::string::npos) return;
    const std::size_t close = text.find(kPlainMarks.close);
    if (close != std::string_view::npos) piece.head = from + close + kPlainMarks.close.size();
    piece.own = joined(piece.own, digestOf(text.substr(0, close == std::string_view::npos ? close : piece.head - from)));
}

/// What stands behind the piece is up to date.
void NestedRemnants::renew(Index index) {
    Piece& piece = pieces_[index];
    if (piece.head != std::string::npos) {
        piece.remnant = piece.own;
        piece.isClosed = true;
    } else {
        piece.isClosed = piece.next != kNone && pieces_[piece.next].isClosed;
        if (piece.isClosed) piece.remnant = joined(piece.own, pieces_[piece.next].remnant);
    }
    if (piece.isClosed) byRemnant_[piece.remnant.hash].push_back(index);
}

/// The piece has changed, and with it all that are open up to it.
void NestedRemnants::renewFrom(Index index) {
    for (; index != kNone; index = pieces_[index].previous) {
        renew(index);
        const Index before = pieces_[index].previous;
        if (before != kNone && pieces_[before].head != std::string::npos) return;
    }
}

std::string NestedRemnants::remnantOf(Index index) const {
    std::string text;
    for (;; index = pieces_[index].next) {
        const Piece& piece = pieces_[index];
        text.append(piece.text, 0, piece.head);
        if (piece.head != std::string::npos) return text;
    }
}

bool NestedRemnants::isRemnant(Index index, std::string_view wanted) const {
    for (;; index = pieces_[index].next) {
        const Piece& piece = pieces_[index];
        const std::string_view part = std::string_view{piece.text}.substr(0, piece.head);
        if (!wanted.starts_with(part)) return false;
        wanted.remove_prefix(part.size());
        if (piece.head != std::string::npos) return wanted.empty();
    }
}

/// What stands behind the closing mark goes to what stands in front.
void NestedRemnants::remove(Index index) {
    const Index previous = pieces_[index].previous;
    Index last = index;
    while (pieces_[last].head == std::string::npos) pieces_[std::exchange(last, pieces_[last].next)].isGone = true;
    pieces_[last].isGone = true;
    const std::string rest = pieces_[last].text.substr(pieces_[last].head);
    const Index next = pieces_[last].next;
    if (next != kNone) pieces_[next].previous = previous;
    if (previous == kNone) {
        first_ = next;
        done_ += rest;
        return;
    }
    Piece& before = pieces_[previous];
    const bool wasOpen = before.head == std::string::npos;
    before.next = next;
    append(before, rest);
    if (wasOpen) renewFrom(previous);
}

std::string NestedRemnants::removeAll() {
    while (first_ != kNone && pieces_[first_].isClosed) {
        const std::string remnant = remnantOf(first_);
        auto found = byRemnant_.extract(pieces_[first_].remnant.hash);
        std::vector<Index> same = std::move(found.mapped());
        std::sort(same.begin(), same.end());
        same.erase(std::unique(same.begin(), same.end()), same.end());
        std::erase_if(
            same, [&](Index index) { return pieces_[index].isGone || !pieces_[index].isClosed || !isRemnant(index, remnant); });
        for (const Index index : same) remove(index);
    }
    for (Index index = first_; index != kNone; index = pieces_[index].next) done_ += pieces_[index].text;
    return std::move(done_);
}

}  // namespace wmoutlook::merge

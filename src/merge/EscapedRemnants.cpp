#include "merge/EscapedRemnants.h"

#include "merge/Marks.h"

#include <algorithm>
#include <utility>

namespace wmoutlook::merge {

namespace {

constexpr std::string_view kOpen = kEscapedMarks.open;
constexpr std::string_view kClose = kEscapedMarks.close;

}  // namespace

void EscapedRemnants::readPiece() {
    const std::size_t end = std::min(text_.find('\\', read_ + 1), text_.size());
    const Index index = pieces_.size();
    Piece& piece = pieces_.emplace_back();
    piece.text = text_.substr(read_, end - read_);
    piece.rest = TextDigest{std::string_view{piece.text}.substr(1)};
    piece.digest = joined(TextDigest{"\\"}, piece.rest);
    piece.through = joined(index == 0 ? TextDigest{} : pieces_[index - 1].through, TextDigest::ofElement(piece.digest));
    piece.searched = remnants_.size();
    piece.previous = std::exchange(last_, index);
    (piece.previous == kNone ? first_ : pieces_[piece.previous].next) = index;
    noteMark(index);
    read_ = end;
}

void EscapedRemnants::noteMark(Index index) {
    const std::string_view text = pieces_[index].text;
    if (text.starts_with(kOpen)) opens_.insert(index);
    if (text.starts_with(kClose)) closes_.insert(index);
}

/// Through the next closing mark.
bool EscapedRemnants::readOn() {
    if (read_ == text_.size()) return false;
    const Index from = pieces_.size();
    do readPiece();
    while (read_ < text_.size() && !pieces_.back().text.starts_with(kClose));
    findKnown(from);
    return true;
}

/// In pieces that stand as they were read.
void EscapedRemnants::findKnown(Index from) {
    for (auto open = opens_.lower_bound(from); open != opens_.end(); ++open) {
        const TextDigest front = *open == 0 ? TextDigest{} : pieces_[*open - 1].through;
        for (const std::size_t length : lengths_) {
            if (*open + length >= pieces_.size()) break;
            const auto known =
                turns_.find(withoutFront(pieces_[*open + length - 1].through, front, pieces_[length - 1].through).hash());
            if (known != turns_.end()) places_.push({known->second.front(), *open});
        }
    }
}

/// Wherever a piece that has changed could be part of a remnant: as far to both sides as any two pieces stand side by side in one.
void EscapedRemnants::findKnownAround(Index changed) {
    if (lengths_.empty() || closes_.contains(changed)) return;
    const std::size_t longest = *lengths_.rbegin();
    Index open = kNone;
    std::size_t inFront = 0;
    Index first = changed;
    for (std::size_t distance = 0; distance < longest; ++distance, first = pieces_[first].previous) {
        if (opens_.contains(first)) {
            open = first;
            inFront = distance;
        }
        if (!areNeighbours(pieces_[first].previous, first)) break;
    }
    if (open == kNone) return;
    Index last = changed;
    for (std::size_t length = 1; length < longest && areNeighbours(last, pieces_[last].next); ++length) last = pieces_[last].next;
    const Window window = windowOf(open, pieces_[last].next);
    for (std::size_t at = 0; at <= inFront && at < window.pieces.size(); ++at)
        if (opens_.contains(window.pieces[at])) findKnownIn(window, at, inFront - at + 1);
}

bool EscapedRemnants::areNeighbours(Index front, Index back) const {
    return front != kNone && back != kNone && neighbours_.contains(pairOf(front, back));
}

std::uint64_t EscapedRemnants::pairOf(Index front, Index back) const {
    return joined(TextDigest::ofElement(pieces_[front].digest), TextDigest::ofElement(pieces_[back].digest)).hash();
}

EscapedRemnants::Window EscapedRemnants::windowOf(Index from, Index end) const {
    Window window;
    window.through.emplace_back();
    for (Index index = from; index != end && pieces_[index].next != kNone; index = pieces_[index].next) {
        window.pieces.push_back(index);
        window.through.push_back(joined(window.through.back(), TextDigest::ofElement(pieces_[index].digest)));
    }
    return window;
}

/// Remnants of at least so many pieces.
void EscapedRemnants::findKnownIn(const Window& window, std::size_t open, std::size_t least) {
    const std::size_t size = window.pieces.size();
    for (auto length = lengths_.lower_bound(least); length != lengths_.end() && open + *length <= size; ++length) {
        const TextDigest digest = withoutFront(window.through[open + *length], window.through[open], window.through[*length]);
        const auto known = turns_.find(digest.hash());
        if (known == turns_.end()) continue;
        Turn changed = 0;
        for (std::size_t at = open; at < open + *length; ++at) changed = std::max(changed, pieces_[window.pieces[at]].changed);
        const auto turn = std::upper_bound(known->second.begin(), known->second.end(), changed);
        if (turn != known->second.end()) places_.push({*turn, window.pieces[open]});
    }
}

/// The piece whose backslash goes with the remnant; none when it does not stand there, or did not when its turn came.
EscapedRemnants::Index EscapedRemnants::endOf(const Place& place) const {
    std::string_view rest = remnants_[place.turn - 1].text;
    Index index = place.open;
    for (std::size_t count = remnants_[place.turn - 1].pieces; count > 0 && index != kNone; --count) {
        const Piece& piece = pieces_[index];
        if (piece.isGone || piece.changed >= place.turn || !rest.starts_with(piece.text)) return kNone;
        rest.remove_prefix(piece.text.size());
        index = piece.next;
    }
    return rest.empty() ? index : kNone;
}

void EscapedRemnants::removeKnown() {
    while (!places_.empty()) {
        const Place place = places_.top();
        places_.pop();
        const Index end = endOf(place);
        if (end != kNone) remove(place, end);
    }
}

/// What stands behind the backslash joins what is in front.
void EscapedRemnants::remove(const Place& place, Index end) {
    const bool wasLast = end == last_;
    const Index front = pieces_[place.open].previous;
    const Index kept = front == kNone ? place.open : front;
    const std::string rest = std::move(pieces_[end].text);
    const Turn changed = std::max(pieces_[end].changed, front == kNone ? leftChanged_ : 0);
    if (front == kNone) startWithUnfinishedMark(pieces_[kept]);
    for (Index index = place.open;; index = pieces_[index].next) {
        opens_.erase(index);
        closes_.erase(index);
        if (index != kept) pieces_[index].isGone = true;
        if (index == end) break;
    }
    Piece& joint = pieces_[kept];
    joint.text.append(rest, 1);
    joint.rest = joined(joint.rest, pieces_[end].rest);
    joint.digest = joined(joint.digest, pieces_[end].rest);
    joint.changed = std::max({joint.changed, changed, place.turn});
    joint.next = pieces_[end].next;
    (joint.next == kNone ? last_ : pieces_[joint.next].previous) = kept;
    noteMark(kept);
    if (wasLast && !closes_.contains(kept)) static_cast<void>(readOn());
    findKnownAround(kept);
}

/// Taken back from what is certain: a mark that lacks its last characters may get them.
void EscapedRemnants::startWithUnfinishedMark(Piece& piece) {
    piece.text.clear();
    for (const std::string_view mark : {kOpen, kClose})
        for (std::size_t length = 1; length < mark.size(); ++length)
            if (left_.ends_with(mark.substr(0, length))) piece.text = mark.substr(0, length);
    left_.resize(left_.size() - piece.text.size());
    piece.digest = TextDigest{piece.text};
    piece.rest = TextDigest{std::string_view{piece.text}.substr(piece.text.empty() ? 0 : 1)};
}

void EscapedRemnants::remember(Index open, Index close) {
    Remnant remnant;
    TextDigest digest;
    for (Index index = open; index != close; index = pieces_[index].next) {
        const Piece& piece = pieces_[index];
        remnant.text += piece.text;
        ++remnant.pieces;
        digest = joined(digest, TextDigest::ofElement(piece.digest));
        if (piece.next != close) neighbours_.insert(pairOf(index, piece.next));
    }
    lengths_.insert(remnant.pieces);
    remnants_.push_back(std::move(remnant));
    turns_[digest.hash()].push_back(remnants_.size());
    places_.push({remnants_.size(), open});
}

/// Behind a closing mark that a removal has made stands what was read in an earlier turn: the remnants since then are looked for when it
/// comes first.
void EscapedRemnants::searchUpTo(Index close) {
    if (std::exchange(searchedTurn_, remnants_.size()) < remnants_.size()) searched_ = 0;
    const auto isNew = [&](Index open) { return pieces_[open].searched < remnants_.size(); };
    auto open = opens_.lower_bound(searched_);
    while (open != opens_.end() && *open < close && !isNew(*open)) ++open;
    if (open == opens_.end() || *open >= close) return;
    const Window window = windowOf(*open, close);
    for (std::size_t at = 0; at < window.pieces.size(); ++at) {
        const Index index = window.pieces[at];
        if (!opens_.contains(index) || !isNew(index)) continue;
        pieces_[index].searched = remnants_.size();
        searched_ = index + 1;
        findKnownIn(window, at, 1);
    }
}

void EscapedRemnants::finishUpTo(Index index) {
    for (; first_ != index; first_ = pieces_[first_].next) {
        left_ += pieces_[first_].text;
        leftChanged_ = pieces_[first_].changed;
    }
    if (index != kNone) pieces_[index].previous = kNone;
}

std::string EscapedRemnants::removeAll() {
    for (;;) {
        if (opens_.empty()) {
            finishUpTo(kNone);
            pieces_.clear();
            searched_ = 0;
            closes_.clear();
            last_ = kNone;
            const std::size_t open = std::min(text_.find(kOpen, read_), text_.size());
            if (open > read_) leftChanged_ = 0;
            left_ += text_.substr(read_, open - read_);
            read_ = open;
            if (!readOn()) return std::move(left_);
        } else {
            const Index open = *opens_.begin();
            finishUpTo(open);
            const auto close = closes_.upper_bound(open);
            searchUpTo(close == closes_.end() ? kNone : *close);
            if (places_.empty() && close == closes_.end()) {
                finishUpTo(kNone);
                return left_.append(text_.substr(read_));
            }
            if (places_.empty()) remember(open, *close);
        }
        removeKnown();
    }
}

}  // namespace wmoutlook::merge

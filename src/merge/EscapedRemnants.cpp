#include "merge/EscapedRemnants.h"

#include "merge/MarkScan.h"
#include "merge/Marks.h"

#include <algorithm>

namespace wmoutlook::merge {

namespace {

constexpr std::string_view kOpen = kEscapedMarks.open;
constexpr std::string_view kClose = kEscapedMarks.close;
constexpr std::size_t kNone = std::string_view::npos;

/// Grows by a byte at a time (FNV-1a).
constexpr std::uint64_t kEmptyHash = 0xCBF29CE484222325;
constexpr std::uint64_t grown(std::uint64_t hash, char c) {
    return (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
}

}  // namespace

std::size_t EscapedRemnants::closeBehind(std::size_t open) {
    if (close_ != kNone && close_ < open + kOpen.size()) close_ = text_.find(kClose, open + kOpen.size());
    return close_;
}

void EscapedRemnants::remember(std::string_view remnant) {
    std::uint64_t hash = kEmptyHash;
    for (const char c : remnant) hash = grown(hash, c);
    known_.try_emplace({remnant, hash}, known_.size());
    const auto backslashes = static_cast<std::size_t>(std::count(remnant.begin(), remnant.end(), '\\'));
    if (isCountKnown_.size() <= backslashes) isCountKnown_.resize(backslashes + 1);
    isCountKnown_[backslashes] = true;
}

std::size_t EscapedRemnants::endOfKnown(std::size_t open, std::size_t limit) const {
    std::size_t end = kNone;
    std::size_t turn = known_.size();
    std::size_t backslashes = 0;
    std::uint64_t hash = kEmptyHash;
    for (std::size_t at = open; at < limit; ++at) {
        hash = grown(hash, text_[at]);
        if (text_[at] != '\\') continue;
        if (++backslashes >= isCountKnown_.size()) break;
        if (!isCountKnown_[backslashes]) continue;
        const auto known = known_.find({text_.substr(open, at + 1 - open), hash});
        if (known == known_.end() || known->second >= turn) continue;
        turn = known->second;
        end = at + 1;
    }
    return end;
}

bool EscapedRemnants::isAnyKnownWithin(std::size_t open, std::size_t limit) const {
    if (known_.empty()) return false;
    const std::string_view text = text_.substr(0, limit);
    for (std::size_t at = text.find(kOpen, open + kOpen.size()); at != kNone; at = text.find(kOpen, at + kOpen.size()))
        if (endOfKnown(at, limit) != kNone) return true;
    return false;
}

std::optional<std::string> EscapedRemnants::removeAll() {
    std::string left;
    std::size_t done = 0;
    for (std::size_t open = text_.find(kOpen); open != kNone; open = text_.find(kOpen, done)) {
        const std::size_t close = closeBehind(open);
        const std::size_t limit = close == kNone ? text_.size() : close + 1;
        if (isAnyKnownWithin(open, limit)) return std::nullopt;
        const std::size_t end = endOfKnown(open, limit);
        if (end == kNone && close == kNone) break;
        left.append(text_.substr(done, open - done));
        if (end != kNone && end != limit && endsInsideOfMark(left, kEscapedMarks)) return std::nullopt;
        if (end == kNone) remember(text_.substr(open, limit - open));
        done = end == kNone ? limit : end;
    }
    return left.append(text_.substr(done));
}

}  // namespace wmoutlook::merge

#include "merge/NestedRemnants.h"

#include "merge/MarkScan.h"
#include "merge/Marks.h"

#include <utility>

namespace wmoutlook::merge {

NestedRemnants::NestedRemnants(std::string_view text) {
    stretches_.emplace_back();
    MarkScan scan{text, kPlainMarks, MarkScan::Case::asWritten};
    std::size_t done = 0;
    for (FoundMark mark = scan.next(); mark.kind != MarkKind::none; mark = scan.next()) {
        addText(stretches_.back(), text.substr(done, mark.position - done));
        done = mark.position;
        if (mark.kind == MarkKind::open) {
            addPart(stretches_.back());
        } else {
            done += kPlainMarks.close.size();
            stretches_.emplace_back();
        }
    }
    addText(stretches_.back(), text.substr(done));
    for (Index index = 0; index + 1 < stretches_.size(); ++index) {
        stretches_[index].next = index + 1;
        stretches_[index + 1].previous = index;
        tellOneMorePart(index);
    }
}

void NestedRemnants::addText(Stretch& stretch, std::string_view text) {
    if (stretch.innermost == kNone) {
        stretch.front += text;
        return;
    }
    Part& part = parts_[stretch.innermost];
    part.text += text;
    part.digest = joined(part.digest, TextDigest{text});
}

void NestedRemnants::addPart(Stretch& stretch) {
    const Index outer = std::exchange(stretch.innermost, parts_.size());
    parts_.emplace_back().outer = outer;
    if (stretch.outermost == kNone) stretch.outermost = stretch.innermost;
}

/// Puts the stretch with those that end as it does, one part further out than before.
void NestedRemnants::tellOneMorePart(Index index) {
    Stretch& stretch = stretches_[index];
    const Index part = stretch.known == kNone ? stretch.innermost : parts_[stretch.known].outer;
    if (part == kNone) return;
    stretch.known = part;
    stretch.ending = joined(parts_[part].digest, stretch.ending);
    alike_[stretch.ending.hash()].stretches.push_back(index);
}

void NestedRemnants::tellApart(std::uint64_t hash) {
    Alike& alike = alike_[hash];
    for (; alike.told < alike.stretches.size(); ++alike.told) {
        const Index index = alike.stretches[alike.told];
        if (!stretches_[index].isGone && stretches_[index].ending.hash() == hash) tellOneMorePart(index);
    }
}

std::string NestedRemnants::textOfParts(const Stretch& stretch) const {
    std::vector<Index> order;
    for (Index part = stretch.innermost; part != kNone; part = parts_[part].outer) order.push_back(part);
    std::string text;
    for (; !order.empty(); order.pop_back()) text += parts_[order.back()].text;
    return text;
}

bool NestedRemnants::endsWith(const Stretch& stretch, std::string_view remnant) const {
    Index part = stretch.innermost;
    for (; part != kNone && !remnant.empty() && remnant.ends_with(parts_[part].text); part = parts_[part].outer)
        remnant.remove_suffix(parts_[part].text.size());
    return remnant.empty();
}

/// All that stands in the first stretch, and what reads the same at the end of others. What a removal leaves goes in front of the next
/// stretch, which may end in the same way only by what it had before.
void NestedRemnants::removeFirst() {
    const std::string remnant = textOfParts(stretches_[first_]);
    TextDigest digest;
    for (Index part = stretches_[first_].innermost; part != kNone; part = parts_[part].outer) {
        digest = joined(parts_[part].digest, digest);
        if (parts_[part].outer != kNone) tellApart(digest.hash());
    }
    const std::vector<Index> same = std::move(alike_.extract(digest.hash()).mapped().stretches);
    for (const Index index : same) {
        if (stretches_[index].isGone) continue;
        if (endsWith(stretches_[index], remnant))
            remove(index, remnant.size());
        else
            alike_[digest.hash()].stretches.push_back(index);  // another text of the same hash
    }
}

void NestedRemnants::remove(Index index, std::size_t length) {
    Stretch& stretch = stretches_[index];
    while (length > 0) {
        Part& part = parts_[std::exchange(stretch.innermost, parts_[stretch.innermost].outer)];
        length -= part.text.size();
        std::string{}.swap(part.text);
    }
    stretch.isGone = true;
    unlink(stretch);

    Stretch& next = stretches_[stretch.next];
    addText(stretch, next.front);
    next.front = std::move(stretch.front);
    if (stretch.innermost == kNone) return;
    (next.outermost == kNone ? next.innermost : parts_[next.outermost].outer) = stretch.innermost;
    const Index knownBefore = std::exchange(next.outermost, stretch.outermost);
    if (!isClosed(stretch.next)) return;
    if (next.known == kNone)
        tellOneMorePart(stretch.next);
    else if (next.known == knownBefore)
        alike_[next.ending.hash()].stretches.push_back(stretch.next);  // it can be told apart by one more part now
}

void NestedRemnants::unlink(const Stretch& stretch) {
    stretches_[stretch.next].previous = stretch.previous;
    (stretch.previous == kNone ? first_ : stretches_[stretch.previous].next) = stretch.next;
}

std::string NestedRemnants::removeAll() {
    std::string left;
    while (isClosed(first_)) {
        Stretch& stretch = stretches_[first_];
        left += std::exchange(stretch.front, {});
        if (stretch.innermost == kNone) {
            left += kPlainMarks.close;
            unlink(stretch);
        } else {
            removeFirst();
        }
    }
    return left + stretches_[first_].front + textOfParts(stretches_[first_]);
}

}  // namespace wmoutlook::merge

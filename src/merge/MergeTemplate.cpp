#include "merge/MergeTemplate.h"

#include "merge/MarkScan.h"
#include "platform/TextSearch.h"

#include <algorithm>
#include <map>
#include <utility>

namespace wmoutlook::merge {

namespace {

/// Whether a text that ends so can make a mark with what follows.
bool endsInsideOfAnyMark(std::string_view text) {
    return std::any_of(kAllMarks.begin(), kAllMarks.end(), [&](const Marks& marks) { return endsInsideOfMark(text, marks); });
}

/// Whether the value holds a mark or can become part of one.
bool canMakeMarks(std::string_view value) {
    return endsInsideOfAnyMark(value) || std::any_of(kAllMarks.begin(), kAllMarks.end(), [&](const Marks& marks) {
               return MarkScan{value, marks, MarkScan::Case::either}.next().kind != MarkKind::none;
           });
}

}  // namespace

/// The values of one merge by their turns; each is asked for once.
class MergeTemplate::Values {
public:
    Values(const ValueOf& valueOf, std::int32_t ranks) : valueOf_(valueOf), ranks_(ranks) {}

    const std::string& of(std::int32_t turn) {
        const auto known = std::lower_bound(values_.begin(), values_.end(), turn,
                                            [](const auto& value, std::int32_t key) { return value.first < key; });
        if (known != values_.end() && known->first == turn) return known->second;
        return values_.emplace(known, turn, valueOf_(turn % ranks_))->second;
    }
    void reserve(std::size_t count) { values_.reserve(count); }

private:
    const ValueOf& valueOf_;
    std::int32_t ranks_;
    std::vector<std::pair<std::int32_t, std::string>> values_;
};

/// What stands for a slot.
struct MergeTemplate::Replacement {
    const std::string* value = nullptr;
    bool hasBlank = false;
};

MergeTemplate::MergeTemplate(std::string text, std::shared_ptr<const Placeholders> placeholders)
    : text_(std::move(text)), placeholders_(std::move(placeholders)), isOneReading_(findStretches()) {}

/// False when one replacement can touch another.
bool MergeTemplate::findStretches() {
    if (!placeholders_->withMarks().empty()) return false;
    for (std::size_t kind = 0; kind < kAllMarks.size(); ++kind)
        if (!findPlaceholders(kind)) return false;
    for (const Marks& marks : kAllMarks) {
        const std::size_t before = stretches_.size();
        if (!findRemnants(marks)) return false;
        if (stretches_.size() > before) break;  // where remnants between plain marks go, escaped ones stay
    }
    numberSlots();
    return std::none_of(stretches_.begin(), stretches_.end(), [&](const Stretch& stretch) {
        return endsInsideOfAnyMark(std::string_view{text_}.substr(0, stretch.begin));
    });
}

bool MergeTemplate::findPlaceholders(std::size_t kindOfMarks) {
    const std::string_view text = text_;
    const Marks& marks = kAllMarks[kindOfMarks];
    const auto firstTurn = static_cast<std::int32_t>(kindOfMarks) * placeholders_->ranks();
    std::vector<Stretch> found;
    bool isInside = false;  // of a placeholder that is still open
    FoundMark open;
    MarkScan scan{text, marks, MarkScan::Case::either};
    for (FoundMark mark = scan.next(); mark.kind != MarkKind::none; mark = scan.next()) {
        if (mark.kind == MarkKind::open) {
            isInside = open.kind == MarkKind::open;
            open = mark;
            continue;
        }
        if (open.kind == MarkKind::none) continue;
        if (holdsStretch(open.position, mark.position)) return false;  // its value can complete a name
        const std::size_t start = open.position + marks.open.size();
        const std::int32_t rank = placeholders_->find(text.substr(start, mark.position - start));
        if (rank != PlaceholderRank::kNone) {
            if (isInside) return false;
            found.push_back({open.position, mark.position + marks.close.size(), firstTurn + rank});
        }
        open = {};
    }
    add(found);
    return true;
}

/// What is left of placeholders between these marks when all that are known have their values. What is taken away takes all that reads
/// the same along, which for escaped marks, of which only the first character goes, can be more than remnants.
bool MergeTemplate::findRemnants(const Marks& marks) {
    const bool isEscaped = marks.open == kEscapedMarks.open;
    std::vector<Stretch> remnants;
    std::size_t next = 0;  // the first placeholder that does not end in front of the mark
    FoundMark open;
    MarkScan scan{text_, marks, MarkScan::Case::asWritten};
    for (FoundMark mark = scan.next(); mark.kind != MarkKind::none; mark = scan.next()) {
        for (; next < stretches_.size() && stretches_[next].end <= mark.position; ++next)
            if (open.kind == MarkKind::open) return false;  // a value stands within
        if (next < stretches_.size() && stretches_[next].begin <= mark.position) continue;
        if (mark.kind == MarkKind::open) {
            if (open.kind == MarkKind::open) return false;
            open = mark;
            continue;
        }
        if (open.kind == MarkKind::none) continue;
        const std::size_t start = open.position + marks.open.size();
        const std::string_view between = std::string_view{text_}.substr(start, mark.position - start);
        if (isEscaped && between.find('\\') != std::string_view::npos) return false;
        remnants.push_back({open.position, mark.position + (isEscaped ? 1 : marks.close.size())});
        open = {};
    }
    if (isEscaped && open.kind == MarkKind::open && !remnants.empty()) return false;
    add(remnants);
    return true;
}

bool MergeTemplate::holdsStretch(std::size_t begin, std::size_t end) const {
    const auto behind = std::lower_bound(stretches_.begin(), stretches_.end(), begin,
                                         [](const Stretch& stretch, std::size_t place) { return stretch.begin < place; });
    return behind != stretches_.end() && behind->begin < end;
}

/// Keeps the order of the text.
void MergeTemplate::add(const std::vector<Stretch>& stretches) {
    const auto before = static_cast<std::ptrdiff_t>(stretches_.size());
    stretches_.insert(stretches_.end(), stretches.begin(), stretches.end());
    std::inplace_merge(stretches_.begin(), stretches_.begin() + before, stretches_.end(),
                       [](const Stretch& left, const Stretch& right) { return left.begin < right.begin; });
}

void MergeTemplate::numberSlots() {
    const auto byTurn = [](const Slot& left, const Slot& right) { return left.turn < right.turn; };
    std::map<std::int32_t, Slot> slots;
    for (std::size_t i = 0; i < stretches_.size(); ++i) {
        if (stretches_[i].turn == kRemnant) continue;
        Slot& slot = slots.try_emplace(stretches_[i].turn, Slot{stretches_[i].turn, i}).first->second;
        ++slot.count;
    }
    for (const auto& [turn, slot] : slots) slots_.push_back(slot);
    for (Stretch& stretch : stretches_)
        if (stretch.turn != kRemnant)
            stretch.slot = static_cast<std::size_t>(std::lower_bound(slots_.begin(), slots_.end(), Slot{stretch.turn}, byTurn) -
                                                    slots_.begin());
}

/// By the character that stands in front when its turn has come: what is replaced earlier has its value by then.
bool MergeTemplate::needsBlank(const Slot& slot, const std::vector<Replacement>& earlier) const {
    std::size_t begin = stretches_[slot.first].begin;
    for (std::size_t i = slot.first; begin > 0; --i) {
        if (i == 0 || stretches_[i - 1].end != begin) return text_[begin - 1] != ' ';
        const Stretch& before = stretches_[i - 1];
        if (before.turn == kRemnant || before.slot >= earlier.size()) return true;  // a closing mark still
        const Replacement& by = earlier[before.slot];
        if (!by.value->empty()) return by.value->back() != ' ';
        if (by.hasBlank) return false;
        begin = before.begin;
    }
    return false;
}

/// Nothing when a value could make a placeholder.
std::optional<std::string> MergeTemplate::inOneReading(TextKind kind, Values& values) const {
    std::vector<Replacement> replacements;
    replacements.reserve(slots_.size());
    values.reserve(slots_.size());  // so that they keep their places
    std::size_t size = text_.size();
    for (const Slot& slot : slots_) {
        const std::string& value = values.of(slot.turn);
        if (canMakeMarks(value)) return std::nullopt;
        replacements.push_back({&value, kind == TextKind::rich && needsBlank(slot, replacements)});
        size += slot.count * (value.size() + 1);
    }
    std::string result;
    result.reserve(size);
    std::size_t done = 0;
    for (const Stretch& stretch : stretches_) {
        result.append(text_, done, stretch.begin - done);
        done = stretch.end;
        if (stretch.turn == kRemnant) continue;
        const Replacement& by = replacements[stretch.slot];
        if (by.hasBlank) result += ' ';
        result.append(*by.value);
    }
    return result.append(text_, done);
}

/// As the rules have it.
std::string MergeTemplate::oneByOne(TextKind kind, Values& values) const {
    std::string text = text_;
    for (std::size_t i = 0; i < kAllMarks.size(); ++i) {
        const std::int32_t firstTurn = static_cast<std::int32_t>(i) * placeholders_->ranks();
        text = expandOneByOne(std::move(text), kAllMarks[i], *placeholders_, kind,
                              [&](std::int32_t rank) { return values.of(firstTurn + rank); });
    }
    replaceUnfoundMergeFieldsWithBlanks(text);
    return text;
}

std::string MergeTemplate::merged(TextKind kind, const ValueOf& valueOf) const {
    Values values{valueOf, placeholders_->ranks()};
    if (isOneReading_)
        if (auto text = inOneReading(kind, values)) return *std::move(text);
    return oneByOne(kind, values);
}

}  // namespace wmoutlook::merge

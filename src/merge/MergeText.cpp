#include "merge/MergeText.h"

#include "merge/MarkScan.h"
#include "platform/TextSearch.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace wmoutlook::merge {

namespace {

/// A placeholder in the text.
struct Occurrence {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::int32_t rank = 0;
};

struct Occurrences {
    std::vector<Occurrence> all;  ///< in the order of the text
    bool areApart = true;         ///< no replacement can make another placeholder, unless by what it puts in
};

Occurrences findOccurrences(std::string_view text, const Marks& marks, const Placeholders& placeholders, std::int32_t fromRank) {
    Occurrences found;
    std::size_t open = std::string_view::npos;
    bool isInside = false;  // of a placeholder that is still open
    MarkScan scan{text, marks, MarkScan::Case::either};
    for (FoundMark mark = scan.next(); mark.kind != MarkKind::none; mark = scan.next()) {
        if (mark.kind == MarkKind::open) {
            isInside = open != std::string_view::npos;
            open = mark.position;
            continue;
        }
        if (open == std::string_view::npos) continue;
        const std::size_t start = open + marks.open.size();
        const std::int32_t rank = placeholders.find(text.substr(start, mark.position - start), fromRank);
        if (rank != PlaceholderRank::kNone) {
            found.all.push_back({open, mark.position + marks.close.size(), rank});
            if (isInside || endsInsideOfMark(text.substr(0, open), marks)) found.areApart = false;
        }
        open = std::string_view::npos;
    }
    return found;
}

/// Whether the value can become part of a mark, or holds one.
bool canMakeMarks(std::string_view value, const Marks& marks) {
    if (value.empty()) return false;
    return MarkScan{value, marks, MarkScan::Case::either}.next().kind != MarkKind::none || endsInsideOfMark(value, marks);
}

/// The ranks that occur, each once, with their first occurrence, in the order of ranks.
std::vector<const Occurrence*> firstOfEachRank(const std::vector<Occurrence>& all, std::int32_t ranks) {
    std::vector<const Occurrence*> firsts;
    std::vector<bool> isKnown(static_cast<std::size_t>(ranks));
    for (const Occurrence& occurrence : all) {
        const auto rank = static_cast<std::size_t>(occurrence.rank);
        if (isKnown[rank]) continue;
        isKnown[rank] = true;
        firsts.push_back(&occurrence);
    }
    std::sort(firsts.begin(), firsts.end(),
              [](const Occurrence* left, const Occurrence* right) { return left->rank < right->rank; });
    return firsts;
}

/// The values of the ranks of one pass; each is asked for once.
class Values {
public:
    Values(const ValueOf& valueOf, TextKind kind) : valueOf_(valueOf), kind_(kind) {}

    const std::string& of(std::int32_t rank) {
        for (const auto& [known, value] : values_)
            if (known == rank) return value;
        return values_.emplace_back(rank, valueOf_(rank)).second;
    }
    /// So many of them keep their place.
    void reserve(std::size_t count) { values_.reserve(count); }
    [[nodiscard]] TextKind kind() const { return kind_; }

private:
    const ValueOf& valueOf_;
    TextKind kind_;
    std::vector<std::pair<std::int32_t, std::string>> values_;
};

/// Puts in all values at once.
class OneReading {
public:
    OneReading(std::string_view text, std::vector<Occurrence> all, std::int32_t ranks, Values& values)
        : text_(text), all_(std::move(all)), ranks_(ranks), values_(values) {}

    /// Nothing when one by one comes to something else.
    std::optional<std::string> result(const Marks& marks) {
        const auto firsts = firstOfEachRank(all_, ranks_);
        values_.reserve(firsts.size());
        for (const Occurrence* first : firsts) {
            const std::string& value = values_.of(first->rank);
            if (canMakeMarks(value, marks)) return std::nullopt;
            replacements_.push_back({first->rank, needsBlank(*first), &value});
        }
        std::string result;
        result.reserve(text_.size());
        std::size_t done = 0;
        for (const Occurrence& occurrence : all_) {
            const Replacement& by = *find(occurrence.rank);
            result.append(text_.substr(done, occurrence.begin - done)).append(by.hasBlank ? " " : "").append(*by.value);
            done = occurrence.end;
        }
        return result.append(text_.substr(done));
    }

private:
    struct Replacement {
        std::int32_t rank = 0;
        bool hasBlank = false;
        const std::string* value = nullptr;
    };

    [[nodiscard]] const Replacement* find(std::int32_t rank) const {
        const auto known = std::lower_bound(replacements_.begin(), replacements_.end(), rank,
                                            [](const Replacement& row, std::int32_t key) { return row.rank < key; });
        return known != replacements_.end() && known->rank == rank ? &*known : nullptr;
    }

    /// By the character that stands in front when its turn has come: what is replaced before has its value by then.
    [[nodiscard]] bool needsBlank(const Occurrence& occurrence) const {
        if (values_.kind() == TextKind::plain) return false;
        std::size_t begin = occurrence.begin;
        for (const Occurrence* before = &occurrence; begin > 0; begin = before->begin) {
            if (before == all_.data() || (before - 1)->end != begin) return text_[begin - 1] != ' ';
            --before;
            const Replacement* const by = find(before->rank);
            if (by == nullptr) return true;  // a closing mark still
            if (!by->value->empty()) return by->value->back() != ' ';
            if (by->hasBlank) return false;
        }
        return false;
    }

    std::string_view text_;
    std::vector<Occurrence> all_;
    std::int32_t ranks_;
    Values& values_;
    std::vector<Replacement> replacements_;
};

std::int32_t lowestRank(std::string_view text, const Marks& marks, const Placeholders& placeholders, std::int32_t from) {
    std::int32_t lowest = PlaceholderRank::kNone;
    const auto consider = [&](std::int32_t rank) {
        if (lowest == PlaceholderRank::kNone || rank < lowest) lowest = rank;
    };
    for (const Occurrence& occurrence : findOccurrences(text, marks, placeholders, from).all) consider(occurrence.rank);
    for (const std::int32_t rank : placeholders.withMarks()) {
        if (rank < from) continue;
        const std::string whole = std::string{marks.open} + placeholders.textOf(rank) + std::string{marks.close};
        if (findTextually(text, whole)) consider(rank);
    }
    return lowest;
}

/// Puts in one value after the other, as the rules have it.
std::string oneByOne(std::string text, const Marks& marks, const Placeholders& placeholders, Values& values) {
    for (std::int32_t rank = 0;; ++rank) {
        rank = lowestRank(text, marks, placeholders, rank);
        if (rank == PlaceholderRank::kNone) return text;
        const std::string whole = std::string{marks.open} + placeholders.textOf(rank) + std::string{marks.close};
        text = replaceText(text, whole, values.of(rank), values.kind());
    }
}

}  // namespace

std::string replaceText(std::string_view text, std::string_view placeholder, std::string_view value, TextKind kind) {
    if (kind == TextKind::plain) return replaceTextually(text, placeholder, value);
    const auto first = findTextually(text, placeholder);
    if (!first) return std::string{text};
    const bool needsBlank = first->position > 0 && text[first->position - 1] != ' ';
    return replaceTextually(text, placeholder, needsBlank ? " " + std::string{value} : std::string{value});
}

std::string expandPlaceholders(std::string text, const Marks& marks, const Placeholders& placeholders, TextKind kind,
                               const ValueOf& valueOf) {
    Values values{valueOf, kind};
    Occurrences occurrences = findOccurrences(text, marks, placeholders, 0);
    if (!occurrences.areApart || !placeholders.withMarks().empty()) return oneByOne(std::move(text), marks, placeholders, values);
    if (occurrences.all.empty()) return text;
    if (auto result = OneReading{text, std::move(occurrences.all), placeholders.ranks(), values}.result(marks))
        return *std::move(result);
    return oneByOne(std::move(text), marks, placeholders, values);
}

std::string convertFieldName(std::string_view text) {
    return replaceTextually(replaceTextually(text, kPlainMarks.open, kEscapedMarks.open), kPlainMarks.close, kEscapedMarks.close);
}

}  // namespace wmoutlook::merge

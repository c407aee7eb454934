#include "merge/MergeText.h"

#include "merge/MarkScan.h"
#include "platform/TextSearch.h"

namespace wmoutlook::merge {

namespace {

/// The lowest rank, not below `from`, of a placeholder that the text holds; kNone when it holds none.
std::int32_t lowestRank(std::string_view text, const Marks& marks, const Placeholders& placeholders, std::int32_t from) {
    std::int32_t lowest = PlaceholderRank::kNone;
    const auto consider = [&](std::int32_t rank) {
        if (rank != PlaceholderRank::kNone && (lowest == PlaceholderRank::kNone || rank < lowest)) lowest = rank;
    };
    FoundMark open;
    MarkScan scan{text, marks, MarkScan::Case::either};
    for (FoundMark mark = scan.next(); mark.kind != MarkKind::none; mark = scan.next()) {
        const std::size_t start = open.position + marks.open.size();
        if (mark.kind == MarkKind::close && open.kind == MarkKind::open)
            consider(placeholders.find(text.substr(start, mark.position - start), from));
        open = mark;
    }
    for (const std::int32_t rank : placeholders.withMarks())
        if (rank >= from && findTextually(text, placeholders.textBetween(rank, marks))) consider(rank);
    return lowest;
}

}  // namespace

std::string replaceText(std::string_view text, std::string_view placeholder, std::string_view value, TextKind kind) {
    if (kind == TextKind::plain) return replaceTextually(text, placeholder, value);
    const auto first = findTextually(text, placeholder);
    if (!first) return std::string{text};
    const bool needsBlank = first->position > 0 && text[first->position - 1] != ' ';
    return replaceTextually(text, placeholder, needsBlank ? " " + std::string{value} : std::string{value});
}

std::string expandOneByOne(std::string text, const Marks& marks, const Placeholders& placeholders, TextKind kind,
                           const ValueOf& valueOf) {
    for (std::int32_t rank = 0;; ++rank) {
        rank = lowestRank(text, marks, placeholders, rank);
        if (rank == PlaceholderRank::kNone) return text;
        text = replaceText(text, placeholders.textBetween(rank, marks), valueOf(rank), kind);
    }
}

std::string convertFieldName(std::string_view text) {
    return replaceTextually(replaceTextually(text, kPlainMarks.open, kEscapedMarks.open), kPlainMarks.close, kEscapedMarks.close);
}

}  // namespace wmoutlook::merge

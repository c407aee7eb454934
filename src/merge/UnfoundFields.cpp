#include "merge/MarkScan.h"
#include "merge/MergeText.h"
#include "merge/NestedRemnants.h"

#include <optional>
#include <string>

namespace wmoutlook::merge {

namespace {

/// What is left of a placeholder, through the first character of its closing mark.
struct Remnant {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// The first character of a mark, in bytes: a plain mark is one character, an escaped one begins with a backslash.
std::size_t firstCharacter(const Marks& marks) {
    return marks.close[0] == '\\' ? 1 : marks.close.size();
}

/// The text without its remnants in one reading. Nothing when taking away one can touch another: when they stand inside of each
/// other, hold a backslash, or can join to a mark.
std::optional<std::string> withoutRemnants(std::string_view text, const Marks& marks, bool& isAnyRemoved) {
    std::string result;
    std::size_t done = 0;
    std::size_t open = std::string_view::npos;
    MarkScan scan{text, marks, MarkScan::Case::asWritten};
    for (FoundMark mark = scan.next(); mark.kind != MarkKind::none; mark = scan.next()) {
        if (mark.kind == MarkKind::open) {
            if (open != std::string_view::npos) return std::nullopt;
            open = mark.position;
            continue;
        }
        if (open == std::string_view::npos) continue;
        const std::string_view between = text.substr(open + marks.open.size(), mark.position - open - marks.open.size());
        if (between.find('\\') != std::string_view::npos || endsInsideOfMark(text.substr(0, open), marks)) return std::nullopt;
        result.append(text.substr(done, open - done));
        done = mark.position + firstCharacter(marks);
        open = std::string_view::npos;
        isAnyRemoved = true;
    }
    if (open != std::string_view::npos && isAnyRemoved) return std::nullopt;  // what is not closed can hold a remnant
    return result.append(text.substr(done));
}

std::optional<Remnant> firstRemnant(std::string_view text, const Marks& marks, std::size_t from) {
    const std::size_t open = text.find(marks.open, from);
    if (open == std::string_view::npos) return std::nullopt;
    const std::size_t close = text.find(marks.close, open + marks.open.size());
    if (close == std::string_view::npos) return std::nullopt;
    return Remnant{open, close + firstCharacter(marks)};
}

/// One after the other: every occurrence of the first remnant goes, then of the one that is the first by then. Escaped ones end with the
/// first character of their closing mark, so that what stands between marks can hold one as well.
bool removeOneByOne(std::string& text, const Marks& marks) {
    bool isAnyRemoved = false;
    std::size_t from = 0;
    while (const auto remnant = firstRemnant(text, marks, from)) {
        const std::string gone = text.substr(remnant->begin, remnant->end - remnant->begin);
        std::string rest = text.substr(0, remnant->begin);
        std::size_t done = remnant->begin;
        for (std::size_t at = done; at != std::string::npos; at = text.find(gone, done)) {
            rest.append(text, done, at - done);
            done = at + gone.size();
        }
        text = rest.append(text, done);
        from = remnant->begin - std::min(remnant->begin, marks.open.size() - 1);  // what is in front holds no opening mark
        isAnyRemoved = true;
    }
    return isAnyRemoved;
}

/// Whether taking something away could join bytes to a mark: only in a text that is no whole UTF-8.
bool endsInsideOfAnyMark(std::string_view text) {
    for (std::size_t at = text.find(kPlainMarks.open[0]); at != std::string_view::npos;
         at = text.find(kPlainMarks.open[0], at + 1))
        if (at + 1 == text.size() || (static_cast<unsigned char>(text[at + 1]) & 0xC0U) != 0x80) return true;
    return false;
}

bool removeRemnants(std::string& text, const Marks& marks) {
    if (text.find(marks.open) == std::string::npos) return false;
    bool isAnyRemoved = false;
    if (auto result = withoutRemnants(text, marks, isAnyRemoved)) {
        if (isAnyRemoved) text = *std::move(result);
        return isAnyRemoved;
    }
    if (marks.open != kPlainMarks.open || endsInsideOfAnyMark(text)) return removeOneByOne(text, marks);
    const std::size_t before = text.size();
    text = NestedRemnants{text}.removeAll();
    return text.size() < before;
}

}  // namespace

void replaceUnfoundMergeFieldsWithBlanks(std::string& text) {
    for (const Marks& marks : kAllMarks)
        if (removeRemnants(text, marks)) return;
}

}  // namespace wmoutlook::merge

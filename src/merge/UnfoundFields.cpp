#include "merge/EscapedRemnants.h"
#include "merge/MergeText.h"
#include "merge/NestedRemnants.h"

#include <algorithm>
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

std::optional<Remnant> firstRemnant(std::string_view text, const Marks& marks, std::size_t from) {
    const std::size_t open = text.find(marks.open, from);
    if (open == std::string_view::npos) return std::nullopt;
    const std::size_t close = text.find(marks.close, open + marks.open.size());
    if (close == std::string_view::npos) return std::nullopt;
    return Remnant{open, close + firstCharacter(marks)};
}

/// One after the other: every occurrence of the first remnant goes, then of the one that is the first by then. Escaped ones end with the
/// first character of their closing mark, so that what stands between marks can hold one as well.
void removeOneByOne(std::string& text, const Marks& marks) {
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
    }
}

/// Whether taking something away could join bytes to a mark: only in a text that is no whole UTF-8.
bool endsInsideOfAnyMark(std::string_view text) {
    for (std::size_t at = text.find(kPlainMarks.open[0]); at != std::string_view::npos;
         at = text.find(kPlainMarks.open[0], at + 1))
        if (at + 1 == text.size() || (static_cast<unsigned char>(text[at + 1]) & 0xC0U) != 0x80) return true;
    return false;
}

/// In one reading where that comes to the same.
std::optional<std::string> withoutRemnants(std::string_view text, const Marks& marks) {
    if (marks.open == kEscapedMarks.open) return EscapedRemnants{text}.removeAll();
    if (endsInsideOfAnyMark(text)) return std::nullopt;
    return NestedRemnants{text}.removeAll();
}

bool removeRemnants(std::string& text, const Marks& marks) {
    const std::size_t open = text.find(marks.open);
    if (open == std::string::npos || text.find(marks.close, open + marks.open.size()) == std::string::npos) return false;
    if (auto left = withoutRemnants(text, marks))
        text = *std::move(left);
    else
        removeOneByOne(text, marks);
    return true;
}

}  // namespace

void replaceUnfoundMergeFieldsWithBlanks(std::string& text) {
    for (const Marks& marks : kAllMarks)
        if (removeRemnants(text, marks)) return;
}

}  // namespace wmoutlook::merge

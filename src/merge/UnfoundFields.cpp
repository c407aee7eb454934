#include "merge/EscapedRemnants.h"
#include "merge/MergeText.h"
#include "merge/NestedRemnants.h"

#include <string>

namespace wmoutlook::merge {

namespace {

bool holdsRemnant(std::string_view text, const Marks& marks) {
    const std::size_t open = text.find(marks.open);
    return open != std::string_view::npos && text.find(marks.close, open + marks.open.size()) != std::string_view::npos;
}

}  // namespace

void replaceUnfoundMergeFieldsWithBlanks(std::string& text) {
    if (holdsRemnant(text, kPlainMarks))
        text = NestedRemnants{text}.removeAll();
    else if (holdsRemnant(text, kEscapedMarks))
        text = EscapedRemnants{text}.removeAll();
}

}  // namespace wmoutlook::merge

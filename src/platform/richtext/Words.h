#pragma once

#include <cstdint>
#include <string_view>

namespace wmoutlook::RichText {

/// What a control word does to the plain text.
enum class WordAction : std::uint8_t {
    none,       ///< the looks of the text, or a word that is not known
    character,  ///< stands for the character `value`
    paragraph,  ///< ends a paragraph
    lineBreak,  ///< ends a line, page or section
    cellEnd,
    rowEnd,
    unicode,   ///< \u: the character of that number, a fallback for older readers follows
    fallback,  ///< \uc: how long those fallbacks are, to the end of the group
    hidden,    ///< \v: hidden text begins or, with 0, ends
    plain,     ///< \plain: takes back what was said of the characters
    codePage,  ///< the document's code page is `value`, where that is 0 the number of the word
    defaultFont,
    font,
    fontTable,  ///< the group tells the character set of each font
    skipGroup,  ///< what follows in the group is no text of the document
};

struct Word {
    std::string_view name{};
    WordAction action = WordAction::none;
    std::int32_t value = 0;
};

/// The row of a word, letter by letter as given; one without action when it has none.
[[nodiscard]] const Word& findWord(std::string_view name);

}  // namespace wmoutlook::RichText

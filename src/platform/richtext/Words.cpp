#include "platform/richtext/Words.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace wmoutlook::RichText {

namespace {

using enum WordAction;

constexpr Word kWords[] = {
    {"u", unicode},
    {"uc", fallback},
    {"v", hidden},
    {"plain", plain},
    {"f", font},
    {"deff", defaultFont},
    {"ansicpg", codePage},
    {"ansi", codePage, 1252},
    {"mac", codePage, 10000},
    {"pc", codePage, 437},
    {"pca", codePage, 850},

    {"par", paragraph},
    {"line", lineBreak},
    {"page", lineBreak},
    {"sect", lineBreak},
    {"column", lineBreak},
    {"cell", cellEnd},
    {"nestcell", cellEnd},
    {"row", rowEnd},
    {"nestrow", rowEnd},

    {"tab", character, '\t'},
    {"emspace", character, 0x2003},
    {"enspace", character, 0x2002},
    {"qmspace", character, 0x2005},
    {"zwj", character, 0x200D},
    {"zwnj", character, 0x200C},
    {"ltrmark", character, 0x200E},
    {"rtlmark", character, 0x200F},
    {"emdash", character, 0x2014},
    {"endash", character, 0x2013},
    {"lquote", character, 0x2018},
    {"rquote", character, 0x2019},
    {"ldblquote", character, 0x201C},
    {"rdblquote", character, 0x201D},
    {"bullet", character, 0x2022},

    {"fonttbl", fontTable},

    // Tables and properties of the document. Most newer ones are marked with \* and need no row.
    {"background", skipGroup},
    {"colortbl", skipGroup},
    {"docvar", skipGroup},
    {"filetbl", skipGroup},
    {"generator", skipGroup},
    {"info", skipGroup},
    {"listoverridetable", skipGroup},
    {"listtable", skipGroup},
    {"nextfile", skipGroup},
    {"private", skipGroup},
    {"revtbl", skipGroup},
    {"stylesheet", skipGroup},
    {"template", skipGroup},

    // Above, below and beside the text.
    {"annotation", skipGroup},
    {"atnauthor", skipGroup},
    {"atnid", skipGroup},
    {"footer", skipGroup},
    {"footerf", skipGroup},
    {"footerl", skipGroup},
    {"footerr", skipGroup},
    {"footnote", skipGroup},
    {"ftncn", skipGroup},
    {"ftnsep", skipGroup},
    {"ftnsepc", skipGroup},
    {"aftncn", skipGroup},
    {"aftnsep", skipGroup},
    {"aftnsepc", skipGroup},
    {"header", skipGroup},
    {"headerf", skipGroup},
    {"headerl", skipGroup},
    {"headerr", skipGroup},

    // The numbers and bullets of lists, which are no text to a rich-text control either.
    {"listtext", skipGroup},
    {"pn", skipGroup},
    {"pntext", skipGroup},
    {"pntxta", skipGroup},
    {"pntxtb", skipGroup},

    // Pictures, drawings and the data of objects; what an object shows is text.
    {"do", skipGroup},
    {"nonshppict", skipGroup},
    {"objalias", skipGroup},
    {"objclass", skipGroup},
    {"objdata", skipGroup},
    {"objname", skipGroup},
    {"objsect", skipGroup},
    {"pict", skipGroup},
    {"shpinst", skipGroup},
    {"sp", skipGroup},

    // Marks and instructions; what a field shows is text.
    {"bkmkend", skipGroup},
    {"bkmkstart", skipGroup},
    {"datafield", skipGroup},
    {"fldinst", skipGroup},
    {"fldtype", skipGroup},
    {"formfield", skipGroup},
    {"rxe", skipGroup},
    {"tc", skipGroup},
    {"tcn", skipGroup},
    {"txe", skipGroup},
    {"xe", skipGroup},
};

constexpr std::size_t kSlots = 512;
constexpr std::uint8_t kFree = 0xFF;
static_assert(std::size(kWords) < kFree);

constexpr std::size_t slotOf(std::string_view name) {
    const auto at = [&](std::size_t i) { return static_cast<std::size_t>(static_cast<unsigned char>(name[i])); };
    return (name.size() * 67 + at(0) * 29 + at(name.size() / 2) * 113 + at(name.size() - 1) * 7) % kSlots;
}

/// For each slot the row that begins the search there. Nearly every word of a document is looked up in vain, and each costs
/// one look at a free slot; hence a table four times as large as need be.
constexpr std::array<std::uint8_t, kSlots> kRowOfSlot = [] {
    std::array<std::uint8_t, kSlots> rows{};
    rows.fill(kFree);
    for (std::size_t row = 0; row < std::size(kWords); ++row) {
        std::size_t slot = slotOf(kWords[row].name);
        while (rows[slot] != kFree) slot = (slot + 1) % kSlots;
        rows[slot] = static_cast<std::uint8_t>(row);
    }
    return rows;
}();

constexpr Word kNoWord{};

}  // namespace

const Word& findWord(std::string_view name) {
    if (name.empty()) return kNoWord;
    for (std::size_t slot = slotOf(name); kRowOfSlot[slot] != kFree; slot = (slot + 1) % kSlots) {
        const Word& word = kWords[kRowOfSlot[slot]];
        if (word.name == name) return word;
    }
    return kNoWord;
}

}  // namespace wmoutlook::RichText

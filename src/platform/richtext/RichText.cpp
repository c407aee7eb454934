#include "platform/richtext/RichText.h"

#include "platform/Text.h"
#include "platform/richtext/Reader.h"

#include <algorithm>
#include <cstddef>

namespace wmoutlook::RichText {

namespace {

/// A text without the blanks, line ends and byte order mark that may stand before the first brace.
std::string_view fromFirstBrace(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return text.substr(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
}

struct Range {
    char32_t first = 0;
    char32_t last = 0;
};

constexpr Range kInvisible[] = {
    {0x00, 0x20},      // control characters and the blank
    {0x7F, 0xA0},      // more of them and the blank that does not break
    {0xAD, 0xAD},      // optional hyphen
    {0x1680, 0x1680},  // Ogham space
    {0x2000, 0x200F},  // spaces, joiners, marks of direction
    {0x2028, 0x202F},  // line and paragraph separators, embeddings, narrow space
    {0x205F, 0x2064},  // mathematical space, joiners
    {0x3000, 0x3000},  // ideographic space
    {0xFEFF, 0xFEFF},  // byte order mark
};

/// The number of a character of several bytes.
char32_t decoded(std::string_view character) {
    char32_t c = static_cast<unsigned char>(character[0]) & (0xFFu >> (character.size() + 1));
    for (const char tail : character.substr(1)) c = (c << 6) | (static_cast<unsigned char>(tail) & 0x3Fu);
    return c;
}

/// A byte that is no UTF-8 is damage that somebody ought to see.
bool hasVisibleCharacter(std::string_view text) {
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text[0]);
        const std::string_view first = byte < 0x80 ? text.substr(0, 1) : firstCharacters(text, 1);
        if (byte >= 0x80 && first.size() == 1) return true;
        const char32_t c = byte < 0x80 ? byte : decoded(first);
        const auto isHere = [&](const Range& range) { return c >= range.first && c <= range.last; };
        if (std::ranges::none_of(kInvisible, isHere)) return true;
        text.remove_prefix(first.size());
    }
    return false;
}

}  // namespace

bool isRichText(std::string_view text) {
    return fromFirstBrace(text).starts_with("{\\rtf");
}

std::string plainText(std::string_view text) {
    if (!isRichText(text)) return std::string{text};
    Reader reader{fromFirstBrace(text)};
    while (reader.readOn()) {}
    return reader.takeText();
}

bool isEmpty(std::string_view text) {
    if (!isRichText(text)) return !hasVisibleCharacter(text);
    Reader reader{fromFirstBrace(text)};
    for (bool isMore = true; isMore;) {
        isMore = reader.readOn();
        if (hasVisibleCharacter(reader.text())) return false;
        reader.dropText();
    }
    return true;
}

}  // namespace wmoutlook::RichText

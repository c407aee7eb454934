#include "apps/tallowsync/PlainText.h"

#include "platform/Text.h"

#include <algorithm>

namespace wmoutlook {

namespace {

enum class CharacterKind { ordinary, control, noUtf8 };

unsigned char byteOf(char c) {
    return static_cast<unsigned char>(c);
}

/// Of one character as firstCharacters cuts it: a byte that is no UTF-8 stands alone.
CharacterKind kindOf(std::string_view character) {
    const unsigned char first = byteOf(character[0]);
    if (first < 0x20 || first == 0x7F) return CharacterKind::control;
    if (character.size() == 1 && first >= 0x80) return CharacterKind::noUtf8;
    // U+0080 to U+009F: some terminals obey them as they do ESC
    const bool isSecondSet = character.size() == 2 && first == 0xC2 && byteOf(character[1]) < 0xA0;
    return isSecondSet ? CharacterKind::control : CharacterKind::ordinary;
}

template <class Visit>
void forEachCharacter(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const std::string_view character = firstCharacters(text, 1);
        visit(character, kindOf(character));
        text.remove_prefix(character.size());
    }
}

void appendEscaped(std::string& line, std::string_view character) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const unsigned char code = byteOf(character.back());  // the code point too, below U+00A0
    line.append("\\x").append(1, kDigits[code / 16]).append(1, kDigits[code % 16]);
}

}  // namespace

std::string faultOfName(std::string_view name) {
    bool hasControl = false;
    forEachCharacter(name,
                     [&](std::string_view, CharacterKind kind) { hasControl = hasControl || kind == CharacterKind::control; });
    if (!isUtf8(name)) return "is no valid UTF-8";
    if (hasControl) return "holds a control character";
    if (withoutWhiteSpaceAround(name).empty()) return "is empty";
    if (const std::size_t length = characterCount(name); length > kLongestName)
        return "has " + std::to_string(length) + " characters, of which " + std::to_string(kLongestName) + " are the most";
    return {};
}

bool isUtf8(std::string_view text) {
    bool isIt = true;
    forEachCharacter(text, [&](std::string_view, CharacterKind kind) { isIt = isIt && kind != CharacterKind::noUtf8; });
    return isIt;
}

std::string onOneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    forEachCharacter(text, [&](std::string_view character, CharacterKind kind) {
        kind == CharacterKind::ordinary ? static_cast<void>(line.append(character)) : appendEscaped(line, character);
    });
    return line;
}

std::string inQuotes(std::string_view text) {
    const std::string_view shown = firstCharacters(text, kLongestName);
    return '"' + onOneLine(shown) + (shown.size() < text.size() ? "..." : "") + '"';
}

}  // namespace wmoutlook

#include "adapters/headless/AnsiText.h"

#include "platform/Text.h"
#include "platform/richtext/CodePages.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace wmoutlook {

namespace {

std::uint8_t byteOf(char c) {
    return static_cast<std::uint8_t>(c);
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return byteOf(c) < 0x80; });
}

/// Each character of the page as UTF-8, of three bytes at most.
const std::array<std::string, 256>& characters() {
    static const auto table = [] {
        std::array<std::string, 256> all;
        for (std::size_t byte = 0; byte < all.size(); ++byte) {
            const auto code =
                static_cast<std::uint32_t>(RichText::characterOf(RichText::CodePage::western, static_cast<std::uint8_t>(byte)));
            const auto tail = [&](unsigned shift) { return static_cast<char>(0x80U | (code >> shift & 0x3FU)); };
            if (code < 0x80)
                all[byte] = {static_cast<char>(code)};
            else if (code < 0x800)
                all[byte] = {static_cast<char>(0xC0U | code >> 6U), tail(0)};
            else
                all[byte] = {static_cast<char>(0xE0U | code >> 12U), tail(6), tail(0)};
        }
        return all;
    }();
    return table;
}

char ansiCharacter(std::string_view character) {
    const auto& all = characters();
    const auto* const found = std::find(all.begin(), all.end(), character);
    return found == all.end() ? '?' : static_cast<char>(found - all.begin());
}

constexpr std::uint8_t lowerByte(std::uint8_t byte) {
    const bool isLatinOne = byte >= 0xC0 && byte <= 0xDE && byte != 0xD7;
    if ((byte >= 'A' && byte <= 'Z') || isLatinOne) return static_cast<std::uint8_t>(byte + 0x20);
    if (byte == 0x8A || byte == 0x8C || byte == 0x8E) return static_cast<std::uint8_t>(byte + 0x10);  // Š Œ Ž
    return byte == 0x9F ? 0xFF : byte;                                                                // Ÿ
}

constexpr auto kLower = [] {
    std::array<std::uint8_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) table[byte] = lowerByte(static_cast<std::uint8_t>(byte));
    return table;
}();

}  // namespace

std::string utf8FromAnsi(std::string_view ansi) {
    if (isAscii(ansi)) return std::string{ansi};
    std::string utf8;
    utf8.reserve(ansi.size() * 2);
    for (const char c : ansi) utf8 += characters()[byteOf(c)];
    return utf8;
}

std::string ansiFromUtf8(std::string_view utf8) {
    if (isAscii(utf8)) return std::string{utf8};
    std::string ansi;
    ansi.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::string_view character = firstCharacters(utf8, 1);
        ansi += byteOf(character[0]) < 0x80 ? character[0] : ansiCharacter(character);
        utf8.remove_prefix(character.size());
    }
    return ansi;
}

bool equalsInAnsi(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char l, char r) { return kLower[byteOf(l)] == kLower[byteOf(r)]; });
}

}  // namespace wmoutlook

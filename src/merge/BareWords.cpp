#include "merge/BareWords.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace wmoutlook::merge {

namespace {

constexpr std::size_t kBlock = 16;
constexpr unsigned char kToLower = 0x20;

/// A byte inside of a word with its neighbours, by which the word shows itself, and how far in front the word begins. The bytes are
/// such that ordinary text has few of them together.
struct Sign {
    unsigned char before, byte, behind;  ///< in lower case; 0: any
    std::size_t start;
};

constexpr std::array kSigns{
    Sign{0, '<', '<', 0},   Sign{0, '>', '>', 0},  // <<, >>
    Sign{'c', 'k', 'e', 3},                        // Docket
    Sign{'g', ' ', 'd', 4},                        // Long Date
    Sign{'m', ' ', 'd', 6},                        // Medium Date
    Sign{'t', ' ', 'd', 5},                        // Short Date
    Sign{'t', ' ', 'f', 7},                        // Contact Full Name
};

constexpr unsigned char lowered(unsigned char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c | kToLower) : c;
}

/// Bytes that are looked at together; the compilers of this project have a type for them.
using Block = unsigned char __attribute__((vector_size(kBlock)));

Block blockAt(const char* bytes) {
    Block block;
    std::memcpy(&block, bytes, kBlock);
    return block;
}

/// Whether a block, with a byte in front of it and one behind it, may hold a sign. What is no letter counts as one here and there, which
/// is found out by a second look.
bool mayHoldSign(const char* bytes) {
    const Block block = blockAt(bytes);
    const Block before = blockAt(bytes - 1) | kToLower;
    const Block behind = blockAt(bytes + 1) | kToLower;
    const auto isMark = (block == '<') | (block == '>');
    const auto isDocket = ((block | kToLower) == 'k') & (behind == 'e') & (before == 'c');
    const auto isEnd = (before == 'g') | (before == 'm') | (before == 't');
    const auto isWord = (block == ' ') & isEnd & ((behind == 'd') | (behind == 'f'));
    const auto any = isMark | isDocket | isWord;
    std::array<std::uint64_t, kBlock / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), &any, kBlock);
    return (words[0] | words[1]) != 0;
}

bool isSignByte(char c) {
    return c == ' ' || c == '<' || c == '>' || c == 'k' || c == 'K';
}

void lookAt(std::string_view text, std::size_t at, const std::function<void(std::size_t place)>& look) {
    const auto byteAt = [&](std::size_t i) { return i < text.size() ? lowered(static_cast<unsigned char>(text[i])) : '\0'; };
    for (const Sign& sign : kSigns) {
        if (at < sign.start || byteAt(at) != sign.byte || byteAt(at + 1) != sign.behind) continue;
        if (sign.before == 0 || byteAt(at - 1) == sign.before) look(at - sign.start);
    }
}

}  // namespace

void eachPlaceOfBareWord(std::string_view text, const std::function<void(std::size_t place)>& look) {
    std::size_t at = 0;
    if (!text.empty()) lookAt(text, at++, look);
    for (; at + kBlock < text.size(); at += kBlock) {
        if (!mayHoldSign(text.data() + at)) continue;
        for (std::size_t i = at; i < at + kBlock; ++i)
            if (isSignByte(text[i])) lookAt(text, i, look);
    }
    for (; at < text.size(); ++at)
        if (isSignByte(text[at])) lookAt(text, at, look);
}

}  // namespace wmoutlook::merge

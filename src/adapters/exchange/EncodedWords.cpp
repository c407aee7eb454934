#include "adapters/exchange/EncodedWords.h"

#include "platform/Text.h"

#include <algorithm>
#include <optional>

namespace wmoutlook::exchange {

namespace {

constexpr std::size_t kLongestLine = 76;
constexpr std::size_t kLongestPiece = 60;                 ///< that stands on a line with the field's name
constexpr std::size_t kLongestWord = kLongestPiece - 12;  ///< between what marks it as an encoded one

/// What looks like an encoded word is encoded too: it would be read as what it stands for, line breaks included.
bool isPlain(std::string_view text) {
    return text.find("=?") == std::string_view::npos && !text.starts_with(' ') && !text.ends_with(' ') &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F'; });
}

/// Broken in front of blanks, which stay; nothing when a piece between them is too long for a line.
std::optional<std::string> folded(std::string_view text) {
    std::string lines;
    std::size_t column = kLongestLine - kLongestPiece;
    while (!text.empty()) {
        const std::size_t word = std::min(text.find_first_not_of(' '), text.size());
        const std::string_view piece = text.substr(0, text.find(' ', word));
        if (piece.size() > kLongestPiece) return std::nullopt;
        if (column + piece.size() > kLongestLine) {
            lines += '\n';
            column = 0;
        }
        lines += piece;
        column += piece.size();
        text.remove_prefix(piece.size());
    }
    return lines;
}

/// Of one character. What is left as it is may stand in a name as well (RFC 2047, 5).
std::string quotedPrintable(std::string_view character) {
    constexpr std::string_view kSafe = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789!*+-/";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    if (character == " ") return "_";
    if (kSafe.find(character) != std::string_view::npos) return std::string{character};
    std::string encoded;
    for (const char c : character) {
        const auto byte = static_cast<unsigned char>(c);
        encoded.append("=").append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
    }
    return encoded;
}

/// Cut between characters; readers join the words again.
std::string encodedWords(std::string_view text) {
    std::string words;
    std::string word;
    const auto finish = [&] {
        words.append(words.empty() ? "" : "\n ").append("=?UTF-8?Q?").append(word).append("?=");
        word.clear();
    };
    while (!text.empty()) {
        const std::string_view character = firstCharacters(text, 1);
        const std::string encoded = quotedPrintable(character);
        if (word.size() + encoded.size() > kLongestWord) finish();
        word += encoded;
        text.remove_prefix(character.size());
    }
    finish();
    return words;
}

}  // namespace

std::string encodedText(std::string_view text) {
    const auto lines = isPlain(text) ? folded(text) : std::nullopt;
    return lines ? *lines : encodedWords(text);
}

std::string encodedPhrase(std::string_view name) {
    constexpr std::string_view kAtoms = " !#$%&'*+-/0123456789=?ABCDEFGHIJKLMNOPQRSTUVWXYZ^_`abcdefghijklmnopqrstuvwxyz{|}~";
    const std::string quoted = '"' + replaceAll(replaceAll(std::string{name}, "\\", "\\\\"), "\"", "\\\"") + '"';
    if (!isPlain(name) || quoted.size() > kLongestPiece) return encodedWords(name);
    const bool isAtoms = name.find_first_not_of(kAtoms) == std::string_view::npos;
    const bool isOneByOne = name.find("  ") == std::string_view::npos;  // readers make one blank of several
    return !name.empty() && isAtoms && isOneByOne ? std::string{name} : quoted;
}

}  // namespace wmoutlook::exchange

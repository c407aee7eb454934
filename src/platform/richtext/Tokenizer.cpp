#include "platform/richtext/Tokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace wmoutlook::RichText {

namespace {

enum class ByteKind : std::uint8_t { text, ignored, brace, backslash };

constexpr std::size_t indexOf(char c) {
    return static_cast<unsigned char>(c);
}

constexpr std::array<ByteKind, 256> kByteKinds = [] {
    std::array<ByteKind, 256> kinds{};
    for (const char c : {'\r', '\n', '\0'}) kinds[indexOf(c)] = ByteKind::ignored;
    for (const char c : {'{', '}'}) kinds[indexOf(c)] = ByteKind::brace;
    kinds[indexOf('\\')] = ByteKind::backslash;
    return kinds;
}();

constexpr ByteKind kindOf(char c) {
    return kByteKinds[indexOf(c)];
}

constexpr bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The values of the hexadecimal digits, -1 for any other character.
constexpr std::array<int, 256> kHexValues = [] {
    std::array<int, 256> values{};
    values.fill(-1);
    for (int i = 0; i < 16; ++i) {
        values[indexOf("0123456789abcdef"[i])] = i;
        values[indexOf("0123456789ABCDEF"[i])] = i;
    }
    return values;
}();

}  // namespace

Token Tokenizer::next() {
    if (at_ == text_.size()) return {};
    switch (kindOf(text_[at_])) {
        case ByteKind::brace: return take(text_[at_] == '{' ? TokenKind::groupStart : TokenKind::groupEnd, 1);
        case ByteKind::backslash: return takeControl();
        case ByteKind::ignored: return takeRun(TokenKind::ignored);
        case ByteKind::text: break;
    }
    return takeRun(TokenKind::text);
}

Token Tokenizer::takeRun(TokenKind kind) {
    const ByteKind wanted = kindOf(text_[at_]);
    std::size_t end = at_ + 1;
    while (end < text_.size() && kindOf(text_[end]) == wanted) ++end;
    Token token = take(kind, end - at_);
    token.name = token.source;
    return token;
}

Token Tokenizer::takeControl() {
    if (isLetter(peek(1))) return takeWord();
    if (peek(1) == '\'') return takeByte();
    return takeSymbol();
}

Token Tokenizer::takeSymbol() {
    Token token = take(TokenKind::symbol, 2);
    token.name = token.source.substr(1);
    return token;
}

Token Tokenizer::takeByte() {
    const int high = kHexValues[indexOf(peek(2))];
    const int low = kHexValues[indexOf(peek(3))];
    if (high < 0 || low < 0) return takeSymbol();
    Token token = take(TokenKind::byte, 4);
    token.number = high * 16 + low;
    return token;
}

Token Tokenizer::takeWord() {
    const std::size_t start = at_ + 1;
    std::size_t end = start;
    while (end < text_.size() && isLetter(text_[end])) ++end;
    const std::string_view name = text_.substr(start, end - start);
    const std::optional<std::int32_t> number = readNumber(end);
    if (end < text_.size() && text_[end] == ' ') ++end;  // this one blank ends the word and is no text

    Token token = take(TokenKind::word, end - at_);
    token.name = name;
    token.number = number;
    if (name == "bin" && number.value_or(0) > 0) {
        token.kind = TokenKind::binary;
        token.name = text_.substr(at_, static_cast<std::size_t>(*number));
        at_ += token.name.size();
        token.source = text_.substr(start - 1, at_ - start + 1);
    }
    return token;
}

/// The number that stands at `end`, which is moved behind it. A minus sign without a digit is text.
std::optional<std::int32_t> Tokenizer::readNumber(std::size_t& end) const {
    const bool isNegative = end < text_.size() && text_[end] == '-';
    const std::size_t first = end + (isNegative ? 1 : 0);
    if (first >= text_.size() || !isDigit(text_[first])) return std::nullopt;
    constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    for (end = first; end < text_.size() && isDigit(text_[end]); ++end)
        number = std::min(number * 10 + (text_[end] - '0'), kLargest);
    return static_cast<std::int32_t>(isNegative ? -number : number);
}

}  // namespace wmoutlook::RichText

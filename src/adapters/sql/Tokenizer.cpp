#include "adapters/sql/Tokenizer.h"

#include "adapters/sql/Faults.h"

namespace wmoutlook::sql {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isWordStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace

bool equalsAscii(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i)
        if (upper(left[i]) != upper(right[i])) return false;
    return true;
}

bool Token::isWord(std::string_view upperCase) const {
    return kind == TokenKind::word && equalsAscii(written, upperCase);
}

Token Tokenizer::next() {
    std::size_t blanks = 0;
    while (blanks < text_.size() && isBlank(text_[blanks])) ++blanks;
    text_.remove_prefix(blanks);
    const bool isSpaced = blanks > 0;
    if (text_.empty()) return {TokenKind::end, text_, isSpaced};

    const char first = text_.front();
    if (isWordStart(first)) return take(TokenKind::word, lengthOfWord(), isSpaced);
    if (isDigit(first) || (first == '.' && text_.size() > 1 && isDigit(text_[1])))
        return take(TokenKind::number, lengthOfNumber(), isSpaced);
    switch (first) {
        case '\'':
        case '"': return take(TokenKind::text, lengthOfMarked(first, true), isSpaced);
        case '#': return take(TokenKind::date, lengthOfMarked('#', false), isSpaced);
        case '[': return take(TokenKind::name, lengthOfMarked(']', false), isSpaced);
        case '?': {
            std::size_t length = 1;
            while (length < text_.size() && isDigit(text_[length])) ++length;
            return take(TokenKind::parameter, length, isSpaced);
        }
        default: return take(TokenKind::symbol, lengthOfSymbol(), isSpaced);
    }
}

Token Tokenizer::take(TokenKind kind, std::size_t length, bool isSpaced) {
    const Token token{kind, text_.substr(0, length), isSpaced};
    text_.remove_prefix(length);
    return token;
}

std::size_t Tokenizer::lengthOfWord() const {
    std::size_t length = 1;
    while (length < text_.size() && (isWordStart(text_[length]) || isDigit(text_[length]))) ++length;
    return length;
}

std::size_t Tokenizer::lengthOfNumber() const {
    std::size_t length = 0;
    const auto skipDigits = [&] {
        while (length < text_.size() && isDigit(text_[length])) ++length;
    };
    skipDigits();
    if (length < text_.size() && text_[length] == '.') ++length;
    skipDigits();
    if (length < text_.size() && upper(text_[length]) == 'E') {
        std::size_t exponent = length + 1;
        if (exponent < text_.size() && (text_[exponent] == '+' || text_[exponent] == '-')) ++exponent;
        if (exponent < text_.size() && isDigit(text_[exponent])) {
            length = exponent;
            skipDigits();
        }
    }
    if (length < text_.size() && isWordStart(text_[length])) fail(Fault::syntax, "A number in the SQL text runs into a word");
    return length;
}

std::size_t Tokenizer::lengthOfMarked(char mark, bool isDoubledInside) const {
    std::size_t from = 1;
    for (;;) {
        const std::size_t end = text_.find(mark, from);
        if (end == std::string_view::npos) fail(Fault::syntax, "A literal or name in the SQL text has no end");
        const bool isDoubled = isDoubledInside && end + 1 < text_.size() && text_[end + 1] == mark;
        if (!isDoubled) return end + 1;
        from = end + 2;
    }
}

std::size_t Tokenizer::lengthOfSymbol() const {
    const std::string_view two = text_.substr(0, 2);
    if (two == "<>" || two == "<=" || two == ">=") return 2;
    // The engine would take these for comments, and with them what stands behind.
    if (two == "--" || two == "/*") fail(Fault::refused, "The SQL text holds a comment");
    constexpr std::string_view kSymbols = "=<>()*,.+-/&;";
    if (kSymbols.find(text_.front()) == std::string_view::npos)
        fail(Fault::syntax, "The SQL text holds a character that has no place in it");
    return 1;
}

}  // namespace wmoutlook::sql

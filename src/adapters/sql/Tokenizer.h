#pragma once

#include <cstdint>
#include <string_view>

namespace wmoutlook::sql {

enum class TokenKind : std::uint8_t {
    end,
    word,       ///< a keyword, a function or a name
    name,       ///< [a name in brackets]
    number,     ///< without a sign
    text,       ///< 'a text' or "a text", the mark inside doubled
    date,       ///< #a date#
    parameter,  ///< ? or ?n: where a literal was
    symbol
};

struct Token {
    TokenKind kind = TokenKind::end;
    std::string_view written;  ///< as it stands, marks included
    bool isSpaced = false;     ///< white space stands in front

    /// What stands between the marks of a name, a text or a date.
    [[nodiscard]] std::string_view content() const { return written.substr(1, written.size() - 2); }
    [[nodiscard]] bool is(std::string_view symbol) const { return kind == TokenKind::symbol && written == symbol; }
    /// Compares a word without regard to case; `upper` stands in upper case.
    [[nodiscard]] bool isWord(std::string_view upper) const;
};

/// Cuts a text of the desktop dialect into tokens, in one pass and without copies. Throws DatabaseError for what has no place
/// in the dialect: comments, control characters, a literal without its end.
class Tokenizer {
public:
    explicit Tokenizer(std::string_view text) : text_(text) {}
    Token next();

private:
    Token take(TokenKind kind, std::size_t length, bool isSpaced);
    [[nodiscard]] std::size_t lengthOfWord() const;
    [[nodiscard]] std::size_t lengthOfNumber() const;
    [[nodiscard]] std::size_t lengthOfMarked(char mark, bool isDoubledInside) const;
    [[nodiscard]] std::size_t lengthOfSymbol() const;

    std::string_view text_;  ///< what is left
};

[[nodiscard]] bool equalsAscii(std::string_view left, std::string_view right);  ///< without regard to the case of a to z

}  // namespace wmoutlook::sql

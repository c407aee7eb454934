#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace wmoutlook::RichText {

enum class TokenKind : std::uint8_t {
    groupStart,
    groupEnd,
    word,     ///< \par, \fs20: `name` without the backslash, `number` when there is one
    symbol,   ///< \~, \*, \\: `name` is the one character, nothing when the text ends behind the backslash
    byte,     ///< \'e9: `number` is the byte
    binary,   ///< \bin: `name` are the bytes, those that are there
    text,     ///< `name` is the text, ASCII or not, as it stands
    ignored,  ///< line ends and zero bytes, which mean nothing where they stand
    end,
};

struct Token {
    TokenKind kind = TokenKind::end;
    std::string_view source{};  ///< the whole of it; all sources one after the other are the text that was read
    std::string_view name{};
    std::optional<std::int32_t> number{};
};

/// Cuts rich text into tokens, one at a time, and knows no meaning beyond that. Any bytes at all can be cut: a number that is too
/// large is the largest, \' without two hexadecimal digits is a symbol. Views point into the text that was given.
class Tokenizer {
public:
    explicit Tokenizer(std::string_view text) : text_(text) {}

    /// The next token; at the end `end`, again and again.
    [[nodiscard]] Token next();

private:
    [[nodiscard]] char peek(std::size_t offset) const { return at_ + offset < text_.size() ? text_[at_ + offset] : '\0'; }
    Token take(TokenKind kind, std::size_t length) {
        const std::string_view source = text_.substr(at_, length);
        at_ += source.size();
        return {kind, source, {}, {}};
    }
    Token takeRun(TokenKind kind);
    Token takeControl();
    Token takeWord();
    Token takeSymbol();
    Token takeByte();
    std::optional<std::int32_t> readNumber(std::size_t& end) const;

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace wmoutlook::RichText

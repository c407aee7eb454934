#include "adapters/sql/Shape.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/Tokenizer.h"
#include "platform/DateHelper.h"

#include <charconv>
#include <system_error>

namespace wmoutlook::sql {

namespace {

Cell numberOf(std::string_view digits) {
    std::int64_t whole = 0;
    const char* const end = digits.data() + digits.size();
    if (const auto read = std::from_chars(digits.data(), end, whole); read.ptr == end && read.ec == std::errc{})
        return Cell::of(whole);
    double number = 0;
    if (const auto read = std::from_chars(digits.data(), end, number); read.ptr == end && read.ec == std::errc{})
        return Cell::of(number);
    fail(Fault::syntax, "A number in the SQL text is out of range");
}

Cell dateOf(std::string_view content) {
    const auto date = DateHelper::parseMoment(content);
    if (!date) fail(Fault::syntax, "A literal between # marks in the SQL text is no date");
    return Cell::of(date->days);
}

}  // namespace

void Shape::read(std::string_view sql) {
    text_.assign(sql);
    key_.clear();
    literals_.clear();
    Tokenizer tokens{text_};
    if (!tokens.next().isWord("SELECT")) fail(Fault::refused, "Only a SELECT text can be opened as a recordset");
    key_ += "SELECT";

    bool isSorting = false;  // a number in ORDER BY names a column and is no value
    for (Token token = tokens.next(); token.kind != TokenKind::end; token = tokens.next()) {
        if (token.is(";")) {
            if (tokens.next().kind != TokenKind::end) fail(Fault::refused, "The SQL text goes on behind its semicolon");
            return;
        }
        if (token.isSpaced) key_ += ' ';
        switch (token.kind) {
            case TokenKind::text: lift({Cell::of(unmarked(token.content(), token.written.front())), false}); break;
            case TokenKind::date: lift({dateOf(token.content()), false}); break;
            case TokenKind::number:
                if (isSorting)
                    key_ += token.written;
                else
                    lift({numberOf(token.written), false});
                break;
            case TokenKind::parameter: fail(Fault::syntax, "The SQL text holds a question mark");
            case TokenKind::word:
                if (token.isWord("TRUE") || token.isWord("FALSE")) {
                    lift({Cell::of(std::int64_t{token.isWord("TRUE") ? 1 : 0}), true});
                    break;
                }
                isSorting = isSorting || token.isWord("ORDER") || token.isWord("GROUP");
                [[fallthrough]];
            default: key_ += token.written;
        }
    }
}

void Shape::lift(const Literal& literal) {
    key_ += '?';
    literals_.push_back(literal);
}

/// Undoubles the marks inside a text where it stands: the result is never longer, and what follows has not moved.
std::string_view Shape::unmarked(std::string_view content, char mark) {
    if (content.find(mark) == std::string_view::npos) return content;
    char* const start = text_.data() + (content.data() - text_.data());
    char* to = start;
    for (std::size_t i = 0; i < content.size(); ++i) {
        *to++ = content[i];
        if (content[i] == mark) ++i;
    }
    return {start, static_cast<std::size_t>(to - start)};
}

}  // namespace wmoutlook::sql

#include "adapters/sql/SelectParser.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/Tokenizer.h"

#include <algorithm>
#include <array>
#include <span>

namespace wmoutlook::sql {

namespace {

/// Words of the dialect; any other word is a function when a bracket follows, and a name otherwise.
constexpr std::array<std::string_view, 44> kKeywords{
    "SELECT", "DISTINCT", "ALL",  "FROM",   "WHERE", "GROUP",   "BY",    "HAVING",  "ORDER",     "ASC",    "DESC",
    "AND",    "OR",       "NOT",  "IS",     "NULL",  "IN",      "LIKE",  "BETWEEN", "AS",        "ON",     "INNER",
    "LEFT",   "RIGHT",    "FULL", "OUTER",  "CROSS", "JOIN",    "UNION", "EXCEPT",  "INTERSECT", "CASE",   "WHEN",
    "THEN",   "ELSE",     "END",  "EXISTS", "USING", "NATURAL", "LIMIT", "OFFSET",  "WITH",      "VALUES", "ESCAPE"};

constexpr std::array<std::string_view, 7> kTotals{"COUNT", "SUM", "MIN", "MAX", "AVG", "TOTAL", "GROUP_CONCAT"};

template <std::size_t size>
bool isOneOf(const Token& token, const std::array<std::string_view, size>& words) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

bool isName(const Token& token) {
    return token.kind == TokenKind::name || (token.kind == TokenKind::word && !isOneOf(token, kKeywords));
}

std::string_view nameOf(const Token& token) {
    return token.kind == TokenKind::name ? token.content() : token.written;
}

/// One reading of one text.
class Reading {
public:
    Reading(std::string_view key, const Driver& driver) : driver_(driver) {
        Tokenizer tokens{key};
        for (Token token = tokens.next(); token.kind != TokenKind::end; token = tokens.next()) tokens_.push_back(token);
        numberParameters();
    }

    Select select() {
        findClauses();
        select_.whole = spelled(0, tokens_.size());
        if (!select_.isPlain) return std::move(select_);
        select_.list = spelled(1, list_.end);
        if (std::any_of(tokens_.begin(), tokens_.begin() + offset(list_.end), [](const Token& t) { return isOneOf(t, kTotals); }))
            select_.isPlain = false;
        readFrom();
        select_.where = spelled(where_.start, where_.end);
        select_.order = spelled(order_.start, order_.end);
        return std::move(select_);
    }

private:
    struct Range {
        std::size_t start = 0;
        std::size_t end = 0;
    };

    static std::ptrdiff_t offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }
    [[nodiscard]] bool isSymbol(std::size_t i, std::string_view symbol) const {
        return i < tokens_.size() && tokens_[i].is(symbol);
    }

    void numberParameters() {
        parameterNumbers_.resize(tokens_.size());
        for (std::size_t i = 0; i < tokens_.size(); ++i) {
            if (tokens_[i].kind != TokenKind::parameter) continue;
            select_.comparedTo.push_back(comparedAt(i));
            parameterNumbers_[i] = select_.comparedTo.size();
        }
    }

    ComparedColumn comparedAt(std::size_t parameter) const {
        const bool isComparison = parameter >= 2 && (tokens_[parameter - 1].is("=") || tokens_[parameter - 1].is("<>"));
        if (!isComparison || !isName(tokens_[parameter - 2])) return {};
        const bool isQualified = parameter >= 4 && tokens_[parameter - 3].is(".");
        return {isQualified ? std::string{nameOf(tokens_[parameter - 4])} : std::string{},
                std::string{nameOf(tokens_[parameter - 2])}};
    }

    /// Clauses stand outside of all brackets and in a fixed order.
    void findClauses() {
        Range* current = &list_;
        current->start = 1;
        int depth = 0;
        for (std::size_t i = 1; i < tokens_.size(); ++i) {
            const Token& token = tokens_[i];
            if (token.is("(")) ++depth;
            if (token.is(")")) --depth;
            if (isOneOf(token, kNotPlain)) select_.isPlain = false;
            Range* const next = depth == 0 ? clauseStartingAt(i) : nullptr;
            if (next == nullptr) continue;
            close(*current, i);
            current = next;
            current->start = i + (next == &order_ ? 2 : 1);
        }
        close(*current, tokens_.size());
        if (from_.start == 0) select_.isPlain = false;
    }

    /// A clause that says nothing is a text that was not put together to its end: taken as it is, it would select every row.
    static void close(Range& clause, std::size_t end) {
        if (clause.start >= end) fail(Fault::syntax, "A clause of the SQL text is empty");
        clause.end = end;
    }

    Range* clauseStartingAt(std::size_t i) {
        if (tokens_[i].isWord("FROM")) return &from_;
        if (tokens_[i].isWord("WHERE")) return &where_;
        if (tokens_[i].isWord("ORDER")) return &order_;
        return nullptr;
    }

    /// Joins may be nested in brackets to their left; since joins are read from the left anyway, those brackets say nothing, and
    /// without them every source stays within reach by its name.
    void readFrom() {
        std::size_t start = from_.start;
        while (isSymbol(start, "(")) ++start;
        std::size_t dropped = start - from_.start;
        int depth = 0;
        std::vector<Token> kept;
        std::vector<std::size_t> numbers;
        for (std::size_t i = start; i < from_.end; ++i) {
            if (tokens_[i].is("(")) ++depth;
            if (tokens_[i].is(")") && depth == 0 && dropped > 0) {
                --dropped;
                continue;
            }
            if (tokens_[i].is(")")) --depth;
            kept.push_back(tokens_[i]);
            numbers.push_back(parameterNumbers_[i]);
        }
        select_.from = spelled(kept, numbers);
        readSources(kept);
    }

    void readSources(std::span<const Token> from) {
        int depth = 0;
        bool isExpected = true;
        for (std::size_t i = 0; i < from.size(); ++i) {
            if (from[i].is("(")) ++depth;
            if (from[i].is(")")) --depth;
            if (isExpected && !isName(from[i])) select_.isPlain = false;
            if (isExpected && isName(from[i])) i = readSource(from, i);
            isExpected = i < from.size() && depth == 0 && (from[i].is(",") || from[i].isWord("JOIN"));
        }
        if (select_.sources.empty()) select_.isPlain = false;
    }

    /// The index of its last token.
    std::size_t readSource(std::span<const Token> from, std::size_t at) {
        SelectSource source{std::string{nameOf(from[at])}, std::string{nameOf(from[at])}};
        std::size_t next = at + 1;
        if (next < from.size() && from[next].isWord("AS")) ++next;
        if (next < from.size() && isName(from[next]))
            source.alias = nameOf(from[next]);
        else
            next = at;
        select_.sources.push_back(std::move(source));
        return next;
    }

    [[nodiscard]] std::string spelled(std::size_t start, std::size_t end) const {
        if (start >= end) return {};
        return spelled(std::span{tokens_}.subspan(start, end - start), std::span{parameterNumbers_}.subspan(start, end - start));
    }

    [[nodiscard]] std::string spelled(std::span<const Token> tokens, std::span<const std::size_t> numbers) const {
        std::string text;
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            if (i > 0) text += ' ';
            const bool isQualified = i > 0 && tokens[i - 1].is(".");
            const bool isFunction = i + 1 < tokens.size() && tokens[i + 1].is("(");
            const bool isQualifier = i + 1 < tokens.size() && tokens[i + 1].is(".");
            if (tokens[i].kind == TokenKind::parameter)
                text += driver_.parameter(numbers[i]);
            else if (tokens[i].kind == TokenKind::name || (tokens[i].kind == TokenKind::word && (isQualified || isQualifier)) ||
                     (isName(tokens[i]) && !isFunction))
                text += driver_.quoted(nameOf(tokens[i]));
            else
                text += tokens[i].is("&") ? std::string_view{"||"} : tokens[i].written;
        }
        return text;
    }

    static constexpr std::array<std::string_view, 13> kNotPlain{"DISTINCT",  "GROUP",   "HAVING", "UNION", "EXCEPT",
                                                                "INTERSECT", "LIMIT",   "WITH",   "RIGHT", "FULL",
                                                                "USING",     "NATURAL", "VALUES"};

    const Driver& driver_;
    std::vector<Token> tokens_;
    std::vector<std::size_t> parameterNumbers_;
    Select select_;
    Range list_;
    Range from_;
    Range where_;
    Range order_;
};

}  // namespace

Select parseSelect(std::string_view key, const Driver& driver) {
    return Reading{key, driver}.select();
}

}  // namespace wmoutlook::sql

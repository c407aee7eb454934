#pragma once

#include "adapters/outlookstore/Filter.h"

#include <string>
#include <string_view>

namespace wmoutlook::outlookstore {

/// Recursive descent over one text; what nests is bounded, so no text can exhaust the stack.
class FilterParser {
public:
    explicit FilterParser(std::string_view text) : text_(text) {}
    [[nodiscard]] Filter parse();

private:
    struct Value {
        enum class Kind { quoted, number, boolean };
        Kind kind = Kind::quoted;
        std::string text;
        double number = 0;
        std::size_t at = 0;
    };

    FilterNode anyOf(int depth);
    FilterNode allOf(int depth);
    FilterNode term(int depth);
    FilterNode comparison();
    std::size_t property();
    FilterOperator comparisonOperator();
    Value value();
    std::string quoted(char quote);
    Value number();
    Value word();
    void assign(FilterNode& node, const Value& value) const;

    void skipBlanks();
    bool takeWord(std::string_view word);
    bool take(char c);
    [[nodiscard]] bool isAtEnd() const { return at_ == text_.size(); }
    [[noreturn]] void fail(std::size_t at, std::string_view what) const;

    std::string_view text_;
    std::size_t at_ = 0;
    Filter filter_;
};

}  // namespace wmoutlook::outlookstore

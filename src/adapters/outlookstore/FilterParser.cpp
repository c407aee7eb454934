#include "adapters/outlookstore/FilterParser.h"

#include "platform/DateHelper.h"
#include "platform/Errors.h"
#include "platform/Text.h"
#include "platform/Variant.h"

#include <array>
#include <utility>

namespace wmoutlook::outlookstore {

namespace {

constexpr int kDeepest = 100;

struct OperatorRow {
    std::string_view text;
    FilterOperator op;
};

/// Longer ones before those that they begin with.
constexpr std::array kOperators{
    OperatorRow{"<>", FilterOperator::notEqual},
    OperatorRow{"<=", FilterOperator::lessOrEqual},
    OperatorRow{">=", FilterOperator::greaterOrEqual},
    OperatorRow{"=", FilterOperator::equal},
    OperatorRow{"<", FilterOperator::less},
    OperatorRow{">", FilterOperator::greater},
};

struct WordRow {
    std::string_view word;
    bool value;
};

constexpr std::array kWords{WordRow{"True", true},   WordRow{"Yes", true}, WordRow{"On", true},
                            WordRow{"False", false}, WordRow{"No", false}, WordRow{"Off", false}};

bool isWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || (c & 0x80) != 0;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

Filter FilterParser::parse() {
    filter_.root_ = anyOf(0);
    if (!isAtEnd()) fail(at_, R"("and", "or" or the end is expected)");
    return std::move(filter_);
}

FilterNode FilterParser::anyOf(int depth) {
    FilterNode node = allOf(depth);
    if (!takeWord("or")) return node;
    FilterNode any{FilterNode::Kind::any, {}, 0, {}, {}, 0};
    any.children.push_back(std::move(node));
    do any.children.push_back(allOf(depth));
    while (takeWord("or"));
    return any;
}

FilterNode FilterParser::allOf(int depth) {
    FilterNode node = term(depth);
    if (!takeWord("and")) return node;
    FilterNode all{FilterNode::Kind::all, {}, 0, {}, {}, 0};
    all.children.push_back(std::move(node));
    do all.children.push_back(term(depth));
    while (takeWord("and"));
    return all;
}

FilterNode FilterParser::term(int depth) {
    skipBlanks();
    if (depth >= kDeepest) fail(at_, "too many parentheses or \"not\" lie within one another");
    if (takeWord("not")) {
        FilterNode negation{FilterNode::Kind::negation, {}, 0, {}, {}, 0};
        negation.children.push_back(term(depth + 1));
        return negation;
    }
    if (!take('(')) return comparison();
    FilterNode inner = anyOf(depth + 1);
    if (!take(')')) fail(at_, "a closing parenthesis is expected");
    return inner;
}

FilterNode FilterParser::comparison() {
    FilterNode node{FilterNode::Kind::comparison, {}, property(), {}, {}, 0};
    node.op = comparisonOperator();
    assign(node, value());
    skipBlanks();
    return node;
}

std::size_t FilterParser::property() {
    const std::size_t start = at_;
    if (!take('[')) fail(at_, "a property in square brackets is expected");
    const std::size_t end = text_.find(']', at_);
    if (end == std::string_view::npos) fail(start, "the property's closing square bracket is missing");
    const auto found = findProperty(withoutWhiteSpaceAround(text_.substr(at_, end - at_)));
    if (!found) fail(start, "no type of item has this property");
    if (found->name == "EntryID") fail(start, "an entry identifier is looked up and not searched for");
    at_ = end + 1;
    auto& known = filter_.properties_;
    for (std::size_t i = 0; i < known.size(); ++i)
        if (known[i].code == found->code) return i;
    known.push_back(*found);
    return known.size() - 1;
}

FilterOperator FilterParser::comparisonOperator() {
    skipBlanks();
    for (const OperatorRow& row : kOperators) {
        if (!text_.substr(at_).starts_with(row.text)) continue;
        at_ += row.text.size();
        return row.op;
    }
    fail(at_, "one of = <> < <= > >= is expected");
}

FilterParser::Value FilterParser::value() {
    skipBlanks();
    if (isAtEnd()) fail(at_, "a value is expected");
    const char c = text_[at_];
    if (c == '"' || c == '\'') {
        const std::size_t start = at_;
        return {Value::Kind::quoted, quoted(c), 0, start};
    }
    return isDigit(c) || c == '-' || c == '+' || c == '.' ? number() : word();
}

std::string FilterParser::quoted(char quote) {
    const std::size_t start = at_++;
    std::string text;
    while (true) {
        const std::size_t end = text_.find(quote, at_);
        if (end == std::string_view::npos) fail(start, "the closing quotation mark of the value is missing");
        text.append(text_.substr(at_, end - at_));
        at_ = end + 1;
        if (isAtEnd() || text_[at_] != quote) return text;
        text += quote;  // doubled, it stands for itself
        ++at_;
    }
}

FilterParser::Value FilterParser::number() {
    const std::size_t start = at_++;
    while (!isAtEnd() && (isDigit(text_[at_]) || text_[at_] == '.')) ++at_;
    Value value{Value::Kind::number, std::string{text_.substr(start, at_ - start)}, 0, start};
    try {
        value.number = Variant{value.text}.toDouble();
    } catch (const ConversionError&) {
        fail(start, "a number is expected");
    }
    return value;
}

FilterParser::Value FilterParser::word() {
    const std::size_t start = at_;
    for (const WordRow& row : kWords)
        if (takeWord(row.word)) return {Value::Kind::boolean, {}, row.value ? 1.0 : 0.0, start};
    fail(start, "a text in quotation marks, a number, True or False is expected");
}

void FilterParser::assign(FilterNode& node, const Value& value) const {
    switch (filter_.properties_[node.property].kind) {
        case PropertyKind::text:
            if (value.kind != Value::Kind::quoted) fail(value.at, "this property is compared with a text in quotation marks");
            node.text = lowerCase(value.text);
            return;
        case PropertyKind::integer:
            if (value.kind == Value::Kind::boolean) fail(value.at, "this property is compared with a number");
            break;
        case PropertyKind::boolean:
            if (value.kind == Value::Kind::quoted) fail(value.at, "this property is compared with True or False");
            node.number = value.number != 0 ? 1 : 0;
            return;
        case PropertyKind::day:
        case PropertyKind::moment: {
            const auto date = value.kind == Value::Kind::quoted ? DateHelper::parseMoment(value.text) : std::nullopt;
            if (!date) fail(value.at, "this property is compared with a date in quotation marks");
            node.number = minutesOf(*date);
            return;
        }
    }
    try {
        node.number = value.kind == Value::Kind::number ? value.number : Variant{value.text}.toDouble();
    } catch (const ConversionError&) {
        fail(value.at, "this property is compared with a number");
    }
}

void FilterParser::skipBlanks() {
    while (!isAtEnd() && (text_[at_] == ' ' || (text_[at_] >= '\t' && text_[at_] <= '\r'))) ++at_;
}

bool FilterParser::takeWord(std::string_view word) {
    skipBlanks();
    const std::string_view rest = text_.substr(at_);
    if (!equalsTextually(rest.substr(0, word.size()), word)) return false;
    if (rest.size() > word.size() && isWordCharacter(rest[word.size()])) return false;
    at_ += word.size();
    skipBlanks();
    return true;
}

bool FilterParser::take(char c) {
    skipBlanks();
    if (isAtEnd() || text_[at_] != c) return false;
    ++at_;
    skipBlanks();
    return true;
}

void FilterParser::fail(std::size_t at, std::string_view what) const {
    const auto character = static_cast<std::int32_t>(characterCount(text_.substr(0, at)) + 1);
    throw OutlookError{-1, "The filter is malformed at character " + toText(character) + ": " + std::string{what}};
}

}  // namespace wmoutlook::outlookstore

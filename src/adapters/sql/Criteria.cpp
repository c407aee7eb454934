#include "adapters/sql/Criteria.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/Tokenizer.h"

#include <algorithm>
#include <array>

namespace wmoutlook::sql {

namespace {

constexpr std::array<std::string_view, 6> kComparisons{"=", "<>", "<", "<=", ">", ">="};

[[noreturn]] void failToRead() {
    fail(Fault::syntax, "The criteria are not tests of the form \"Field = value\" joined by AND");
}

std::string_view nameOf(const Token& token) {
    if (token.kind == TokenKind::name) return token.content();
    if (token.kind != TokenKind::word) failToRead();
    return token.written;
}

/// A literal as the text that toSought reads, a sign included.
std::string valueOf(Token token, Tokenizer& tokens) {
    const bool isNegative = token.is("-");
    if (isNegative) token = tokens.next();
    if (token.kind == TokenKind::number) return (isNegative ? "-" : "") + std::string{token.written};
    if (isNegative) failToRead();
    if (token.kind == TokenKind::date || token.isWord("TRUE") || token.isWord("FALSE"))
        return std::string{token.kind == TokenKind::date ? token.content() : token.written};
    if (token.kind != TokenKind::text) failToRead();
    std::string text;
    const std::string_view content = token.content();
    for (std::size_t i = 0; i < content.size(); ++i) {
        text += content[i];
        if (content[i] == token.written.front()) ++i;
    }
    return text;
}

}  // namespace

std::size_t requireField(const Plan& plan, std::string_view name) {
    const std::size_t field = plan.find(name);
    if (field == kNone) fail(Fault::notFound, "The recordset has no field \"" + std::string{name} + "\"");
    return field;
}

void Criteria::clear() {
    conditions.clear();
    values.clear();
    isImpossible = false;
}

void Criteria::add(const Plan& plan, const Condition& condition, std::string_view value) {
    const std::size_t index = conditions.size();
    if (texts.size() <= index) texts.resize(index + 1);
    texts[index].assign(value);
    conditions.push_back(condition);
    const auto sought = toSought(texts[index], plan.fields()[condition.field].type);
    isImpossible = isImpossible || !sought;
    values.push_back(sought.value_or(Cell{}));
}

void readCriteria(std::string_view text, const Plan& plan, Criteria& criteria) {
    criteria.clear();
    Tokenizer tokens{text};
    for (;;) {
        std::string name{nameOf(tokens.next())};
        Token token = tokens.next();
        if (token.is(".")) {
            name += '.';
            name += nameOf(tokens.next());
            token = tokens.next();
        }
        const auto* const comparison = std::find(kComparisons.begin(), kComparisons.end(), token.written);
        if (comparison == kComparisons.end()) failToRead();
        const std::string value = valueOf(tokens.next(), tokens);
        criteria.add(plan, {requireField(plan, name), *comparison}, value);
        const Token joint = tokens.next();
        if (joint.kind == TokenKind::end) return;
        if (!joint.isWord("AND")) failToRead();
    }
}

bool passes(const Field& field, const Cell& cell, std::string_view comparison, const Cell& value) {
    const auto order = compareCells(cell, value, field.isTextual);
    if (!order) return false;
    if (comparison == "=") return *order == 0;
    if (comparison == "<>") return *order != 0;
    if (comparison == "<") return *order < 0;
    if (comparison == "<=") return *order <= 0;
    if (comparison == ">") return *order > 0;
    return *order >= 0;
}

}  // namespace wmoutlook::sql

#include "adapters/sql/Values.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/Tokenizer.h"
#include "platform/DateHelper.h"
#include "platform/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <system_error>

namespace wmoutlook::sql {

namespace {

struct TypeRow {
    std::string_view declared;
    TypeKind kind;
    std::string_view description;
};

constexpr std::array kTypes{
    TypeRow{"Long", TypeKind::integer32, "a whole number"},
    TypeRow{"Integer", TypeKind::integer16, "a whole number of 16 bits"},
    TypeRow{"Single", TypeKind::single, "a number"},
    TypeRow{"Double", TypeKind::real, "a number"},
    TypeRow{"Currency", TypeKind::real, "a number"},
    TypeRow{"Boolean", TypeKind::boolean, "a truth value"},
    TypeRow{"Date", TypeKind::date, "a date"},
    TypeRow{"Text", TypeKind::text, "a text"},
    TypeRow{"LongText", TypeKind::text, "a text"},
    TypeRow{"Memo", TypeKind::text, "a text"},
};

std::string named(FieldName field) {
    return "The field \"" + std::string{field.column} + "\" of the table \"" + std::string{field.table} + "\"";
}

std::string_view descriptionOf(TypeKind kind) {
    for (const TypeRow& row : kTypes)
        if (row.kind == kind) return row.description;
    return "a value";
}

[[noreturn]] void failToConvert(std::string_view value, ColumnType type, FieldName field) {
    fail(Fault::wrongType, named(field) + " takes " + std::string{descriptionOf(type.kind)} + ", which \"" +
                               std::string{firstCharacters(value, 40)} + "\" is not");
}

std::optional<double> numberIn(std::string_view text) {
    text = withoutWhiteSpaceAround(text);
    if (equalsAscii(text, "True")) return kTrueAsNumber;
    if (equalsAscii(text, "False")) return 0;
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (text.empty() || read.ec != std::errc{} || read.ptr != end || !std::isfinite(number)) return std::nullopt;
    return number;
}

std::optional<Cell> truthIn(std::string_view text) {
    const auto number = numberIn(text);
    if (!number) return std::nullopt;
    return Cell::of(std::int64_t{*number != 0 ? 1 : 0});
}

template <class Integer>
std::optional<Cell> wholeNumberIn(std::string_view text) {
    const auto number = numberIn(text);
    if (!number) return std::nullopt;
    const double whole = std::nearbyint(*number);  // half to even, as the host's language rounds
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max())) return std::nullopt;
    return Cell::of(static_cast<std::int64_t>(whole));
}

std::optional<Cell> singleIn(std::string_view text) {
    const auto number = numberIn(text);
    if (!number || std::abs(*number) > std::numeric_limits<float>::max()) return std::nullopt;
    return Cell::of(static_cast<double>(static_cast<float>(*number)));
}

std::optional<Cell> convert(std::string_view text, TypeKind kind) {
    switch (kind) {
        case TypeKind::boolean: return truthIn(text);
        case TypeKind::integer16: return wholeNumberIn<std::int16_t>(text);
        case TypeKind::integer32: return wholeNumberIn<std::int32_t>(text);
        case TypeKind::single: return singleIn(text);
        case TypeKind::real:
            if (const auto number = numberIn(text)) return Cell::of(*number);
            return std::nullopt;
        case TypeKind::date:
            if (const auto date = DateHelper::parseMoment(text)) return Cell::of(date->days);
            return std::nullopt;
        default: return Cell::of(text);
    }
}

void requireFit(std::string_view value, ColumnType type, FieldName field) {
    if (type.mostCharacters == 0 || value.size() <= type.mostCharacters) return;
    const std::size_t count = characterCount(value);
    if (count <= type.mostCharacters) return;
    // The text itself stays out of the message: names and notes are nobody's business in a log.
    fail(Fault::tooLong, named(field) + " holds at most " + std::to_string(type.mostCharacters) + " characters and cannot take " +
                             std::to_string(count));
}

Variant untyped(const Cell& cell) {
    switch (cell.kind) {
        case Cell::Kind::null: return {};
        case Cell::Kind::real: return cell.real;
        case Cell::Kind::text: return cell.text;
        case Cell::Kind::integer: break;
    }
    const bool isNarrow =
        cell.integer >= std::numeric_limits<std::int32_t>::min() && cell.integer <= std::numeric_limits<std::int32_t>::max();
    if (isNarrow) return static_cast<std::int32_t>(cell.integer);
    return static_cast<double>(cell.integer);
}

}  // namespace

ColumnType typeOf(const TableColumn& column) {
    if (column.isAutoNumber) return {TypeKind::integer32, 0};
    std::string_view name = column.declaredType;
    const std::size_t bracket = name.find('(');
    std::size_t most = 0;
    if (bracket != std::string_view::npos) {
        std::from_chars(name.data() + bracket + 1, name.data() + name.size(), most);
        name = trimmed(name.substr(0, bracket));
    }
    for (const TypeRow& row : kTypes)
        if (equalsAscii(row.declared, name)) return {row.kind, most};
    return {};
}

Variant toVariant(const Cell& cell, ColumnType type, FieldName field) {
    if (cell.isNull()) return {};
    if (type.kind == TypeKind::none) return untyped(cell);
    if (type.kind == TypeKind::text) return cell.kind == Cell::Kind::text ? Variant{cell.text} : Variant{untyped(cell).toText()};
    Cell number = cell;
    if (cell.kind == Cell::Kind::text) {
        const auto converted = convert(cell.text, type.kind);
        if (!converted)
            fail(Fault::wrongType, named(field) + " holds a text that is not " + std::string{descriptionOf(type.kind)});
        number = *converted;
    }
    switch (type.kind) {
        case TypeKind::boolean: return number.number() != 0;
        case TypeKind::date: return Date{number.number()};
        case TypeKind::single:
        case TypeKind::real: return number.number();
        default: break;
    }
    const double whole = std::nearbyint(number.number());
    if (!(whole >= std::numeric_limits<std::int32_t>::min() && whole <= std::numeric_limits<std::int32_t>::max()))
        fail(Fault::wrongType, named(field) + " holds a number outside the 32-bit range");
    return static_cast<std::int32_t>(whole);
}

Cell toStored(std::string_view value, ColumnType type, FieldName field) {
    if (type.kind == TypeKind::text || type.kind == TypeKind::none) {
        requireFit(value, type, field);
        return Cell::of(value);
    }
    if (value.empty()) return type.kind == TypeKind::boolean ? Cell::of(std::int64_t{0}) : Cell{};
    const auto cell = convert(value, type.kind);
    if (!cell) failToConvert(value, type, field);
    return *cell;
}

std::optional<Cell> toSought(std::string_view value, ColumnType type) {
    switch (type.kind) {
        case TypeKind::integer16:
        case TypeKind::integer32: {
            const auto number = numberIn(value);  // not rounded: 12.5 is no row's number
            if (!number) return std::nullopt;
            return Cell::of(*number);
        }
        default: return convert(value, type.kind);
    }
}

Cell toCell(const Variant& value) {
    struct Visitor {
        Cell operator()(std::monostate) const { return {}; }
        Cell operator()(bool truth) const { return Cell::of(std::int64_t{truth ? 1 : 0}); }
        Cell operator()(std::int32_t number) const { return Cell::of(std::int64_t{number}); }
        Cell operator()(double number) const { return Cell::of(number); }
        Cell operator()(Date date) const { return Cell::of(date.days); }
        Cell operator()(const std::string& text) const { return Cell::of(std::string_view{text}); }
    };
    return std::visit(Visitor{}, value.value());
}

std::optional<std::weak_ordering> compareCells(const Cell& left, const Cell& right, bool isTextual) {
    if (left.isNull() || right.isNull()) return std::nullopt;
    const bool isText = left.kind == Cell::Kind::text;
    if (isText != (right.kind == Cell::Kind::text)) return std::nullopt;
    if (isText)
        return isTextual ? compareTextually(left.text, right.text) : std::weak_ordering{left.text.compare(right.text) <=> 0};
    const auto order = left.number() <=> right.number();
    if (order == std::partial_ordering::unordered) return std::nullopt;
    if (order < 0) return std::weak_ordering::less;
    return order > 0 ? std::weak_ordering::greater : std::weak_ordering::equivalent;
}

std::uint64_t hashOf(const Cell& cell) {
    if (cell.kind == Cell::Kind::text) return std::hash<std::string>{}(lowerCase(cell.text));
    return cell.isNull() ? 0 : std::hash<double>{}(cell.number());
}

}  // namespace wmoutlook::sql

#pragma once

#include "adapters/sql/Driver.h"

#include "platform/Variant.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace wmoutlook::sql {

/// What a declared type means. A computed column has none and is taken as the engine gives it.
enum class TypeKind : std::uint8_t { none, boolean, integer16, integer32, single, real, date, text };

struct ColumnType {
    TypeKind kind = TypeKind::none;
    std::size_t mostCharacters = 0;  ///< of a Text(n); 0 for no bound
};

/// Names of types are those of the desktop engine, in any case; an unknown one counts as none.
[[nodiscard]] ColumnType typeOf(const TableColumn& column);

/// A column for error messages.
struct FieldName {
    std::string_view table;
    std::string_view column;
};

/// What the engine holds, in the kind of the column's type. Throws DatabaseError when the stored value is none of it.
[[nodiscard]] Variant toVariant(const Cell& cell, ColumnType type, FieldName field);

/// A text as it is stored in a column of this type; a text column's cell borrows the text. An empty text is null, False
/// or an empty text. Throws DatabaseError when it does not convert or fit.
[[nodiscard]] Cell toStored(std::string_view value, ColumnType type, FieldName field);

/// A text as a value to search for, exact for numbers. Nothing when no row can hold it.
[[nodiscard]] std::optional<Cell> toSought(std::string_view value, ColumnType type);

/// A value as it is written in bulk: truth values as 0 and 1, dates as day numbers. Texts are borrowed.
[[nodiscard]] Cell toCell(const Variant& value);

/// Numbers by value, texts textually or to the bit; nothing when one is null or they are of different kinds.
[[nodiscard]] std::optional<std::weak_ordering> compareCells(const Cell& left, const Cell& right, bool isTextual);
/// Cells that are equal either way hash alike.
[[nodiscard]] std::uint64_t hashOf(const Cell& cell);

}  // namespace wmoutlook::sql

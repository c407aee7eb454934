#pragma once

#include <span>
#include <string_view>

namespace wmoutlook {

/// The statements that create the host's tables, those of the sync store and their indexes, in order. Declared types are
/// those of the desktop engine: Long, Integer (16 bits), Single, Double, Currency, Text(n), LongText, Boolean, Date; an
/// auto-number key is INTEGER PRIMARY KEY AUTOINCREMENT.
[[nodiscard]] std::span<const std::string_view> referenceSchema();

struct ReferenceColumn {
    std::string_view table;
    std::string_view name;
};

/// The columns of the tables that it creates, table by table.
[[nodiscard]] std::span<const ReferenceColumn> referenceColumns();

}  // namespace wmoutlook

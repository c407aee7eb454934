#pragma once

#include <span>
#include <string_view>

namespace wmoutlook {

/// The statements that create the host's tables, those of the sync store and their indexes, in order. Declared types are
/// those of the desktop engine: Long, Integer (16 bits), Single, Double, Currency, Text(n), LongText, Boolean, Date; an
/// auto-number key is INTEGER PRIMARY KEY AUTOINCREMENT.
[[nodiscard]] std::span<const std::string_view> referenceSchema();

/// The names of the tables that it creates.
[[nodiscard]] std::span<const std::string_view> referenceTables();

}  // namespace wmoutlook

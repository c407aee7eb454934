#pragma once

#include "adapters/sql/Driver.h"

#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::sql {

/// A table in the FROM clause, under the name by which the text calls it.
struct SelectSource {
    std::string table;
    std::string alias;
};

/// A column to which a literal is compared: "T.Field = ?", the qualifier empty when none is written.
struct ComparedColumn {
    std::string qualifier;
    std::string column;
};

/// A text in the engine's spelling, cut where conditions and keys go in.
struct Select {
    std::string list;
    std::string from;
    std::string where;  ///< empty for none
    std::string order;  ///< empty for none
    std::string whole;  ///< the text as it stands, for one that is not plain
    std::vector<SelectSource> sources;
    /// Each row of the result is made of one row of each source: no grouping, no totals, no union, no nested text.
    bool isPlain = true;
    std::vector<ComparedColumn> comparedTo;  ///< one per literal, column empty when it is compared to none
};

/// Reads the key of a shape.
[[nodiscard]] Select parseSelect(std::string_view key, const Driver& driver);

}  // namespace wmoutlook::sql

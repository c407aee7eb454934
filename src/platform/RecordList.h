#pragma once

#include "platform/Variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook {

/// Rows of numbered columns in memory, one of them current: the selection of a run, and the field list of a merge.
/// Rows and columns count from 1. A search costs the same in a list of 100,000 rows as in one of ten: the first search of
/// a column builds an index on it, and an added row keeps it.
class RecordList {
public:
    using Row = std::vector<Variant>;

    void clear();
    /// Adds a row, column 1 first; columns left out are null. The current row stays as it is.
    void add(Row columns);

    /// The first row whose column has this value in text form becomes current. Its index, or kNotFound, which leaves the
    /// current row as it was.
    std::int32_t find(std::string_view value, std::size_t column);

    bool moveFirst();  ///< false on an empty list
    void moveNext();
    bool moveTo(std::int32_t index);  ///< false, and the current row stays, when there is no such row

    /// Null when there is no current row or the row has no such column.
    [[nodiscard]] const Variant& value(std::size_t column) const;

    [[nodiscard]] bool isAtEnd() const;  ///< no row is current
    [[nodiscard]] bool isEmpty() const { return rows_.empty(); }
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(rows_.size()); }
    [[nodiscard]] std::int32_t currentIndex() const { return current_; }

    static constexpr std::int32_t kNotFound = -1;

private:
    using Index = std::unordered_map<std::string, std::int32_t>;

    Index& indexOf(std::size_t column);

    std::vector<Row> rows_;
    std::unordered_map<std::size_t, Index> indexes_;
    std::int32_t current_ = 0;
};

/// Columns of the two selection lists of a run.
namespace selection {
inline constexpr std::size_t kCompanyNum = 1;  ///< in the contacts list the company of the contact, blank for none
inline constexpr std::size_t kContactNum = 2;
inline constexpr std::size_t kUserNum = 3;
inline constexpr std::size_t kOutlookID = 4;
inline constexpr std::size_t kOutlookStoreID = 5;
}  // namespace selection

}  // namespace wmoutlook

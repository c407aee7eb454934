#pragma once

#include "merge/DateFormats.h"
#include "merge/FoldedName.h"
#include "merge/Marks.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook::merge {

/// One placeholder of a merge, by its rank in the order of replacement: the current date in each format, then the fields in the
/// order of their list, one that is a date once for each format.
class PlaceholderRank {
public:
    static constexpr std::int32_t kNone = -1;
    static constexpr auto kFormats = static_cast<std::int32_t>(kDateFormats.size());

    static constexpr std::int32_t of(std::int32_t row, std::int32_t format) { return row * kFormats + format; }
    static constexpr std::int32_t row(std::int32_t rank) { return rank / kFormats; }  ///< 0 is the current date
    static constexpr std::int32_t format(std::int32_t rank) { return rank % kFormats; }
};

/// Which placeholders there are, by what stands between the marks. Names are compared textually.
class Placeholders {
public:
    Placeholders();

    /// The next row of the field list. Rows are numbered from 1.
    void add(std::string_view name, bool isDate);
    [[nodiscard]] std::int32_t rows() const { return static_cast<std::int32_t>(rows_.size()) - 1; }
    /// Whether the row was added with just these.
    [[nodiscard]] bool isRow(std::int32_t row, std::string_view name, bool isDate) const;

    /// The lowest rank, not below `from`, of a placeholder with this text between its marks; kNone when there is none.
    [[nodiscard]] std::int32_t find(std::string_view between, std::int32_t from = 0) const;
    /// A placeholder as templates hold it.
    [[nodiscard]] std::string textBetween(std::int32_t rank, const Marks& marks) const;
    [[nodiscard]] std::int32_t ranks() const { return PlaceholderRank::of(static_cast<std::int32_t>(rows_.size()), 0); }
    /// Ranks of names that hold a mark or a backslash, as a label of the user's own may: those that a search from mark to mark misses.
    [[nodiscard]] const std::vector<std::int32_t>& withMarks() const { return withMarks_; }

private:
    struct Row {
        std::string name;
        bool isDate = false;
        std::int32_t nextOfName = kNoRow;  ///< a name can stand twice
    };
    static constexpr std::int32_t kNoRow = 0;

    [[nodiscard]] std::int32_t findRow(std::string_view name, bool isDate, std::int32_t fromRow) const;
    [[nodiscard]] std::int32_t findDate(std::string_view between, std::int32_t from) const;

    std::vector<Row> rows_;  ///< the first one is the current date
    std::unordered_map<std::string, std::int32_t, HashOfName, std::equal_to<>> firstOfName_;  ///< by the name in lower case
    std::vector<std::int32_t> withMarks_;
};

}  // namespace wmoutlook::merge

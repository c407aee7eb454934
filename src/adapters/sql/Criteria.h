#pragma once

#include "adapters/sql/Plan.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::sql {

/// What a search looks for: tests that all have to hold, each with its value in the type of the field.
struct Criteria {
    std::vector<Condition> conditions;
    std::vector<Cell> values;
    std::deque<std::string> texts;  ///< the text values live here, one per condition
    bool isImpossible = false;      ///< a value that no row can hold

    void add(const Plan& plan, const Condition& condition, std::string_view value);
    void clear();
};

/// The index of a field that a search names. Throws DatabaseError when the result has none of that name.
[[nodiscard]] std::size_t requireField(const Plan& plan, std::string_view name);

/// Reads "Field = 5 AND Table.Field <> 'text'". Throws DatabaseError for anything else.
void readCriteria(std::string_view text, const Plan& plan, Criteria& criteria);

/// Whether a field's value passes a test; a null passes none.
[[nodiscard]] bool passes(const Field& field, const Cell& cell, std::string_view comparison, const Cell& value);

}  // namespace wmoutlook::sql

#include "adapters/outlookstore/StoreCheck.h"

#include <set>
#include <utility>

namespace wmoutlook::outlookstore {

namespace {

using Columns = std::set<std::pair<std::string, std::string>>;

constexpr std::string_view kAttempt = "reading what tables there are";

/// Each column behind its table, as they are spelled or in lower case.
Columns columnsOf(Connection& connection, bool inLowerCase) {
    const std::string sql{inLowerCase ? "SELECT lower(t.name), lower(c.name)" : "SELECT t.name, c.name"};
    Statement statement{connection, sql + " FROM sqlite_schema t JOIN pragma_table_info(t.name) c WHERE t.type = 'table'",
                        kAttempt};
    Columns columns;
    for (auto run = statement.run(); run.next();) columns.emplace(run.text(0), run.text(1));
    return columns;
}

std::string lower(std::string name) {
    for (char& c : name)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return name;
}

bool hasTable(const Columns& columns, const std::string& table) {
    const auto first = columns.lower_bound({table, {}});
    return first != columns.end() && first->first == table;
}

}  // namespace

void requireShape(Connection& store, Connection& model) {
    const Columns present = columnsOf(store, true);
    for (const auto& [table, column] : columnsOf(model, false)) {
        if (!hasTable(present, lower(table))) store.refuse("lacks the table \"" + table + "\"");
        if (!present.contains({lower(table), lower(column)}))
            store.refuse("lacks the column \"" + column + "\" of the table \"" + table + "\"");
    }
}

void requireRows(Connection& store) {
    const auto require = [&](std::string_view sql, std::string_view fault) {
        Statement statement{store, sql, "reading what every store has"};
        auto run = statement.run();
        if (!run.next()) store.refuse(fault);
    };
    require("SELECT 1 FROM Stores", "is damaged: the table \"Stores\" is empty");
    require("SELECT 1 FROM Counters WHERE Name = 'HighestDeletedItem' AND typeof(Value) = 'integer'",
            "lacks the row \"HighestDeletedItem\" of the table \"Counters\"");
}

}  // namespace wmoutlook::outlookstore

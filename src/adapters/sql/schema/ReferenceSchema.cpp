#include "adapters/sql/schema/ReferenceSchema.h"

#include "adapters/sql/schema/SchemaTexts.h"

#include <vector>

namespace wmoutlook {

namespace {

std::vector<std::string_view> allStatements() {
    std::vector<std::string_view> statements;
    for (const auto topic : {schema::clientTables(), schema::clientDataTables(), schema::calendarTables(),
                             schema::settingsTables(), schema::syncStoreTables()})
        statements.insert(statements.end(), topic.begin(), topic.end());
    return statements;
}

std::string_view firstWord(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \n");
    return start == std::string_view::npos ? std::string_view{} : text.substr(start, text.find(' ', start) - start);
}

/// The declarations between a table's parentheses; those of a type, as in Text(50), hold no comma.
void addColumns(std::string_view table, std::string_view declarations, std::vector<ReferenceColumn>& columns) {
    while (!declarations.empty()) {
        columns.push_back({table, firstWord(declarations)});
        const std::size_t comma = declarations.find(',');
        declarations.remove_prefix(comma == std::string_view::npos ? declarations.size() : comma + 1);
    }
}

// The names stand once, in the statements.
std::vector<ReferenceColumn> createdColumns() {
    constexpr std::string_view kCreate = "CREATE TABLE ";
    std::vector<ReferenceColumn> columns;
    for (const std::string_view statement : referenceSchema()) {
        if (!statement.starts_with(kCreate)) continue;
        const std::string_view table = firstWord(statement.substr(kCreate.size()));
        const std::size_t open = statement.find('(');
        addColumns(table, statement.substr(open + 1, statement.rfind(')') - open - 1), columns);
    }
    return columns;
}

}  // namespace

std::span<const std::string_view> referenceSchema() {
    static const std::vector<std::string_view> statements = allStatements();
    return statements;
}

std::span<const ReferenceColumn> referenceColumns() {
    static const std::vector<ReferenceColumn> columns = createdColumns();
    return columns;
}

}  // namespace wmoutlook

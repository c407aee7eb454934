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

// The names stand once, in the statements.
std::vector<std::string_view> createdTables() {
    constexpr std::string_view kCreate = "CREATE TABLE ";
    std::vector<std::string_view> names;
    for (const std::string_view statement : referenceSchema()) {
        if (statement.substr(0, kCreate.size()) != kCreate) continue;
        const std::string_view rest = statement.substr(kCreate.size());
        names.push_back(rest.substr(0, rest.find(' ')));
    }
    return names;
}

}  // namespace

std::span<const std::string_view> referenceSchema() {
    static const std::vector<std::string_view> statements = allStatements();
    return statements;
}

std::span<const std::string_view> referenceTables() {
    static const std::vector<std::string_view> names = createdTables();
    return names;
}

}  // namespace wmoutlook

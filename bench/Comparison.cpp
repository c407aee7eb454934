#include "bench/Comparison.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace wmoutlook::bench {

namespace {

/// All rows of a table in the order of their keys.
class Walk {
public:
    Walk(const std::string& path, const std::string& table) {
        const std::string text = "SELECT * FROM " + table + " ORDER BY _rowid_";
        sqlite3_stmt* statement = nullptr;
        sqlite3* database = nullptr;
        const int opened = sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
        database_.reset(database);
        if (opened != SQLITE_OK || sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error{path + " cannot be compared"};
        statement_.reset(statement);
    }

    bool next() { return sqlite3_step(statement_.get()) == SQLITE_ROW; }
    [[nodiscard]] int columns() const { return sqlite3_column_count(statement_.get()); }
    [[nodiscard]] std::string name(int column) const { return sqlite3_column_name(statement_.get(), column); }
    [[nodiscard]] std::string_view value(int column) const {
        const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
        return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
    }

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3, Close> database_;
    std::unique_ptr<sqlite3_stmt, Close> statement_;
};

void requireSameTable(const std::string& table, const std::string& ofPass, const std::string& ofLoop, std::int32_t companies) {
    Walk pass{ofPass, table};
    Walk loop{ofLoop, table};
    std::int32_t rows = 0;
    for (bool more = true; more; ++rows) {
        more = pass.next();
        if (more != loop.next()) throw std::runtime_error{"One side has left fewer rows in " + table};
        for (int i = 0; more && i < pass.columns(); ++i)
            if (pass.value(i) != loop.value(i))
                throw std::runtime_error{"The two sides differ in " + table + "." + pass.name(i) + ", row " +
                                         std::to_string(rows + 1)};
    }
    if (rows - 1 != companies)
        throw std::runtime_error{table + " has " + std::to_string(rows - 1) + " rows for " + std::to_string(companies) +
                                 " companies"};
}

}  // namespace

void requireSameResults(const Files& ofPass, const Files& ofLoop, std::int32_t companies) {
    requireSameTable("Items", ofPass.outlook, ofLoop.outlook, companies);
    requireSameTable("OutlookSync", ofPass.firm, ofLoop.firm, companies);
}

}  // namespace wmoutlook::bench

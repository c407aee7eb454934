#pragma once

#include "platform/Text.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace wmoutlook::testing {

/// A file as another program sees it: the engine alone, past all of our own code.
class RawDatabase {
public:
    explicit RawDatabase(const std::string& path) {
        sqlite3* opened = nullptr;
        EXPECT_EQ(sqlite3_open(path.c_str(), &opened), SQLITE_OK) << path;
        database_.reset(opened);
        sqlite3_create_collation(opened, "TEXTUAL", SQLITE_UTF8, nullptr, compare);
    }

    void run(const std::string& sql) const {
        EXPECT_EQ(sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sql << "\n"
            << sqlite3_errmsg(database_.get());
    }

    /// All rows of one SELECT, the columns of a row joined by bars.
    [[nodiscard]] std::vector<std::string> rows(const std::string& sql) const {
        sqlite3_stmt* prepared = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &prepared, nullptr), SQLITE_OK)
            << sql << "\n"
            << sqlite3_errmsg(database_.get());
        const std::unique_ptr<sqlite3_stmt, Close> statement{prepared};
        std::vector<std::string> rows;
        while (prepared && sqlite3_step(prepared) == SQLITE_ROW) {
            std::string row;
            for (int column = 0; column < sqlite3_column_count(prepared); ++column) {
                const auto* const value = static_cast<const char*>(sqlite3_column_blob(prepared, column));
                const auto size = static_cast<std::size_t>(sqlite3_column_bytes(prepared, column));
                const bool isNull = sqlite3_column_type(prepared, column) == SQLITE_NULL;
                row += (column > 0 ? "|" : "") + (isNull ? "null" : std::string(value ? value : "", size));
            }
            rows.push_back(row);
        }
        return rows;
    }

    /// The first row.
    [[nodiscard]] std::string text(const std::string& sql) const { return rows(sql).at(0); }
    [[nodiscard]] int number(const std::string& sql) const { return std::stoi(text(sql)); }

    /// By the engine's own check of the file.
    [[nodiscard]] bool isSound() const { return text("PRAGMA integrity_check") == "ok"; }

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    static int compare(void*, int leftSize, const void* left, int rightSize, const void* right) {
        const auto order = compareTextually({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                                            {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }

    std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace wmoutlook::testing

#pragma once

#include "platform/HostDatabase.h"

#include <filesystem>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace wmoutlook {

/// A folder for one test, gone with it.
class TestFolder {
public:
    TestFolder() {
        path_ = std::filesystem::temp_directory_path() / ("sql_" + std::to_string(std::random_device{}()));
        std::filesystem::create_directories(path_);
    }
    ~TestFolder() { std::filesystem::remove_all(path_); }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

using Values = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// Adds a row in the way the component does; its auto-number, or null in a table without one.
inline void addRow(HostDatabase& database, const std::string& table, Values values) {
    const auto rows = database.openRecordset("SELECT " + table + ".* FROM " + table + ";", LockCode::updatable);
    database.addNewRecord(rows);
    for (const auto& [field, value] : values) database.setNewField(rows, field, value);
    database.saveNewRecord(rows);
    database.closeRecordset(rows);
}

/// The values of one field, from the current row to the end.
inline std::vector<std::string> walk(HostDatabase& database, RecordsetHandle rows, std::string_view field) {
    std::vector<std::string> values;
    for (; !database.isEndOfRecordset(rows); database.moveNext(rows)) values.push_back(database.getField(rows, field).toText());
    return values;
}

}  // namespace wmoutlook

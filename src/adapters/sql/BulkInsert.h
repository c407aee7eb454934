#pragma once

#include "platform/Variant.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Writes many rows into a firm's file at once: all of them or none. Meant for files that nobody works in: the file stays
/// locked against other writers from the opening to the commit. Throws DatabaseError.
class BulkInsert {
public:
    /// Opens an existing file and begins.
    explicit BulkInsert(const std::string& path);
    ~BulkInsert();  ///< without a commit, nothing was written
    BulkInsert(const BulkInsert&) = delete;
    BulkInsert& operator=(const BulkInsert&) = delete;

    /// The table and columns of the rows that follow; may change any number of times.
    void into(std::string_view table, std::span<const std::string_view> columns);
    void into(std::string_view table, std::initializer_list<std::string_view> columns);

    /// One value per column, in the kind of the column: a truth value is stored as 0 or 1, a date as its day number. The row's
    /// key: its auto-number where the table has one.
    std::int64_t insert(std::span<const Variant> values);
    std::int64_t insert(std::initializer_list<Variant> values);

    void commit();

private:
    class Work;
    std::unique_ptr<Work> work_;
};

}  // namespace wmoutlook

#pragma once

#include "adapters/sql/BulkInsert.h"
#include "platform/Variant.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::sample {

struct Field {
    std::string_view column;
    Variant value;
};

/// New rows of a firm's file, each value beside the name of its column. Throws DatabaseError.
class Rows {
public:
    explicit Rows(const std::string& path) : bulk_(path) {}

    /// The row's auto-number where the table has one.
    std::int32_t add(std::string_view table, std::span<const Field> fields);
    std::int32_t add(std::string_view table, std::initializer_list<Field> fields);
    void commit() { bulk_.commit(); }

private:
    BulkInsert bulk_;
    std::vector<std::string_view> columns_;
    std::vector<Variant> values_;
};

}  // namespace wmoutlook::sample

#pragma once

#include "adapters/sql/BulkInsert.h"
#include "platform/Variant.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wmoutlook::sample {

struct Field {
    std::string_view column;
    Variant value;
};

/// New rows of a firm's file, each value beside the name of its column. Throws DatabaseError, and what `checkpoint` throws, which
/// is called before each row.
class Rows {
public:
    explicit Rows(
        const std::string& path, std::function<void()> checkpoint = [] {})
        : bulk_(path), checkpoint_(std::move(checkpoint)) {}

    /// The row's auto-number where the table has one.
    std::int32_t add(std::string_view table, std::span<const Field> fields);
    std::int32_t add(std::string_view table, std::initializer_list<Field> fields);
    void commit() { bulk_.commit(); }
    void passCheckpoint() const { checkpoint_(); }

private:
    BulkInsert bulk_;
    std::function<void()> checkpoint_;
    std::vector<std::string_view> columns_;
    std::vector<Variant> values_;
};

}  // namespace wmoutlook::sample

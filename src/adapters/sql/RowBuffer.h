#pragma once

#include "adapters/sql/Driver.h"

#include <cstdint>
#include <string>
#include <vector>

namespace wmoutlook::sql {

/// The values of one row, copied out of the engine. Reading the next row into it reuses its memory.
class RowBuffer {
public:
    void read(const Statement& statement, std::size_t columns) {
        cells_.clear();
        texts_.clear();
        for (std::size_t i = 0; i < columns; ++i) {
            const Cell cell = statement.cell(static_cast<int>(i));
            cells_.push_back({cell.kind, cell.integer, cell.real, texts_.size(), cell.text.size()});
            texts_ += cell.text;
        }
    }

    /// Its text lives until the next row is read.
    [[nodiscard]] Cell cell(std::size_t column) const {
        const Kept& kept = cells_[column];
        if (kept.kind != Cell::Kind::text) return {kept.kind, kept.integer, kept.real, {}};
        return Cell::of(std::string_view{texts_}.substr(kept.start, kept.length));
    }

private:
    struct Kept {
        Cell::Kind kind;
        std::int64_t integer;
        double real;
        std::size_t start;
        std::size_t length;
    };

    std::vector<Kept> cells_;
    std::string texts_;
};

}  // namespace wmoutlook::sql

#pragma once

#include "adapters/sql/Values.h"

#include <cstdint>
#include <set>
#include <utility>

namespace wmoutlook::sql {

/// Where in a fixed set the rows with a value are. It keeps hashes only and never forgets a place, so what it gives are
/// candidates: whether a row still holds the value shows when it is read.
class MemoryIndex {
public:
    void add(const Cell& cell, std::size_t index) {
        if (!cell.isNull()) places_.emplace(hashOf(cell), static_cast<std::uint32_t>(index));
    }

    /// The first candidate at or behind an index; false when there is none.
    [[nodiscard]] bool next(const Cell& cell, std::size_t from, std::size_t& index) const {
        const std::uint64_t hash = hashOf(cell);
        const auto place = places_.lower_bound({hash, static_cast<std::uint32_t>(from)});
        if (place == places_.end() || place->first != hash) return false;
        index = place->second;
        return true;
    }

private:
    std::set<std::pair<std::uint64_t, std::uint32_t>> places_;
};

}  // namespace wmoutlook::sql

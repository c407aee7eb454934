#pragma once

#include "adapters/outlookstore/Filter.h"
#include "adapters/outlookstore/ItemStorage.h"
#include "adapters/outlookstore/SeriesStorage.h"

#include <cstdint>
#include <optional>

namespace wmoutlook::outlookstore {

/// The items of a folder by one of the dates of kSortedProperties, equal ones in order of creation; those of a type without the
/// date come last. Only a place is kept.
class DateOrder {
public:
    DateOrder(ItemStorage& items, std::size_t date, std::int64_t folder, bool descending, SecondsRange range);

    /// The key of an item without the date has no meaning.
    [[nodiscard]] std::optional<ItemPlace> next();

private:
    ItemStorage& items_;
    std::size_t date_;
    std::int64_t folder_;
    bool descending_;
    SecondsRange range_;
    ItemPlace place_;
    bool isBehindDates_ = false;
};

}  // namespace wmoutlook::outlookstore

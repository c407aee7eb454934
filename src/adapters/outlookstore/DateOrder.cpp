#include "adapters/outlookstore/DateOrder.h"

namespace wmoutlook::outlookstore {

DateOrder::DateOrder(ItemStorage& items, std::size_t date, std::int64_t folder, bool descending, SecondsRange range)
    : items_(items), date_(date), folder_(folder), descending_(descending), range_(range) {
    constexpr SecondsRange kOpen;
    const std::int64_t behindHigh = range.high == kOpen.high ? kOpen.high : range.high + 1;
    const std::int64_t beforeLow = range.low == kOpen.low ? kOpen.low : range.low - 1;
    place_ = {descending ? behindHigh : beforeLow, kOpen.high};
}

std::optional<ItemPlace> DateOrder::next() {
    if (!isBehindDates_) {
        const auto found = items_.nextByDate(date_, folder_, place_, descending_);
        if (found && found->key >= range_.low && found->key <= range_.high) return place_ = *found;
        if (!range_.isOpen()) return std::nullopt;  // an item without the date fulfils no comparison with it
        isBehindDates_ = true;
        place_.number = 0;
    }
    const auto number = items_.nextWithoutKey(date_, folder_, place_.number);
    if (!number) return std::nullopt;
    place_.number = *number;
    return place_;
}

}  // namespace wmoutlook::outlookstore

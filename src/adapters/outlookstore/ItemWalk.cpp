#include "adapters/outlookstore/ItemWalk.h"

#include "adapters/outlookstore/DateOrder.h"
#include "adapters/outlookstore/OccurrenceWalk.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace wmoutlook::outlookstore {

namespace {

RowTest testOf(const ViewTerms& terms) {
    if (terms.restrictions.empty()) return {};
    return [&terms](const ItemHead& head, std::string_view bytes) { return terms.pass(head, bytes); };
}

class CreationWalk : public ItemWalk {
public:
    CreationWalk(StoreFile& file, const ViewTerms& terms) : items_(file.items()), folder_(terms.folder), test_(testOf(terms)) {
        for (const Restriction& restriction : terms.restrictions)
            if (!search_) search_ = restriction.filter.keySearch();
    }

    std::optional<WalkedItem> next() override {
        auto item = items_.next(folder_, position_, search_ ? &*search_ : nullptr, test_);
        if (!item) return std::nullopt;
        return WalkedItem{std::move(*item), std::nullopt};
    }

private:
    ItemStorage& items_;
    std::int64_t folder_;
    RowTest test_;
    std::optional<KeySearch> search_;
    std::int64_t position_ = 0;  ///< the number of the item that was given last
};

/// Goes through what an order gives and leaves out what has gone or does not pass.
template <typename Order>
class OrderedWalk : public ItemWalk {
public:
    OrderedWalk(StoreFile& file, const ViewTerms& terms, Order order)
        : items_(file.items()), folder_(terms.folder), test_(testOf(terms)), order_(std::move(order)) {}

    std::optional<WalkedItem> next() override {
        while (const auto place = order_.next())
            if (auto item = items_.loadIf(place->number, folder_, test_)) return WalkedItem{std::move(*item), std::nullopt};
        return std::nullopt;
    }

private:
    ItemStorage& items_;
    std::int64_t folder_;
    RowTest test_;
    Order order_;
};

/// By a property that no index sorts: its values and the numbers of the items are collected once.
class CollectedOrder {
public:
    CollectedOrder(ItemStorage& items, std::int64_t folder, const SortOrder& order) {
        collect(items, folder, order.property);
        std::stable_sort(entries_.begin(), entries_.end(), [&](const Entry& left, const Entry& right) {
            if (left.isThere != right.isThere) return left.isThere;  // without the property: last in either direction
            return order.descending ? isBefore(right, left) : isBefore(left, right);
        });
    }

    std::optional<ItemPlace> next() {
        if (next_ == entries_.size()) return std::nullopt;
        return ItemPlace{0, entries_[next_++].number};
    }

private:
    struct Entry {
        std::int64_t number = 0;
        bool isThere = false;
        std::string text;
        double value = 0;
    };

    void collect(ItemStorage& items, std::int64_t folder, const FilterProperty& property) {
        std::int64_t position = 0;
        const auto take = [&](const ItemHead& head, std::string_view bytes) {
            const PropertyValue value = valueOf(property, head, bytes);
            entries_.push_back({head.number, value.isThere, std::string{value.text}, value.number});
            return false;
        };
        while (true) {
            try {
                static_cast<void>(items.next(folder, position, nullptr, take));
                return;
            } catch (const OutlookError&) {  // it stays an error of that item, where the walk meets it
                entries_.push_back({position, false, {}, 0});
            }
        }
    }

    [[nodiscard]] static bool isBefore(const Entry& left, const Entry& right) {
        if (left.value != right.value) return left.value < right.value;
        return compareTextually(left.text, right.text) < 0;
    }

    std::vector<Entry> entries_;
    std::size_t next_ = 0;
};

}  // namespace

SortOrder sortOrder(std::string_view property, bool descending) {
    std::string_view name = withoutWhiteSpaceAround(property);
    if (name.starts_with('[') && name.ends_with(']')) name = withoutWhiteSpaceAround(name.substr(1, name.size() - 2));
    const auto found = findProperty(name);
    if (!found || found->name == "EntryID")
        throw OutlookError{-1, "Items cannot be sorted by \"" + std::string{name} + "\", which no type of item has or sorts by"};
    return {*found, descending};
}

bool ViewTerms::isExpanded() const {
    return includesRecurrences && order && order->property.name == "Start" && !order->descending;
}

SecondsRange ViewTerms::rangeOf(std::string_view dateProperty, bool onOccurrencesOnly) const {
    SecondsRange range;
    for (const Restriction& restriction : restrictions)
        if (restriction.isOnOccurrences || !onOccurrencesOnly) range.narrow(restriction.filter.rangeOf(dateProperty));
    return range;
}

bool ViewTerms::pass(const ItemHead& head, std::string_view bytes) const {
    return std::all_of(restrictions.begin(), restrictions.end(),
                       [&](const Restriction& restriction) { return restriction.filter.matches(head, bytes); });
}

std::unique_ptr<ItemWalk> makeWalk(StoreFile& file, const ViewTerms& terms) {
    if (!terms.order) return std::make_unique<CreationWalk>(file, terms);
    if (terms.isExpanded()) return std::make_unique<OccurrenceWalk>(file, terms);
    const SortOrder& order = *terms.order;
    for (std::size_t date = 0; date < kSortedProperties.size(); ++date)
        if (order.property.name == kSortedProperties[date])
            return std::make_unique<OrderedWalk<DateOrder>>(
                file, terms,
                DateOrder{file.items(), date, terms.folder, order.descending, terms.rangeOf(kSortedProperties[date], false)});
    return std::make_unique<OrderedWalk<CollectedOrder>>(file, terms, CollectedOrder{file.items(), terms.folder, order});
}

}  // namespace wmoutlook::outlookstore

#pragma once

#include "adapters/outlookstore/Filter.h"
#include "adapters/outlookstore/StoreFile.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The orders in which a view goes through its folder.
namespace wmoutlook::outlookstore {

struct SortOrder {
    FilterProperty property;
    bool descending = false;
};

/// Reads "[Start]" or "Start". Throws OutlookError for a name that no type of item has.
[[nodiscard]] SortOrder sortOrder(std::string_view property, bool descending);

/// A restriction of a view. It sees what the view showed when it was made: items, or the occurrences of series.
struct Restriction {
    Filter filter;
    bool isOnOccurrences = false;
};

/// What a view of a folder shows. Series are expanded when it is sorted by Start, the earliest first, and includes recurrences.
struct ViewTerms {
    std::int64_t folder = 0;
    std::vector<Restriction> restrictions;  ///< all of them hold
    std::optional<SortOrder> order;         ///< nothing: in order of creation
    bool includesRecurrences = false;

    [[nodiscard]] bool isExpanded() const;
    /// The starts that can pass the restrictions.
    [[nodiscard]] SecondsRange rangeOf(std::string_view dateProperty, bool onOccurrencesOnly) const;
    [[nodiscard]] bool pass(const ItemHead& head, std::string_view bytes) const;
};

struct WalkedItem {
    LoadedItem item;
    std::optional<DayNumber> occurrenceDay;  ///< of an occurrence: the day on which its pattern has it
};

/// One way through the folder. It sees what is added behind its place and goes on behind what is deleted and behind an item
/// that cannot be read, which is an error of the one step. It ends before the file does.
class ItemWalk {
public:
    virtual ~ItemWalk() = default;
    [[nodiscard]] virtual std::optional<WalkedItem> next() = 0;  ///< nothing at the end
};

/// `terms` outlives the walk.
[[nodiscard]] std::unique_ptr<ItemWalk> makeWalk(StoreFile& file, const ViewTerms& terms);

}  // namespace wmoutlook::outlookstore

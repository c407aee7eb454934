#pragma once

#include "adapters/outlookstore/ItemData.h"
#include "adapters/outlookstore/Sqlite.h"
#include "platform/Date.h"

#include <array>
#include <compare>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook::outlookstore {

/// An item's row but for what it holds.
struct ItemHead {
    std::int64_t number = 0;  ///< 0 until the first save; grows with the order of creation
    std::int64_t folder = 0;
    outlook::ItemType type = outlook::ItemType::mail;
    std::int64_t version = 0;  ///< counts the saves
    Date created = absentDate();
    Date modified = absentDate();
};

/// What the walk over rows asks of each: `bytes` is what ItemBlob.h reads, valid during the call.
using RowTest = std::function<bool(const ItemHead& head, std::string_view bytes)>;

struct LoadedItem {
    ItemHead head;
    ItemData data;
};

/// A moment as whole seconds since day 0, and the number of the item that stands there: the order of a calendar.
struct ItemPlace {
    std::int64_t key = 0;
    std::int64_t number = 0;
    friend auto operator<=>(const ItemPlace&, const ItemPlace&) = default;
};

/// A search that an index answers: the position in kIndexedProperties and the text in lower case, not empty.
struct KeySearch {
    std::size_t property = 0;
    std::string key;
};

/// The rows of the items. All statements are prepared when the file is opened and kept.
class ItemStorage {
public:
    explicit ItemStorage(Connection& connection);

    /// The first save gives the number. A later one writes what the handle holds over what the row holds, whoever wrote that; with
    /// `keysChanged` false the indexes are left alone when nobody else has written meanwhile. False: the row has gone.
    bool save(ItemHead& head, const ItemData& data, Date now, bool keysChanged);
    bool remove(std::int64_t number);

    /// With the number of the store in which it lies.
    [[nodiscard]] std::optional<LoadedItem> load(std::int64_t number, std::int64_t& store);
    /// The first item of the folder behind `position` that passes the test (none: any item); `position` moves with the rows, so
    /// that a walk goes on behind an item that cannot be read. One row is in memory at a time.
    [[nodiscard]] std::optional<LoadedItem> next(std::int64_t folder, std::int64_t& position, const KeySearch* search,
                                                 const RowTest& test);
    /// Nothing also for an item of another folder and for one that does not pass the test.
    [[nodiscard]] std::optional<LoadedItem> loadIf(std::int64_t number, std::int64_t folder, const RowTest& test);
    [[nodiscard]] std::int64_t count(std::int64_t folder);

    // Steps of a walk by a date of kSortedProperties, answered by its index alone.
    [[nodiscard]] std::optional<ItemPlace> nextByDate(std::size_t date, std::int64_t folder, ItemPlace place, bool descending);
    /// The items whose type does not have the date.
    [[nodiscard]] std::optional<std::int64_t> nextWithoutKey(std::size_t date, std::int64_t folder, std::int64_t behind);

private:
    void insert(ItemHead& head, const ItemData& data);
    bool updateWithoutKeys(ItemHead& head);
    bool update(ItemHead& head, const ItemData& data);

    Connection& connection_;
    Statement insert_, updateWithoutKeys_, update_, noteDeletion_, delete_, byNumber_, walk_, count_;
    std::array<Statement, kIndexedProperties.size()> byKey_;
    struct DateSteps {
        Statement after, tied, below, without;
    };
    [[nodiscard]] static DateSteps dateSteps(Connection& connection, std::size_t date);
    std::array<DateSteps, kSortedProperties.size()> byDate_;
    std::string bytes_;  ///< used again from save to save
    std::array<std::string, kIndexedProperties.size()> keys_;
};

}  // namespace wmoutlook::outlookstore

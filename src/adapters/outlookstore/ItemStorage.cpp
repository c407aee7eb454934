#include "adapters/outlookstore/ItemStorage.h"

#include "adapters/outlookstore/ItemBlob.h"
#include "platform/Text.h"

namespace wmoutlook::outlookstore {

namespace {

constexpr std::string_view kColumns =
    "SELECT ItemNumber, FolderNumber, ItemType, Version, Created, Modified, Properties FROM Items WHERE ";
constexpr std::string_view kBehind = "ItemNumber > ?2 ORDER BY ItemNumber";
constexpr std::array<std::string_view, kIndexedProperties.size()> kKeyColumns{"FileAsKey", "FullNameKey", "SubjectKey",
                                                                              "Email1AddressKey"};

std::string select(std::string_view condition) {
    return std::string{kColumns}.append(condition);
}

Statement searchByKey(Connection& connection, std::size_t property) {
    const std::string column{kKeyColumns[property]};
    return {connection, select("FolderNumber = ?1 AND " + column + " = ?3 AND ").append(kBehind), "looking for an item"};
}

constexpr std::array<std::string_view, kSortedProperties.size()> kDateColumns{"StartKey", "DueDateKey"};

Statement dateStep(Connection& connection, std::size_t date, std::string_view before, std::string_view after) {
    const std::string column{kDateColumns[date]};
    std::string sql{before};
    sql.append(" FROM Items WHERE FolderNumber = ?1 AND ").append(column).append(after);
    for (std::size_t at = 0; (at = sql.find('@', at)) != std::string::npos;) sql.replace(at, 1, column);
    return {connection, sql, "reading the items of a folder in order"};
}

ItemHead headOf(const Statement::Run& run) {
    ItemHead head{run.integer(0), run.integer(1),      outlook::ItemType::mail,
                  run.integer(3), Date{run.number(4)}, Date{run.number(5)}};
    const std::int64_t type = run.integer(2);
    if (type < 0 || type > 3)
        throw OutlookError{-1, "Item " + std::to_string(head.number) + " of the Outlook store is of no known type"};
    head.type = static_cast<outlook::ItemType>(type);
    return head;
}

constexpr int kBlobColumn = 6;
constexpr int kStoreColumn = 7;

LoadedItem loaded(const Statement::Run& run) {
    const ItemHead head = headOf(run);
    try {
        return {head, decodeItem(head.type, run.bytes(kBlobColumn))};
    } catch (const OutlookError& error) {
        throw OutlookError{error.number(), "Item " + std::to_string(head.number) + " of the Outlook store: " + error.what()};
    }
}

/// Parameters first, first + 1, ... in the order of kIndexedProperties, then of kSortedProperties.
void bindKeys(Statement::Run& run, int first, const ItemData& data, std::array<std::string, kIndexedProperties.size()>& keys) {
    for (std::size_t i = 0; i < kIndexedProperties.size(); ++i, ++first) {
        const auto index = data.table().find(kIndexedProperties[i]);
        const std::string_view text = index ? data.text(*index) : std::string_view{};
        keys[i] = lowerCase(text);
        text.empty() ? run.bindNull(first) : run.bind(first, std::string_view{keys[i]});
    }
    for (const std::string_view property : kSortedProperties) {
        const auto key = sortKeyOf(data, property);
        key ? run.bind(first, *key) : run.bindNull(first);
        ++first;
    }
}

}  // namespace

ItemStorage::ItemStorage(Connection& connection)
    : connection_(connection),
      insert_(connection,
              "INSERT INTO Items (ItemNumber, FolderNumber, ItemType, Version, Created, Modified, Properties, FileAsKey, "
              "FullNameKey, SubjectKey, Email1AddressKey, StartKey, DueDateKey) VALUES (1 + max(ifnull((SELECT max(ItemNumber) "
              "FROM Items), 0), "
              "(SELECT Value FROM Counters WHERE Name = 'HighestDeletedItem')), ?1, ?2, 1, ?3, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)",
              "saving a new item"),
      updateWithoutKeys_(
          connection,
          "UPDATE Items SET Version = Version + 1, Modified = ?3, Properties = ?4 WHERE ItemNumber = ?1 AND Version = ?2",
          "saving an item"),
      update_(connection,
              "UPDATE Items SET Version = Version + 1, Modified = ?2, Properties = ?3, FileAsKey = ?4, FullNameKey = ?5, "
              "SubjectKey = ?6, Email1AddressKey = ?7, StartKey = ?8, DueDateKey = ?9 WHERE ItemNumber = ?1 RETURNING Version",
              "saving an item"),
      noteDeletion_(connection,
                    "UPDATE Counters SET Value = max(Value, ?1) WHERE Name = 'HighestDeletedItem' AND "
                    "?1 = (SELECT max(ItemNumber) FROM Items)",
                    "deleting an item"),
      delete_(connection, "DELETE FROM Items WHERE ItemNumber = ?1", "deleting an item"),
      byNumber_(
          connection,
          "SELECT ItemNumber, FolderNumber, ItemType, Version, Created, Modified, Properties, (SELECT StoreNumber FROM Folders "
          "WHERE Folders.FolderNumber = Items.FolderNumber) FROM Items WHERE ItemNumber = ?1",
          "reading an item"),
      walk_(connection, select("FolderNumber = ?1 AND ").append(kBehind), "reading the items of a folder"),
      count_(connection, "SELECT count(*) FROM Items WHERE FolderNumber = ?1", "counting the items of a folder"),
      byKey_{searchByKey(connection, 0), searchByKey(connection, 1), searchByKey(connection, 2), searchByKey(connection, 3)},
      byDate_{dateSteps(connection, 0), dateSteps(connection, 1)} {}

ItemStorage::DateSteps ItemStorage::dateSteps(Connection& connection, std::size_t date) {
    return {dateStep(connection, date, "SELECT @, ItemNumber",
                     " IS NOT NULL AND (@, ItemNumber) > (?2, ?3) ORDER BY @, ItemNumber LIMIT 1"),
            dateStep(connection, date, "SELECT @, ItemNumber", " = ?2 AND ItemNumber > ?3 ORDER BY ItemNumber LIMIT 1"),
            dateStep(connection, date, "SELECT @", " < ?2 ORDER BY @ DESC LIMIT 1"),
            dateStep(connection, date, "SELECT ItemNumber", " IS NULL AND ItemNumber > ?2 ORDER BY ItemNumber LIMIT 1")};
}

bool ItemStorage::save(ItemHead& head, const ItemData& data, Date now, bool keysChanged) {
    encodeItem(data, bytes_);
    ItemHead saved = head;
    saved.modified = now;
    if (head.number == 0) {
        saved.created = now;
        insert(saved, data);
    } else if ((keysChanged || !updateWithoutKeys(saved)) && !update(saved, data)) {
        return false;
    }
    head = saved;
    return true;
}

void ItemStorage::insert(ItemHead& head, const ItemData& data) {
    auto run = insert_.run();
    run.bind(1, head.folder).bind(2, static_cast<std::int64_t>(head.type)).bind(3, head.modified.days).bindBlob(4, bytes_);
    bindKeys(run, 5, data, keys_);
    run.finish();
    head.number = connection_.lastKey();
    head.version = 1;
}

bool ItemStorage::updateWithoutKeys(ItemHead& head) {
    updateWithoutKeys_.run().bind(1, head.number).bind(2, head.version).bind(3, head.modified.days).bindBlob(4, bytes_).finish();
    if (connection_.changedRows() == 0) return false;
    ++head.version;
    return true;
}

bool ItemStorage::update(ItemHead& head, const ItemData& data) {
    auto run = update_.run();
    run.bind(1, head.number).bind(2, head.modified.days).bindBlob(3, bytes_);
    bindKeys(run, 4, data, keys_);
    if (!run.next()) return false;
    head.version = run.integer(0);
    run.finish();
    return true;
}

bool ItemStorage::remove(std::int64_t number) {
    Savepoint whole{connection_, "deleting an item"};
    noteDeletion_.run().bind(1, number).finish();
    delete_.run().bind(1, number).finish();
    if (connection_.changedRows() == 0) return false;
    whole.release();
    return true;
}

std::optional<LoadedItem> ItemStorage::load(std::int64_t number, std::int64_t& store) {
    auto run = byNumber_.run();
    if (!run.bind(1, number).next()) return std::nullopt;
    store = run.integer(kStoreColumn);
    return loaded(run);
}

std::optional<LoadedItem> ItemStorage::next(std::int64_t folder, std::int64_t& position, const KeySearch* search,
                                            const RowTest& test) {
    auto run = (search != nullptr ? byKey_[search->property] : walk_).run();
    run.bind(1, folder).bind(2, position);
    if (search != nullptr) run.bind(3, std::string_view{search->key});
    while (run.next()) {
        position = run.integer(0);
        if (!test || test(headOf(run), run.bytes(kBlobColumn))) return loaded(run);
    }
    return std::nullopt;
}

std::optional<LoadedItem> ItemStorage::loadIf(std::int64_t number, std::int64_t folder, const RowTest& test) {
    auto run = byNumber_.run();
    if (!run.bind(1, number).next()) return std::nullopt;
    const ItemHead head = headOf(run);
    if (head.folder != folder || (test && !test(head, run.bytes(kBlobColumn)))) return std::nullopt;
    return loaded(run);
}

std::optional<ItemPlace> ItemStorage::nextByDate(std::size_t date, std::int64_t folder, ItemPlace place, bool descending) {
    DateSteps& steps = byDate_[date];
    const auto step = [&](Statement& statement, ItemPlace from) -> std::optional<ItemPlace> {
        auto run = statement.run();
        if (!run.bind(1, folder).bind(2, from.key).bind(3, from.number).next()) return std::nullopt;
        return ItemPlace{run.integer(0), run.integer(1)};
    };
    if (!descending) return step(steps.after, place);
    if (const auto tied = step(steps.tied, place)) return tied;
    std::optional<std::int64_t> key;
    {
        auto run = steps.below.run();
        if (run.bind(1, folder).bind(2, place.key).next()) key = run.integer(0);
    }
    return key ? step(steps.tied, {*key, 0}) : std::nullopt;
}

std::optional<std::int64_t> ItemStorage::nextWithoutKey(std::size_t date, std::int64_t folder, std::int64_t behind) {
    auto run = byDate_[date].without.run();
    if (!run.bind(1, folder).bind(2, behind).next()) return std::nullopt;
    return run.integer(0);
}

std::int64_t ItemStorage::count(std::int64_t folder) {
    auto run = count_.run();
    return run.bind(1, folder).next() ? run.integer(0) : 0;
}

}  // namespace wmoutlook::outlookstore

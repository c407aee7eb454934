#include "adapters/outlookstore/FolderStorage.h"

#include "platform/Errors.h"
#include "platform/Text.h"

#include <array>

namespace wmoutlook::outlookstore {

namespace {

using outlook::DefaultFolder;
using outlook::ItemType;

struct KindRow {
    DefaultFolder kind;
    ItemType itemType;
    std::string_view name;
};

/// In the order in which Outlook makes them; the name is that of the default folder.
constexpr std::array kKinds{
    KindRow{kDeletedItems, ItemType::mail, "Deleted Items"},
    KindRow{DefaultFolder::inbox, ItemType::mail, "Inbox"},
    KindRow{DefaultFolder::outbox, ItemType::mail, "Outbox"},
    KindRow{DefaultFolder::sentMail, ItemType::mail, "Sent Items"},
    KindRow{DefaultFolder::calendar, ItemType::appointment, "Calendar"},
    KindRow{DefaultFolder::contacts, ItemType::contact, "Contacts"},
    KindRow{DefaultFolder::drafts, ItemType::mail, "Drafts"},
    KindRow{DefaultFolder::tasks, ItemType::task, "Tasks"},
};

ItemType itemTypeOf(DefaultFolder kind) {
    for (const KindRow& row : kKinds)
        if (row.kind == kind) return row.itemType;
    throw OutlookError{-1, "There is no kind of folder with the number " + std::to_string(static_cast<int>(kind))};
}

void checkName(std::string_view name) {
    if (withoutWhiteSpaceAround(name).empty()) throw OutlookError{-1, "A folder needs a name"};
    if (name.find('\\') != std::string_view::npos) throw OutlookError{-1, "The name of a folder cannot hold a backslash"};
}

constexpr std::string_view kColumns = "SELECT FolderNumber, ParentNumber, Name, ItemType, StoreNumber FROM Folders WHERE ";

std::string select(std::string_view condition) {
    return std::string{kColumns}.append(condition);
}

}  // namespace

FolderStorage::FolderStorage(Connection& connection)
    : connection_(connection),
      byNumber_(connection, select("FolderNumber = ?1"), "reading a folder"),
      byRole_(connection, select("StoreNumber = (SELECT min(StoreNumber) FROM Stores) AND Role = ?1"),
              "reading a default folder"),
      byName_(connection, select("ParentNumber = ?1 AND NameKey = ?2"), "looking for a folder"),
      byIndex_(connection, select("ParentNumber = ?1 ORDER BY FolderNumber LIMIT 1 OFFSET ?2"), "reading the folders"),
      count_(connection, "SELECT count(*) FROM Folders WHERE ParentNumber = ?1", "counting the folders"),
      insertFolder_(
          connection,
          "INSERT INTO Folders (StoreNumber, ParentNumber, Name, NameKey, ItemType, Role) VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
          "adding a folder"),
      insertStore_(connection, "INSERT INTO Stores (StoreKey, Name, NameKey) VALUES (?1, ?2, ?3)", "adding a store"),
      storeByNumber_(connection, "SELECT StoreNumber, StoreKey, Name FROM Stores WHERE StoreNumber = ?1", "reading a store"),
      storeByKey_(connection, "SELECT StoreNumber FROM Stores WHERE StoreKey = ?1", "looking for a store") {}

void FolderStorage::addStore(std::string_view key, std::string_view name) {
    checkName(name);
    Savepoint whole{connection_, "adding a store"};
    const std::string nameKey = lowerCase(name);
    if (findChild(kNoParent, name)) throw OutlookError{-1, "There is a store of this name already"};
    insertStore_.run().bind(1, key).bind(2, name).bind(3, std::string_view{nameKey}).finish();
    const std::int64_t storeNumber = connection_.lastKey();
    const std::int64_t root = insert(storeNumber, kNoParent, name, ItemType::mail, std::nullopt);
    for (const KindRow& row : kKinds) insert(storeNumber, root, row.name, row.itemType, row.kind);
    whole.release();
}

void FolderStorage::requireDefaultFolders() {
    if (childCount(kNoParent) == 0) connection_.refuse("is damaged: it has no root folder");
    for (const KindRow& row : kKinds)
        if (!findDefault(row.kind)) connection_.refuse(std::string{"lacks the default folder \""}.append(row.name).append("\""));
}

bool FolderStorage::hasStoreKey(std::string_view key) {
    auto run = storeByKey_.run();
    return run.bind(1, key).next();
}

std::shared_ptr<const StoreRow> FolderStorage::store(std::int64_t number) {
    auto& known = stores_[number];
    if (!known) {
        auto run = storeByNumber_.run();
        if (!run.bind(1, number).next()) connection_.refuse("is damaged: a folder belongs to no store");
        known = std::make_shared<const StoreRow>(StoreRow{run.integer(0), run.text(1), run.text(2)});
    }
    return known;
}

std::optional<FolderRow> FolderStorage::read(Statement::Run& run) {
    if (!run.next()) return std::nullopt;
    const std::int64_t type = run.integer(3);
    // A parent is older than its child: with that, no way up or down the tree can go in a circle.
    if (run.integer(1) >= run.integer(0) || type < 0 || type > 3)
        connection_.refuse("is damaged: folder " + std::to_string(run.integer(0)) + " has no place or type that can be");
    return FolderRow{run.integer(0), run.integer(1), run.text(2), static_cast<ItemType>(type), store(run.integer(4))};
}

std::optional<FolderRow> FolderStorage::find(std::int64_t number) {
    auto run = byNumber_.run();
    return read(run.bind(1, number));
}

std::optional<FolderRow> FolderStorage::findDefault(DefaultFolder role) {
    auto run = byRole_.run();
    return read(run.bind(1, static_cast<std::int64_t>(role)));
}

std::optional<FolderRow> FolderStorage::findChild(std::int64_t parent, std::string_view name) {
    const std::string key = lowerCase(name);
    auto run = byName_.run();
    return read(run.bind(1, parent).bind(2, std::string_view{key}));
}

std::optional<FolderRow> FolderStorage::childAt(std::int64_t parent, std::int64_t index) {
    auto run = byIndex_.run();
    return read(run.bind(1, parent).bind(2, index));
}

std::int64_t FolderStorage::childCount(std::int64_t parent) {
    auto run = count_.run();
    return run.bind(1, parent).next() ? run.integer(0) : 0;
}

FolderRow FolderStorage::add(const FolderRow& parent, std::string_view name, DefaultFolder kind) {
    checkName(name);
    const ItemType type = itemTypeOf(kind);
    Savepoint whole{connection_, "adding a folder"};
    if (findChild(parent.number, name)) throw OutlookError{-1, "There is a folder of this name already"};
    const std::int64_t number = insert(parent.store->number, parent.number, name, type, std::nullopt);
    whole.release();
    return FolderRow{number, parent.number, std::string{name}, type, parent.store};
}

std::int64_t FolderStorage::insert(std::int64_t storeNumber, std::int64_t parent, std::string_view name, ItemType type,
                                   std::optional<DefaultFolder> role) {
    const std::string key = lowerCase(name);
    auto run = insertFolder_.run();
    run.bind(1, storeNumber)
        .bind(2, parent)
        .bind(3, name)
        .bind(4, std::string_view{key})
        .bind(5, static_cast<std::int64_t>(type));
    role ? run.bind(6, static_cast<std::int64_t>(*role)) : run.bindNull(6);
    run.finish();
    return connection_.lastKey();
}

}  // namespace wmoutlook::outlookstore

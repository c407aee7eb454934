#pragma once

#include "adapters/outlookstore/Sqlite.h"
#include "platform/outlook/ObjectModel.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::outlookstore {

/// Above the root folder of each store.
inline constexpr std::int64_t kNoParent = 0;
/// Deleted Items, which the object model's enumeration leaves out.
inline constexpr auto kDeletedItems = static_cast<outlook::DefaultFolder>(3);

struct StoreRow {
    std::int64_t number = 0;
    std::string key;  ///< the 32 digits of its identifiers
    std::string name;
};

struct FolderRow {
    std::int64_t number = 0;
    std::int64_t parent = kNoParent;
    std::string name;
    outlook::ItemType itemType = outlook::ItemType::mail;
    std::shared_ptr<const StoreRow> store;
};

/// Stores and folders in the file. The store of the lowest number is the default one.
class FolderStorage {
public:
    explicit FolderStorage(Connection& connection);

    /// Makes a store with its root and default folders. `key` must be new; a name that cannot be is an OutlookError.
    void addStore(std::string_view key, std::string_view name);
    /// Throws OutlookError when the default store is gone, or one of its folders that every Outlook has.
    void requireDefaultFolders();
    [[nodiscard]] bool hasStoreKey(std::string_view key);
    [[nodiscard]] std::shared_ptr<const StoreRow> store(std::int64_t number);

    [[nodiscard]] std::optional<FolderRow> find(std::int64_t number);
    [[nodiscard]] std::optional<FolderRow> findDefault(outlook::DefaultFolder role);  ///< of the default store
    [[nodiscard]] std::optional<FolderRow> findChild(std::int64_t parent, std::string_view name);
    /// Children in order of creation, `index` from 0.
    [[nodiscard]] std::optional<FolderRow> childAt(std::int64_t parent, std::int64_t index);
    [[nodiscard]] std::int64_t childCount(std::int64_t parent);
    FolderRow add(const FolderRow& parent, std::string_view name, outlook::DefaultFolder kind);

private:
    std::int64_t insert(std::int64_t storeNumber, std::int64_t parent, std::string_view name, outlook::ItemType type,
                        std::optional<outlook::DefaultFolder> role);
    [[nodiscard]] std::optional<FolderRow> read(Statement::Run& run);

    Connection& connection_;
    Statement byNumber_, byRole_, byName_, byIndex_, count_, insertFolder_, insertStore_, storeByNumber_, storeByKey_;
    std::map<std::int64_t, std::shared_ptr<const StoreRow>> stores_;  ///< a store never changes
};

}  // namespace wmoutlook::outlookstore

#pragma once

#include "adapters/outlookstore/PropertyTable.h"
#include "adapters/outlookstore/Recurrence.h"
#include "platform/Variant.h"
#include "platform/outlook/ObjectModel.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a program that owns an embedded store does with it beyond Outlook's object model: listing, paths, deletion by
/// identifier. `store` is what openOutlookStore gave (anything else is an OutlookError). All of this works whether or not
/// an Outlook "is running", and sees the uncommitted state of a dry run. Errors are OutlookErrors with one sentence.
namespace wmoutlook::outlookstore {

struct ListedProperty {
    std::string_view name;
    PropertyKind kind = PropertyKind::text;
    Variant value;
};

struct ListedUserProperty {
    std::string name;
    outlook::UserPropertyType type = outlook::UserPropertyType::text;
    Variant value;  ///< null when it was never set
};

struct ListedRecipient {
    outlook::RecipientType type = outlook::RecipientType::to;
    std::string name;
    std::string address;  ///< empty while it is not resolved
};

struct ListedAttachment {
    std::string fileName;
    std::string displayName;
    std::int64_t size = 0;  ///< in bytes
};

struct ListedItem {
    std::string entryID;  ///< empty for an item that was never saved
    std::string storeID;
    std::string folder;  ///< as ListedFolder::path
    outlook::ItemType type = outlook::ItemType::mail;
    outlook::ItemClass itemClass = outlook::ItemClass::mail;
    std::vector<ListedProperty> properties;  ///< those that differ from the default, without EntryID and Class, in table order
    std::vector<ListedUserProperty> userProperties;
    std::optional<Recurrence> recurrence;       ///< of a series, not of its occurrences
    std::vector<ListedRecipient> recipients{};  ///< of a mail, in the order in which they were added
    std::vector<ListedAttachment> attachments{};
};

struct ListedFolder {
    std::string path;  ///< "Contacts/Clients" in the default store, otherwise "\\Store\Contacts"; findFolder takes either
    std::string name;
    std::string storeName;
    std::string entryID;
    std::string storeID;
    outlook::ItemType defaultItemType = outlook::ItemType::mail;
    std::int32_t depth = 0;  ///< 0 for the root folder of a store
    std::int32_t itemCount = 0;
};

/// Every folder of every store: the default store first, a folder before those below it, siblings in order of creation.
[[nodiscard]] std::vector<ListedFolder> listFolders(outlook::port::Automation& store);

/// A folder by its path: "Contacts/Clients" below the root of the default store, "\\Store\Contacts\Clients" in any store.
/// Names are compared without regard to case. An empty path or "/" is the default store's root. No such folder: an error.
[[nodiscard]] std::shared_ptr<outlook::port::MAPIFolder> findFolder(outlook::port::Automation& store, std::string_view path);

/// Adds the last folder of the path to an existing parent. The kind decides the default item type.
std::shared_ptr<outlook::port::MAPIFolder> addFolder(outlook::port::Automation& store, std::string_view path,
                                                     outlook::DefaultFolder kind);

/// Told of an item that cannot be read, by its failure's sentence; nothing: the failure ends the walk.
using Unreadable = std::function<void(const std::string& sentence)>;

/// Calls `visit` for each item of one folder (without those below it), or of all folders when there is no path, in folder
/// order, one item in memory at a time. The visitor may delete the item that it is shown.
void forEachItem(outlook::port::Automation& store, std::optional<std::string_view> folderPath,
                 const std::function<void(const ListedItem&)>& visit, const Unreadable& unreadable = {});

/// The appointments of one folder, or of all, that start on the days from `first` to `last`, in order of start within a folder, each
/// occurrence of a series for itself.
void forEachOccurrence(outlook::port::Automation& store, std::optional<std::string_view> folderPath, Date first, Date last,
                       const std::function<void(const ListedItem&)>& visit, const Unreadable& unreadable = {});

/// Makes an appointment or a task of an embedded store a series; takes effect with the next save, which moves its start to the
/// first day of the pattern. The item has its start by then. A recurrence that cannot be is one sentence, and changes nothing.
void setRecurrence(outlook::port::Item& item, const Recurrence& recurrence);

/// What an item of an embedded store holds now, saved or not.
[[nodiscard]] ListedItem describe(const outlook::port::Item& item);

/// The bytes of an attachment, by its place among the attachments that `describe` gives.
[[nodiscard]] std::string attachmentContent(const outlook::port::Item& mail, std::size_t index);

/// The item of this identifier, in whichever store of the file it lies.
[[nodiscard]] std::shared_ptr<outlook::port::Item> findItem(outlook::port::Automation& store, std::string_view entryID);
void deleteItem(outlook::port::Automation& store, std::string_view entryID);

/// All properties of a type of item, for checking input: PropertyTable::of(type).find(name) gives the row of a name.
[[nodiscard]] std::span<const PropertyRow> propertyTable(outlook::ItemType type);

}  // namespace wmoutlook::outlookstore

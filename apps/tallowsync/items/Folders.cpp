#include "apps/tallowsync/items/Folders.h"

#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/Console.h"
#include "platform/Errors.h"

namespace wmoutlook {

namespace {

using outlook::DefaultFolder;
using outlook::ItemType;

struct FolderType {
    std::string_view name;
    ItemType items;
    DefaultFolder kind;
};

constexpr FolderType kFolderTypes[] = {
    {"contacts", ItemType::contact, DefaultFolder::contacts},
    {"calendar", ItemType::appointment, DefaultFolder::calendar},
    {"tasks", ItemType::task, DefaultFolder::tasks},
    {"mail", ItemType::mail, DefaultFolder::inbox},
};

}  // namespace

std::shared_ptr<outlook::port::MAPIFolder> requireFolder(outlook::port::Automation& store, const std::string& path) {
    try {
        return outlookstore::findFolder(store, path);
    } catch (const OutlookError&) {
        throw UsageError{"There is no folder \"" + path +
                         "\" in the Outlook store; 'tallowsync outlook FILE folders' lists them"};
    }
}

std::shared_ptr<outlook::port::Item> requireItem(outlook::port::Automation& store, const std::string& entryID) {
    try {
        return outlookstore::findItem(store, entryID);
    } catch (const OutlookError&) {
        throw UsageError{"There is no item \"" + entryID + "\" in the Outlook store; 'tallowsync outlook FILE list' lists them"};
    }
}

std::string_view folderTypeName(ItemType type) {
    for (const FolderType& row : kFolderTypes)
        if (row.items == type) return row.name;
    return "mail";
}

DefaultFolder folderKind(std::string_view typeName) {
    for (const FolderType& row : kFolderTypes)
        if (row.name == typeName) return row.kind;
    return DefaultFolder::inbox;
}

}  // namespace wmoutlook

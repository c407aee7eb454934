#include "apps/tallowsync/items/Folders.h"

#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/Console.h"
#include "apps/tallowsync/OptionTexts.h"
#include "apps/tallowsync/PlainText.h"
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

/// To the store such a path is its uppermost folder, which nobody means who forgets to fill in a name.
bool namesNothing(std::string_view path) {
    return path.find_first_not_of("/\\ ") == std::string_view::npos;
}

bool hasFolder(outlook::port::Automation& store, const std::string& path) {
    try {
        return outlookstore::findFolder(store, path) != nullptr;
    } catch (const OutlookError&) {
        return false;
    }
}

}  // namespace

std::shared_ptr<outlook::port::MAPIFolder> requireFolder(outlook::port::Automation& store, const std::string& path) {
    if (namesNothing(path))
        throw UsageError{"The path of a folder is empty; 'tallowsync outlook FILE folders' lists the folders"};
    try {
        return outlookstore::findFolder(store, path);
    } catch (const OutlookError&) {
        throw UsageError{"There is no folder " + inQuotes(path) +
                         " in the Outlook store; 'tallowsync outlook FILE folders' lists them"};
    }
}

std::shared_ptr<outlook::port::MAPIFolder> addNamedFolder(outlook::port::Automation& store, const std::string& path,
                                                          DefaultFolder kind) {
    const bool namesStore = path.starts_with("\\\\");
    const char* const separators = namesStore ? "\\" : "/\\";
    const std::string_view trail = std::string_view{path}.substr(0, path.find_last_not_of(separators) + 1);
    const std::size_t nameStart = trail.find_last_of(separators) + 1;  // 0 when there is none
    static_cast<void>(nameText("PATH", trail.substr(nameStart)));
    const std::string parent{trail.substr(0, nameStart == 0 ? 0 : nameStart - 1)};
    if (namesStore && namesNothing(parent)) throw UsageError{"PATH: " + inQuotes(path) + " names a store, and none can be added"};
    if (!namesNothing(parent)) static_cast<void>(requireFolder(store, parent));
    if (hasFolder(store, path)) throw UsageError{"There is a folder " + inQuotes(path) + " already; choose another name"};
    return outlookstore::addFolder(store, path, kind);
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

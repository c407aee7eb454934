#pragma once

#include "platform/outlook/ObjectModel.h"

#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Throws UsageError, naming the path, when the store has no such folder.
[[nodiscard]] std::shared_ptr<outlook::port::MAPIFolder> requireFolder(outlook::port::Automation& store, const std::string& path);
/// Throws UsageError, naming the identifier, when no store of the file has such an item.
[[nodiscard]] std::shared_ptr<outlook::port::Item> requireItem(outlook::port::Automation& store, const std::string& entryID);

/// "contacts", "calendar", "tasks", "mail".
[[nodiscard]] std::string_view folderTypeName(outlook::ItemType type);
/// The kind of folder for one of these names.
[[nodiscard]] outlook::DefaultFolder folderKind(std::string_view typeName);

}  // namespace wmoutlook

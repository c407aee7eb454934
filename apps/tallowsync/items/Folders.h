#pragma once

#include "platform/outlook/ObjectModel.h"

#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Throws UsageError, naming the path, when the store has no such folder or the path names none.
[[nodiscard]] std::shared_ptr<outlook::port::MAPIFolder> requireFolder(outlook::port::Automation& store, const std::string& path);
/// Adds a folder below one that is there. Throws UsageError, naming the path, when that is not there, when the new one is, or when
/// its name can be none.
[[nodiscard]] std::shared_ptr<outlook::port::MAPIFolder> addNamedFolder(outlook::port::Automation& store, const std::string& path,
                                                                        outlook::DefaultFolder kind);
/// Throws UsageError, naming the identifier, when no store of the file has such an item.
[[nodiscard]] std::shared_ptr<outlook::port::Item> requireItem(outlook::port::Automation& store, const std::string& entryID);

/// "contacts", "calendar", "tasks", "mail".
[[nodiscard]] std::string_view folderTypeName(outlook::ItemType type);
/// The kind of folder for one of these names.
[[nodiscard]] outlook::DefaultFolder folderKind(std::string_view typeName);

}  // namespace wmoutlook

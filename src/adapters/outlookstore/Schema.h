#pragma once

#include "adapters/outlookstore/Sqlite.h"
#include "adapters/sql/SqliteDatabase.h"

#include <functional>
#include <memory>
#include <string>

/// The shape of a store's file, and the ways in which a file becomes one.
namespace wmoutlook::outlookstore {

/// Opens a file that is an Outlook store and brings it up to this program's version. Throws OutlookError, one sentence with
/// the way out, for a file that is missing, something else (then only its first bytes were read) or a store that lacks what every run
/// needs: nothing on disk has changed then.
[[nodiscard]] std::unique_ptr<Connection> openStoreFile(const std::string& path, Durability durability,
                                                        int busyTimeoutMilliseconds);

/// Makes a new file with the tables in it and what `fill` adds, in one transaction. An existing file is an error and stays as it
/// is; when making it fails nothing is left behind.
void createStoreFile(const std::string& path, const std::function<void(Connection&)>& fill);

}  // namespace wmoutlook::outlookstore

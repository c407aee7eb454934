#pragma once

#include "adapters/sql/SqliteConnection.h"

#include <memory>
#include <string>

namespace wmoutlook::sql {

/// A connection to a firm's file that is known to be one. Opening changes nothing on disk.
[[nodiscard]] std::unique_ptr<SqliteConnection> connectToFirm(const std::string& path, const SqliteOptions& options);

/// A connection to any SQLite file with whatever tables; its journal stays as it is.
[[nodiscard]] std::unique_ptr<SqliteConnection> connectToStore(const std::string& path, const SqliteOptions& options);

}  // namespace wmoutlook::sql

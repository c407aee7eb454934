#pragma once

#include "platform/HostDatabase.h"

#include <memory>
#include <string>

namespace wmoutlook {

/// How durable each single write is. Either way a killed process loses nothing that was written.
enum class Durability {
    normal,  ///< write-ahead log, synced at checkpoints: a power cut may undo the last writes, never damages the file
    full     ///< synced at every write
};

struct SqliteOptions {
    Durability durability = Durability::normal;
    bool readOnly = false;
    /// Everything is done as always and undone when the database is closed.
    bool dryRun = false;
    int busyTimeoutMilliseconds = 2000;  ///< how long to wait for another process that holds the file
};

/// Opens a firm's file. Throws DatabaseError with one sentence that names the file when it is missing, is no database,
/// lacks a table of the reference schema, cannot be written to (unless readOnly) or stays locked by another process.
[[nodiscard]] std::shared_ptr<HostDatabase> openSqliteDatabase(const std::string& path, const SqliteOptions& options = {});

/// Creates an empty firm's file with the reference schema. An existing file is an error and stays as it is.
void createSqliteDatabase(const std::string& path);

}  // namespace wmoutlook

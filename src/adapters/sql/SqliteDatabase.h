#pragma once

#include "platform/HostDatabase.h"

#include <cstdint>
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

/// Opens a firm's file. Throws DatabaseError with one sentence that names the file when it is missing, is no database, is cut
/// short, lacks a table or column of the reference schema (it may have more), cannot be written to (unless readOnly) or stays locked by another process.
[[nodiscard]] std::shared_ptr<HostDatabase> openSqliteDatabase(const std::string& path, const SqliteOptions& options = {});

/// What the work on a database has cost so far.
struct SqlStatistics {
    std::int64_t preparedStatements = 0;  ///< grows with the shapes of texts that were met, never with the rows
    std::int64_t engineSteps = 0;         ///< instructions of the engine's virtual machine, all statements together
    std::int64_t scannedRows = 0;         ///< rows that were stepped over for want of an index
};

/// Of a database that openSqliteDatabase gave; zeros for any other.
[[nodiscard]] SqlStatistics sqlStatistics(HostDatabase& database);

/// Creates an empty firm's file with the reference schema. An existing file is an error and stays as it is.
void createSqliteDatabase(const std::string& path);

}  // namespace wmoutlook

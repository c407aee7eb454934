#pragma once

#include "adapters/sql/SqliteDatabase.h"
#include "platform/Platform.h"
#include "platform/outlook/ObjectModel.h"

#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

struct OutlookStoreOptions {
    Durability durability = Durability::normal;
    /// Everything is done as always and undone when the last object of the store is released.
    bool dryRun = false;
    bool isRunning = true;     ///< whether an Outlook is running already when the store is opened
    bool canStart = true;      ///< whether a new one can be created
    bool acceptsLogon = true;  ///< false: every logon is refused
    int busyTimeoutMilliseconds = 2000;
    std::shared_ptr<Clock> clock;  ///< for creation and modification times; nothing: the machine's
};

/// Opens an embedded Outlook store: one file with one or more stores, their folders and items. Throws OutlookError with one
/// sentence that names the file when it is missing, is no Outlook store, is damaged, lacks a table or column, cannot be written to or
/// stays locked by another process.
[[nodiscard]] std::shared_ptr<outlook::port::Automation> openOutlookStore(const std::string& path,
                                                                          const OutlookStoreOptions& options = {});

/// Creates a file with one store and the default folders. The random source gives the store's identifier. An existing file
/// is an error and stays as it is.
void createOutlookStore(const std::string& path, RandomSource& random);

/// Adds another store with the default folders to an existing file, which is not the default one. A name that is empty,
/// holds a backslash or is taken is an error.
void addOutlookStore(const std::string& path, std::string_view name, RandomSource& random);

}  // namespace wmoutlook

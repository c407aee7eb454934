#pragma once

#include "apps/tallowsync/Console.h"
#include "apps/tallowsync/run/SyncReport.h"
#include "apps/tallowsync/run/SyncRequest.h"

namespace wmoutlook {

/// Throws UsageError for a setting that no property of the component takes, and tells a number that is none of the values of its
/// enumeration: the component takes any. Nothing is opened.
void checkSettings(const SyncRequest& request, Console& console);

/// Opens both sides, does one run of the component between them and closes them again. Throws UsageError before anything is
/// written, DatabaseError or OutlookError when a side cannot be opened.
[[nodiscard]] SyncReport runSync(const SyncRequest& request, Console& console);

}  // namespace wmoutlook

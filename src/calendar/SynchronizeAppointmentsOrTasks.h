#pragma once

#include "syncstore/SyncRun.h"

namespace wmoutlook {

/// The pass that carries appointments or tasks of the chosen users across, one way per run. Towards Outlook every row in the
/// date range is written, whether it has changed or not; then, if asked for, the items of rows that are gone are deleted.
/// Without a connection, without users, and for a direction that has no pass, nothing is opened and nothing is touched.
void SynchronizeAppointmentsOrTasks(SyncRun& run);

}  // namespace wmoutlook

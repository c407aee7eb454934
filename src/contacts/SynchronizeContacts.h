#pragma once

#include "syncstore/SyncRun.h"

namespace wmoutlook {

/// The pass that carries companies and contacts across, one way per run: every selected record is written, whether it has
/// changed or not. Without a connection, and for a direction that has no pass, nothing is opened and nothing is touched.
void SynchronizeContacts(SyncRun& run);

}  // namespace wmoutlook

#pragma once

#include "apps/tallowsync/run/SyncRequest.h"
#include "platform/HostDatabase.h"
#include "platform/RecordList.h"
#include "platform/outlook/ObjectModel.h"

namespace wmoutlook {

/// Fills the two selection lists of the component as the wizard would. Numbers and identifiers that name nothing are put in
/// like any other: the run drops them. `folder` is where the items of "all" lie, and the store of identifiers that name nothing.
void fillSelection(const SyncRequest& request, HostDatabase& database, outlook::port::Automation& store,
                   const outlook::port::MAPIFolder& folder, RecordList& companies, RecordList& contacts);

}  // namespace wmoutlook

#pragma once

#include "apps/tallowsync/run/SyncRequest.h"
#include "platform/HostDatabase.h"
#include "platform/RecordList.h"
#include "platform/outlook/ObjectModel.h"

#include <functional>
#include <string_view>

namespace wmoutlook {

/// What a selection is looked up in.
struct SelectionSources {
    HostDatabase& database;
    outlook::port::Automation& store;
    const outlook::port::MAPIFolder& folder;  ///< where the items of "all" lie, and the store of identifiers that name nothing
    std::function<void(std::string_view)> tell;
};

/// Fills the two selection lists of the component as the wizard would. Numbers and identifiers that name nothing are told and
/// put in like any other: the run drops them.
void fillSelection(const SyncRequest& request, const SelectionSources& sources, RecordList& companies, RecordList& contacts);

}  // namespace wmoutlook

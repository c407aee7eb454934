#pragma once

#include "apps/tallowsync/run/RunEnd.h"
#include "apps/tallowsync/run/WrittenRecords.h"
#include "platform/outlook/ObjectModel.h"

#include <memory>

namespace wmoutlook {

/// What was written through a recording Outlook, and the end that its calls watch for.
struct OutlookRecord {
    WrittenRecords items;  ///< entry identifiers
    std::shared_ptr<RunEnd> end;
};

/// An Outlook that passes every call on and keeps what was written: an item that is saved for the first time is created, one
/// that is saved later is updated. Once the run is to end, the next call unwinds it.
[[nodiscard]] std::shared_ptr<outlook::port::Automation> recordOutlook(std::shared_ptr<outlook::port::Automation> outlook,
                                                                       std::shared_ptr<OutlookRecord> record);

}  // namespace wmoutlook

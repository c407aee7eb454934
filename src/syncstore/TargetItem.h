#pragma once

#include "syncstore/SyncRun.h"

#include <string>
#include <string_view>

/// What every pass towards Outlook does around the writing of an item.
namespace wmoutlook {

/// The result of a writer that saved nothing.
inline constexpr std::string_view kNothingWritten = "-1";

/// The store of the run's folder: the chosen one, otherwise that of the default folder, whose entry identifier then stays in
/// the options after the run. Empty when it could not be told.
[[nodiscard]] std::string targetStore(SyncRun& run, outlook::DefaultFolder folder);

/// The linked item, or a new one in the run's folder (in the default folder of its type when none is named): an item that was
/// deleted in Outlook comes back. A blank entryID is no link.
[[nodiscard]] outlook::Item itemToWrite(const SyncRun& run, outlook::ItemType type, std::string_view entryID,
                                        std::string_view storeID);

/// Puts the user properties of a synchronized item on it. The identity lives in the links: two of them stay without a value.
void stamp(const outlook::Item& item, Date dateLastSynched);

}  // namespace wmoutlook

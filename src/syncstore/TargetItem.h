#pragma once

#include "platform/HostDatabase.h"
#include "syncstore/SyncRun.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// What every pass towards Outlook does around the writing of an item.
namespace wmoutlook {

class Recordset;

/// The result of a writer whose row is gone. The pass keeps it in the link.
inline constexpr std::string_view kNothingWritten = "-1";

/// The store of the run's folder: the chosen one, otherwise that of the default folder, whose entry identifier then stays in
/// the options after the run. Empty when it could not be told.
[[nodiscard]] std::string targetStore(SyncRun& run, outlook::DefaultFolder folder);

/// Whether there is an item and it is of this type. One that does not tell its class passes, when the host goes on: what is linked was of
/// the right one.
[[nodiscard]] bool isOfType(const outlook::Item& item, outlook::ItemType type);
/// Nothing when the class could not be read: what is deleted waits for a certain answer.
[[nodiscard]] std::optional<bool> isOfTypeIfTold(const outlook::Item& item, outlook::ItemType type);

/// The linked item, or a new one in the run's folder (in the default folder of its type when none is named): an item that was
/// deleted in Outlook comes back, and an item of another type is not touched. A blank entryID is no link.
[[nodiscard]] outlook::Item itemToWrite(const SyncRun& run, outlook::ItemType type, std::string_view entryID,
                                        std::string_view storeID);

/// Puts the user properties of a synchronized item on it. The identity lives in the links: two of them stay without a value.
void stamp(const outlook::Item& item, Date dateLastSynched);

/// A row of the host that goes into an item.
struct RowToWrite {
    std::string_view table;
    std::string_view key;
    std::int32_t number = kNoRecord;
    LockCode lock = LockCode::readOnly;
};

using WriteFields = std::function<void(const outlook::Item& item, const Recordset& row)>;

/// Finds the row, has its fields written and saves the item. `written` becomes the item's entry identifier, kNothingWritten
/// when the row is gone, and keeps no value when the item was not saved for another reason: a link that stands is to stay.
void writeRow(const RowToWrite& row, const outlook::Item& item, const WriteFields& writeFields,
              std::optional<std::string>& written);

}  // namespace wmoutlook

#pragma once

#include "adapters/outlookstore/ItemStorage.h"
#include "adapters/outlookstore/Recurrence.h"
#include "adapters/outlookstore/SeriesStorage.h"
#include "adapters/outlookstore/StoreFile.h"

#include <optional>

/// What saving and deleting mean for a series and for one of its occurrences.
namespace wmoutlook::outlookstore {

[[nodiscard]] bool isSeries(const ItemData& item);

/// The pattern as it is kept: no exceptions, and its end also where that follows from the number of occurrences. Throws
/// OutlookError, one sentence, for what cannot be.
[[nodiscard]] Recurrence soundPattern(const Recurrence& recurrence, const ItemData& series);
/// The changes of the exceptions as values of their properties' own kinds. Throws OutlookError, one sentence, when one stands on no
/// day of the pattern, or changes what an occurrence does not have or what cannot be written.
[[nodiscard]] std::vector<RecurrenceException> soundExceptions(const Recurrence& recurrence, const ItemData& series);

/// Saves the item with its series; its start moves to the pattern's first day. A new pattern, or without one another start or
/// end than the one that was saved, ends all exceptions but those that come with it. False: the item has gone.
bool saveSeries(StoreFile& file, ItemHead& head, ItemData& data, const Recurrence* recurrence);

/// What the series shows on this day, with what is other there; nothing when the occurrence was deleted.
[[nodiscard]] std::optional<ItemData> occurrenceOf(SeriesStorage& series, const LoadedItem& master, DayNumber originalDay);

/// `data` becomes what the exception of this day is. False: the series or the occurrence has gone.
bool saveOccurrence(StoreFile& file, ItemHead& head, ItemData& data, DayNumber originalDay);
bool removeOccurrence(StoreFile& file, const ItemHead& head, DayNumber originalDay);

}  // namespace wmoutlook::outlookstore

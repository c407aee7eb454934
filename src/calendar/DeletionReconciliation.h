#pragma once

#include "syncstore/CalendarTable.h"
#include "syncstore/SyncRun.h"

#include <string_view>

namespace wmoutlook {

/// Walks the links of the run's store once, after a calendar run, to carry deletions across. Links of contacts in the same
/// store are left alone. What could not be asked for certain is not deleted.
class DeletionReconciliation {
public:
    DeletionReconciliation(SyncRun& run, const CalendarTable& table) : run_(run), table_(table) {}

    /// The host row is gone: its item and the link go too.
    void deleteMissingTallowbrookApptsInOutlook(std::string_view storeID) const;
    /// Acts on the links whose item Outlook still gives, on purpose: their host rows are deleted with completed reminders and
    /// sent notifications kept, and the links go too. A link whose item is gone stays, with its row. The number of the row is
    /// read from AppointmentNum in a run of tasks too: where a link holds none that is a failure of this routine, and the number
    /// that an appointment's link of the same store holds deletes the task of that number. A run of appointments passes over the
    /// links of tasks.
    void deleteMissingOutlookApptsInTallowbrook(std::string_view storeID) const;

private:
    template <class Carry>
    void walkLinks(std::string_view errorTag, std::string_view storeID, Carry carry) const;

    SyncRun& run_;
    const CalendarTable& table_;
};

}  // namespace wmoutlook

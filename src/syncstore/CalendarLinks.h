#pragma once

#include "syncstore/CalendarTable.h"
#include "syncstore/SyncRun.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

class Recordset;

/// One occurrence of an Outlook item. A series has one entry identifier for all its occurrences, the host one row for each:
/// their links are told apart by the day.
struct Occurrence {
    bool isRecurring = false;
    Date day;  ///< of this occurrence; looked at for the link when it is recurring
};

/// The links between the host's appointments or tasks and Outlook's items. A link belongs to one data file and one Outlook
/// store: in another store every item is new. With a closed database nothing is found and nothing is kept.
class CalendarLinks {
public:
    CalendarLinks(SyncRun& run, const CalendarTable& table) : run_(run), table_(table) {}

    /// Empty when there is no link; no value at all when that could not be told, so that nothing is created twice.
    [[nodiscard]] std::optional<std::string> getOutlookIDFromTallowbrookAppointmentID(std::int32_t hostID,
                                                                                      std::string_view storeID) const;
    /// The linked host row, or -1. An appointment without a link is looked for among the user's rows; a task never is. No value
    /// when it could not be told.
    [[nodiscard]] std::optional<std::int32_t> getTallowbrookAppointmentIDFromOutlookID(std::string_view entryID,
                                                                                       std::int32_t userID,
                                                                                       std::string_view storeID,
                                                                                       const Occurrence& occurrence) const;
    /// The number that the host's rows of this series share, -1 for an item that is no series. A number that is known is
    /// written to all links of the series; a new one is not: the link that is saved next carries it.
    [[nodiscard]] std::int32_t getTallowbrookRepeatNumFromOutlookRecurringItemID(std::string_view entryID, std::int32_t userID,
                                                                                 std::string_view storeID,
                                                                                 bool isRecurring) const;
    /// A row of the user that says the same as an unlinked item, so that a first run over calendars that match already doubles
    /// nothing: subject and day and, for an item that is not all-day, start and end. The first one, or -1; no value when
    /// it could not be told.
    [[nodiscard]] std::optional<std::int32_t> lookForSameAppointmentInTallowbrook(std::string_view entryID, std::int32_t userID,
                                                                                  std::string_view storeID, Date day) const;

    /// After a host row was written to Outlook.
    void saveAppointmentOutlookID(std::int32_t hostID, std::string_view entryID, std::string_view storeID) const;
    /// After an item was written to the host.
    void saveOutlookAppointmentID(std::string_view entryID, std::int32_t hostID, std::string_view storeID,
                                  const Occurrence& occurrence, std::int32_t repeatNum) const;

private:
    [[nodiscard]] std::string queryOfSame(const outlook::Item& item, std::int32_t userID, Date day) const;

    SyncRun& run_;
    const CalendarTable& table_;
};

}  // namespace wmoutlook

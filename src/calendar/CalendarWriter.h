#pragma once

#include "syncstore/CalendarTable.h"
#include "syncstore/SyncRun.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

class Recordset;

/// Writes one host appointment or task into one Outlook item: the item is updated when it can be got, otherwise created. What
/// is mapped is overwritten every time, nothing is compared; what could not be read is left alone.
class CalendarWriter {
public:
    CalendarWriter(SyncRun& run, const CalendarTable& table) : run_(run), table_(table) {}

    // The result is the entry identifier of the saved item, kNothingWritten (TargetItem.h) when the host's row is gone, and no
    // value when the item was not saved for another reason. A blank entryID creates an item.

    std::optional<std::string> createNewTallowbrookAppointmentInOutlook(std::int32_t appointmentID, std::string_view entryID,
                                                                        std::string_view storeID) const;
    std::optional<std::string> CreateTask(std::int32_t taskID, std::string_view entryID, std::string_view storeID) const;

private:
    using WriteMapped = void (CalendarWriter::*)(const outlook::Item& item, const Recordset& row) const;

    [[nodiscard]] std::optional<std::string> write(std::string_view errorTag, std::int32_t hostID, std::string_view entryID,
                                                   std::string_view storeID, WriteMapped writeMapped) const;
    void writeAppointment(const outlook::Item& item, const Recordset& row) const;
    void writeTask(const outlook::Item& item, const Recordset& row) const;
    void writeBody(const outlook::Item& item, const Recordset& row) const;

    // Rich text, as the notes of an appointment hold it.

    [[nodiscard]] bool IsTextInRTBEmpty(std::string_view text) const;
    /// Declared as a truth value, so the plain text is converted to one on its way out: what is written to Outlook is "True" or
    /// "False", and a text that is neither a number nor a truth value fails, which is told of the row. Meant so.
    [[nodiscard]] bool getPlainTextFromRTBText(std::string_view text, const Recordset& row) const;

    SyncRun& run_;
    const CalendarTable& table_;
};

inline constexpr std::int32_t kDefaultReminderMinutes = 5;

/// The minutes of a reminder text such as "15 Min", "1 Hr", "2 Days" or "1 Week"; kDefaultReminderMinutes for a
/// text without such a word. A text that
/// does not begin with a number, and more minutes than 16 bits hold, are a ConversionError.
[[nodiscard]] std::int32_t reminderMinutes(std::string_view period);

}  // namespace wmoutlook

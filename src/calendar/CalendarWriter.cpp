#include "calendar/CalendarWriter.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "platform/outlook/PropertyNames.h"
#include "platform/richtext/RichText.h"
#include "syncstore/TargetItem.h"

#include <optional>

namespace wmoutlook {

namespace property = outlook::property;
using ValueHelper::isNullOrEmpty;

namespace {

/// The client of a calendar row under the name that stands in the item. One that could not be told changes nothing in Outlook.
struct Client {
    bool isTold = false;
    std::optional<std::string> name{};  ///< nothing when the row has no client
};

Client named(std::optional<std::string> name) {
    const bool isTold = name.has_value();
    return {isTold, std::move(name)};
}

using NameOfContact = std::optional<std::string> (*)(std::int32_t);

Client clientOf(const Recordset& row, NameOfContact nameOfContact) {
    const auto companyID = row.numberIfRead("CompanyIDNum", kNoRecord);
    const auto hasCompany = companyID ? modDatabaseFunctions::validCompanyIDIfTold(*companyID) : std::nullopt;
    if (!hasCompany) return {};
    if (*hasCompany) return named(modDatabaseFunctions::getCompanyNameFromCompanyIDIfTold(*companyID));
    const auto contactID = row.numberIfRead("ContactIDNum", kNoRecord);
    const auto hasContact = contactID ? modDatabaseFunctions::validContactIDIfTold(*contactID) : std::nullopt;
    if (!hasContact) return {};
    return *hasContact ? named(nameOfContact(*contactID)) : Client{.isTold = true};
}

/// The row's subject with its client behind it; nothing when one of them could not be told.
std::optional<std::string> subjectFor(const Recordset& row, const Client& client, std::string_view joint) {
    auto subject = row.textIfRead("Subject");
    if (!subject || !client.isTold) return std::nullopt;
    if (client.name) subject->append(joint).append(*client.name);
    return subject;
}

/// The day of the row joined with one of its times; a blank time is midnight. Nothing when the day is blank or was not read.
std::optional<Date> moment(const Recordset& row, std::string_view timeField) {
    const auto day = row.dateIfRead("DateFrom");
    if (!day) return std::nullopt;
    return row.convert(
        timeField,
        [&]() -> std::optional<Date> {
            const auto time = row.fieldIfRead(timeField);
            if (!time) return std::nullopt;
            if (isNullOrEmpty(*time)) return dayOf(*day);
            return fromSecondsSinceDayZero(secondsSinceDayZero(dayOf(*day)) + secondsSinceDayZero(timeOf(time->toDate())));
        },
        std::nullopt);
}

/// A row without a client says so by -1: a blank number in the host is put right on the way.
void repairBlankClient(const Recordset& row) {
    for (const std::string_view field : {"CompanyIDNum", "ContactIDNum"})
        if (const auto number = row.textIfRead(field); number && isNullOrEmpty(*number)) row.update(field, toText(kNoRecord));
}

/// Without a reminder in the host, one that was set by hand in Outlook stays.
void writeReminder(const outlook::Item& item, const Recordset& row) {
    if (!row.truth("Remind")) return;
    item.put(property::ReminderSet, true);
    const auto minutes = row.convert(
        "ReminderPeriod",
        [&]() -> std::optional<std::int32_t> {
            const auto period = row.textIfRead("ReminderPeriod");
            return period ? std::optional<std::int32_t>{reminderMinutes(*period)} : std::nullopt;
        },
        kDefaultReminderMinutes);
    if (minutes) item.put(property::ReminderMinutesBeforeStart, *minutes);
}

}  // namespace

std::optional<std::string> CalendarWriter::write(std::string_view errorTag, std::int32_t hostID, std::string_view entryID,
                                                 std::string_view storeID, WriteMapped writeMapped) const {
    std::optional<std::string> written;
    Routine routine{errorTag, &run_.ExitProgram};
    routine.run([&] {
        const outlook::Item target = itemToWrite(run_, table_.itemType, entryID, storeID);
        stamp(target, now());
        writeRow(
            {table_.name, table_.key, hostID, LockCode::updatable}, target,
            [&](const outlook::Item& item, const Recordset& row) {
                (this->*writeMapped)(item, row);
                if (run_.options.showProgress)
                    showProgressCaption(run_.appointmentsProgress, "Synchronizing " + row.text("Subject"));
            },
            written);
    });
    return written;
}

std::optional<std::string> CalendarWriter::createNewTallowbrookAppointmentInOutlook(std::int32_t appointmentID,
                                                                                    std::string_view entryID,
                                                                                    std::string_view storeID) const {
    return write("wmoutlooktb.dll-clsOutlookSynchronization-createNewTallowbrookAppointmentInOutlook", appointmentID, entryID,
                 storeID, &CalendarWriter::writeAppointment);
}

std::optional<std::string> CalendarWriter::CreateTask(std::int32_t taskID, std::string_view entryID,
                                                      std::string_view storeID) const {
    return write("wmoutlooktb.dll-clsOutlookSynchronization-CreateTask", taskID, entryID, storeID, &CalendarWriter::writeTask);
}

void CalendarWriter::writeAppointment(const outlook::Item& item, const Recordset& row) const {
    if (const auto start = moment(row, "TimeFrom")) item.put(property::Start, *start);
    if (const auto end = moment(row, "TimeTo")) item.put(property::End, *end);
    repairBlankClient(row);

    const Client client = clientOf(row, modDatabaseFunctions::getContactNameFromContactIDIfTold);
    if (client.name) item.put(property::Companies, *client.name);
    if (const auto subject = subjectFor(row, client, " with ")) item.put(property::Subject, *subject);

    writeBody(item, row);
    writeReminder(item, row);
}

/// A task takes neither notes nor a reminder to Outlook.
void CalendarWriter::writeTask(const outlook::Item& item, const Recordset& row) const {
    if (const auto day = row.dateIfRead("DateFrom")) item.put(property::DueDate, *day);

    const Client client = clientOf(row, modDatabaseFunctions::getDisplayNameFromContactIDIfTold);
    if (const auto subject = subjectFor(row, client, " for ")) item.put(property::Subject, *subject);
    if (client.name) item.put(property::Companies, *client.name);

    if (const auto isClosed = row.truthIfRead("Closed")) item.put(property::Complete, *isClosed);
}

void CalendarWriter::writeBody(const outlook::Item& item, const Recordset& row) const {
    const Variant notes = row.field("TextBody");
    if (notes.isNull()) return;
    const std::string text = notes.toText();
    if (!IsTextInRTBEmpty(text)) item.put(property::Body, getPlainTextFromRTBText(text, row));
}

bool CalendarWriter::IsTextInRTBEmpty(std::string_view text) const {
    bool isEmpty = true;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-IsTextInRTBEmpty", &run_.ExitProgram};
    routine.run([&] { isEmpty = RichText::isEmpty(text); });
    return isEmpty;
}

bool CalendarWriter::getPlainTextFromRTBText(std::string_view text, const Recordset& row) const {
    bool asTruthValue = false;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getPlainTextFromRTBText", &run_.ExitProgram};
    routine.run([&] {
        const std::string plainText = RichText::plainText(text);
        asTruthValue = row.convert(
            "TextBody", [&] { return Variant{plainText}.toBoolean(); }, false);
    });
    return asTruthValue;
}

}  // namespace wmoutlook

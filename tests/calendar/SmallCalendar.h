#pragma once

#include "tests/calendar/CalendarFirm.h"

#include <algorithm>
#include <string>
#include <vector>

namespace wmoutlook::testing {

/// Three appointments of one user: with a company, with a contact and a reminder, alone.
struct SmallCalendar {
    static constexpr std::int32_t kUser = 1;

    explicit SmallCalendar(HostDatabase& database) {
        const auto company = addCompany(database, {{"CompanyName", "Birch"}});
        const auto contact = addContact(database, {{"DisplayName", "Bob"}});
        add(database, {{"Subject", "A"}, {"CompanyIDNum", toText(company)}, {"TimeFrom", "09:00:00"}, {"TextBody", "True"}});
        add(database, {{"Subject", "B"}, {"ContactIDNum", toText(contact)}, {"Remind", "True"}, {"ReminderPeriod", "1 Hr"}});
        add(database, {{"Subject", "C"}, {"CompanyIDNum", ""}});
    }

    void selectAll(clsOutlookSynchronization& component) const {
        component.syncObjects(outlookSyncObjectsEnum::syncAppointments);
        component.mvarUseAppointmentDateRange = false;
        component.companyCollection->clear();
        component.companyCollection->add({Variant{}, Variant{}, kUser});
    }

    /// What holds after every complete run: one link for each row, which leads to an item with the row's subject.
    static void expectComplete(TestHost& host) {
        EXPECT_EQ(linkedSubjects(host), (std::vector<std::string>{"1: A with Birch", "2: B with Bob", "3: C"}));
    }

    /// An item as a run writes it, whatever failed since: what could not be read or told changes nothing in it.
    static void expectWholeItems(TestHost& host) {
        const std::vector<std::string> whole{"A with Birch|2026-11-24 09:00:00|2026-11-24|Birch|True|False|15",
                                             "B with Bob|2026-11-24|2026-11-24|Bob||True|60",
                                             "C|2026-11-24|2026-11-24|||False|15"};
        for (const auto& item : itemsOf(host)) {
            std::string content = textOf(*item, property::Subject);
            for (const std::string_view name : {property::Start, property::End, property::Companies, property::Body,
                                                property::ReminderSet, property::ReminderMinutesBeforeStart})
                content += "|" + textOf(*item, name);
            EXPECT_NE(std::find(whole.begin(), whole.end(), content), whole.end()) << content;
        }
    }

    /// "number: subject" of each link that leads to an item, in order.
    [[nodiscard]] static std::vector<std::string> linkedSubjects(TestHost& host) {
        const auto items = itemsOf(host);
        std::vector<std::string> found;
        const RecordsetHandle rows = host.database->openRecordset("SELECT OutlookSync.* FROM OutlookSync;", LockCode::readOnly);
        const auto text = [&](const char* field) { return host.database->getField(rows, field).toText(); };
        for (host.database->moveFirst(rows); !host.database->isEndOfRecordset(rows); host.database->moveNext(rows)) {
            // A row that lost its data file, store or number to a skipped statement is no link any more.
            if (text("DataFileID") != "DF" || text("FolderStoreID").empty() || text("AppointmentNum").empty()) continue;
            for (const auto& item : items)
                if (textOf(*item, property::EntryID) == text("OutlookID"))
                    found.push_back(text("AppointmentNum") + ": " + textOf(*item, property::Subject));
        }
        host.database->closeRecordset(rows);
        std::sort(found.begin(), found.end());
        return found;
    }

    [[nodiscard]] static std::vector<std::shared_ptr<outlook::port::Item>> itemsOf(TestHost& host) {
        return itemsIn(*host.outlookStore, outlook::DefaultFolder::calendar);
    }

private:
    static void add(HostDatabase& database, Fields fields) {
        fields.insert(fields.end(), {{"UserIDNum", toText(kUser)}, {"DateFrom", "2026-11-24"}});
        addRow(database, "Appointments", "AppointmentID", fields);
    }
};

/// The same, and behind the first run its third row is gone.
struct CalendarWithGoneRow : SmallCalendar {
    using SmallCalendar::SmallCalendar;

    static void changeAfterFirstRun(HostDatabase& database) {
        const RecordsetHandle rows = database.openRecordset("SELECT Appointments.* FROM Appointments;", LockCode::updatable);
        ASSERT_TRUE(database.findFirst(rows, "AppointmentID", "3"));
        database.deleteRecord(rows);
        database.closeRecordset(rows);
    }
};

}  // namespace wmoutlook::testing

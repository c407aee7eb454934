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
        const auto items = itemsOf(host);
        std::vector<std::string> found;
        const RecordsetHandle rows = host.database->openRecordset("SELECT OutlookSync.* FROM OutlookSync;", LockCode::readOnly);
        const auto text = [&](const char* field) { return host.database->getField(rows, field).toText(); };
        for (host.database->moveFirst(rows); !host.database->isEndOfRecordset(rows); host.database->moveNext(rows)) {
            // A row that lost its data file, store or number to a skipped statement is no link any more.
            if (text("DataFileID") != "DF" || text("FolderStoreID").empty() || text("AppointmentNum").empty()) continue;
            std::string subject = "gone";
            for (const auto& item : items)
                if (textOf(*item, property::EntryID) == text("OutlookID")) subject = textOf(*item, property::Subject);
            found.push_back(text("AppointmentNum") + ": " + subject);
        }
        host.database->closeRecordset(rows);
        std::sort(found.begin(), found.end());
        EXPECT_EQ(found, (std::vector<std::string>{"1: A with Birch", "2: B with Bob", "3: C"}));
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

}  // namespace wmoutlook::testing

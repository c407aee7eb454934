#pragma once

#include "platform/outlook/PropertyNames.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace wmoutlook::testing {

namespace property = outlook::property;

struct CalendarLink {
    std::string appointmentNum, taskNum, outlookID, isRecurring, day, repeatNum;

    friend bool operator==(const CalendarLink&, const CalendarLink&) = default;
};

/// A firm of two users with one company and one contact, and a component that is connected to Outlook.
struct CalendarFirm {
    static constexpr std::int32_t kUser = 1;
    static constexpr std::int32_t kOtherUser = 2;

    TestHost host;
    std::int32_t company = addCompany(*host.database, {{"CompanyName", "Birch Inc."}});
    std::int32_t contact = addContact(*host.database, {{"DisplayName", "Bob Alder"}});
    std::unique_ptr<clsOutlookSynchronization> component = host.component();

    explicit CalendarFirm(outlookSyncObjectsEnum objects) {
        component->syncObjects(objects);
        component->mvarUseAppointmentDateRange = false;
        component->startOutlook();
    }

    std::int32_t addAppointment(Fields fields) { return add("Appointments", "AppointmentID", std::move(fields)); }
    std::int32_t addTask(Fields fields) { return add("Tasks", "TaskID", std::move(fields)); }

    /// One run for these users.
    void run(std::initializer_list<std::int32_t> users = {kUser}) {
        component->companyCollection->clear();
        for (const std::int32_t user : users) component->companyCollection->add({Variant{}, Variant{}, user});
        component->synchronize();
    }

    [[nodiscard]] std::shared_ptr<outlook::port::NameSpace> nameSpace() const { return nameSpaceOf(*host.outlookStore); }
    [[nodiscard]] std::shared_ptr<outlook::port::MAPIFolder> folder() const { return nameSpace()->getDefaultFolder(kind()); }
    [[nodiscard]] std::vector<std::shared_ptr<outlook::port::Item>> items() const { return itemsIn(*host.outlookStore, kind()); }
    [[nodiscard]] std::vector<std::string> subjects() const {
        std::vector<std::string> subjects;
        for (const auto& item : items()) subjects.push_back(textOf(*item, property::Subject));
        return subjects;
    }

    [[nodiscard]] std::vector<CalendarLink> links() const {
        std::vector<CalendarLink> links;
        eachRow("OutlookSync", [&](const auto& text) {
            links.push_back({text("AppointmentNum"), text("TaskNum"), text("OutlookID"), text("IsRecurringItem"),
                             text("RecurringItemDate"), text("RepeatNum")});
        });
        return links;
    }
    /// A column of a whole table, row by row.
    [[nodiscard]] std::vector<std::string> column(const std::string& table, const std::string& field) const {
        std::vector<std::string> values;
        eachRow(table, [&](const auto& text) { values.push_back(text(field)); });
        return values;
    }
    void remove(const std::string& table, const std::string& key, std::int32_t number) const {
        const RecordsetHandle rows =
            host.database->openRecordset("SELECT " + table + ".* FROM " + table + ";", LockCode::updatable);
        ASSERT_TRUE(host.database->findFirst(rows, key, toText(number)));
        host.database->deleteRecord(rows);
        host.database->closeRecordset(rows);
    }

private:
    [[nodiscard]] outlook::DefaultFolder kind() const {
        const bool isTasks = component->syncObjects() == outlookSyncObjectsEnum::syncTasks;
        return isTasks ? outlook::DefaultFolder::tasks : outlook::DefaultFolder::calendar;
    }

    std::int32_t add(const std::string& table, const std::string& key, Fields fields) {
        std::map<std::string, std::string> all{
            {"UserIDNum", toText(kUser)}, {"DateFrom", "2026-11-24"}, {"CompanyIDNum", "-1"}, {"ContactIDNum", "-1"}};
        for (auto& [field, value] : fields) all[field] = value;
        return addRow(*host.database, table, key, Fields(all.begin(), all.end()));
    }

    template <class Visit>
    void eachRow(const std::string& table, Visit visit) const {
        HostDatabase& database = *host.database;
        const RecordsetHandle rows = database.openRecordset("SELECT " + table + ".* FROM " + table + ";", LockCode::readOnly);
        const auto text = [&](const std::string& field) { return database.getField(rows, field).toText(); };
        for (database.moveFirst(rows); !database.isEndOfRecordset(rows); database.moveNext(rows)) visit(text);
        database.closeRecordset(rows);
    }
};

}  // namespace wmoutlook::testing

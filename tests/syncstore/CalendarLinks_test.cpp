#include "syncstore/CalendarLinks.h"
#include "hostdata/HostServices.h"
#include "platform/Routine.h"
#include "tests/calendar/CalendarFirm.h"
#include "tests/support/FaultyDatabase.h"
#include "tests/support/RawDatabase.h"

namespace wmoutlook::testing {
namespace {

constexpr Occurrence kSingle{};

/// Calendar links without a run around them.
class CalendarLinking : public ::testing::Test {
protected:
    CalendarFirm firm{outlookSyncObjectsEnum::syncAppointments};
    SyncRun run;
    CalendarLinks appointments{run, kAppointmentsTable};
    CalendarLinks tasks{run, kTasksTable};
    std::string store = firm.folder()->storeID();

    void SetUp() override {
        run.options.dataFileUniqueID = "DF";
        run.outlook.nameSpace = outlook::NameSpace{firm.nameSpace()};
    }

    static Occurrence onDay(std::int32_t day) { return {true, makeDay(2026, 11, day)}; }

    std::string addItem(const std::string& subject, const std::string& start, const std::string& end) {
        const auto item = firm.folder()->items()->add(std::nullopt);
        item->put(property::Subject, subject);
        item->put(property::Start, *fromIsoText(start));
        item->put(property::End, *fromIsoText(end));
        item->save();
        return textOf(*item, property::EntryID);
    }
};

TEST_F(CalendarLinking, AreScopedByKindStoreAndDataFile) {
    appointments.saveAppointmentOutlookID(7, "A", store);
    tasks.saveAppointmentOutlookID(7, "T", store);
    appointments.saveAppointmentOutlookID(7, "B", "other store");
    EXPECT_EQ(appointments.getOutlookIDFromTallowbrookAppointmentID(7, store), "A");
    EXPECT_EQ(tasks.getOutlookIDFromTallowbrookAppointmentID(7, store), "T");
    EXPECT_EQ(appointments.getOutlookIDFromTallowbrookAppointmentID(7, "other store"), "B");
    EXPECT_EQ(appointments.getTallowbrookAppointmentIDFromOutlookID("A", 1, store, kSingle), 7);
    EXPECT_EQ(appointments.getTallowbrookAppointmentIDFromOutlookID("A", 1, "other store", kSingle), -1);
    run.options.dataFileUniqueID = "OTHER";
    EXPECT_EQ(appointments.getOutlookIDFromTallowbrookAppointmentID(7, store), "");

    run.options.dataFileUniqueID = "DF";
    appointments.saveAppointmentOutlookID(7, "C", store);  // the item came back under another identifier
    EXPECT_EQ(appointments.getOutlookIDFromTallowbrookAppointmentID(7, store), "C");
    EXPECT_EQ(firm.links().size(), 3U);
}

TEST_F(CalendarLinking, OccurrencesOfASeriesAreToldApartByTheirDay) {
    appointments.saveOutlookAppointmentID("S", 11, store, onDay(2), 5);
    appointments.saveOutlookAppointmentID("S", 12, store, onDay(9), 5);
    appointments.saveOutlookAppointmentID("S", 13, store, onDay(9), 5);  // known: the row is put right
    appointments.saveOutlookAppointmentID("N", 14, store, kSingle, -1);
    EXPECT_EQ(firm.links(), (std::vector<CalendarLink>{{"11", "", "S", "True", "2026-11-02", "5"},
                                                       {"13", "", "S", "True", "2026-11-09", "5"},
                                                       {"14", "", "N", "False", "", ""}}));
    EXPECT_EQ(appointments.getTallowbrookAppointmentIDFromOutlookID("S", 1, store, onDay(9)), 13);
    EXPECT_EQ(appointments.getTallowbrookAppointmentIDFromOutlookID("S", 1, store, onDay(16)), -1);
}

TEST_F(CalendarLinking, LinkIsKeptWithoutAFieldThatItIsFoundWithout) {
    Faults faults;
    hostServices().database = std::make_shared<FaultyDatabase>(firm.host.database, faults);
    firm.host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::goOn; };
    for (const Occurrence& occurrence : {kSingle, onDay(2)})
        for (int call = 1;; ++call) {
            faults = {};
            faults.failOnce(call);
            appointments.saveOutlookAppointmentID("N", 14, store, occurrence, 5);
            const Faults done = std::exchange(faults, {});
            const std::string& field = done.firstField;
            const bool isKept =
                field == "DateLastSync" || field == "RepeatNum" || (field == "IsRecurringItem" && !occurrence.isRecurring);
            if (done.firstFailed == "setNewField") {
                EXPECT_EQ(firm.links().size(), isKept ? 1U : 0U) << field;
            }
            RawDatabase{firm.host.files.firm}.run("DELETE FROM OutlookSync");
            if (done.failed == 0) break;
        }
}

TEST_F(CalendarLinking, NumberOfASeriesIsDrawnOnceAndThenSharedByAllItsLinks) {
    const auto numberOf = [&](const char* entryID, bool isRecurring) {
        return appointments.getTallowbrookRepeatNumFromOutlookRecurringItemID(entryID, 1, store, isRecurring);
    };
    EXPECT_EQ(numberOf("S", false), -1);
    firm.addAppointment({{"RepeatNum", "1"}});
    EXPECT_EQ(numberOf("S", true), 2);  // free in the table; nothing keeps it yet
    EXPECT_TRUE(firm.links().empty());
    EXPECT_EQ(tasks.getTallowbrookRepeatNumFromOutlookRecurringItemID("S", 1, store, true), 1);

    addRow(*firm.host.database, "OutlookSync", "",
           {{"DataFileID", "DF"},
            {"FolderStoreID", store},
            {"OutlookID", "S"},
            {"IsRecurringItem", "True"},
            {"RecurringItemDate", "2026-11-09"},
            {"RepeatNum", "8"}});
    appointments.saveOutlookAppointmentID("S", 11, store, onDay(2), -1);
    appointments.saveOutlookAppointmentID("S", 12, store, onDay(16), 9);
    EXPECT_EQ(numberOf("S", true), 8);  // of the earliest day that has one; -1 is none
    for (const CalendarLink& link : firm.links()) EXPECT_EQ(link.repeatNum, "8") << link.day;
}

TEST_F(CalendarLinking, UnlinkedAppointmentIsFoundBySubjectDayAndTimes) {
    const Date day = makeDay(2026, 11, 24);
    const std::string longSubject(300, 'x');
    firm.addAppointment({{"Subject", "O'Brien"}, {"TimeFrom", "09:00:00"}, {"TimeTo", "10:30:00"}});
    firm.addAppointment({{"Subject", "Élan"}});
    firm.addAppointment({{"Subject", longSubject.substr(0, 255)}, {"TimeFrom", "13:00:00"}, {"TimeTo", "14:00:00"}});
    firm.addAppointment({{"Subject", "O'Brien"}, {"TimeFrom", "09:00:00"}, {"TimeTo", "10:30:00"}});  // the first one wins

    struct Row {
        std::string subject, start, end;
        std::int32_t user, hostID;
    };
    const Row rows[] = {
        {"O'Brien", "2026-11-24 09:00:00", "2026-11-24 10:30:00", 1, 1},
        {"O'Brien", "2026-11-24 09:00:30", "2026-11-24 10:30:59", 1, 1},  // the host keeps no seconds
        {"O'Brien", "2026-11-24 09:00:00", "2026-11-24 10:31:00", 1, -1},
        {"O'Brien", "2026-11-24 09:00:00", "2026-11-24 10:30:00", 2, -1},
        {"O'Brien", "2026-11-24", "2026-11-25", 1, 1},  // from midnight to midnight: no times to compare
        {"élan", "2026-11-24", "2026-11-24", 1, 2},
        {longSubject, "2026-11-24 13:00:00", "2026-11-24 14:00:00", 1, 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.subject + " " + row.end);
        const std::string entryID = addItem(row.subject, row.start, row.end);
        EXPECT_EQ(appointments.getTallowbrookAppointmentIDFromOutlookID(entryID, row.user, store, {false, day}), row.hostID);
        EXPECT_EQ(tasks.getTallowbrookAppointmentIDFromOutlookID(entryID, row.user, store, {false, day}), -1);  // never searched
    }
    EXPECT_EQ(appointments.lookForSameAppointmentInTallowbrook("", 1, store, day), -1);
    EXPECT_EQ(appointments.lookForSameAppointmentInTallowbrook("gone", 1, store, day), -1);
    EXPECT_TRUE(firm.host.errors->reports.empty());
}

TEST_F(CalendarLinking, ClosedDatabaseKeepsAndFindsNothing) {
    firm.host.database->closeDatabase();
    appointments.saveAppointmentOutlookID(7, "A", store);
    EXPECT_EQ(appointments.getOutlookIDFromTallowbrookAppointmentID(7, store), std::nullopt);
    EXPECT_EQ(appointments.getTallowbrookRepeatNumFromOutlookRecurringItemID("S", 1, store, true), -1);
    EXPECT_TRUE(firm.host.errors->reports.empty());
}

}  // namespace
}  // namespace wmoutlook::testing

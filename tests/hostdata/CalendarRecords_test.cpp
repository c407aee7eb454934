#include "hostdata/modDatabaseFunctions_Calendar.h"
#include "tests/hostdata/HostDataTest.h"
#include "tests/support/FaultyDatabase.h"

#include <algorithm>

namespace wmoutlook::testing {
namespace {

using namespace modDatabaseFunctions;

/// One appointment, and two tasks of one schedule entry, each with reminders and notifications that are done and not done.
class CalendarRecords : public HostDataTest {
protected:
    std::int32_t appointment = 0, task = 0, otherTask = 0, schedule = 0;

    void SetUp() override {
        HostDataTest::SetUp();
        HostDatabase& database = *host.database;
        schedule = addRow(database, "Schedule", "ScheduleID", {{"TotalNum", "12"}, {"ScheduleNum", "5"}});
        appointment = addRow(database, "Appointments", "AppointmentID", {{"CompanyIDNum", "7"}, {"ContactIDNum", "8"}});
        task = addRow(database, "Tasks", "TaskID", {{"ScheduleIDNum", toText(schedule)}});
        otherTask = addRow(database, "Tasks", "TaskID", {{"ScheduleIDNum", toText(schedule)}, {"RepeatNum", "1"}});
        for (const char* done : {"True", "False"}) {
            addRow(database, "Reminders", "", {{"AppointmentIDNum", toText(appointment)}, {"Completed", done}});
            addRow(database, "Reminders", "", {{"TaskIDNum", toText(task)}, {"Completed", done}});
            addRow(database, "ClientNotification", "", {{"AppointmentNum", toText(appointment)}, {"NotificationSent", done}});
            addRow(database, "ClientNotification", "", {{"TaskNum", toText(task)}, {"NotificationSent", done}});
            addRow(database, "ClientNotification", "", {{"ScheduleNum", toText(schedule)}, {"NotificationSent", done}});
        }
    }

    std::size_t count(const std::string& table) { return rows("SELECT " + table + ".* FROM " + table + ";", {}).size(); }
    std::vector<std::string> reminders() {
        return rows("SELECT Reminders.* FROM Reminders;", {"AppointmentIDNum", "TaskIDNum", "Completed"});
    }
    std::vector<std::string> notifications() {
        return rows("SELECT ClientNotification.* FROM ClientNotification;",
                    {"AppointmentNum", "TaskNum", "ScheduleNum", "NotificationSent"});
    }
};

TEST_F(CalendarRecords, DeletedAppointmentLeavesItsHistoryBehindOnlyWhenAskedTo) {
    deleteAppointment(4711, false);
    deleteAppointment(appointment, true);
    EXPECT_EQ(count("Appointments"), 0U);
    EXPECT_EQ(reminders(), (std::vector<std::string>{"1||True", "|1|True", "|1|False"}));
    EXPECT_EQ(notifications(), (std::vector<std::string>{"1|||True", "|1||True", "||1|True", "|1||False", "||1|False"}));
    EXPECT_TRUE(host.errors->reports.empty());

    const auto second = addRow(*host.database, "Appointments", "AppointmentID", {});
    for (const char* done : {"True", "True", "False"})
        addRow(*host.database, "Reminders", "", {{"AppointmentIDNum", toText(second)}, {"Completed", done}});
    deleteAppointment(second, false);
    EXPECT_EQ(reminders().size(), 3U);
}

TEST_F(CalendarRecords, TaskOfASeriesIsDeletedOnlyWhenTheCheckIsIgnored) {
    deleteTask(task, false, true, true);
    EXPECT_EQ(count("Tasks"), 2U);
    deleteTask(task, true, true, true);
    EXPECT_EQ(rows("SELECT Tasks.* FROM Tasks;", {"TaskID"}), std::vector<std::string>{toText(otherTask)});
    EXPECT_EQ(reminders(), (std::vector<std::string>{"1||True", "|1|True", "1||False"}));
    EXPECT_EQ(count("Schedule"), 1U);
}

TEST_F(CalendarRecords, IndependentEntryIsToldByItsTwoNumbers) {
    struct Row {
        const char *total, *number;
        bool isIndependent;
    };
    for (const Row& row : {Row{"111", "5", true}, Row{"111", "4", false}, Row{"11", "5", false}}) {
        const auto entry =
            addRow(*host.database, "Schedule", "ScheduleID", {{"TotalNum", row.total}, {"ScheduleNum", row.number}});
        const auto its = addRow(*host.database, "Tasks", "TaskID", {{"ScheduleIDNum", toText(entry)}});
        EXPECT_EQ(isThisTaskAssociatedWithIndependentScheduleEntry(its), row.isIndependent) << row.total << "/" << row.number;
        EXPECT_EQ(getScheduleIDFromTaskID(its), entry);
    }
    EXPECT_FALSE(isThisTaskAssociatedWithIndependentScheduleEntry(4711));
}

TEST_F(CalendarRecords, ScheduleEntryGoesWithItsUnsentNotificationsAndPerhapsItsTasks) {
    deleteTask(task, true, false, true);  // the entry goes too, its other task stays
    EXPECT_EQ(count("Schedule"), 0U);
    EXPECT_EQ(count("Tasks"), 1U);
    EXPECT_EQ(notifications(), (std::vector<std::string>{"1|||True", "|1||True", "||1|True", "1|||False"}));

    const auto entry = addRow(*host.database, "Schedule", "ScheduleID", {});
    for (int i = 0; i < 3; ++i) addRow(*host.database, "Tasks", "TaskID", {{"ScheduleIDNum", toText(entry)}});
    addRow(*host.database, "Tasks", "TaskID", {{"ScheduleIDNum", "-1"}});
    deleteScheduleTask(kNoRecord, false);  // the mark of the tasks without an entry
    EXPECT_EQ(count("Tasks"), 5U);
    deleteScheduleTask(entry, false);
    EXPECT_EQ(count("Tasks"), 2U);
    EXPECT_EQ(count("Schedule"), 0U);
}

TEST_F(CalendarRecords, RepeatNumberIsTheLowestFreeOneOfItsOwnTable) {
    EXPECT_EQ(getAppointmentRepeatUniqueID(CalendarType::appointments), 1);
    for (const char* number : {"1", "2", "2", "4"})
        addRow(*host.database, "Appointments", "AppointmentID", {{"RepeatNum", number}});
    EXPECT_EQ(getAppointmentRepeatUniqueID(CalendarType::appointments), 3);
    EXPECT_EQ(getAppointmentRepeatUniqueID(CalendarType::tasks), 2);
    EXPECT_EQ(getAppointmentRepeatUniqueID(CalendarType::dockets), 1);
}

TEST_F(CalendarRecords, ClientIsLookedUpByTheRecordsKey) {
    EXPECT_EQ(getCompanyIDFromAppointmentID(appointment), 7);
    EXPECT_EQ(getContactIDFromAppointmentID(appointment), 8);
    EXPECT_EQ(getCompanyIDFromTaskID(task), -1);
    const auto docket = addRow(*host.database, "Dockets", "DocketID", {{"CompanyIDNum", "3"}, {"ContactIDNum", "4"}});
    EXPECT_EQ(getCompanyIDFromDocketID(docket) * 10 + getContactIDFromDocketID(docket), 34);
    EXPECT_EQ(getContactIDFromTaskID(4711), -1);
}

TEST_F(CalendarRecords, ClosedDatabaseIsLeftAlone) {
    host.database->closeDatabase();
    deleteAppointment(appointment, false);
    deleteTask(task, true, false, false);
    deleteScheduleTask(schedule, false);
    EXPECT_EQ(getAppointmentRepeatUniqueID(CalendarType::tasks), -1);
    EXPECT_TRUE(host.errors->reports.empty());
}

/// Each call of a deletion fails, alone or with all behind it: nothing that is history goes, no handle stays open, nothing runs
/// for ever, and a call that is tried again is as if it had never failed.
TEST_F(CalendarRecords, FailingCallNeverDeletesMoreThanWasAsked) {
    using Fail = void (Faults::*)(int call);
    const std::pair<ErrorAnswer, Fail> sweeps[] = {{ErrorAnswer::goOn, &Faults::failOnce},
                                                   {ErrorAnswer::goOn, &Faults::failFromNowOn},
                                                   {ErrorAnswer::leaveRoutine, &Faults::failOnce},
                                                   {ErrorAnswer::tryAgain, &Faults::failOnce}};
    for (const auto& sweep : sweeps) {
        Faults faults;
        for (int call = 1; call == 1 || faults.failed > 0; ++call) {
            SCOPED_TRACE("call " + std::to_string(call) + " of sweep " + std::to_string(&sweep - sweeps));
            TestHost fresh;
            host.database = fresh.database;
            SetUp();
            faults = {};
            const auto faulty = std::make_shared<FaultyDatabase>(fresh.database, faults);
            setServices(faulty);
            host.errors->answer = [&](const ErrorReport&) { return sweep.first; };
            faults.calls = 0;
            (faults.*sweep.second)(call);
            deleteAppointment(appointment, true);
            deleteTask(task, true, false, true);
            const auto repeatNum = getAppointmentRepeatUniqueID(CalendarType::tasks);
            EXPECT_TRUE(repeatNum == 2 || (repeatNum == kNoRecord && faults.failed > 0)) << repeatNum;
            EXPECT_TRUE(faulty->openHandles.empty());
            setServices(fresh.database);
            const auto history = notifications();
            for (const char* kept : {"1|||True", "|1||True", "||1|True"})
                EXPECT_EQ(std::count(history.begin(), history.end(), kept), 1) << kept;
            EXPECT_GE(count("Reminders"), 2U);
            EXPECT_GE(count("Tasks"), 1U);
            const std::vector<std::size_t> left{count("Appointments"), count("Schedule"), count("Reminders"), count("Tasks")};
            EXPECT_TRUE(left == (std::vector<std::size_t>{0, 0, 2, 1}) || sweep.first != ErrorAnswer::tryAgain);
            if (HasFailure()) return;
        }
    }
}

class FreeTime : public HostDataTest {
protected:
    Date day = makeDay(2026, 11, 24);

    void add(const std::string& table, const std::string& key, const std::string& from, const std::string& to) {
        addRow(*host.database, table, key,
               {{"UserIDNum", "1"}, {"DateFrom", toIsoText(day)}, {"TimeFrom", from}, {"TimeTo", to}});
    }
    std::string best(CalendarType type, float hours) {
        return toIsoText(getBestTimeInCalendarForSpecificDayAndUser(type, 1, day, hours));
    }
};

TEST_F(FreeTime, IsTheFirstGapOfTheOfficeDayThatIsLongEnough) {
    struct Row {
        std::vector<std::pair<const char*, const char*>> records;
        float hours;
        const char* best;
    };
    const Row rows[] = {
        {{}, 1, "09:00:00"},
        {{{"08:00:00", "18:00:00"}}, 8, "09:00:00"},  // neither begins nor ends in the office day
        {{{"08:59:00", "10:00:00"}}, 8, "09:00:00"},
        {{{"16:00:00", "17:00:00"}}, 8, "09:00:00"},  // ends with the day
        {{{"10:00:00", "11:00:00"}}, 1, "09:00:00"},  // a gap of just the hours
        {{{"09:00:00", "10:00:00"}}, 1, "10:00:00"},
        {{{"12:00:00", "13:00:00"}, {"09:30:00", "11:00:00"}}, 1, "11:00:00"},  // by their ends, not as they were entered
        {{{"09:30:00", "12:00:00"}, {"12:30:00", "15:59:00"}}, 1, "15:59:00"},  // the rest of the day
        {{{"09:00:00", "17:00:00"}}, 8, "09:00:00"},
        {{{"09:20:00", "16:59:00"}}, 1.0F / 3, "09:00:00"},                                   // twenty minutes
        {{{"2026-11-24 09:00:59", "2026-11-24 10:00:59"}, {"", "12:00:00"}}, 1, "10:00:00"},  // of moments the time; no seconds
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        day = addDays(day, 1);
        for (const auto& [from, to] : row.records) add("Tasks", "TaskID", from, to);
        EXPECT_EQ(best(CalendarType::tasks, row.hours), row.best);
        EXPECT_EQ(best(CalendarType::appointments, 8), "09:00:00");  // records of another table do not count
    }
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(FreeTime, OnAFullDayChanceDecides) {
    struct Scripted : RandomSource {
        double value = 0;
        double next() override { return value; }
    };
    const auto random = std::make_shared<Scripted>();
    hostServices().random = random;
    add("Appointments", "AppointmentID", "09:00:00", "16:00:00");
    add("Appointments", "AppointmentID", "16:00:00", "17:00:00");
    EXPECT_EQ(best(CalendarType::appointments, 1), "16:00:00");  // a record that ends with the day does not count
    struct Row {
        double drawn;
        const char* best;
    };
    for (const Row& row : {Row{0, "09:00:00"}, Row{2.5 / 17, "11:00:00"}, Row{3.0 / 17, "12:00:00"}, Row{4.5 / 17, "13:00:00"},
                           Row{8.99 / 17, "17:00:00"}, Row{9.0 / 17, "13:00:00"}, Row{0.999, "13:00:00"}}) {
        random->value = row.drawn;
        EXPECT_EQ(best(CalendarType::appointments, 1.5F), row.best) << row.drawn;
    }
}

TEST_F(FreeTime, EndFollowsFromTheEstimate) {
    struct Row {
        const char* start;
        float hours;
        const char* end;
    };
    for (const Row& row : {Row{"09:00:00", 1, "10:00:00"}, Row{"09:30:00", 0.5F, "10:00:00"}, Row{"09:00:00", 0, "09:00:00"},
                           Row{"09:00:00", -1, "09:00:00"}, Row{"09:00:00", 9, "1899-12-30"}, Row{"00:00:00", 1, "1899-12-30"}})
        EXPECT_EQ(toIsoText(determineEndTimeFromEstimatedTime(*fromIsoText(row.start), row.hours)), row.end)
            << row.start << " + " << row.hours;
    Date start = *fromIsoText("11:00:00"), end = *fromIsoText("10:00:00");
    verifyStartAndEndTime(start, end);
    EXPECT_EQ(toIsoText(start) + toIsoText(end), "10:00:0011:00:00");
}

}  // namespace
}  // namespace wmoutlook::testing

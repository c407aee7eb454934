#include "calendar/CalendarWriter.h"
#include "tests/calendar/CalendarFirm.h"
#include "tests/support/RawDatabase.h"

namespace wmoutlook::testing {
namespace {

constexpr auto kAppointments = outlookSyncObjectsEnum::syncAppointments;
constexpr auto kTasks = outlookSyncObjectsEnum::syncTasks;

TEST(AppointmentWriting, TakesDayTimesClientAndSubject) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment(
        {{"Subject", "Year end"}, {"TimeFrom", "09:30:00"}, {"TimeTo", "11:00:00"}, {"CompanyIDNum", toText(firm.company)}});
    firm.addAppointment(
        {{"Subject", "T1"}, {"TimeFrom", "14:00:00"}, {"TimeTo", "13:00:00"}, {"ContactIDNum", toText(firm.contact)}});
    firm.addAppointment({{"Subject", "Lunch"}});  // without times: midnight
    firm.run();

    struct Row {
        const char *subject, *companies, *start, *end;
    };
    constexpr Row kExpected[] = {
        {"Year end with Birch Inc.", "Birch Inc.", "2026-11-24 09:30:00", "2026-11-24 11:00:00"},
        {"T1 with Bob Alder", "Bob Alder", "2026-11-24 14:00:00", "2026-11-24 13:00:00"},  // as the host has it
        {"Lunch", "", "2026-11-24", "2026-11-24"},
    };
    const auto items = firm.items();
    ASSERT_EQ(items.size(), std::size(kExpected));
    for (std::size_t i = 0; i < items.size(); ++i) {
        SCOPED_TRACE(kExpected[i].subject);
        EXPECT_EQ(textOf(*items[i], property::Subject), kExpected[i].subject);
        EXPECT_EQ(textOf(*items[i], property::Companies), kExpected[i].companies);
        EXPECT_EQ(textOf(*items[i], property::Start), kExpected[i].start);
        EXPECT_EQ(textOf(*items[i], property::End), kExpected[i].end);
    }
}

TEST(AppointmentWriting, ClientIsAppendedToTheHostsSubjectAfreshInEveryRun) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({{"Subject", "Year end"}, {"CompanyIDNum", toText(firm.company)}});
    firm.run();
    firm.run();
    EXPECT_EQ(firm.subjects(), std::vector<std::string>{"Year end with Birch Inc."});
    EXPECT_EQ(firm.column("Appointments", "Subject"), std::vector<std::string>{"Year end"});
}

TEST(AppointmentWriting, BlankClientNumbersArePutRightInTheHost) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({{"CompanyIDNum", ""}, {"ContactIDNum", ""}});
    firm.run();
    EXPECT_EQ(firm.column("Appointments", "CompanyIDNum"), std::vector<std::string>{"-1"});
    EXPECT_EQ(firm.column("Appointments", "ContactIDNum"), std::vector<std::string>{"-1"});
}

TEST(ReminderPeriods, AreReadByTheFirstWordThatTheyHold) {
    struct Row {
        const char* period;
        std::int32_t minutes;
    };
    constexpr Row kRows[] = {{"15 Min", 15},  {"1 Hr", 60},       {"2 hr", 120},     {"2 Days", 2880},
                             {"1 day", 1440}, {"3 Weeks", 30240}, {"1 Week", 10080}, {"Hr 3", 180},
                             {"", 5},         {"soon", 5},        {"-1 Day", -1440}};
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.period);
        EXPECT_EQ(reminderMinutes(row.period), row.minutes);
    }
    for (const char* period : {"4 Weeks", "40000 Min", "a Day", "15 Minutes", "Day"}) {
        SCOPED_TRACE(period);
        EXPECT_THROW((void)reminderMinutes(period), ConversionError);
    }
}

TEST(AppointmentWriting, ReminderIsSetOrLeftAlone) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({{"Remind", "True"}, {"ReminderPeriod", "2 Days"}});
    firm.addAppointment({{"Remind", "True"}, {"ReminderPeriod", "4 Weeks"}});  // more than 16 bits
    firm.addAppointment({{"Remind", "False"}, {"ReminderPeriod", "2 Days"}});
    firm.run();
    const auto items = firm.items();
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(textOf(*items[0], property::ReminderMinutesBeforeStart), "2880");
    EXPECT_EQ(textOf(*items[1], property::ReminderMinutesBeforeStart), "5");
    EXPECT_EQ(textOf(*items[1], property::ReminderSet), "True");
    EXPECT_EQ(textOf(*items[2], property::ReminderSet), "False");
    EXPECT_EQ(firm.host.errors->reports.size(), 1U);

    items[2]->put(property::ReminderSet, true);  // by hand
    items[2]->save();
    firm.run();
    EXPECT_EQ(textOf(*firm.items()[2], property::ReminderSet), "True");
}

TEST(AppointmentWriting, WhatIsPutRightBeforeARetryIsReadAgain) {
    struct Case {
        const char *field, *wrong, *right;
    };
    for (const Case& c :
         {Case{"Remind", "maybe", "True"}, Case{"ReminderPeriod", "4 Weeks", "1 Hr"}, Case{"TimeFrom", "early", "09:00:00"}}) {
        SCOPED_TRACE(c.field);
        CalendarFirm firm{kAppointments};
        firm.addAppointment({{"Remind", "True"}, {"ReminderPeriod", "1 Hr"}, {"TimeFrom", "09:00:00"}});
        RawDatabase{firm.host.files.firm}.run("UPDATE Appointments SET " + std::string{c.field} + " = '" + c.wrong + "'");
        firm.host.errors->answer = [&](const ErrorReport&) {
            HostDatabase& database = *firm.host.database;
            const RecordsetHandle rows = database.openRecordset("SELECT Appointments.* FROM Appointments;", LockCode::updatable);
            database.updateField(rows, c.field, c.right);
            database.closeRecordset(rows);
            return firm.host.errors->reports.size() < 5 ? ErrorAnswer::tryAgain : ErrorAnswer::leaveRoutine;
        };
        firm.run();
        ASSERT_EQ(firm.items().size(), 1U);
        EXPECT_EQ(textOf(*firm.items()[0], property::Start), "2026-11-24 09:00:00");
        EXPECT_EQ(textOf(*firm.items()[0], property::ReminderMinutesBeforeStart), "60");
        EXPECT_EQ(firm.host.errors->reports.size(), 1U);
    }
}

TEST(AppointmentWriting, NotesArriveAsATruthValue) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({{"TextBody", R"({\rtf1\ansi Bring the ledger})"}});  // no truth value: a failure
    firm.addAppointment({{"TextBody", R"({\rtf1\ansi\b -1})"}});
    firm.addAppointment({{"TextBody", R"({\rtf1\ansi\par })"}});  // nothing to see
    firm.addAppointment({});
    firm.run();
    const auto items = firm.items();
    ASSERT_EQ(items.size(), 4U);
    const char* const kBodies[] = {"False", "True", "", ""};
    for (std::size_t i = 0; i < items.size(); ++i) EXPECT_EQ(textOf(*items[i], property::Body), kBodies[i]) << i;
    ASSERT_EQ(firm.host.errors->reports.size(), 1U);
    EXPECT_EQ(firm.host.errors->reports[0].errorTag, "wmoutlooktb.dll-clsOutlookSynchronization-getPlainTextFromRTBText");
}

TEST(TaskWriting, TakesDueDateClientAndWhetherItIsClosedAndNothingElse) {
    CalendarFirm firm{kTasks};
    firm.addTask({{"Subject", "File T2"},
                  {"CompanyIDNum", toText(firm.company)},
                  {"Closed", "True"},
                  {"TextBody", "1"},
                  {"Remind", "True"}});
    firm.addTask({{"Subject", "Call"}, {"ContactIDNum", toText(firm.contact)}, {"TimeFrom", "10:00:00"}});
    firm.addTask({{"Subject", "Tidy up"}});
    firm.run();
    const auto items = firm.items();
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(firm.subjects(), (std::vector<std::string>{"File T2 for Birch Inc.", "Call for Bob Alder", "Tidy up"}));
    EXPECT_EQ(textOf(*items[0], property::Companies), "Birch Inc.");
    EXPECT_EQ(textOf(*items[1], property::Companies), "Bob Alder");
    EXPECT_EQ(textOf(*items[1], property::DueDate), "2026-11-24");
    EXPECT_EQ(textOf(*items[0], property::Complete), "True");
    EXPECT_EQ(textOf(*items[1], property::Complete), "False");
    EXPECT_EQ(textOf(*items[0], property::Body), "");
    EXPECT_EQ(textOf(*items[0], property::ReminderSet), "False");
}

TEST(CalendarItems, AreStampedWithTheMomentOfTheRunAndTwoEmptyProperties) {
    CalendarFirm firm{kTasks};
    firm.host.clock->time = makeDate({2026, 11, 22, 9, 15, 0}).value();
    firm.addTask({});
    firm.run();
    firm.run();
    const auto properties = firm.items().at(0)->userProperties();
    ASSERT_EQ(properties->count(), 3);
    EXPECT_EQ(properties->item(1)->name(), "TallowbrookID");
    EXPECT_EQ(properties->item(1)->type(), outlook::UserPropertyType::number);
    EXPECT_TRUE(properties->item(1)->value().isNull() || properties->item(1)->value() == Variant{0.0});
    EXPECT_EQ(properties->item(2)->name(), "EntryID");
    EXPECT_EQ(properties->item(2)->value(), Variant{""});
    EXPECT_EQ(properties->item(2)->type(), outlook::UserPropertyType::text);
    EXPECT_EQ(properties->item(3)->name(), "DateLastSynched");
    EXPECT_EQ(properties->item(3)->type(), outlook::UserPropertyType::dateTime);
    EXPECT_EQ(properties->item(3)->value(), Variant{firm.host.clock->time});
}

}  // namespace
}  // namespace wmoutlook::testing

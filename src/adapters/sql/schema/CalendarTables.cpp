#include "adapters/sql/schema/SchemaTexts.h"

namespace wmoutlook::schema {

namespace {

// RepeatNum and ScheduleIDNum are set in few rows: their indexes hold only these, and an ordinary row costs nothing.
constexpr std::string_view kStatements[] = {
    R"(CREATE TABLE Appointments (
    AppointmentID INTEGER PRIMARY KEY AUTOINCREMENT,
    UserIDNum Long,
    CompanyIDNum Long,
    ContactIDNum Long,
    DateFrom Date,
    TimeFrom Date,
    TimeTo Date,
    Subject Text(255) COLLATE TEXTUAL,
    TextBody LongText,
    NotesFlag Boolean NOT NULL DEFAULT 0,
    Remind Boolean NOT NULL DEFAULT 0,
    ReminderPeriod Text(50),
    hideInTasks Boolean NOT NULL DEFAULT 0,
    RecurAnnually Boolean NOT NULL DEFAULT 0,
    ClientNotifiedFlag Boolean NOT NULL DEFAULT 0,
    RepeatNum Long,
    AppointmentText LongText,
    BeforeAppointmentText LongText,
    AfterAppointmentText LongText,
    Custom1 Text(255), Custom2 Text(255), Custom3 Text(255), Custom4 Text(255), Custom5 Text(255)
))",
    R"(CREATE TABLE Tasks (
    TaskID INTEGER PRIMARY KEY AUTOINCREMENT,
    UserIDNum Long,
    CompanyIDNum Long,
    ContactIDNum Long,
    ScheduleIDNum Long,
    DateFrom Date,
    TimeFrom Date,
    TimeTo Date,
    EstimatedTime Single,
    Subject Text(255) COLLATE TEXTUAL,
    TextBody LongText,
    NotesFlag Boolean NOT NULL DEFAULT 0,
    Closed Boolean NOT NULL DEFAULT 0,
    Remind Boolean NOT NULL DEFAULT 0,
    ReminderPeriod Text(50),
    hideInTasks Boolean NOT NULL DEFAULT 0,
    RecurAnnually Boolean NOT NULL DEFAULT 0,
    ClientNotifiedFlag Boolean NOT NULL DEFAULT 0,
    RepeatNum Long,
    AppointmentText LongText,
    BeforeAppointmentText LongText,
    AfterAppointmentText LongText,
    Custom1 Text(255), Custom2 Text(255), Custom3 Text(255), Custom4 Text(255), Custom5 Text(255)
))",
    R"(CREATE TABLE Dockets (
    DocketID INTEGER PRIMARY KEY AUTOINCREMENT,
    UserIDNum Long,
    CompanyIDNum Long,
    ContactIDNum Long,
    DateFrom Date,
    TimeFrom Date,
    TimeTo Date,
    Subject Text(255) COLLATE TEXTUAL,
    TextBody LongText,
    RepeatNum Long,
    AppointmentText LongText,
    BeforeAppointmentText LongText,
    AfterAppointmentText LongText,
    DocketLocked Boolean NOT NULL DEFAULT 0,
    Invoiced Boolean NOT NULL DEFAULT 0,
    UsedRealTime Boolean NOT NULL DEFAULT 0,
    RealTimeFrom Date,
    RealTimeTo Date,
    OriginalRealTimeFrom Date,
    OriginalRealTimeTo Date,
    RoundedTimeFrom Date,
    RoundedTimeTo Date,
    DocketBillingType Text(50) COLLATE TEXTUAL,
    BillingJobRate Text(50),
    BillableTime Boolean NOT NULL DEFAULT 0,
    TotalTimeReal Single,
    TotalTimeRounded Single,
    UseAdjustedTime Boolean NOT NULL DEFAULT 0,
    TotalTimeAdjusted Single,
    TotalTimeFinal Single,
    TotalAmountReal Currency,
    TotalAmountFinal Currency,
    DescriptionInternal LongText,
    DescriptionClient LongText,
    Custom1 Text(255), Custom2 Text(255), Custom3 Text(255), Custom4 Text(255), Custom5 Text(255)
))",
    // Without a Subject: a task and its entry share the task's.
    R"(CREATE TABLE Schedule (
    ScheduleID INTEGER PRIMARY KEY AUTOINCREMENT,
    ClientNum Long,
    ContactIDNum Long,
    TotalNum Long,
    ScheduleNum Long,
    DueDate Date,
    InHouseDueDate Date,
    PeriodEndDate Date,
    PeriodDescription Text(255) COLLATE TEXTUAL,
    CalendarDate Date,
    EmployeeAssigned Text(255) COLLATE TEXTUAL,
    Year Long,
    Amount Currency,
    PersonCompleted Text(255) COLLATE TEXTUAL,
    DateCompleted Date,
    Custom1 Text(255), Custom2 Text(255), Custom3 Text(255), Custom4 Text(255), Custom5 Text(255)
))",
    R"(CREATE TABLE archiveTasks (
    oldTaskID Long,
    ScheduleIDNum Long
))",
    R"(CREATE TABLE Reminders (
    AppointmentIDNum Long,
    TaskIDNum Long,
    Completed Boolean NOT NULL DEFAULT 0
))",
    R"(CREATE TABLE ClientNotification (
    ScheduleNum Long,
    AppointmentNum Long,
    DocketNum Long,
    TaskNum Long,
    NotificationSent Boolean NOT NULL DEFAULT 0
))",
    "CREATE INDEX Appointments_UserDay ON Appointments (UserIDNum, DateFrom)",
    "CREATE INDEX Appointments_RepeatNum ON Appointments (RepeatNum) WHERE RepeatNum IS NOT NULL",
    "CREATE INDEX Tasks_UserDay ON Tasks (UserIDNum, DateFrom)",
    "CREATE INDEX Tasks_RepeatNum ON Tasks (RepeatNum) WHERE RepeatNum IS NOT NULL",
    "CREATE INDEX Tasks_ScheduleIDNum ON Tasks (ScheduleIDNum) WHERE ScheduleIDNum IS NOT NULL",
    "CREATE INDEX Dockets_UserDay ON Dockets (UserIDNum, DateFrom)",
    "CREATE INDEX Dockets_RepeatNum ON Dockets (RepeatNum) WHERE RepeatNum IS NOT NULL",
    "CREATE INDEX Schedule_ClientNum ON Schedule (ClientNum)",
    "CREATE INDEX Schedule_ContactIDNum ON Schedule (ContactIDNum)",
    "CREATE INDEX archiveTasks_ScheduleIDNum ON archiveTasks (ScheduleIDNum)",
    "CREATE INDEX Reminders_AppointmentIDNum ON Reminders (AppointmentIDNum) WHERE AppointmentIDNum IS NOT NULL",
    "CREATE INDEX Reminders_TaskIDNum ON Reminders (TaskIDNum) WHERE TaskIDNum IS NOT NULL",
    "CREATE INDEX ClientNotification_ScheduleNum ON ClientNotification (ScheduleNum) WHERE ScheduleNum IS NOT NULL",
    "CREATE INDEX ClientNotification_AppointmentNum ON ClientNotification (AppointmentNum) WHERE AppointmentNum IS NOT NULL",
    "CREATE INDEX ClientNotification_DocketNum ON ClientNotification (DocketNum) WHERE DocketNum IS NOT NULL",
    "CREATE INDEX ClientNotification_TaskNum ON ClientNotification (TaskNum) WHERE TaskNum IS NOT NULL",
};

}  // namespace

std::span<const std::string_view> calendarTables() {
    return kStatements;
}

}  // namespace wmoutlook::schema

#include "adapters/outlookstore/SchemaUpdates.h"

#include "adapters/outlookstore/ItemBlob.h"

#include <cstdint>
#include <optional>
#include <string>

namespace wmoutlook::outlookstore {

namespace {

constexpr std::string_view kAttempt = "bringing the file up to date";

/// A series is an item with a row in Series, by Outlook's numbers: RecurrenceType 0 daily, 1 weekly, 2 monthly, 3 on the n-th
/// weekday of a month, 5 yearly, 6 on the n-th weekday of a month of the year. Days count from day 0. FirstStart and LastStart
/// hold all occurrences between them, the moved ones too. Properties of an exception holds what it has other than its series.
constexpr std::string_view kCalendarTables = R"sql(
CREATE INDEX ItemsByStart ON Items (FolderNumber, StartKey) WHERE StartKey IS NOT NULL;
CREATE INDEX ItemsByDueDate ON Items (FolderNumber, DueDateKey) WHERE DueDateKey IS NOT NULL;
CREATE TABLE Series (
    ItemNumber INTEGER PRIMARY KEY REFERENCES Items,
    FolderNumber INTEGER NOT NULL REFERENCES Folders,
    RecurrenceType INTEGER NOT NULL,
    Interval INTEGER NOT NULL,
    DayOfWeekMask INTEGER NOT NULL,
    DayOfMonth INTEGER NOT NULL,
    MonthOfYear INTEGER NOT NULL,
    Instance INTEGER NOT NULL,
    Occurrences INTEGER NOT NULL,
    PatternEndDay INTEGER,
    FirstStart INTEGER NOT NULL,
    LastStart INTEGER NOT NULL
);
CREATE INDEX SeriesByStart ON Series (FolderNumber, FirstStart);
CREATE TABLE SeriesExceptions (
    ItemNumber INTEGER NOT NULL REFERENCES Series,
    OriginalDay INTEGER NOT NULL,
    IsDeleted INTEGER NOT NULL,
    Start INTEGER,
    Properties BLOB NOT NULL,
    PRIMARY KEY (ItemNumber, OriginalDay)
) WITHOUT ROWID;
)sql";

/// By Outlook's numbers: RecipientType 1 To, 2 CC, 3 BCC. Address is empty for a recipient that is not resolved.
constexpr std::string_view kMailTables = R"sql(
CREATE TABLE Recipients (
    ItemNumber INTEGER NOT NULL REFERENCES Items,
    Position INTEGER NOT NULL,
    Name TEXT NOT NULL,
    Address TEXT NOT NULL,
    RecipientType INTEGER NOT NULL,
    PRIMARY KEY (ItemNumber, Position)
) WITHOUT ROWID;
CREATE TABLE Attachments (
    AttachmentNumber INTEGER PRIMARY KEY,
    ItemNumber INTEGER NOT NULL REFERENCES Items,
    FileName TEXT NOT NULL,
    DisplayName TEXT NOT NULL,
    Content BLOB NOT NULL
);
CREATE INDEX AttachmentsByItem ON Attachments (ItemNumber);
)sql";

constexpr std::string_view kNewColumns =
    "ALTER TABLE Items ADD COLUMN StartKey INTEGER; ALTER TABLE Items ADD COLUMN DueDateKey INTEGER;";

std::int64_t keyOf(outlook::ItemType type, std::string_view bytes) {
    const std::string_view property = type == outlook::ItemType::task ? "DueDate" : "Start";
    try {
        return sortKeyOf(decodeItem(type, bytes), property).value();
    } catch (const OutlookError&) {  // cannot be read: it stays an error of that item, where a walk meets it
        return secondsSinceDayZero(absentDate());
    }
}

/// One row after the other by number: a statement that reads what it changes could meet a row again.
void fillKeys(Connection& connection, outlook::ItemType type, std::string_view column) {
    Statement next{connection,
                   "SELECT ItemNumber, Properties FROM Items WHERE ItemNumber > ?1 AND ItemType = ?2 ORDER BY ItemNumber LIMIT 1",
                   kAttempt};
    Statement write{connection, std::string{"UPDATE Items SET "}.append(column).append(" = ?2 WHERE ItemNumber = ?1"), kAttempt};
    for (std::int64_t number = 0;;) {
        std::optional<std::int64_t> key;
        {
            auto run = next.run();
            if (!run.bind(1, number).bind(2, static_cast<std::int64_t>(type)).next()) return;
            number = run.integer(0);
            key = keyOf(type, run.bytes(1));
        }
        write.run().bind(1, number).bind(2, *key).finish();
    }
}

}  // namespace

std::string_view calendarTables() {
    return kCalendarTables;
}

void addCalendar(Connection& connection) {
    connection.execute(std::string{kNewColumns}, kAttempt);
    fillKeys(connection, outlook::ItemType::appointment, "StartKey");
    fillKeys(connection, outlook::ItemType::task, "DueDateKey");
    connection.execute(std::string{kCalendarTables}, kAttempt);
}

std::string_view mailTables() {
    return kMailTables;
}

void addMails(Connection& connection) {
    connection.execute(std::string{kMailTables}, kAttempt);
}

}  // namespace wmoutlook::outlookstore

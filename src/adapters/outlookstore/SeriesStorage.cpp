#include "adapters/outlookstore/SeriesStorage.h"

#include "adapters/outlookstore/ItemBlob.h"
#include "platform/Errors.h"

namespace wmoutlook::outlookstore {

namespace {

constexpr std::int64_t kSecondsOfDay = 86400;
constexpr std::string_view kSaving = "saving a series";
constexpr std::string_view kDeleting = "deleting a series";
constexpr std::string_view kReading = "reading a series";
constexpr std::string_view kReadingExceptions = "reading the exceptions of a series";
constexpr std::string_view kWalking = "reading the series of a folder";

const PropertyTable& table() {
    return PropertyTable::of(outlook::ItemType::appointment);
}

std::int32_t number(const Statement::Run& run, int column) {
    return static_cast<std::int32_t>(run.integer(column));
}

Date day(const Statement::Run& run, int column) {
    const std::int64_t number = run.integer(column);
    if (number < secondsSinceDayZero(makeDay(100, 1, 1)) / kSecondsOfDay ||
        number > secondsSinceDayZero(absentDate()) / kSecondsOfDay)
        throw OutlookError{-1, "A series of the Outlook store is damaged: it has a day that cannot be"};
    return Date{static_cast<double>(number)};
}

}  // namespace

SeriesStorage::SeriesStorage(Connection& connection)
    : save_(connection,
            "INSERT OR REPLACE INTO Series (ItemNumber, FolderNumber, RecurrenceType, Interval, DayOfWeekMask, DayOfMonth, "
            "MonthOfYear, Instance, Occurrences, PatternEndDay, FirstStart, LastStart) "
            "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12)",
            kSaving),
      delete_(connection, "DELETE FROM Series WHERE ItemNumber = ?1", kDeleting),
      deleteExceptions_(connection, "DELETE FROM SeriesExceptions WHERE ItemNumber = ?1", kDeleting),
      saveException_(connection,
                     "INSERT OR REPLACE INTO SeriesExceptions (ItemNumber, OriginalDay, IsDeleted, Start, Properties) "
                     "VALUES (?1, ?2, ?3, ?4, ?5)",
                     "saving an occurrence"),
      widen_(connection,
             "UPDATE Series SET FirstStart = min(FirstStart, ?2), LastStart = max(LastStart, ?2) WHERE ItemNumber = ?1",
             "saving an occurrence"),
      pattern_(connection,
               "SELECT RecurrenceType, Interval, DayOfWeekMask, DayOfMonth, MonthOfYear, Instance, Occurrences, PatternEndDay "
               "FROM Series WHERE ItemNumber = ?1",
               kReading),
      exceptions_(connection,
                  "SELECT OriginalDay, IsDeleted, Properties FROM SeriesExceptions WHERE ItemNumber = ?1 ORDER BY OriginalDay",
                  kReadingExceptions),
      exception_(connection,
                 "SELECT OriginalDay, IsDeleted, Properties FROM SeriesExceptions WHERE ItemNumber = ?1 AND OriginalDay = ?2",
                 kReadingExceptions),
      places_(connection, "SELECT OriginalDay, IsDeleted, Start FROM SeriesExceptions WHERE ItemNumber = ?1 ORDER BY OriginalDay",
              kReadingExceptions),
      next_(connection,
            "SELECT FirstStart, ItemNumber FROM Series WHERE FolderNumber = ?1 AND (FirstStart, ItemNumber) > (?2, ?3) "
            "AND LastStart >= ?4 ORDER BY FirstStart, ItemNumber LIMIT 1",
            kWalking),
      endless_(connection, "SELECT 1 FROM Series WHERE FolderNumber = ?1 AND PatternEndDay IS NULL LIMIT 1", kWalking) {}

void SeriesStorage::save(std::int64_t number, std::int64_t folder, const Recurrence& pattern, StartSpan span) {
    deleteExceptions_.run().bind(1, number).finish();
    auto run = save_.run();
    run.bind(1, number).bind(2, folder).bind(3, static_cast<std::int64_t>(pattern.recurrenceType));
    run.bind(4, std::int64_t{pattern.interval}).bind(5, std::int64_t{pattern.dayOfWeekMask});
    run.bind(6, std::int64_t{pattern.dayOfMonth}).bind(7, std::int64_t{pattern.monthOfYear});
    run.bind(8, std::int64_t{pattern.instance}).bind(9, std::int64_t{pattern.occurrences});
    pattern.patternEndDate ? run.bind(10, std::int64_t{dayNumberOf(*pattern.patternEndDate)}) : run.bindNull(10);
    run.bind(11, span.first).bind(12, span.last).finish();
}

void SeriesStorage::remove(std::int64_t number) {
    deleteExceptions_.run().bind(1, number).finish();
    delete_.run().bind(1, number).finish();
}

void SeriesStorage::saveException(std::int64_t number, const RecurrenceException& exception, std::optional<std::int64_t> start) {
    encodeChanges(table(), exception.changes, bytes_);
    auto run = saveException_.run();
    run.bind(1, number).bind(2, std::int64_t{dayNumberOf(exception.originalDate)});
    run.bind(3, std::int64_t{exception.deleted ? 1 : 0}).bindBlob(5, bytes_);
    start ? run.bind(4, *start) : run.bindNull(4);
    run.finish();
    if (start) widen_.run().bind(1, number).bind(2, *start).finish();
}

std::optional<Recurrence> SeriesStorage::pattern(std::int64_t itemNumber) {
    auto run = pattern_.run();
    if (!run.bind(1, itemNumber).next()) return std::nullopt;
    Recurrence pattern{static_cast<RecurrenceType>(number(run, 0)),
                       number(run, 1),
                       number(run, 2),
                       number(run, 3),
                       number(run, 4),
                       number(run, 5),
                       number(run, 6),
                       std::nullopt,
                       {}};
    constexpr int kEnd = 7;
    if (!run.isNull(kEnd)) pattern.patternEndDate = day(run, kEnd);
    checkNumbers(pattern);  // whoever wrote the file
    return pattern;
}

RecurrenceException SeriesStorage::read(const Statement::Run& run) {
    return {day(run, 0), run.integer(1) != 0, decodeChanges(table(), run.bytes(2))};
}

std::vector<RecurrenceException> SeriesStorage::exceptions(std::int64_t number) {
    std::vector<RecurrenceException> all;
    auto run = exceptions_.run();
    run.bind(1, number);
    while (run.next()) all.push_back(read(run));
    return all;
}

std::optional<RecurrenceException> SeriesStorage::exception(std::int64_t number, DayNumber originalDay) {
    auto run = exception_.run();
    if (!run.bind(1, number).bind(2, std::int64_t{originalDay}).next()) return std::nullopt;
    return read(run);
}

std::vector<ExceptionPlace> SeriesStorage::exceptionPlaces(std::int64_t itemNumber) {
    std::vector<ExceptionPlace> places;
    auto run = places_.run();
    run.bind(1, itemNumber);
    while (run.next()) {
        const bool isGone = run.integer(1) != 0 || run.isNull(2);
        places.push_back({dayNumberOf(day(run, 0)), isGone ? std::nullopt : std::optional{run.integer(2)}});
    }
    return places;
}

std::optional<ItemPlace> SeriesStorage::next(std::int64_t folder, ItemPlace place, std::int64_t earliest) {
    auto run = next_.run();
    if (!run.bind(1, folder).bind(2, place.key).bind(3, place.number).bind(4, earliest).next()) return std::nullopt;
    const ItemPlace found{run.integer(0), run.integer(1)};
    // A damaged start that is no number would be found again and again.
    return place < found ? std::optional{found} : std::nullopt;
}

bool SeriesStorage::hasEndless(std::int64_t folder) {
    auto run = endless_.run();
    return run.bind(1, folder).next();
}

}  // namespace wmoutlook::outlookstore

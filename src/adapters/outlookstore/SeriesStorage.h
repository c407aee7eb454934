#pragma once

#include "adapters/outlookstore/ItemStorage.h"
#include "adapters/outlookstore/Recurrence.h"
#include "adapters/outlookstore/Sqlite.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace wmoutlook::outlookstore {

/// The starts between which all occurrences of a series lie.
struct StartSpan {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

/// An exception without what it changes.
struct ExceptionPlace {
    DayNumber originalDay = 0;
    std::optional<std::int64_t> start;  ///< nothing when it is deleted
};

/// The rows of series and their exceptions, by the number of the item. Exceptions are of appointments alone.
class SeriesStorage {
public:
    explicit SeriesStorage(Connection& connection);

    /// Writes the pattern over an older one, and no exception.
    void save(std::int64_t number, std::int64_t folder, const Recurrence& pattern, StartSpan span);
    void remove(std::int64_t number);
    void saveException(std::int64_t number, const RecurrenceException& exception, std::optional<std::int64_t> start);

    /// Nothing for an item that is no series.
    [[nodiscard]] std::optional<Recurrence> pattern(std::int64_t number);
    [[nodiscard]] std::vector<RecurrenceException> exceptions(std::int64_t number);
    [[nodiscard]] std::optional<RecurrenceException> exception(std::int64_t number, DayNumber originalDay);
    [[nodiscard]] std::vector<ExceptionPlace> exceptionPlaces(std::int64_t number);

    /// The series of the folder behind `place`, in order of their first start; those that end before `earliest` are left out.
    [[nodiscard]] std::optional<ItemPlace> next(std::int64_t folder, ItemPlace place, std::int64_t earliest);
    [[nodiscard]] bool hasEndless(std::int64_t folder);

private:
    [[nodiscard]] static RecurrenceException read(const Statement::Run& run);

    Statement save_, delete_, deleteExceptions_, saveException_, widen_, pattern_, exceptions_, exception_, places_, next_,
        endless_;
    std::string bytes_;
};

}  // namespace wmoutlook::outlookstore

#include "adapters/outlookstore/SeriesItem.h"

#include "platform/Errors.h"

#include <algorithm>
#include <set>
#include <utility>

namespace wmoutlook::outlookstore {

namespace {

constexpr std::int64_t kSecondsOfDay = 86400;
constexpr std::int32_t kMaster = 1;
constexpr std::int32_t kOccurrence = 2;
constexpr std::int32_t kException = 3;

std::size_t indexOf(const ItemData& item, std::string_view property) {
    return item.table().find(property).value();
}

Variant valueOf(const ItemData& item, std::string_view property) {
    return item.valueOrDefault(indexOf(item, property));
}

void setValue(ItemData& item, std::string_view property, Variant value) {
    item.set(indexOf(item, property), std::move(value));
}

bool isAppointment(const ItemData& item) {
    return item.type() == outlook::ItemType::appointment;
}

/// The date with which the pattern begins. A task has its due date or, without one, its start date.
std::string_view startProperty(const ItemData& series) {
    if (isAppointment(series)) return "Start";
    return series.stored(indexOf(series, "DueDate")).isNull() ? "StartDate" : "DueDate";
}

Date startOf(const ItemData& series) {
    return valueOf(series, startProperty(series)).toDate();
}

void moveBy(ItemData& item, std::string_view property, std::int64_t days) {
    const Variant value = valueOf(item, property);
    if (days == 0 || value == Variant{absentDate()}) return;
    const Date moved = fromSecondsSinceDayZero(secondsSinceDayZero(value.toDate()) + days * kSecondsOfDay);
    if (isEarlier(moved, makeDay(9999, 12, 31)) && isEarlier(makeDay(100, 1, 1), moved)) setValue(item, property, moved);
}

/// As Outlook does: the series begins with its first occurrence.
void moveToFirstDay(ItemData& series, const Recurrence& pattern) {
    const DayNumber start = dayNumberOf(startOf(series));
    const DayNumber first = patternDays(pattern, start, start, lastDayOfAll(), 1).front();
    const std::int64_t days = std::int64_t{first} - start;
    if (isAppointment(series)) {
        moveBy(series, "Start", days);
        moveBy(series, "End", days);
        return;
    }
    moveBy(series, "StartDate", days);
    moveBy(series, "DueDate", days);
}

StartSpan spanOf(const Recurrence& pattern, Date start) {
    const std::int64_t first = secondsSinceDayZero(start);
    const DayNumber last = pattern.patternEndDate ? dayNumberOf(*pattern.patternEndDate) : lastDayOfAll();
    return {first, (std::int64_t{last} + 1) * kSecondsOfDay - 1};
}

/// What the series shows on a day of its pattern, whatever its exceptions.
ItemData regularOccurrence(const ItemData& series, DayNumber day) {
    ItemData item = series;
    const std::int64_t days = std::int64_t{day} - dayNumberOf(startOf(series));
    moveBy(item, "Start", days);
    moveBy(item, "End", days);
    setValue(item, "RecurrenceState", kOccurrence);
    return item;
}

void apply(const std::vector<ChangedProperty>& changes, ItemData& item) {
    for (const ChangedProperty& change : changes) {
        const std::size_t index = indexOf(item, change.name);
        item.set(index, change.value.isNull() ? item.table().rows()[index].defaultValue() : change.value);
    }
    setValue(item, "RecurrenceState", kException);
}

std::vector<ChangedProperty> changesBetween(const ItemData& regular, const ItemData& changed) {
    std::vector<ChangedProperty> changes;
    const auto rows = regular.table().rows();
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].access == PropertyAccess::readWrite && regular.stored(i) != changed.stored(i))
            changes.push_back({std::string{rows[i].name}, changed.stored(i)});
    return changes;
}

bool haveSameUserProperties(const ItemData& left, const ItemData& right) {
    return std::equal(left.userProperties().begin(), left.userProperties().end(), right.userProperties().begin(),
                      right.userProperties().end(), [](const UserPropertyData& one, const UserPropertyData& other) {
                          return one.name == other.name && one.type == other.type && one.value == other.value;
                      });
}

[[noreturn]] void refuseException(std::string_view why) {
    throw OutlookError{-1, std::string{"An exception of the recurrence cannot be: "}.append(why)};
}

ChangedProperty soundChange(const ChangedProperty& change, const ItemData& series) {
    const auto index = series.table().find(change.name);
    if (!index || series.table().rows()[*index].access == PropertyAccess::readOnly)
        refuseException("it changes \"" + change.name + "\", which an appointment does not have or which cannot be written");
    const PropertyRow& row = series.table().rows()[*index];
    return {std::string{row.name}, change.value.isNull() ? Variant{} : convertedFor(series.type(), row, change.value)};
}

std::optional<LoadedItem> loadMaster(StoreFile& file, const ItemHead& head) {
    std::int64_t store = 0;
    auto master = file.items().load(head.number, store);
    if (!master || !isSeries(master->data)) return std::nullopt;
    return master;
}

/// Another start or end, as Outlook takes it, makes another pattern.
bool isMoved(const ItemData& now, const ItemData& before) {
    constexpr std::string_view kAppointment[] = {"Start", "End"};
    constexpr std::string_view kTask[] = {"StartDate", "DueDate"};
    const auto& properties = isAppointment(now) ? kAppointment : kTask;
    return std::any_of(std::begin(properties), std::end(properties),
                       [&](std::string_view property) { return valueOf(now, property) != valueOf(before, property); });
}

void savePattern(StoreFile& file, const ItemHead& head, const ItemData& data, const Recurrence& pattern,
                 const std::vector<RecurrenceException>& exceptions) {
    file.series().save(head.number, head.folder, pattern, spanOf(pattern, startOf(data)));
    for (const RecurrenceException& exception : exceptions) {
        ItemData item = regularOccurrence(data, dayNumberOf(exception.originalDate));
        apply(exception.changes, item);
        file.series().saveException(head.number, exception, exception.deleted ? std::nullopt : sortKeyOf(item, "Start"));
    }
}

}  // namespace

bool isSeries(const ItemData& item) {
    const auto index = item.table().find("IsRecurring");
    return index && !item.stored(*index).isNull();
}

Recurrence soundPattern(const Recurrence& recurrence, const ItemData& series) {
    if (!isAppointment(series) && series.type() != outlook::ItemType::task)
        throw OutlookError{-1, "Only appointments and tasks can recur"};
    Recurrence pattern = recurrence;
    pattern.exceptions.clear();
    checkPattern(pattern, startOf(series));
    const auto end = endOf(pattern, dayNumberOf(startOf(series)));
    if (end) pattern.patternEndDate = Date{static_cast<double>(*end)};
    return pattern;
}

std::vector<RecurrenceException> soundExceptions(const Recurrence& recurrence, const ItemData& series) {
    if (!recurrence.exceptions.empty() && !isAppointment(series)) refuseException("a task has none");
    const DayNumber start = dayNumberOf(startOf(series));
    const DayNumber end = endOf(recurrence, start).value_or(lastDayOfAll());
    std::vector<RecurrenceException> exceptions;
    std::set<DayNumber> seen;
    for (const RecurrenceException& given : recurrence.exceptions) {
        const DayNumber day = dayNumberOf(given.originalDate);
        if (day < start || day > end || patternDays(recurrence, start, day, day, 1).empty())
            refuseException("its OriginalDate is no day of the pattern");
        if (!seen.insert(day).second) refuseException("its OriginalDate is there twice");
        RecurrenceException& exception = exceptions.emplace_back(RecurrenceException{given.originalDate, given.deleted, {}});
        for (const ChangedProperty& change : given.changes) exception.changes.push_back(soundChange(change, series));
    }
    return exceptions;
}

bool saveSeries(StoreFile& file, ItemHead& head, ItemData& data, const Recurrence* recurrence) {
    std::optional<Recurrence> pattern;
    std::vector<RecurrenceException> exceptions;
    if (recurrence != nullptr) {
        pattern = soundPattern(*recurrence, data);
        exceptions = soundExceptions(*recurrence, data);
    } else {
        const auto before = loadMaster(file, head);
        const auto old = before && isMoved(data, before->data) ? file.series().pattern(head.number) : std::nullopt;
        if (old) {
            Recurrence moved = *old;
            if (moved.occurrences > 0) moved.patternEndDate.reset();  // so many, from the new start on
            pattern = soundPattern(moved, data);
        }
    }
    if (pattern) {
        moveToFirstDay(data, *pattern);
        setValue(data, "IsRecurring", true);
        if (isAppointment(data)) setValue(data, "RecurrenceState", kMaster);
    }
    ItemHead saved = head;  // an item that could not be saved as a whole has no number
    Savepoint whole{file.connection(), "saving a series"};
    if (!file.items().save(saved, data, file.now(), true)) return false;
    if (pattern) savePattern(file, saved, data, *pattern, exceptions);
    whole.release();
    head = saved;
    return true;
}

std::optional<ItemData> occurrenceOf(SeriesStorage& series, const LoadedItem& master, DayNumber originalDay) {
    ItemData item = regularOccurrence(master.data, originalDay);
    const auto exception = series.exception(master.head.number, originalDay);
    if (exception && exception->deleted) return std::nullopt;
    if (exception) apply(exception->changes, item);
    return item;
}

bool saveOccurrence(StoreFile& file, ItemHead& head, ItemData& data, DayNumber originalDay) {
    auto master = loadMaster(file, head);
    if (!master || !occurrenceOf(file.series(), *master, originalDay)) return false;
    if (!haveSameUserProperties(master->data, data))
        throw OutlookError{-1, "The user properties of an occurrence are those of its series; change them there"};
    Savepoint whole{file.connection(), "saving an occurrence"};
    if (!file.items().save(master->head, master->data, file.now(), false)) return false;
    setValue(data, "RecurrenceState", kException);
    file.series().saveException(
        head.number,
        {Date{static_cast<double>(originalDay)}, false, changesBetween(regularOccurrence(master->data, originalDay), data)},
        sortKeyOf(data, "Start"));
    whole.release();
    head = master->head;
    return true;
}

bool removeOccurrence(StoreFile& file, const ItemHead& head, DayNumber originalDay) {
    auto master = loadMaster(file, head);
    if (!master || !occurrenceOf(file.series(), *master, originalDay)) return false;
    Savepoint whole{file.connection(), "deleting an occurrence"};
    if (!file.items().save(master->head, master->data, file.now(), false)) return false;
    file.series().saveException(head.number, {Date{static_cast<double>(originalDay)}, true, {}}, std::nullopt);
    whole.release();
    return true;
}

}  // namespace wmoutlook::outlookstore

#include "apps/tallowsync/run/RecordingDatabase.h"

#include "platform/Errors.h"
#include "platform/Text.h"

#include <array>
#include <string_view>

namespace wmoutlook {

namespace {

/// A table whose rows are listed, and the fields of which the first that is not blank identifies a row.
struct ListedTable {
    std::string_view name;
    std::array<std::string_view, 4> keys;
};

constexpr ListedTable kListedTables[] = {
    {"Companies", {"CompanyID"}},
    {"Contacts", {"ContactID"}},
    {"ClientData", {"ClientDataID"}},
    {"Categories", {"CategoryID"}},
    {"Appointments", {"AppointmentID"}},
    {"Tasks", {"TaskID"}},
    {"Schedule", {"ScheduleID"}},
    {"OutlookScheme", {"SchemeID"}},
    {"OutlookSync", {"CompanyNum", "ContactNum", "AppointmentNum", "TaskNum"}},
};
constexpr std::size_t kNotListed = std::size(kListedTables);

std::string_view nextWord(std::string_view& text) {
    constexpr std::string_view kBetween = " \t\r\n;";
    text.remove_prefix(std::min(text.find_first_not_of(kBetween), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(kBetween));
    text.remove_prefix(word.size());
    return word;
}

/// The table behind the first FROM; writable texts read one table.
std::size_t listedTableOf(std::string_view sql) {
    while (!sql.empty())
        if (equalsTextually(nextWord(sql), "FROM")) break;
    const std::string_view name = nextWord(sql);
    std::size_t table = 0;
    while (table < kNotListed && !equalsTextually(kListedTables[table].name, name)) ++table;
    return table;
}

Json numberOrText(const Variant& value) {
    if (const auto* number = std::get_if<std::int32_t>(&value.value())) return *number;
    return value.toText();
}

}  // namespace

RecordsetHandle RecordingDatabase::openRecordset(std::string_view sql, LockCode lock) {
    const RecordsetHandle handle = pass().openRecordset(sql, lock);
    if (lock != LockCode::updatable) return handle;
    if (const std::size_t table = listedTableOf(sql); table != kNotListed) sets_[handle] = {table, false};
    return handle;
}

void RecordingDatabase::closeRecordset(RecordsetHandle handle) {
    sets_.erase(handle);
    inner_->closeRecordset(handle);
}

HostDatabase& RecordingDatabase::moving(RecordsetHandle handle) {
    if (OpenSet* const set = listedSet(handle)) set->isCurrentNoted = false;
    return pass();
}

RecordingDatabase::OpenSet* RecordingDatabase::listedSet(RecordsetHandle handle) {
    const auto found = sets_.find(handle);
    return found == sets_.end() ? nullptr : &found->second;
}

void RecordingDatabase::updateField(RecordsetHandle handle, std::string_view field, std::string_view value) {
    OpenSet* const set = listedSet(handle);
    const bool isToBeNoted = set != nullptr && !set->isCurrentNoted;
    const Json record = isToBeNoted ? currentRecord(handle, set->table) : Json{};  // what it was known by before
    pass().updateField(handle, field, value);
    if (!isToBeNoted) return;
    rows_.updated(record);
    set->isCurrentNoted = true;
}

void RecordingDatabase::deleteRecord(RecordsetHandle handle) {
    OpenSet* const set = listedSet(handle);
    const Json record = set != nullptr ? currentRecord(handle, set->table) : Json{};
    moving(handle).deleteRecord(handle);
    if (set != nullptr) rows_.deleted(record);
}

void RecordingDatabase::saveNewRecord(RecordsetHandle handle) {
    pass().saveNewRecord(handle);
    OpenSet* const set = listedSet(handle);
    if (set == nullptr) return;
    rows_.created(currentRecord(handle, set->table));
    set->isCurrentNoted = true;
}

/// Reading must not make a write fail that is about to succeed: a row that cannot be read is listed by its table alone.
Json RecordingDatabase::currentRecord(RecordsetHandle handle, std::size_t table) {
    Json record{{"table", kListedTables[table].name}};
    for (const std::string_view key : kListedTables[table].keys) {
        if (key.empty()) break;
        try {
            const Variant value = inner_->getField(handle, key);
            if (value.isNull()) continue;
            record[std::string{key}] = numberOrText(value);
            break;
        } catch (const Failure&) {}
    }
    return record;
}

}  // namespace wmoutlook

#include "apps/tallowsync/items/RecurrenceJson.h"

#include "adapters/outlookstore/PropertyTable.h"
#include "apps/tallowsync/PlainText.h"

#include <limits>
#include <string_view>
#include <utility>

namespace wmoutlook {

namespace {

using outlookstore::ChangedProperty;
using outlookstore::PropertyKind;
using outlookstore::Recurrence;
using outlookstore::RecurrenceException;

struct NumberRow {
    const char* name;
    std::int32_t Recurrence::*field;
};

constexpr NumberRow kNumbers[] = {
    {"Interval", &Recurrence::interval},     {"DayOfWeekMask", &Recurrence::dayOfWeekMask},
    {"DayOfMonth", &Recurrence::dayOfMonth}, {"MonthOfYear", &Recurrence::monthOfYear},
    {"Instance", &Recurrence::instance},     {"Occurrences", &Recurrence::occurrences},
};

/// Thrown within this file only: the end of a sentence.
struct Fault {
    std::string text;
};

Json changeToJson(const ChangedProperty& change) {
    const auto& table = outlookstore::PropertyTable::of(outlook::ItemType::appointment);
    const auto& row = table.rows()[table.find(change.name).value()];
    const Variant value = change.value.isNull() ? row.defaultValue() : change.value;
    if (const std::string* const text = value.text()) return *text;
    if (row.kind == PropertyKind::moment || row.kind == PropertyKind::day) return jsonMoment(value.toDate());
    return row.kind == PropertyKind::boolean ? Json(value.toBoolean()) : Json(value.toInteger());
}

Json exceptionToJson(const RecurrenceException& exception) {
    Json json{{"OriginalDate", jsonDay(exception.originalDate)}, {"Deleted", exception.deleted}};
    for (const ChangedProperty& change : exception.changes) json[change.name] = changeToJson(change);
    return json;
}

std::int32_t numberIn(const Json& value, const std::string& name) {
    const bool isTooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > std::numeric_limits<std::int32_t>::max();
    if (!value.is_number_integer() || isTooLarge ||
        value.get<std::int64_t>() != static_cast<std::int32_t>(value.get<std::int64_t>()))
        throw Fault{"has a Recurrence whose " + name + " is no whole number of 32 bits"};
    return static_cast<std::int32_t>(value.get<std::int64_t>());
}

Date dayIn(const Json& value, const std::string& name) {
    constexpr std::size_t kLength = 10;
    const std::string* const text = value.get_ptr<const std::string*>();
    const auto day = text != nullptr && text->size() >= kLength ? fromIsoText(*text) : std::nullopt;
    if (!day) throw Fault{"has a Recurrence whose " + name + " is no day such as \"2026-11-22\""};
    return dayOf(*day);
}

bool truthIn(const Json& value, const std::string& name) {
    if (!value.is_boolean()) throw Fault{"has a Recurrence whose " + name + " is neither true nor false"};
    return value.get<bool>();
}

Variant changeIn(const Json& value, const std::string& name) {
    if (value.is_null()) return {};
    if (value.is_boolean()) return value.get<bool>();
    if (value.is_number_integer()) return numberIn(value, name);
    if (const std::string* const text = value.get_ptr<const std::string*>()) return *text;
    throw Fault{"has a Recurrence with an exception whose " + inQuotes(name) + " has no value that a property takes"};
}

RecurrenceException exceptionIn(const Json& json) {
    if (!json.is_object() || !json.contains("OriginalDate"))
        throw Fault{"has a Recurrence with an exception without OriginalDate"};
    RecurrenceException exception;
    for (const auto& [name, value] : json.items()) {
        if (name == "OriginalDate")
            exception.originalDate = dayIn(value, name);
        else if (name == "Deleted")
            exception.deleted = truthIn(value, name);
        else
            exception.changes.push_back({name, changeIn(value, name)});
    }
    return exception;
}

void readField(const std::string& name, const Json& value, Recurrence& recurrence) {
    for (const NumberRow& row : kNumbers) {
        if (name != row.name) continue;
        recurrence.*row.field = numberIn(value, name);
        return;
    }
    if (name == "RecurrenceType") {
        recurrence.recurrenceType = static_cast<outlookstore::RecurrenceType>(numberIn(value, name));
    } else if (name == "PatternEndDate") {
        if (!value.is_null()) recurrence.patternEndDate = dayIn(value, name);
    } else if (name == "NoEndDate") {
        static_cast<void>(truthIn(value, name));
    } else if (name == "Exceptions" && value.is_array()) {
        for (const Json& exception : value) recurrence.exceptions.push_back(exceptionIn(exception));
    } else {
        throw Fault{"has a Recurrence with " + inQuotes(name) + ", which is no part of one"};
    }
}

}  // namespace

Json recurrenceToJson(const Recurrence& recurrence) {
    Json json{{"RecurrenceType", static_cast<std::int32_t>(recurrence.recurrenceType)}};
    for (const NumberRow& row : kNumbers)
        if (recurrence.*row.field != 0) json[row.name] = recurrence.*row.field;
    const bool isEndless = recurrence.occurrences == 0 && !recurrence.patternEndDate;
    if (recurrence.patternEndDate) json["PatternEndDate"] = jsonDay(*recurrence.patternEndDate);
    json["NoEndDate"] = isEndless;
    Json& exceptions = json["Exceptions"] = Json::array();
    for (const RecurrenceException& exception : recurrence.exceptions) exceptions.push_back(exceptionToJson(exception));
    return json;
}

std::optional<Recurrence> recurrenceFromJson(const Json& json, std::string& fault) {
    try {
        if (!json.is_object() || !json.contains("RecurrenceType"))
            throw Fault{"has a Recurrence that is no object with a RecurrenceType"};
        Recurrence recurrence;
        for (const auto& [name, value] : json.items()) readField(name, value, recurrence);
        const bool isEndless = json.contains("NoEndDate") && json.at("NoEndDate").get<bool>();
        if (isEndless && (recurrence.occurrences > 0 || recurrence.patternEndDate))
            throw Fault{"has a Recurrence with NoEndDate and an end"};
        return recurrence;
    } catch (const Fault& found) {
        fault = found.text;
        return std::nullopt;
    }
}

}  // namespace wmoutlook

#include "apps/tallowsync/items/ItemJson.h"

#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/items/MailJson.h"
#include "apps/tallowsync/items/RecurrenceJson.h"
#include "apps/tallowsync/items/ValueLimits.h"
#include "platform/Errors.h"
#include "platform/Text.h"

#include <algorithm>
#include <limits>

namespace wmoutlook {

namespace {

using outlook::ItemType;
using outlook::UserPropertyType;
using outlookstore::PropertyAccess;
using outlookstore::PropertyKind;
using outlookstore::PropertyTable;

/// What `list` prints beside the properties of an item.
bool isNoProperty(std::string_view key) {
    constexpr std::string_view kKeys[] = {"EntryID",        "StoreID",    "Folder",     "Class",
                                          "UserProperties", "Recurrence", "Recipients", "Attachments"};
    return std::any_of(std::begin(kKeys), std::end(kKeys), [&](std::string_view known) { return known == key; });
}

struct KindRow {
    PropertyKind kind;
    std::string_view expected;
    std::optional<Variant> (*read)(const Json& value);
};

std::optional<Variant> readText(const Json& value) {
    if (!value.is_string()) return std::nullopt;
    return Variant{value.get<std::string>()};
}

std::optional<Variant> readInteger(const Json& value) {
    if (!value.is_number_integer()) return std::nullopt;
    constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    const bool isTooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > std::uint64_t{kMost};
    const auto number = value.get<std::int64_t>();
    if (isTooLarge || number < kLeast || number > kMost) return std::nullopt;
    return Variant{static_cast<std::int32_t>(number)};
}

bool isWithin(const NumberRange& range, const Variant& number) {
    return number.toInteger() >= range.least && number.toInteger() <= range.most;
}

std::optional<Variant> readNumber(const Json& value) {
    if (!value.is_number()) return std::nullopt;
    return Variant{value.get<double>()};
}

std::optional<Variant> readTruth(const Json& value) {
    if (!value.is_boolean()) return std::nullopt;
    return Variant{value.get<bool>()};
}

std::optional<Variant> readDate(const Json& value) {
    constexpr std::size_t kShortestDay = 10;  // shorter is a time of day alone
    const std::string* const text = value.get_ptr<const std::string*>();
    const auto date = text != nullptr && text->size() >= kShortestDay ? fromIsoText(*text) : std::nullopt;
    if (!date) return std::nullopt;
    return Variant{*date};
}

constexpr std::string_view kDay = "a day such as \"2026-11-22\"";
constexpr std::string_view kMoment = "a moment such as \"2026-11-22T09:00:00\"";

constexpr KindRow kKinds[] = {
    {PropertyKind::text, "a text", readText},
    {PropertyKind::integer, "", readInteger},  // see rangeOf
    {PropertyKind::boolean, "true or false", readTruth},
    {PropertyKind::day, kDay, readDate},
    {PropertyKind::moment, kMoment, readDate},
};

struct UserKindRow {
    UserPropertyType type;
    std::string_view expected;
    std::optional<Variant> (*read)(const Json& value);
};

constexpr UserKindRow kUserKinds[] = {
    {UserPropertyType::text, "a text", readText},
    {UserPropertyType::number, "a number", readNumber},
    {UserPropertyType::dateTime, kMoment, readDate},
    {UserPropertyType::yesNo, "true or false", readTruth},
};

/// "a ContactItem", "an AppointmentItem"
std::string anItem(ItemType type) {
    const std::string name{outlookstore::typeName(type)};
    return (name.front() == 'A' ? "an " : "a ") + name;
}

const UserKindRow* userKindOf(const Json& type) {
    const auto number = readInteger(type);
    for (const UserKindRow& row : kUserKinds)
        if (number && number->toInteger() == static_cast<std::int32_t>(row.type)) return &row;
    return nullptr;
}

}  // namespace

ItemReader::ItemReader(outlook::port::Automation& store, std::optional<std::string> folder)
    : store_(store), folder_(std::move(folder)) {}

void ItemReader::read(const Json& document) {
    if (!document.is_array()) {
        readItem(document);
        return;
    }
    for (const Json& object : document) readItem(object);
}

void ItemReader::readItem(const Json& object) {
    ++position_;
    if (!object.is_object()) {
        fault("is no object with properties");
        return;
    }
    NewItem item;
    if (!chooseFolder(object, item) || !chooseType(object, item)) return;  // what to check the names against is not known
    for (const auto& [name, value] : object.items())
        if (!isNoProperty(name)) readProperty(name, value, item);
    if (const auto values = object.find("UserProperties"); values != object.end()) readUserProperties(*values, item);
    if (const auto value = object.find("Recurrence"); value != object.end() && !value->is_null()) readRecurrence(*value, item);
    readMail(object, item);
    items_.push_back(std::move(item));
}

bool ItemReader::chooseFolder(const Json& object, NewItem& item) {
    const auto own = object.find("Folder");
    if (!folder_ && (own == object.end() || !own->is_string())) {
        fault("names no Folder, and there is no --folder");
        return false;
    }
    item.folder = folder_ ? *folder_ : own->get<std::string>();
    return true;
}

/// It is what the folder holds; a Class may only say the same. (Distribution lists, which lie among contacts too, have none.)
bool ItemReader::chooseType(const Json& object, NewItem& item) {
    try {
        item.type = outlookstore::findFolder(store_, item.folder)->defaultItemType();
    } catch (const OutlookError&) {
        fault("names a Folder that is not in the Outlook store");
        return false;
    }
    const auto given = object.find("Class");
    if (given == object.end()) return true;
    const auto number = readInteger(*given);
    const auto fits = static_cast<std::int32_t>(outlook::classOf(item.type));
    if (number && number->toInteger() == fits) return true;
    fault("has a Class other than " + std::to_string(fits) + ", and its folder takes " +
          std::string{outlookstore::typeName(item.type)} + "s only");
    return false;
}

void ItemReader::readProperty(const std::string& name, const Json& value, NewItem& item) {
    const PropertyTable& table = PropertyTable::of(item.type);
    const auto index = table.find(name);
    if (!index) {
        fault("has " + inQuotes(name) + ", which is no property of " + anItem(item.type));
        return;
    }
    const auto& row = table.rows()[*index];
    if (row.access == PropertyAccess::readOnly || value.is_null()) return;
    const auto* const kind =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const KindRow& known) { return known.kind == row.kind; });
    auto read = kind->read(value);
    const bool isNumber = row.kind == PropertyKind::integer;
    if (read && (!isNumber || isWithin(rangeOf(row.name), *read))) {
        addProperty(row.name, std::move(*read), item);
        return;
    }
    fault("has a value for " + std::string{row.name} + ", which takes " +
          (isNumber ? wordsOf(rangeOf(row.name)) : std::string{kind->expected}));
}

void ItemReader::addProperty(std::string_view name, Variant value, NewItem& item) {
    const auto* const text = std::get_if<std::string>(&value.value());
    if (const std::string why = text != nullptr ? faultOfText(name, *text) : std::string{}; !why.empty())
        fault("has a text for " + std::string{name} + " that " + why);
    else
        item.properties.emplace_back(name, std::move(value));
}

/// The store tells whether the item can recur so; what it is given is not saved.
void ItemReader::readRecurrence(const Json& value, NewItem& item) {
    std::string why;
    item.recurrence = recurrenceFromJson(value, why);
    if (!item.recurrence) {
        fault(why);
        return;
    }
    try {
        static_cast<void>(makeItem(store_, item));
    } catch (const OutlookError& error) {
        fault(std::string{"has a Recurrence that cannot be taken. "} + error.what());
    }
}

/// To, CC and BCC follow the recipients, so that nothing is read from them beside those.
void ItemReader::readMail(const Json& object, NewItem& item) {
    if (const auto value = object.find("Attachments"); value != object.end() && !value->empty())
        fault("has Attachments, which only 'tallowsync mail' can add");
    const auto value = object.find("Recipients");
    if (value == object.end() || value->empty()) return;
    std::string why = item.type == ItemType::mail ? "" : "has Recipients, and is no mail";
    if (why.empty()) item.recipients = recipientsFromJson(*value, why);
    if (!why.empty()) fault(why);
    std::erase_if(item.properties, [](const auto& property) { return isAddressLine(property.first); });
}

void ItemReader::readUserProperties(const Json& values, NewItem& item) {
    if (!values.is_array()) {
        fault("has UserProperties that are no array");
        return;
    }
    for (const Json& value : values) readUserProperty(value, item);
}

void ItemReader::readUserProperty(const Json& value, NewItem& item) {
    const auto part = [&](const char* key) { return value.is_object() && value.contains(key) ? value.at(key) : Json{}; };
    const Json nameGiven = part("name");
    const std::string name = nameGiven.is_string() ? nameGiven.get<std::string>() : std::string{};
    const UserKindRow* const kind = userKindOf(part("type"));
    if (!faultOfName(name).empty() || kind == nullptr) {
        fault("has a user property without a usable name or a type of 1 (text), 3 (number), 5 (moment) or 6 (true or false)");
        return;
    }
    const auto isSame = [&](const auto& known) { return equalsTextually(known.name, name); };
    if (std::any_of(item.userProperties.begin(), item.userProperties.end(), isSame)) {
        fault("has the user property " + inQuotes(name) + " twice");
        return;
    }
    const Json given = part("value");
    auto read = given.is_null() ? std::optional<Variant>{Variant{}} : kind->read(given);
    if (!read)
        fault("has the user property " + inQuotes(name) + ", which takes " + std::string{kind->expected});
    else if (const std::string why = given.is_string() ? faultOfText(name, given.get_ref<const std::string&>()) : "";
             !why.empty())
        fault("has the user property " + inQuotes(name) + " with a text that " + why);
    else
        item.userProperties.push_back({name, kind->type, std::move(*read)});
}

void ItemReader::fault(std::string_view sentence) {
    if (++faultCount_ <= kMostFaults) faults_.push_back("Item " + std::to_string(position_) + " " + std::string{sentence});
}

std::vector<std::string> ItemReader::faults() const {
    std::vector<std::string> told = faults_;
    if (faultCount_ > kMostFaults)
        told.push_back("There are " + std::to_string(faultCount_ - kMostFaults) + " more faults like these");
    return told;
}

}  // namespace wmoutlook

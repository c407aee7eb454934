#include "apps/tallowsync/items/ItemJson.h"

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
    constexpr std::string_view kKeys[] = {"EntryID", "StoreID", "Folder", "Class", "UserProperties"};
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
    {PropertyKind::integer, "a whole number of 32 bits", readInteger},
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

constexpr ItemType kItemTypes[] = {ItemType::contact, ItemType::appointment, ItemType::task, ItemType::mail};

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

/// Without a Class it is what the folder holds.
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
    for (const ItemType type : kItemTypes) {
        item.type = type;
        if (number && number->toInteger() == static_cast<std::int32_t>(outlookstore::classOf(type))) return true;
    }
    fault("has a Class that is none of 40 (contact), 26 (appointment), 48 (task) and 43 (mail)");
    return false;
}

void ItemReader::readProperty(const std::string& name, const Json& value, NewItem& item) {
    const PropertyTable& table = PropertyTable::of(item.type);
    const auto index = table.find(name);
    if (!index) {
        fault(std::string{"has \""}
                  .append(name)
                  .append("\", which is no property of a ")
                  .append(outlookstore::typeName(item.type)));
        return;
    }
    const auto& row = table.rows()[*index];
    if (row.access == PropertyAccess::readOnly || value.is_null()) return;
    const auto* const kind =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const KindRow& known) { return known.kind == row.kind; });
    if (auto read = kind->read(value))
        item.properties.emplace_back(row.name, std::move(*read));
    else
        fault("has a value for " + std::string{row.name} + ", which takes " + std::string{kind->expected});
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
    const Json name = part("name");
    const UserKindRow* const kind = userKindOf(part("type"));
    if (!name.is_string() || withoutWhiteSpaceAround(name.get<std::string>()).empty() || kind == nullptr) {
        fault("has a user property without a name or a type of 1 (text), 3 (number), 5 (moment) or 6 (true or false)");
        return;
    }
    const auto isSame = [&](const auto& known) { return equalsTextually(known.name, name.get<std::string>()); };
    if (std::any_of(item.userProperties.begin(), item.userProperties.end(), isSame)) {
        fault("has the user property " + name.get<std::string>() + " twice");
        return;
    }
    const Json given = part("value");
    auto read = given.is_null() ? std::optional<Variant>{Variant{}} : kind->read(given);
    if (read)
        item.userProperties.push_back({name.get<std::string>(), kind->type, std::move(*read)});
    else
        fault("has the user property " + name.get<std::string>() + ", which takes " + std::string{kind->expected});
}

void ItemReader::fault(std::string_view sentence) {
    faults_.push_back("Item " + std::to_string(position_) + " " + std::string{sentence});
}

}  // namespace wmoutlook

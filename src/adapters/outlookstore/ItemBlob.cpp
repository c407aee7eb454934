#include "adapters/outlookstore/ItemBlob.h"

#include "platform/Errors.h"

#include <bit>
#include <limits>
#include <variant>

namespace wmoutlook::outlookstore {

namespace {

constexpr char kFormat = 1;
constexpr double kBeforeAllDates = -657435;  // the year 100 begins a day later; its times of day count away from zero
constexpr double kLatestDate = 2958466;      // the year 10000

void appendNumber(std::string& bytes, std::uint64_t number) {
    for (; number >= 0x80; number >>= 7) bytes += static_cast<char>(number | 0x80);
    bytes += static_cast<char>(number);
}

std::uint64_t zigzag(std::int64_t number) {
    return (static_cast<std::uint64_t>(number) << 1) ^ static_cast<std::uint64_t>(number >> 63);
}

std::int64_t unzigzag(std::uint64_t number) {
    return static_cast<std::int64_t>(number >> 1) ^ -static_cast<std::int64_t>(number & 1);
}

void appendText(std::string& bytes, std::string_view text) {
    appendNumber(bytes, text.size());
    bytes.append(text);
}

void appendDouble(std::string& bytes, double number) {
    auto bits = std::bit_cast<std::uint64_t>(number);
    for (int i = 0; i < 8; ++i, bits >>= 8) bytes += static_cast<char>(bits);
}

void appendKind(std::string& bytes, StoredKind kind) {
    bytes += static_cast<char>(kind);
}

void appendValue(std::string& bytes, const Variant& value) {
    if (const std::string* text = value.text()) {
        appendKind(bytes, StoredKind::text);
        appendText(bytes, *text);
    } else if (const auto* integer = std::get_if<std::int32_t>(&value.value())) {
        appendKind(bytes, StoredKind::integer);
        appendNumber(bytes, zigzag(*integer));
    } else if (const auto* boolean = std::get_if<bool>(&value.value())) {
        appendKind(bytes, StoredKind::boolean);
        bytes += *boolean ? '\1' : '\0';
    } else if (const auto* date = std::get_if<Date>(&value.value())) {
        appendKind(bytes, StoredKind::date);
        appendDouble(bytes, date->days);
    } else if (const auto* number = std::get_if<double>(&value.value())) {
        appendKind(bytes, StoredKind::number);
        appendDouble(bytes, *number);
    } else {
        appendKind(bytes, StoredKind::null);
    }
}

StoredKind kindOf(outlook::UserPropertyType type) {
    switch (type) {
        case outlook::UserPropertyType::text: return StoredKind::text;
        case outlook::UserPropertyType::number: return StoredKind::number;
        case outlook::UserPropertyType::dateTime: return StoredKind::date;
        case outlook::UserPropertyType::yesNo: return StoredKind::boolean;
    }
    return StoredKind::null;
}

[[noreturn]] void failAsMalformed() {
    throw OutlookError{-1, "The item is stored in a form that this program cannot read"};
}

void decodeUserProperty(const StoredEntry& entry, ItemData& item) {
    const auto type = static_cast<outlook::UserPropertyType>(entry.userType);
    const StoredKind kind = kindOf(type);
    if (kind == StoredKind::null || (entry.kind != StoredKind::null && entry.kind != kind)) failAsMalformed();
    item.userProperties().push_back({std::string{entry.name}, type, entry.value()});
}

}  // namespace

bool holds(PropertyKind property, StoredKind stored) {
    switch (property) {
        case PropertyKind::text: return stored == StoredKind::text;
        case PropertyKind::integer: return stored == StoredKind::integer;
        case PropertyKind::boolean: return stored == StoredKind::boolean;
        case PropertyKind::day:
        case PropertyKind::moment: break;
    }
    return stored == StoredKind::date;
}

Variant StoredEntry::value() const {
    switch (kind) {
        case StoredKind::text: return Variant{text};
        case StoredKind::integer: return Variant{static_cast<std::int32_t>(integer)};
        case StoredKind::boolean: return Variant{integer != 0};
        case StoredKind::date: return Variant{Date{number}};
        case StoredKind::number: return Variant{number};
        case StoredKind::null: break;
    }
    return {};
}

ItemBlobReader::ItemBlobReader(std::string_view bytes) : bytes_(bytes) {
    if (bytes.empty() || bytes[0] != kFormat) fail();
    at_ = 1;
}

void ItemBlobReader::fail() const {
    failAsMalformed();
}

std::uint8_t ItemBlobReader::takeByte() {
    if (at_ >= bytes_.size()) fail();
    return static_cast<std::uint8_t>(bytes_[at_++]);
}

std::uint64_t ItemBlobReader::takeNumber() {
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
        const std::uint8_t byte = takeByte();
        number |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
        if (byte < 0x80) return number;
    }
    fail();
}

double ItemBlobReader::takeDouble() {
    std::uint64_t bits = 0;
    for (unsigned shift = 0; shift < 64; shift += 8) bits |= static_cast<std::uint64_t>(takeByte()) << shift;
    return std::bit_cast<double>(bits);
}

std::string_view ItemBlobReader::takeText() {
    const std::uint64_t length = takeNumber();
    if (length > bytes_.size() - at_) fail();
    const std::string_view text = bytes_.substr(at_, static_cast<std::size_t>(length));
    at_ += text.size();
    return text;
}

void ItemBlobReader::takeValue(StoredEntry& entry) {
    entry.kind = static_cast<StoredKind>(takeByte());
    switch (entry.kind) {
        case StoredKind::null: return;
        case StoredKind::text: entry.text = takeText(); return;
        case StoredKind::boolean: entry.integer = takeByte() != 0 ? 1 : 0; return;
        case StoredKind::integer:
            entry.integer = unzigzag(takeNumber());
            if (entry.integer != static_cast<std::int32_t>(entry.integer)) fail();
            return;
        case StoredKind::date:
            entry.number = takeDouble();
            if (!(entry.number > kBeforeAllDates && entry.number < kLatestDate)) fail();
            return;
        case StoredKind::number:
            entry.number = takeDouble();
            if (!(entry.number >= std::numeric_limits<double>::lowest() && entry.number <= std::numeric_limits<double>::max()))
                fail();
            return;
    }
    fail();
}

bool ItemBlobReader::next(StoredEntry& entry) {
    if (at_ == bytes_.size()) return false;
    entry = {};
    entry.code = takeNumber();
    if (entry.code == 0) {
        entry.userType = takeByte();
        entry.name = takeText();
    }
    takeValue(entry);
    return true;
}

void encodeItem(const ItemData& item, std::string& bytes) {
    bytes.assign(1, kFormat);
    const auto rows = item.table().rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (item.stored(i).isNull()) continue;
        appendNumber(bytes, rows[i].code);
        appendValue(bytes, item.stored(i));
    }
    for (const UserPropertyData& property : item.userProperties()) {
        appendNumber(bytes, 0);
        bytes += static_cast<char>(property.type);
        appendText(bytes, property.name);
        appendValue(bytes, property.value);
    }
}

ItemData decodeItem(outlook::ItemType type, std::string_view bytes) {
    ItemData item{type};
    ItemBlobReader reader{bytes};
    StoredEntry entry;
    while (reader.next(entry)) {
        if (entry.code == 0) {
            decodeUserProperty(entry, item);
            continue;
        }
        const auto index = item.table().findCode(entry.code);
        if (!index || !holds(item.table().rows()[*index].kind, entry.kind)) failAsMalformed();
        item.set(*index, entry.value());
    }
    return item;
}

void encodeChanges(const PropertyTable& table, const std::vector<ChangedProperty>& changes, std::string& bytes) {
    bytes.assign(1, kFormat);
    for (const ChangedProperty& change : changes) {
        appendNumber(bytes, table.rows()[table.find(change.name).value()].code);
        appendValue(bytes, change.value);
    }
}

std::vector<ChangedProperty> decodeChanges(const PropertyTable& table, std::string_view bytes) {
    std::vector<ChangedProperty> changes;
    ItemBlobReader reader{bytes};
    StoredEntry entry;
    while (reader.next(entry)) {
        const auto index = table.findCode(entry.code);
        const bool isDefault = entry.kind == StoredKind::null;
        if (!index || !(isDefault || holds(table.rows()[*index].kind, entry.kind))) failAsMalformed();
        changes.push_back({std::string{table.rows()[*index].name}, entry.value()});
    }
    return changes;
}

}  // namespace wmoutlook::outlookstore

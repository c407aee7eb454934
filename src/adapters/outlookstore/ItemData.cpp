#include "adapters/outlookstore/ItemData.h"

#include "platform/DateHelper.h"
#include "platform/Errors.h"

#include <cmath>

namespace wmoutlook::outlookstore {

namespace {

/// Dates travel as ISO texts; what a person or a filter would write is read too.
Date dateIn(const Variant& value) {
    if (const std::string* text = value.text())
        if (const auto date = DateHelper::parseMoment(*text)) return *date;
    return value.toDate();
}

double finite(double number) {
    if (!std::isfinite(number)) throw ConversionError{"The number is not finite"};
    return number;
}

Variant converted(PropertyKind kind, const Variant& value) {
    switch (kind) {
        case PropertyKind::text: return value.text() != nullptr ? value : Variant{value.toText()};
        case PropertyKind::integer: return Variant{value.toInteger()};
        case PropertyKind::boolean: return Variant{value.toBoolean()};
        case PropertyKind::day: return Variant{dayOf(dateIn(value))};
        case PropertyKind::moment: break;
    }
    return Variant{dateIn(value)};
}

}  // namespace

ItemData::ItemData(outlook::ItemType type) : type_(type), table_(&PropertyTable::of(type)), values_(table_->rows().size()) {}

Variant ItemData::valueOrDefault(std::size_t index) const {
    return values_[index].isNull() ? table_->rows()[index].defaultValue() : values_[index];
}

std::string_view ItemData::text(std::size_t index) const {
    const std::string* const text = values_[index].text();
    return text != nullptr ? std::string_view{*text} : std::string_view{};
}

bool ItemData::set(std::size_t index, Variant value) {
    const PropertyRow& row = table_->rows()[index];
    const std::string* const text = value.text();
    if (text != nullptr ? text->empty() : value == row.defaultValue()) value = Variant{};
    if (value == values_[index]) return false;
    values_[index] = std::move(value);
    return true;
}

Variant convertedFor(outlook::ItemType type, const PropertyRow& row, const Variant& value) {
    if (value.isNull()) return row.defaultValue();
    try {
        return converted(row.kind, value);
    } catch (const ConversionError& error) {
        throw OutlookError{
            error.number(),
            std::string{typeName(type)}.append(".").append(row.name).append(" cannot take this value. ") + error.what()};
    }
}

Variant convertedFor(const UserPropertyData& property, const Variant& value) {
    if (value.isNull()) return defaultOf(property.type);
    try {
        switch (property.type) {
            case outlook::UserPropertyType::text: return Variant{value.toText()};
            case outlook::UserPropertyType::number: return Variant{finite(value.toDouble())};
            case outlook::UserPropertyType::yesNo: return Variant{value.toBoolean()};
            case outlook::UserPropertyType::dateTime: break;
        }
        return Variant{dateIn(value)};
    } catch (const ConversionError& error) {
        throw OutlookError{error.number(), "The user property " + property.name + " cannot take this value. " + error.what()};
    }
}

Variant defaultOf(outlook::UserPropertyType type) {
    switch (type) {
        case outlook::UserPropertyType::text: return Variant{std::string{}};
        case outlook::UserPropertyType::number: return Variant{0.0};
        case outlook::UserPropertyType::yesNo: return Variant{false};
        case outlook::UserPropertyType::dateTime: break;
    }
    return Variant{absentDate()};
}

std::optional<std::int64_t> sortKeyOf(const ItemData& item, std::string_view dateProperty) {
    const auto index = item.table().find(dateProperty);
    if (!index) return std::nullopt;
    return secondsSinceDayZero(item.valueOrDefault(*index).toDate());
}

std::string_view defaultMessageClass(outlook::ItemType type) {
    switch (type) {
        case outlook::ItemType::appointment: return "IPM.Appointment";
        case outlook::ItemType::contact: return "IPM.Contact";
        case outlook::ItemType::task: return "IPM.Task";
        case outlook::ItemType::mail: break;
    }
    return "IPM.Note";
}

}  // namespace wmoutlook::outlookstore

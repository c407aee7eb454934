#include "adapters/outlookstore/Filter.h"

#include "adapters/outlookstore/FilterParser.h"
#include "adapters/outlookstore/ItemBlob.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace wmoutlook::outlookstore {

namespace {

double numberOf(PropertyKind kind, const StoredEntry& entry) {
    const bool isDate = kind == PropertyKind::day || kind == PropertyKind::moment;
    return isDate ? minutesOf(Date{entry.number}) : static_cast<double>(entry.integer);
}

PropertyValue byDefault(const FilterProperty& property, const ItemHead& head) {
    const PropertyTable& table = PropertyTable::of(head.type);
    const auto index = table.findCode(property.code);
    if (!index) return {};
    PropertyValue held{true, {}, static_cast<double>(table.rows()[*index].defaultNumber)};
    if (property.kind == PropertyKind::day || property.kind == PropertyKind::moment) held.number = minutesOf(absentDate());
    if (property.name == "Class") held.number = static_cast<double>(classOf(head.type));
    if (property.name == "CreationTime") held.number = minutesOf(head.created);
    if (property.name == "LastModificationTime") held.number = minutesOf(head.modified);
    if (property.name == "MessageClass") held.text = defaultMessageClass(head.type);
    return held;
}

std::vector<PropertyValue> valuesOf(std::span<const FilterProperty> properties, const ItemHead& head, std::string_view bytes) {
    std::vector<PropertyValue> row;
    row.reserve(properties.size());
    for (const FilterProperty& property : properties) row.push_back(byDefault(property, head));
    ItemBlobReader reader{bytes};
    StoredEntry entry;
    while (reader.next(entry)) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (entry.code != properties[i].code || !outlookstore::holds(properties[i].kind, entry.kind)) continue;
            row[i].text = entry.text;
            row[i].number = numberOf(properties[i].kind, entry);
        }
    }
    return row;
}

bool satisfies(std::weak_ordering order, FilterOperator op) {
    switch (op) {
        case FilterOperator::equal: return order == 0;
        case FilterOperator::notEqual: return order != 0;
        case FilterOperator::less: return order < 0;
        case FilterOperator::lessOrEqual: return order <= 0;
        case FilterOperator::greater: return order > 0;
        case FilterOperator::greaterOrEqual: break;
    }
    return order >= 0;
}

std::weak_ordering compare(const PropertyValue& held, const FilterNode& node, PropertyKind kind) {
    if (kind == PropertyKind::text) {
        const bool isEquality = node.op == FilterOperator::equal || node.op == FilterOperator::notEqual;
        if (!isEquality) return compareTextually(held.text, node.text);
        return lowerCase(held.text) == node.text ? std::weak_ordering::equivalent : std::weak_ordering::less;
    }
    if (held.number == node.number) return std::weak_ordering::equivalent;
    return held.number < node.number ? std::weak_ordering::less : std::weak_ordering::greater;
}

bool holds(const FilterNode& node, const std::vector<PropertyValue>& row, const std::vector<FilterProperty>& properties) {
    switch (node.kind) {
        case FilterNode::Kind::all:
            for (const FilterNode& child : node.children)
                if (!holds(child, row, properties)) return false;
            return true;
        case FilterNode::Kind::any:
            for (const FilterNode& child : node.children)
                if (holds(child, row, properties)) return true;
            return false;
        case FilterNode::Kind::negation: return !holds(node.children.front(), row, properties);
        case FilterNode::Kind::comparison: break;
    }
    const PropertyValue& held = row[node.property];
    return held.isThere && satisfies(compare(held, node, properties[node.property].kind), node.op);
}

std::optional<KeySearch> keySearchOf(const FilterNode& node, const std::vector<FilterProperty>& properties) {
    if (node.kind != FilterNode::Kind::comparison || node.op != FilterOperator::equal || node.text.empty()) return std::nullopt;
    for (std::size_t i = 0; i < kIndexedProperties.size(); ++i)
        if (properties[node.property].name == kIndexedProperties[i]) return KeySearch{i, node.text};
    return std::nullopt;
}

SecondsRange rangeOfNode(const FilterNode& node, const std::vector<FilterProperty>& properties, std::string_view dateProperty) {
    SecondsRange range;
    if (node.kind == FilterNode::Kind::all)
        for (const FilterNode& child : node.children) range.narrow(rangeOfNode(child, properties, dateProperty));
    if (node.kind != FilterNode::Kind::comparison || properties[node.property].name != dateProperty) return range;
    // Minutes are compared: those of a date of 9:00:59 are those of 9:00.
    constexpr std::int64_t kMinute = 60;
    const std::int64_t first = static_cast<std::int64_t>(node.number) * kMinute;
    const bool isEqual = node.op == FilterOperator::equal;
    if (isEqual || node.op == FilterOperator::greaterOrEqual) range.low = first;
    if (isEqual || node.op == FilterOperator::lessOrEqual) range.high = first + kMinute - 1;
    if (node.op == FilterOperator::greater) range.low = first + kMinute;
    if (node.op == FilterOperator::less) range.high = first - 1;
    return range;
}

constexpr std::array kTypes{outlook::ItemType::contact, outlook::ItemType::appointment, outlook::ItemType::task,
                            outlook::ItemType::mail};

}  // namespace

std::optional<FilterProperty> findProperty(std::string_view name) {
    for (const outlook::ItemType type : kTypes) {
        const PropertyTable& table = PropertyTable::of(type);
        if (const auto index = table.find(name))
            return FilterProperty{table.rows()[*index].name, table.rows()[*index].code, table.rows()[*index].kind};
    }
    return std::nullopt;
}

void SecondsRange::narrow(const SecondsRange& other) {
    low = std::max(low, other.low);
    high = std::min(high, other.high);
}

double minutesOf(Date date) {
    return std::floor(static_cast<double>(secondsSinceDayZero(date)) / 60);
}

Filter Filter::parse(std::string_view text) {
    return FilterParser{text}.parse();
}

SecondsRange Filter::rangeOf(std::string_view dateProperty) const {
    return rangeOfNode(root_, properties_, dateProperty);
}

PropertyValue valueOf(const FilterProperty& property, const ItemHead& head, std::string_view bytes) {
    return valuesOf({&property, 1}, head, bytes).front();
}

bool Filter::matches(const ItemHead& head, std::string_view bytes) const {
    return holds(root_, valuesOf(properties_, head, bytes), properties_);
}

std::optional<KeySearch> Filter::keySearch() const {
    if (root_.kind != FilterNode::Kind::all) return keySearchOf(root_, properties_);
    for (const FilterNode& term : root_.children)
        if (auto search = keySearchOf(term, properties_)) return search;
    return std::nullopt;
}

}  // namespace wmoutlook::outlookstore

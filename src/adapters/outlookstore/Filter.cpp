#include "adapters/outlookstore/Filter.h"

#include "adapters/outlookstore/FilterParser.h"
#include "adapters/outlookstore/ItemBlob.h"
#include "platform/Text.h"

#include <cmath>

namespace wmoutlook::outlookstore {

namespace {

/// What one row holds of the properties that the filter asks for.
struct Held {
    bool isThere = false;  ///< the type of item has the property
    std::string_view text;
    double number = 0;
};

double numberOf(PropertyKind kind, const StoredEntry& entry) {
    const bool isDate = kind == PropertyKind::day || kind == PropertyKind::moment;
    return isDate ? minutesOf(Date{entry.number}) : static_cast<double>(entry.integer);
}

Held byDefault(const FilterProperty& property, const ItemHead& head) {
    const PropertyTable& table = PropertyTable::of(head.type);
    const auto index = table.findCode(property.code);
    if (!index) return {};
    Held held{true, {}, static_cast<double>(table.rows()[*index].defaultNumber)};
    if (property.kind == PropertyKind::day || property.kind == PropertyKind::moment) held.number = minutesOf(absentDate());
    if (property.name == "Class") held.number = static_cast<double>(classOf(head.type));
    if (property.name == "CreationTime") held.number = minutesOf(head.created);
    if (property.name == "LastModificationTime") held.number = minutesOf(head.modified);
    if (property.name == "MessageClass") held.text = defaultMessageClass(head.type);
    return held;
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

std::weak_ordering compare(const Held& held, const FilterNode& node, PropertyKind kind) {
    if (kind == PropertyKind::text) {
        const bool isEquality = node.op == FilterOperator::equal || node.op == FilterOperator::notEqual;
        if (!isEquality) return compareTextually(held.text, node.text);
        return lowerCase(held.text) == node.text ? std::weak_ordering::equivalent : std::weak_ordering::less;
    }
    if (held.number == node.number) return std::weak_ordering::equivalent;
    return held.number < node.number ? std::weak_ordering::less : std::weak_ordering::greater;
}

bool holds(const FilterNode& node, const std::vector<Held>& row, const std::vector<FilterProperty>& properties) {
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
    const Held& held = row[node.property];
    return held.isThere && satisfies(compare(held, node, properties[node.property].kind), node.op);
}

std::optional<KeySearch> keySearchOf(const FilterNode& node, const std::vector<FilterProperty>& properties) {
    if (node.kind != FilterNode::Kind::comparison || node.op != FilterOperator::equal || node.text.empty()) return std::nullopt;
    for (std::size_t i = 0; i < kIndexedProperties.size(); ++i)
        if (properties[node.property].name == kIndexedProperties[i]) return KeySearch{i, node.text};
    return std::nullopt;
}

}  // namespace

double minutesOf(Date date) {
    return std::floor(static_cast<double>(secondsSinceDayZero(date)) / 60);
}

Filter Filter::parse(std::string_view text) {
    return FilterParser{text}.parse();
}

bool Filter::matches(const ItemHead& head, std::string_view bytes) const {
    std::vector<Held> row(properties_.size());
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = byDefault(properties_[i], head);
    ItemBlobReader reader{bytes};
    StoredEntry entry;
    while (reader.next(entry)) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (entry.code != properties_[i].code || !outlookstore::holds(properties_[i].kind, entry.kind)) continue;
            row[i].text = entry.text;
            row[i].number = numberOf(properties_[i].kind, entry);
        }
    }
    return holds(root_, row, properties_);
}

std::optional<KeySearch> Filter::keySearch() const {
    if (root_.kind != FilterNode::Kind::all) return keySearchOf(root_, properties_);
    for (const FilterNode& term : root_.children)
        if (auto search = keySearchOf(term, properties_)) return search;
    return std::nullopt;
}

}  // namespace wmoutlook::outlookstore

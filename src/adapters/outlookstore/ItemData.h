#pragma once

#include "adapters/outlookstore/PropertyTable.h"
#include "platform/Variant.h"
#include "platform/outlook/ObjectModel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What an item holds, in memory.
namespace wmoutlook::outlookstore {

struct UserPropertyData {
    std::string name;
    outlook::UserPropertyType type = outlook::UserPropertyType::text;
    Variant value;  ///< of the type's own kind; null when it was never set
};

class ItemData {
public:
    explicit ItemData(outlook::ItemType type);

    [[nodiscard]] outlook::ItemType type() const { return type_; }
    [[nodiscard]] const PropertyTable& table() const { return *table_; }
    /// By position in the table; null when the property has its default.
    [[nodiscard]] const Variant& stored(std::size_t index) const { return values_[index]; }
    [[nodiscard]] Variant valueOrDefault(std::size_t index) const;
    /// The text of a text property without a copy, "" when it has its default.
    [[nodiscard]] std::string_view text(std::size_t index) const;
    /// A value of the property's own kind. The default is kept as null, so that only what differs is written. Gives whether
    /// anything changed.
    bool set(std::size_t index, Variant value);

    [[nodiscard]] std::vector<UserPropertyData>& userProperties() { return userProperties_; }
    [[nodiscard]] const std::vector<UserPropertyData>& userProperties() const { return userProperties_; }

private:
    outlook::ItemType type_;
    const PropertyTable* table_;
    std::vector<Variant> values_;
    std::vector<UserPropertyData> userProperties_;
};

/// The value as the property's own kind, a null as its default. Throws OutlookError naming type and property.
[[nodiscard]] Variant convertedFor(outlook::ItemType type, const PropertyRow& row, const Variant& value);
[[nodiscard]] Variant convertedFor(const UserPropertyData& property, const Variant& value);

/// Outlook's default of a user property of this type.
[[nodiscard]] Variant defaultOf(outlook::UserPropertyType type);
/// Where the item stands when its folder is sorted by this date: whole seconds since day 0, an absent date as 1 January 4501.
/// Nothing when its type has no such property.
[[nodiscard]] std::optional<std::int64_t> sortKeyOf(const ItemData& item, std::string_view dateProperty);
[[nodiscard]] std::string_view defaultMessageClass(outlook::ItemType type);

}  // namespace wmoutlook::outlookstore

#pragma once

#include "adapters/outlookstore/ItemStorage.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The language of Find and Restrict (docs/outlook-store.md): `[Property] op value`, and, or, not, parentheses.
namespace wmoutlook::outlookstore {

enum class FilterOperator : std::uint8_t { equal, notEqual, less, lessOrEqual, greater, greaterOrEqual };

/// A property that the filter asks for. A name has the same code and kind in each type of item that has it.
struct FilterProperty {
    std::string_view name;  ///< as the tables have it
    std::uint16_t code = 0;
    PropertyKind kind = PropertyKind::text;
};

struct FilterNode {
    enum class Kind : std::uint8_t { comparison, all, any, negation };
    Kind kind = Kind::all;
    std::vector<FilterNode> children;  ///< of all, any and negation (one)

    // Of a comparison
    std::size_t property = 0;  ///< position in Filter::properties()
    FilterOperator op = FilterOperator::equal;
    std::string text;   ///< of a text property, in lower case
    double number = 0;  ///< of any other: the number, 0 or 1, or whole minutes since day 0
};

/// Whole seconds since day 0 between which a date lies, both included.
struct SecondsRange {
    std::int64_t low = std::numeric_limits<std::int64_t>::min();
    std::int64_t high = std::numeric_limits<std::int64_t>::max();

    [[nodiscard]] bool isOpen() const { return *this == SecondsRange{}; }
    void narrow(const SecondsRange& other);
    friend bool operator==(const SecondsRange&, const SecondsRange&) = default;
};

/// The property of this name in any type of item.
[[nodiscard]] std::optional<FilterProperty> findProperty(std::string_view name);

class Filter {
public:
    /// Throws OutlookError that says what is wrong and at which character, without quoting the filter: it holds names.
    [[nodiscard]] static Filter parse(std::string_view text);

    [[nodiscard]] bool matches(const ItemHead& head, std::string_view bytes) const;
    /// An equality with an indexed property that every match fulfils.
    [[nodiscard]] std::optional<KeySearch> keySearch() const;
    /// What every match fulfils of a date of this name.
    [[nodiscard]] SecondsRange rangeOf(std::string_view dateProperty) const;
    [[nodiscard]] const std::vector<FilterProperty>& properties() const { return properties_; }

private:
    friend class FilterParser;
    Filter() = default;

    std::vector<FilterProperty> properties_;
    FilterNode root_;
};

/// What one row holds of a property.
struct PropertyValue {
    bool isThere = false;  ///< the type of item has the property
    std::string_view text;
    double number = 0;  ///< of any other than a text: the number, 0 or 1, or whole minutes since day 0
};
/// Throws OutlookError for an item that cannot be read.
[[nodiscard]] PropertyValue valueOf(const FilterProperty& property, const ItemHead& head, std::string_view bytes);

/// A date in whole minutes since day 0: filters compare dates without their seconds.
[[nodiscard]] double minutesOf(Date date);

}  // namespace wmoutlook::outlookstore

#pragma once

#include "component/clsOutlookSynchronization.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace wmoutlook {

/// One value of a public enumeration by its name.
struct EnumerationValue {
    std::string_view name;
    std::int32_t value;
};

enum class PropertyKind { text, number, truth, date, enumeration };

/// A public property or field of the component by its own name, for hosts that set them by name.
struct PublicProperty {
    std::string_view name;
    PropertyKind kind;
    std::span<const EnumerationValue> enumeration;              ///< for kind enumeration
    Variant (*read)(const clsOutlookSynchronization&);          ///< null for one that is not read this way
    void (*write)(clsOutlookSynchronization&, const Variant&);  ///< null for one that cannot be put

    [[nodiscard]] std::optional<Variant> get(const clsOutlookSynchronization& component) const;
    /// Reads the text as the property's kind: True or False, a whole number, a date ("2026-11-22"), an enumeration value by
    /// name or number. Throws ConversionError with one sentence, and changes nothing, when it cannot be put.
    void put(clsOutlookSynchronization& component, std::string_view text) const;
};

[[nodiscard]] std::span<const PublicProperty> publicProperties();
/// Null when there is no property of this name; names compare without regard to case.
[[nodiscard]] const PublicProperty* findPublicProperty(std::string_view name);

}  // namespace wmoutlook

#pragma once

#include "merge/FieldList.h"

#include <optional>
#include <string>
#include <string_view>

/// Fields that are not, or not always, the column of their name.
namespace wmoutlook::merge {

/// A field of a contact that can come from its company, which has a name of its own for it.
struct InheritedField {
    std::string_view field;
    std::string_view ofCompany;
    bool isOwnFirst;  ///< the contact's own value is shown, and the company's when that is blank; otherwise the other way round
};

/// Null for a field that a contact has to itself.
[[nodiscard]] const InheritedField* inheritedField(std::string_view field);

/// The column whose short form a field of a contact or company shows: "HomeProvince" for "HomeAbbreviatedProvince". Nothing for any other.
[[nodiscard]] std::optional<std::string> unabbreviated(SourceKind source, std::string_view field);

/// Throws ConversionError for more than the 16 bits that numbers with a text of their own have.
[[nodiscard]] std::int32_t as16Bit(const Variant& value);

}  // namespace wmoutlook::merge

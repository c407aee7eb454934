#include "merge/DerivedFields.h"

#include "platform/Errors.h"
#include "platform/Text.h"
#include "platform/TextSearch.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <span>

namespace wmoutlook::merge {

namespace {

constexpr InheritedField kInheritedFields[] = {
    {"BusinessPhone_Main", "OfficeNumber", true}, {"BusinessPhone_Fax", "FaxNumber", true},
    {"BusinessAddress", "Address", false},        {"BusinessCity", "City", false},
    {"BusinessProvince", "Province", false},      {"BusinessPostalCode", "PostalCode", false},
    {"BusinessCountry", "Country", false},
};

constexpr std::string_view kOfContact[] = {"AbbreviatedProvince", "BusinessAbbreviatedProvince", "HomeAbbreviatedProvince",
                                           "SpouseAbbreviatedProvince", "AltAbbreviatedProvince"};
constexpr std::string_view kOfCompany[] = {"AbbreviatedProvince", "AltAbbreviatedProvince"};

std::span<const std::string_view> abbreviatedFields(SourceKind source) {
    if (source == SourceKind::contact) return kOfContact;
    if (source == SourceKind::company) return kOfCompany;
    return {};
}

}  // namespace

const InheritedField* inheritedField(std::string_view field) {
    const auto* const row = std::find_if(std::begin(kInheritedFields), std::end(kInheritedFields),
                                         [&](const InheritedField& known) { return equalsTextually(known.field, field); });
    return row != std::end(kInheritedFields) ? row : nullptr;
}

std::optional<std::string> unabbreviated(SourceKind source, std::string_view field) {
    const auto fields = abbreviatedFields(source);
    const bool isOne =
        std::any_of(fields.begin(), fields.end(), [&](std::string_view known) { return equalsTextually(known, field); });
    if (!isOne) return std::nullopt;
    return replaceTextually(field, "Abbreviated", "");
}

std::int32_t as16Bit(const Variant& value) {
    using Limits = std::numeric_limits<std::int16_t>;
    const std::int32_t number = value.toInteger();
    if (number < Limits::min() || number > Limits::max()) throw ConversionError{"The number has more than 16 bits"};
    return number;
}

}  // namespace wmoutlook::merge

#include "merge/clsInsertFieldsInRTB.h"

#include "hostdata/HostServices.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/TextSearch.h"
#include "platform/ValueHelper.h"

#include <algorithm>
#include <limits>

namespace wmoutlook {

using merge::DataType;
using merge::Field;
using merge::SourceKind;

namespace {

struct CompanyField {
    std::string_view ofContact, ofCompany;
};

/// What a contact that inherits from its company writes to the company first.
constexpr CompanyField kSharedFields[] = {
    {"BusinessPhone_Main", "OfficeNumber"}, {"BusinessPhone_Fax", "FaxNumber"},
    {"BusinessAddress", "Address"},         {"BusinessCity", "City"},
    {"BusinessProvince", "Province"},       {"BusinessPostalCode", "PostalCode"},
    {"BusinessCountry", "Country"},
};

constexpr std::string_view kNumbersOfClient[] = {"RC59Permission",      "RC59Status",      "GSTFilingMethod",
                                                 "FinancialStatements", "CorporationType", "CorporationLevel"};

template <std::size_t count>
bool isOneOf(std::string_view name, const std::string_view (&names)[count]) {
    return std::any_of(std::begin(names), std::end(names), [&](std::string_view known) { return equalsTextually(known, name); });
}

constexpr std::string_view kAbbreviatedOfContact[] = {"AbbreviatedProvince", "BusinessAbbreviatedProvince",
                                                      "HomeAbbreviatedProvince", "SpouseAbbreviatedProvince",
                                                      "AltAbbreviatedProvince"};
constexpr std::string_view kAbbreviatedOfCompany[] = {"AbbreviatedProvince", "AltAbbreviatedProvince"};

std::string as16BitText(const Variant& value) {
    using Limits = std::numeric_limits<std::int16_t>;
    const std::int32_t number = value.toInteger();
    if (number < Limits::min() || number > Limits::max()) throw ConversionError{"The number has more than 16 bits"};
    return toText(number);
}

/// The text in which a value of this type is stored. Nothing for a date before 1900, which is not written.
std::optional<std::string> storedText(DataType type, const Variant& value) {
    constexpr std::int32_t kFirstYear = 1900;
    switch (type) {
        case DataType::text: return value.toText();
        case DataType::date:
            if (civil(value.toDate()).year < kFirstYear) return std::nullopt;
            return toIsoText(value.toDate());
        case DataType::time: return toIsoText(timeOf(value.toDate()));
        case DataType::money:
        case DataType::minutes: return Variant{static_cast<double>(static_cast<float>(value.toDouble()))}.toText();
        case DataType::boolean: return std::string{toText(value.toBoolean())};
    }
    return std::nullopt;
}

/// The column that a field is written to, which for a short form is the one that it is made from. Nothing for a field that is put
/// together from several.
std::optional<std::string> columnOf(const Field& field) {
    const std::string& name = field.databaseField;
    const auto wholeForm = [&] { return replaceTextually(name, "Abbreviated", ""); };
    if (field.source == SourceKind::contact) {
        if (equalsTextually(name, "ContactAndSpouseName")) return std::nullopt;
        if (isOneOf(name, kAbbreviatedOfContact)) return wholeForm();
    }
    if (field.source == SourceKind::company && isOneOf(name, kAbbreviatedOfCompany)) return wholeForm();
    return name;
}

/// Numbers that are shown as texts. The column of the company's type is misspelled in this rule, so that it is written as a text.
bool isSmallNumber(const Field& field) {
    if (field.source == SourceKind::company) return upperCase(field.databaseField) == "COMPANTYPE";
    return field.source == SourceKind::client && isOneOf(field.databaseField, kNumbersOfClient);
}

}  // namespace

void clsInsertFieldsInRTB::writeToCompany(const Field& field, const Variant& value) {
    const Recordset* const contact = records_.of(SourceKind::contact);
    if (field.source != SourceKind::contact || contact == nullptr || companyID < 0) return;
    const auto* const row = std::find_if(std::begin(kSharedFields), std::end(kSharedFields), [&](const CompanyField& shared) {
        return equalsTextually(shared.ofContact, field.databaseField);
    });
    if (row == std::end(kSharedFields) || !contact->truth("InheritCompanyInfo")) return;
    if (records_.locate(SourceKind::company, companyID)) records_.of(SourceKind::company)->update(row->ofCompany, value.toText());
}

void clsInsertFieldsInRTB::writeDataToField(std::string_view dbFieldName, const Variant& value) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-writeDataToField"};
    routine.run([&] {
        if (!isDatabaseOpen() || ValueHelper::isNullOrEmpty(dbFieldName) || !verifyFieldListIsPopulated()) return;
        if (fields_.find(dbFieldName, merge::fieldColumn::kDatabaseField) == merge::FieldList::kNotFound) return;
        const Field field = *fields_.current();
        const auto column = columnOf(field);
        const bool isNotes = field.source == SourceKind::contactNotes || field.source == SourceKind::companyNotes;
        if (isNotes)
            records_.openIfClosed(field.source, merge::MergeRecords::idOf(field.source, *this),
                                  merge::MergeRecords::Extent::oneRecord, LockCode::updatable);
        const Recordset* const records = records_.of(field.source);
        if (!column || records == nullptr) return;
        const auto text = statement([&]() -> std::optional<std::string> {
            return isSmallNumber(field) ? as16BitText(value) : storedText(field.type, value);
        });
        if (!text) return;
        writeToCompany(field, value);
        records->update(*column, *text);
    });
}

}  // namespace wmoutlook

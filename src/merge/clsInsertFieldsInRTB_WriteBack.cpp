#include "merge/clsInsertFieldsInRTB.h"

#include "hostdata/HostServices.h"
#include "merge/DerivedFields.h"
#include "merge/FieldTexts.h"
#include "platform/DateHelper.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/ValueHelper.h"

#include <array>
#include <charconv>

namespace wmoutlook {

using merge::DataType;
using merge::Field;
using merge::SourceKind;

namespace {

/// The digits that single precision holds: 0.1 for 0.1.
std::string shortest(float number) {
    std::array<char, 64> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return {digits.data(), end.ptr};
}

/// The text in which a value of this type is stored. Nothing for a date before 1900, which is not written.
std::optional<std::string> storedText(DataType type, const Variant& value) {
    constexpr std::int32_t kFirstYear = 1900;
    switch (type) {
        case DataType::text: return value.toText();
        case DataType::date:
            if (civil(value.toDate()).year < kFirstYear) return std::nullopt;
            return toIsoText(value.toDate());
        case DataType::time: return DateHelper::format(value.toDate(), "hh:nn:ss");
        case DataType::money:
        case DataType::minutes: return shortest(static_cast<float>(value.toDouble()));
        case DataType::boolean: return std::string{toText(value.toBoolean())};
    }
    return std::nullopt;
}

/// The column that a field is written to, which for a short form is the one that it is made from. Nothing for a field that is put
/// together from several.
std::optional<std::string> columnOf(const Field& field) {
    const bool isCouple = equalsTextually(field.databaseField, "ContactAndSpouseName");
    if (field.source == SourceKind::contact && isCouple) return std::nullopt;
    auto whole = merge::unabbreviated(field.source, field.databaseField);
    return whole ? whole : field.databaseField;
}

/// Numbers that are shown as texts. The column of the company's type is misspelled in this rule, so that it is written as a text.
bool isSmallNumber(const Field& field) {
    if (field.source == SourceKind::company) return upperCase(field.databaseField) == "COMPANTYPE";
    return field.source == SourceKind::client && merge::textOfClientColumn(field.databaseField) != nullptr;
}

}  // namespace

void clsInsertFieldsInRTB::writeToCompany(const Field& field, const Variant& value) {
    const Recordset* const contact = records_.of(SourceKind::contact);
    if (field.source != SourceKind::contact || contact == nullptr || companyID < 0) return;
    const merge::InheritedField* const row = merge::inheritedField(field.databaseField);
    if (row == nullptr || !contact->truth("InheritCompanyInfo")) return;
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
            return isSmallNumber(field) ? toText(merge::as16Bit(value)) : storedText(field.type, value);
        });
        if (!text) return;
        writeToCompany(field, value);
        records->update(*column, *text);
    });
}

}  // namespace wmoutlook

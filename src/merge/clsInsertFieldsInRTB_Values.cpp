#include "merge/clsInsertFieldsInRTB.h"

#include "hostdata/HostServices.h"
#include "hostdata/modDatabaseFunctions.h"
#include "merge/DerivedFields.h"
#include "merge/FieldTexts.h"
#include "platform/DateHelper.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/ValueHelper.h"

#include <cmath>
#include <optional>

namespace wmoutlook {

using merge::DataType;
using merge::Field;
using merge::FieldList;
using merge::SourceKind;
using ValueHelper::isNullOrEmpty;
namespace fieldColumn = merge::fieldColumn;

namespace {

/// The number of a column for one of the tables of texts; -1, which none of them has, for a blank. Nothing when it could not be read
/// or is no such number: no text is made up for it.
std::optional<std::int32_t> numberForText(const std::optional<Variant>& value) {
    if (!value) return std::nullopt;
    if (isNullOrEmpty(*value)) return kNoRecord;
    return statement([&] { return std::optional<std::int32_t>{merge::as16Bit(*value)}; }, std::nullopt);
}

/// Hours as the host keeps them, in minutes; in single precision, as they were always shown.
std::int32_t minutesOfHours(double hours) {
    const float minutes = static_cast<float>(hours) * 60.0F;
    return Variant{static_cast<double>(minutes)}.toInteger();
}

}  // namespace

std::string clsInsertFieldsInRTB::formatted(const Variant& value, DataType type, std::string_view dateFormat) const {
    constexpr std::int32_t kFirstYear = 1900;
    switch (type) {
        case DataType::text: return value.toText();
        case DataType::date: {
            const Date date = value.toDate();
            if (civil(date).year < kFirstYear) return {};
            return DateHelper::format(date, isNullOrEmpty(dateFormat) ? merge::kDefaultDateFormat : dateFormat);
        }
        case DataType::time: return DateHelper::format(value.toDate(), "h:nn am/pm");
        case DataType::money: return merge::moneyText(value.toDouble());
        case DataType::boolean: return value.toBoolean() ? "Yes" : "No";
        case DataType::minutes: return DateHelper::formatDuration(minutesOfHours(value.toDouble()));
    }
    return {};
}

Variant clsInsertFieldsInRTB::valueOfRecord(const Field& field) {
    const std::int32_t id = merge::MergeRecords::idOf(field.source, *this);
    if (!isDatabaseOpen() || id < 0) return {};
    records_.openIfClosed(field.source, id, extent(), lock());
    return records_.locate(field.source, id) ? getDataFieldFromRecordset(field) : Variant{};
}

std::string clsInsertFieldsInRTB::getDataFieldInfo(std::int32_t rowIndex, std::string_view dateFormat) {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getDataFieldInfo"};
    routine.run([&] {
        if (!fields_.moveTo(rowIndex)) return;
        const Field field = *fields_.current();
        if (TestComment)
            text = field.sample;
        else if (const Variant value = valueOfRecord(field); !isNullOrEmpty(value))
            text = statement([&] { return formatted(value, field.type, dateFormat); });
        if (ConvertStrToRTF && !isNullOrEmpty(text)) text = convertToRTF(std::move(text));
    });
    return text;
}

Variant clsInsertFieldsInRTB::getDataFieldFromRecordset(const Field& field) {
    const std::string& name = field.databaseField;
    const auto column = [&](std::string_view wanted) {
        const Recordset* const records = records_.of(field.source);
        return records != nullptr ? records->field(wanted) : Variant{};
    };
    const auto columnIfRead = [&](std::string_view wanted) {
        const Recordset* const records = records_.of(field.source);
        return records != nullptr ? records->fieldIfRead(wanted) : std::nullopt;
    };
    Variant value;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getDataFieldFromRecordset"};
    routine.run([&] {
        switch (field.source) {
            case SourceKind::contact: value = contactValue(name); return;
            case SourceKind::company:
                if (const auto province = merge::unabbreviated(field.source, name))
                    value = merge::getAbbreviatedProvince(column(*province).toText());
                else if (!equalsTextually(name, "CompanyType"))
                    value = column(name);
                else if (const auto number = numberForText(columnIfRead(name)))
                    value = merge::getCompanyTypeStringFromCompanyTypeNum(*number, isUnitedStates());
                return;
            case SourceKind::client:
                if (const auto textOfNumber = merge::textOfClientColumn(name); textOfNumber == nullptr)
                    value = column(name);
                else if (const auto number = numberForText(columnIfRead(name)))
                    value = textOfNumber(*number);
                return;
            case SourceKind::appointment:
            case SourceKind::task:
            case SourceKind::docket:
                if (!equalsTextually(name, "TimeDuration")) break;
                value = durationBetween(column("TimeFrom"), column("TimeTo"));
                return;
            default: break;
        }
        value = column(name);
    });
    return value;
}

Variant clsInsertFieldsInRTB::contactValue(const std::string& name) {
    if (auto inherited = inheritedValue(name)) return *std::move(inherited);
    if (equalsTextually(name, "ContactAndSpouseName")) return getContactAndSpouseName(contactID, false);
    const Recordset& contact = *records_.of(SourceKind::contact);
    if (const auto province = merge::unabbreviated(SourceKind::contact, name))
        return merge::getAbbreviatedProvince(contact.text(*province));
    return contact.field(name);
}

/// Nothing when the contact has this field to itself.
std::optional<Variant> clsInsertFieldsInRTB::inheritedValue(const std::string& name) {
    const Recordset& contact = *records_.of(SourceKind::contact);
    if (companyID < 0 || !contact.truth("InheritCompanyInfo")) return std::nullopt;
    const merge::InheritedField* const row = merge::inheritedField(name);
    if (row == nullptr) return std::nullopt;
    records_.openIfClosed(SourceKind::company, companyID, extent(), lock());
    if (!records_.locate(SourceKind::company, companyID)) return std::nullopt;
    const Recordset& company = *records_.of(SourceKind::company);
    const Variant first = row->isOwnFirst ? contact.field(name) : company.field(row->ofCompany);
    if (!isNullOrEmpty(first)) return first;
    return row->isOwnFirst ? company.field(row->ofCompany) : contact.field(name);
}

Variant clsInsertFieldsInRTB::durationBetween(const Variant& from, const Variant& to) {
    if (isNullOrEmpty(from) || isNullOrEmpty(to)) return {};
    return statement([&]() -> Variant { return getTimeDurationFieldValue(from.toDate(), to.toDate()); });
}

std::string clsInsertFieldsInRTB::getTimeDurationFieldValue(Date timeFrom, Date timeTo) {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getTimeDurationFieldValue"};
    routine.run([&] {
        const double minutes = std::trunc(std::fabs(DateHelper::minutesBetween(timeFrom, timeTo)));
        text = statement([&] { return DateHelper::formatDuration(Variant{minutes}.toInteger()); });
    });
    return text;
}

/// Goes over to the contact that is to be shown, when there is such a one.
bool clsInsertFieldsInRTB::locateContact(std::int32_t contactIDToShow) {
    if (contactIDToShow >= 0 && contactIDToShow != contactID) {
        if (!modDatabaseFunctions::validContactID(contactIDToShow)) return false;
        contactID = contactIDToShow;
        records_.close(SourceKind::contact);
    }
    if (contactID < 0) return false;
    records_.openIfClosed(SourceKind::contact, contactID, merge::MergeRecords::Extent::oneRecord, lock());
    return records_.locate(SourceKind::contact, contactID);
}

std::string clsInsertFieldsInRTB::getContactAndSpouseName(std::int32_t contactIDToShow, bool lastNameFirst) {
    std::string name;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getContactAndSpouseName"};
    routine.run([&] {
        if (!isDatabaseOpen() || !locateContact(contactIDToShow)) return;
        const Recordset& contact = *records_.of(SourceKind::contact);
        name = merge::contactAndSpouseName({contact.text("FirstName"), contact.text("LastName"), contact.text("DisplayName"),
                                            contact.text("SpouseFirstName"), contact.text("SpouseLastName")},
                                           lastNameFirst);
    });
    return name;
}

/// A placeholder of the company never becomes that of the contact here.
std::string clsInsertFieldsInRTB::mergeDataOf(std::string_view value, std::size_t column) {
    if (isNullOrEmpty(value)) return {};
    static_cast<void>(verifyFieldListIsPopulated());
    const std::int32_t row = fields_.find(value, column);
    return row == FieldList::kNotFound ? std::string{} : getDataFieldInfo(row, {});
}

std::string clsInsertFieldsInRTB::getMergeDataFromFieldName(std::string_view databaseField) {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getMergeDataFromFieldName"};
    routine.run([&] { text = mergeDataOf(databaseField, fieldColumn::kDatabaseField); });
    return text;
}

std::string clsInsertFieldsInRTB::getMergeDataFromDisplayName(std::string_view displayName) {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getMergeDataFromDisplayName"};
    routine.run([&] { text = mergeDataOf(displayName, fieldColumn::kDisplayName); });
    return text;
}

}  // namespace wmoutlook

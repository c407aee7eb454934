#include "contacts/ContactWriter.h"

#include "contacts/ContactFieldMaps.h"
#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/ValueHelper.h"
#include "syncstore/TargetItem.h"

#include <span>

namespace wmoutlook {

using namespace contactmaps;
using ValueHelper::isNullOrEmpty;

namespace {

// Years outside which a birthday stays in the host; an anniversary has no such test, on purpose.
constexpr std::int32_t kFirstBirthYear = 1886;
constexpr std::int32_t kLastBirthYear = 2999;

/// Outlook's numbers for a gender.
constexpr std::int32_t kUnspecified = 0;
constexpr std::int32_t kFemale = 1;
constexpr std::int32_t kMale = 2;

void put(const PropertyRow& map, const Recordset& row, const outlook::Item& item) {
    if (const auto value = row.textIfRead(map.hostField)) item.put(map.property, *value);
}

void putAll(std::span<const PropertyRow> maps, const Recordset& row, const outlook::Item& item) {
    for (const PropertyRow& map : maps) put(map, row, item);
}

std::int32_t outlookGender(std::string_view hostGender) {
    const std::string gender = upperCase(hostGender);
    if (gender == "MALE") return kMale;
    return gender == "FEMALE" ? kFemale : kUnspecified;
}

bool isWrittenBirthday(Date birthday) {
    const std::int32_t year = civil(birthday).year;
    return year >= kFirstBirthYear && year <= kLastBirthYear;
}

void writeGenderAndDates(const Recordset& contact, const outlook::Item& item) {
    if (const auto gender = contact.textIfRead("Gender")) item.put(property::Gender, outlookGender(*gender));

    const Variant birthday = contact.field("Birthday");
    if (!isNullOrEmpty(birthday) && statement([&] { return isWrittenBirthday(birthday.toDate()); }))
        item.put(property::Birthday, birthday);

    const Variant anniversary = contact.field("Anniversary");
    if (!isNullOrEmpty(anniversary)) item.put(property::Anniversary, anniversary);
}

void writeCompanyPhones(const Recordset& contact, const Recordset& company, const outlook::Item& item) {
    for (const PhoneRow& map : kBusinessPhoneRows) {
        auto number = contact.textIfRead(map.contactField);
        if (number && isNullOrEmpty(*number)) number = company.textIfRead(map.companyField);
        if (number && !isNullOrEmpty(*number)) item.put(map.property, *number);
    }
}

/// A name that could not be read, or is blank, is none to file under: the next search by name would take the item for anybody's.
void fileByPerson(const outlook::Item& item, std::int32_t contactID) {
    const auto name = modDatabaseFunctions::getContactNameDisplayedIfTold(contactID, kTrueAsNumber, false);
    if (name && !isNullOrEmpty(*name)) item.put(property::FileAs, *name);
}

/// E-mail addresses in the order of their slots; not read when one of them could not be read.
struct EmailAddresses {
    std::string first, second, third;
    bool isRead = false;

    EmailAddresses(std::optional<std::string> one, std::optional<std::string> two, std::optional<std::string> three)
        : isRead(one && two && three) {
        if (!isRead) return;
        first = *one;
        second = *two;
        third = *three;
        sortEmailAddresses(first, second, third);
    }
};

}  // namespace

std::optional<std::string> ContactWriter::createNewTallowbrookContactInOutlook(std::int32_t contactID, std::int32_t companyID,
                                                                               std::string_view entryID,
                                                                               std::string_view storeID) const {
    std::optional<std::string> written;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-createNewTallowbrookContactInOutlook", &run_.ExitProgram};
    routine.run([&] {
        const outlook::Item contact = itemToWrite(run_, outlook::ItemType::contact, entryID, storeID);
        stamp(contact, today());
        writeRow(
            {"Contacts", "ContactID", contactID}, contact,
            [&](const outlook::Item& item, const Recordset& row) { writeContact(item, row, contactID, companyID); }, written);
    });
    return written;
}

void ContactWriter::writeContact(const outlook::Item& item, const Recordset& contact, std::int32_t contactID,
                                 std::int32_t companyID) const {
    const EmailAddresses emails{contact.textIfRead("BusinessEmail"), contact.textIfRead("PersonalEmail"), ""};

    putAll(kNameRows, contact, item);
    item.put(property::Categories, run_.options.outlookCategory);
    putAll(kPersonRows, contact, item);
    if (emails.isRead) {  // the third slot is sorted, but not written for a contact
        item.put(property::Email1Address, emails.first);
        item.put(property::Email2Address, emails.second);
    }
    writeGenderAndDates(contact, item);
    if (run_.options.syncContactInformation == syncContactInformationEnum::contactWithCompanyInfo)
        writeBusinessOfContact(item, contact, companyID);

    const auto companyName = item.textIfRead(property::CompanyName);
    const bool showsCompany = run_.options.syncContactDisplayType == syncContactDisplayEnum::contactShowCompanyName;
    if (showsCompany && companyName && !isNullOrEmpty(*companyName)) {
        item.put(property::FileAs, *companyName);
        showProgress(*companyName);
    } else {
        if (companyName || !showsCompany) fileByPerson(item, contactID);
        showProgress(contact.text("DisplayName"));
    }
}

void ContactWriter::writeBusinessOfContact(const outlook::Item& item, const Recordset& contact, std::int32_t companyID) const {
    putAll(kJobRows, contact, item);
    auto hasCompany = modDatabaseFunctions::validCompanyIDIfTold(companyID);
    if (hasCompany.value_or(false)) {
        const Recordset companies{"SELECT Companies.* FROM Companies;"};
        hasCompany = companies.findFirstIfTold("CompanyID", companyID);
        if (hasCompany.value_or(false)) {
            put(kCompanyNameRow, companies, item);
            putAll(kCompanyAddressRows, companies, item);
            writeCompanyPhones(contact, companies, item);
        }
    }
    if (hasCompany == false) putAll(kOwnBusinessRows, contact, item);  // not when it could not be told
}

std::optional<std::string> ContactWriter::createNewTallowbrookCompanyInOutlook(std::int32_t companyID, std::string_view entryID,
                                                                               std::string_view storeID) const {
    std::optional<std::string> written;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-createNewTallowbrookCompanyInOutlook", &run_.ExitProgram};
    routine.run([&] {
        const outlook::Item company = itemToWrite(run_, outlook::ItemType::contact, entryID, storeID);
        stamp(company, today());
        writeRow(
            {"Companies", "CompanyID", companyID}, company,
            [&](const outlook::Item& item, const Recordset& row) { writeCompany(item, row, companyID); }, written);
    });
    return written;
}

void ContactWriter::writeCompany(const outlook::Item& item, const Recordset& company, std::int32_t companyID) const {
    const bool hasPerson = run_.options.syncCompanyInformation == syncCompanyInformationEnum::companyWithDefaultContact;
    const bool showsPerson = run_.options.syncCompanyDisplayType == syncCompanyDisplayEnum::companyShowContactName;

    put(kCompanyNameRow, company, item);
    item.put(property::Categories, run_.options.outlookCategory);
    putAll(kCompanyAddressRows, company, item);
    putAll(kCompanyNumberRows, company, item);
    const std::int32_t contactID = hasPerson ? writeDefaultContact(item, company, companyID) : kNoRecord;

    if (hasPerson && showsPerson && contactID != kNoRecord)
        fileByPerson(item, contactID);
    else
        put(kFiledByCompanyRow, company, item);
    showProgress(company.text("CompanyName"));
}

std::int32_t ContactWriter::writeDefaultContact(const outlook::Item& item, const Recordset& company,
                                                std::int32_t companyID) const {
    const std::int32_t contactID = modDatabaseFunctions::getDefaultContactIDFromCompanyID(companyID);
    if (!modDatabaseFunctions::validContactID(contactID)) return kNoRecord;
    const Recordset contacts{"SELECT Contacts.* FROM Contacts;"};
    if (!contacts.findFirst("ContactID", contactID)) return kNoRecord;

    const EmailAddresses emails{company.textIfRead("Email"), contacts.textIfRead("BusinessEmail"),
                                contacts.textIfRead("PersonalEmail")};

    putAll(kNameRows, contacts, item);
    if (emails.isRead) {
        item.put(property::Email1Address, emails.first);
        item.put(property::Email2Address, emails.second);
        item.put(property::Email3Address, emails.third);
    }
    putAll(kPersonRows, contacts, item);
    writeGenderAndDates(contacts, item);
    putAll(kJobRows, contacts, item);
    for (const PropertyRow& map : kWhereCompanyIsBlankRows)
        if (const auto present = item.textIfRead(map.property); present && isNullOrEmpty(*present)) put(map, contacts, item);
    put(kBusinessCellRow, contacts, item);
    if (emails.isRead) item.put(property::Email2Address, emails.second);  // a second time: the block ends with it
    return contactID;
}

void ContactWriter::showProgress(std::string_view name) const {
    if (run_.options.showProgress) showProgressMessage(run_.contactsProgress, "Synchronizing " + std::string{name});
}

void sortEmailAddresses(std::string& first, std::string& second, std::string& third) {
    if (isNullOrEmpty(first)) {
        if (!isNullOrEmpty(second))
            first = second;
        else if (!isNullOrEmpty(third))
            first = third;
    }
    if (isNullOrEmpty(second) && !isNullOrEmpty(third)) second = third;
    if (!isNullOrEmpty(first) && isNullOrEmpty(second) && isNullOrEmpty(third)) second = first;
}

}  // namespace wmoutlook

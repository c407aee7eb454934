#include "merge/clsLookupFields.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"

#include <utility>

namespace wmoutlook {

namespace {

constexpr std::string_view kLeftOutDataFile = "Qxvnoe4MhKd9";  ///< one firm's own columns are never touched
constexpr std::int16_t kColumns = 5;

// What a kind column holds.

constexpr std::int32_t kClientRepeater = 1;
constexpr std::int32_t kTypeRepeater = 2;  ///< by the type of task, or of project
constexpr std::int32_t kLookup = 3;

/// A table with custom columns and the columns that name the client of a row.
struct ColumnsTable {
    std::string_view table;
    std::string_view kindColumn;  ///< in CustomFields, with the number of the custom column behind it
    std::string_view companyColumn;
    std::string_view contactColumn;
};

constexpr ColumnsTable kTables[] = {
    {"Schedule", "RemittanceCustomType", "ClientNum", "ContactIDNum"},
    {"PersonalTaxStatus", "PersonalTaxTaskCustomType", {}, "ContactNum"},
    {"CompanyProjects", "ProjectCustomType", "CompanyIDNum", "ContactIDNum"},
};

const ColumnsTable* tableOf(std::int32_t type) {
    const bool isThere = type >= clsLookupFields::kTaskColumns && type <= clsLookupFields::kProjectColumns;
    return isThere ? &kTables[static_cast<std::size_t>(type) - 1] : nullptr;
}

/// The identifier of the data file; nothing when it could not be told.
std::optional<std::string> getClientUniqueID() {
    std::optional<std::string> identifier;
    Routine routine{"Tallowbrook.exe-clsLookupFields-getClientUniqueID"};
    routine.run([&] {
        const Recordset version{"SELECT DataVersion.* FROM DataVersion;"};
        const auto hasRows = version.hasRowsIfTold();
        if (hasRows) identifier = *hasRows ? version.textIfRead("DataUniqueID") : std::string{};
    });
    return identifier;
}

}  // namespace

bool clsLookupFields::canWork() const {
    if (tableOf(LookUpFieldsType) == nullptr || customNumber < 1 || customNumber > kColumns || !isDatabaseOpen()) return false;
    const auto identifier = getClientUniqueID();
    return identifier && *identifier != kLeftOutDataFile;
}

bool clsLookupFields::hasKind(std::int32_t kind) const {
    if (!canWork()) return false;
    const std::string column = std::string{tableOf(LookUpFieldsType)->kindColumn} + std::to_string(customNumber);
    const Recordset settings{"SELECT CustomFields." + column + " FROM CustomFields;"};
    return settings.hasRows() && settings.number(column, kNoRecord) == kind;
}

bool clsLookupFields::isOfKind(std::string_view errorTag, std::int32_t kind) const {
    bool isIt = false;
    Routine routine{errorTag};
    routine.run([&] { isIt = hasKind(kind); });
    return isIt;
}

bool clsLookupFields::isLookupField() const {
    return isOfKind("Tallowbrook.exe-clsLookupFields-isLookupField", kLookup);
}

bool clsLookupFields::isClientRepeaterField() const {
    return isOfKind("Tallowbrook.exe-clsLookupFields-isClientRepeaterField", kClientRepeater);
}

bool clsLookupFields::isTaskTypeRepeaterField() const {
    return isOfKind("Tallowbrook.exe-clsLookupFields-isTaskTypeRepeaterField", kTypeRepeater);
}

std::string clsLookupFields::clientsQuery() const {
    if (LookUpFieldsType == kPersonalTaxColumns)
        return "SELECT PersonalTaxStatus.ContactNum, PersonalTaxStatus.TaxYear FROM PersonalTaxStatus WHERE TaxYear = " +
               toText(PersonalTaxYear);
    const ColumnsTable& columns = *tableOf(LookUpFieldsType);
    const std::string table{columns.table};
    const std::string client =
        table + "." + std::string{columns.companyColumn} + ", " + table + "." + std::string{columns.contactColumn};
    return "SELECT " + client + " From " + table + " GROUP BY " + client + " ORDER BY " + client + ";";
}

/// Nothing for a row without a client, and for one whose client could not be told.
std::optional<clsLookupFields::Client> clsLookupFields::clientOf(const Recordset& row) const {
    const ColumnsTable& columns = *tableOf(LookUpFieldsType);
    const auto companyID = columns.companyColumn.empty() ? kNoRecord : row.numberIfRead(columns.companyColumn, kNoRecord);
    const auto contactID = row.numberIfRead(columns.contactColumn, kNoRecord);
    if (!companyID || !contactID || (*companyID < 0 && *contactID < 0)) return std::nullopt;
    return Client{*companyID, *contactID};
}

/// The rows of a client with the column that is written; a client that is a company is known by that alone.
std::string clsLookupFields::rowsQuery(const Client& client) const {
    const ColumnsTable& columns = *tableOf(LookUpFieldsType);
    const std::string table{columns.table};
    std::string query = "SELECT " + table + ".Custom" + std::to_string(customNumber);
    if (LookUpFieldsType == kPersonalTaxColumns)
        return query + " FROM PersonalTaxStatus WHERE TaxYear = " + toText(PersonalTaxYear) +
               " AND PersonalTaxStatus.ContactNum = " + toText(client.contactID) + ";";
    const bool isCompany = client.companyID >= 0;
    const std::string column = table + "." + std::string{isCompany ? columns.companyColumn : columns.contactColumn};
    return query + ", " + column + " FROM " + table + " WHERE " + column + " = " +
           toText(isCompany ? client.companyID : client.contactID) + ";";
}

/// Nothing when it could not be read.
std::optional<std::string> clsLookupFields::valueFor(const Client& client) const {
    const std::uint64_t failuresBefore = Routine::failures();
    clsInsertFieldsInRTB merge;
    merge.MergeFieldListUse(clsInsertFieldsInRTB::kTaxColumns);
    merge.ListType =
        LookUpFieldsType == kPersonalTaxColumns ? clsInsertFieldsInRTB::kContactAlone : clsInsertFieldsInRTB::kCompanyAndContact;
    merge.companyID = client.companyID;
    merge.contactID = client.contactID;
    merge.ConvertStrToRTF = false;
    merge.initializeDataRecordsetsForSingleDocMerge();
    std::string value = merge.getMergeDataFromFieldName(fieldName);
    return Routine::failures() == failuresBefore ? std::optional{std::move(value)} : std::nullopt;
}

void clsLookupFields::write(std::string_view query, std::string_view value) const {
    const std::string column = "Custom" + std::to_string(customNumber);
    Recordset rows{query, LockCode::updatable};
    for (rows.moveFirst(); !rows.isAtEnd(); rows.moveNext()) rows.update(column, value);
}

void clsLookupFields::populateLookupFieldValuesForAllClients() const {
    Routine routine{"Tallowbrook.exe-clsLookupFields-populateLookupFieldValuesForAllClients"};
    routine.run([&] {
        if (ValueHelper::isNullOrEmpty(fieldName) || !hasKind(kLookup)) return;  // no field is no reason to blank the column
        Recordset clients{clientsQuery()};
        for (clients.moveFirst(); !clients.isAtEnd(); clients.moveNext()) {
            const auto client = clientOf(clients);
            const auto value = client ? valueFor(*client) : std::nullopt;
            if (value) write(rowsQuery(*client), *value);
        }
    });
}

void clsLookupFields::removeLookupFieldVales() const {
    Routine routine{"Tallowbrook.exe-clsLookupFields-removeLookupFieldVales"};
    routine.run([&] {
        if (!hasKind(kLookup)) return;
        const std::string table{tableOf(LookUpFieldsType)->table};
        std::string query = "SELECT " + table + ".Custom" + std::to_string(customNumber) + " FROM " + table;
        if (LookUpFieldsType == kPersonalTaxColumns) query += " WHERE TaxYear = " + toText(PersonalTaxYear);
        write(query + ";", {});
    });
}

/// A tax record is a contact's.
clsLookupFields::Client clsLookupFields::chosenClient() const {
    const bool isCompany = clientType_ == ClientType::company && LookUpFieldsType != kPersonalTaxColumns;
    if (clientIDNum >= 0) return isCompany ? Client{clientIDNum, kNoRecord} : Client{kNoRecord, clientIDNum};
    return isCompany ? Client{companyIDNum, kNoRecord} : Client{kNoRecord, contactIDNum};
}

void clsLookupFields::repeat(std::string_view errorTag, std::int32_t kind) const {
    Routine routine{errorTag};
    routine.run([&] {
        const Client client = chosenClient();
        if (hasKind(kind) && (client.companyID >= 0 || client.contactID >= 0)) write(rowsQuery(client), RepeatValue);
    });
}

void clsLookupFields::populateClientRepeaterFieldValues() const {
    repeat("Tallowbrook.exe-clsLookupFields-populateClientRepeaterFieldValues", kClientRepeater);
}

void clsLookupFields::populateTaskTypeRepeaterFieldValues() const {
    repeat("Tallowbrook.exe-clsLookupFields-populateTaskTypeRepeaterFieldValues", kTypeRepeater);
}

void clsLookupFields::populateProjectTypeRepeaterFieldValues() const {
    repeat("Tallowbrook.exe-clsLookupFields-populateProjectTypeRepeaterFieldValues", kTypeRepeater);
}

}  // namespace wmoutlook

#include "hostdata/modDatabaseFunctions.h"

#include "hostdata/HostServices.h"
#include "platform/Routine.h"

#include <optional>
#include <span>

namespace wmoutlook::modDatabaseFunctions {

namespace {

/// "SELECT T.key, T.wanted FROM T WHERE key=number;"
struct LookUp {
    std::string_view errorTag;
    std::string_view table;
    std::string_view key;
    std::string_view wanted;

    [[nodiscard]] std::string query(std::int32_t number) const {
        return "SELECT " + column(key) + ", " + column(wanted) + " FROM " + std::string{table} + " WHERE " + std::string{key} +
               "=" + toText(number) + ";";
    }

    [[nodiscard]] std::string column(std::string_view name) const { return std::string{table} + "." + std::string{name}; }
};

/// Nothing when the database is closed or does not tell.
std::optional<std::string> lookUpText(const LookUp& lookUp, std::int32_t number, std::string_view whenMissing = {}) {
    std::optional<std::string> text;
    Routine routine{lookUp.errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset rows{lookUp.query(number)};
        const auto isThere = rows.hasRowsIfTold();
        if (isThere) text = *isThere ? rows.textIfRead(lookUp.wanted) : std::string{whenMissing};
    });
    return text;
}

std::int32_t lookUpNumber(const LookUp& lookUp, std::int32_t number) {
    std::int32_t found = kNoRecord;
    Routine routine{lookUp.errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset rows{lookUp.query(number)};
        if (rows.hasRows()) found = rows.number(lookUp.wanted, kNoRecord);
    });
    return found;
}

/// Nothing when the database is closed or does not tell.
std::optional<bool> hasRow(std::string_view errorTag, std::string_view table, std::string_view key, std::int32_t number) {
    std::optional<bool> isThere;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::string column{key};
        const Recordset rows{"SELECT " + std::string{table} + "." + column + " FROM " + std::string{table} + " WHERE " + column +
                             " = " + toText(number) + ";"};
        isThere = rows.hasRowsIfTold();
    });
    return isThere;
}

std::string contactLinksOf(std::int32_t companyID) {
    return "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM ContactLinks "
           "WHERE ContactLinks.CompanyNum = " +
           toText(companyID) + ";";
}

/// A table of a business client's record and what ties it to those before it.
struct Join {
    std::string_view table;
    std::string_view condition;
};

constexpr Join kServices{"AccountingServices", "ClientData.ClientDataID = AccountingServices.AccountingServiceID"};
constexpr Join kOptions{"ClientOptions", "ClientData.ClientDataID = ClientOptions.ClientOptionID"};
constexpr Join kCompanies{"Companies", "ClientData.CompanyIDNum = Companies.CompanyID"};
constexpr Join kNotes{"CompaniesNotes", "Companies.CompanyID = CompaniesNotes.CompanyNum"};

constexpr Join kCanadianJoins[] = {kServices,
                                   kOptions,
                                   {"CorpTaxInfo", "ClientData.ClientDataID = CorpTaxInfo.CorpTaxInfoID"},
                                   {"LawInfo", "ClientData.ClientDataID = LawInfo.LawInfoID"},
                                   {"OtherInfo", "ClientData.ClientDataID = OtherInfo.OtherInfoID"},
                                   {"WSIB_EHTInfo", "ClientData.ClientDataID = WSIB_EHTInfo.WSIB_EHTInfoID"},
                                   kCompanies,
                                   kNotes};
constexpr Join kUnitedStatesJoins[] = {
    kServices, kOptions, {"ClientUSInfo", "ClientData.ClientDataID = ClientUSInfo.ClientUSInfoID"}, kCompanies, kNotes};

/// The desktop engine wants every join but the last in parentheses.
std::string joined(std::span<const Join> joins) {
    std::string text = std::string(joins.size() - 1, '(') + "ClientData";
    for (std::size_t i = 0; i < joins.size(); ++i) {
        text.append(" INNER JOIN ").append(joins[i].table).append(" ON ").append(joins[i].condition);
        if (i + 1 < joins.size()) text += ")";
    }
    return text;
}

std::string activityCondition(bool filtered, ClientActivity activity) {
    if (activity == ClientActivity::any) return {};
    const std::string shown = filtered ? "ClientData.ShowThisClient = True AND " : "";
    return "WHERE " + shown + (activity == ClientActivity::inactive ? "NOT " : "") + "ClientData.ActiveStatus=1 ";
}

std::string_view orderByCompanyName() {
    using modSettings::CompanyNameDisplay;
    switch (modSettings::nameDisplay().companyName) {
        case CompanyNameDisplay::corporateName: return "ORDER BY Companies.CorporateName;";
        case CompanyNameDisplay::clientID:
        case CompanyNameDisplay::clientIDAndCompanyName: return "ORDER BY Companies.ClientID, Companies.CompanyName;";
        case CompanyNameDisplay::companyName: break;
    }
    return "ORDER BY Companies.CompanyName;";
}

}  // namespace

std::string getCompanyNameFromCompanyID(std::int32_t companyID) {
    return getCompanyNameFromCompanyIDIfTold(companyID).value_or("");
}

std::optional<std::string> getCompanyNameFromCompanyIDIfTold(std::int32_t companyID) {
    return lookUpText(
        {"Tallowbrook.exe-modDatabaseFunctions-getCompanyNameFromCompanyID", "Companies", "CompanyID", "CompanyName"}, companyID,
        kClientNoLongerExists);
}

std::string getContactNameFromContactID(std::int32_t contactID) {
    return getContactNameFromContactIDIfTold(contactID).value_or("");
}

std::optional<std::string> getContactNameFromContactIDIfTold(std::int32_t contactID) {
    return lookUpText(
        {"Tallowbrook.exe-modDatabaseFunctions-getContactNameFromContactID", "Contacts", "ContactID", "DisplayName"}, contactID,
        kClientNoLongerExists);
}

std::string getDisplayNameFromContactID(std::int32_t contactID) {
    return getDisplayNameFromContactIDIfTold(contactID).value_or("");
}

std::optional<std::string> getDisplayNameFromContactIDIfTold(std::int32_t contactID) {
    return lookUpText(
        {"Tallowbrook.exe-modDatabaseFunctions-getDisplayNameFromContactID", "Contacts", "ContactID", "DisplayName"}, contactID);
}

std::string getCategoryNameFromCategoryID(std::int32_t categoryID) {
    return lookUpText(
               {"Tallowbrook.exe-modDatabaseFunctions-getCategoryNameFromCategoryID", "Categories", "CategoryID", "CategoryName"},
               categoryID)
        .value_or("");
}

std::int32_t getClientDataIDFromCompanyID(std::int32_t companyID) {
    return lookUpNumber(
        {"Tallowbrook.exe-modDatabaseFunctions-getClientDataIDFromCompanyID", "ClientData", "CompanyIDNum", "ClientDataID"},
        companyID);
}

std::int32_t getCompanyIDFromClientDataID(std::int32_t clientDataID) {
    return lookUpNumber(
        {"Tallowbrook.exe-modDatabaseFunctions-getCompanyIDFromClientDataID", "ClientData", "ClientDataID", "CompanyIDNum"},
        clientDataID);
}

std::int32_t getBusinessClientActiveStatusFromClientID(std::int32_t clientDataID) {
    return lookUpNumber({"Tallowbrook.exe-modDatabaseFunctions-getBusinessClientActiveStatusFromClientID", "ClientData",
                         "ClientDataID", "ActiveStatus"},
                        clientDataID);
}

std::int32_t getPersonalClientActiveStatus(std::int32_t contactID, std::int32_t year) {
    std::int32_t status = kNoRecord;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getPersonalClientActiveStatus"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset rows{
            "SELECT PersonalTaxStatus.ContactNum, PersonalTaxStatus.TaxYear, PersonalTaxStatus.ActiveStatus FROM "
            "PersonalTaxStatus "
            "WHERE ContactNum=" +
            toText(contactID) + " AND TaxYear=" + toText(year) + ";"};
        if (rows.hasRows()) status = rows.number("ActiveStatus", kNoRecord);
    });
    return status;
}

std::int32_t getDefaultContactIDFromCompanyID(std::int32_t companyID) {
    std::int32_t contactID = kNoRecord;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getDefaultContactIDFromCompanyID"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset links{contactLinksOf(companyID)};
        if (links.findFirst("DefaultContact", toText(true))) contactID = links.number("ContactIDNum", kNoRecord);
    });
    return contactID;
}

bool isContactDefaultContact(std::int32_t contactID, std::int32_t companyID) {
    bool isDefault = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-isContactDefaultContact"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset links{contactLinksOf(companyID)};
        for (bool found = links.findFirst("ContactIDNum", contactID); found && !isDefault; found = links.findNext())
            isDefault = links.truth("DefaultContact");
    });
    return isDefault;
}

std::int32_t getCompanyIDFromAppointmentID(std::int32_t appointmentID) {
    return lookUpNumber(
        {"Tallowbrook.exe-modDatabaseFunctions-getCompanyIDFromAppointmentID", "Appointments", "AppointmentID", "CompanyIDNum"},
        appointmentID);
}

std::int32_t getContactIDFromAppointmentID(std::int32_t appointmentID) {
    return lookUpNumber(
        {"Tallowbrook.exe-modDatabaseFunctions-getContactIDFromAppointmentID", "Appointments", "AppointmentID", "ContactIDNum"},
        appointmentID);
}

std::int32_t getCompanyIDFromTaskID(std::int32_t taskID) {
    return lookUpNumber({"Tallowbrook.exe-modDatabaseFunctions-getCompanyIDFromTaskID", "Tasks", "TaskID", "CompanyIDNum"},
                        taskID);
}

std::int32_t getContactIDFromTaskID(std::int32_t taskID) {
    return lookUpNumber({"Tallowbrook.exe-modDatabaseFunctions-getContactIDFromTaskID", "Tasks", "TaskID", "ContactIDNum"},
                        taskID);
}

std::int32_t getCompanyIDFromDocketID(std::int32_t docketID) {
    return lookUpNumber({"Tallowbrook.exe-modDatabaseFunctions-getCompanyIDFromDocketID", "Dockets", "DocketID", "CompanyIDNum"},
                        docketID);
}

std::int32_t getContactIDFromDocketID(std::int32_t docketID) {
    return lookUpNumber({"Tallowbrook.exe-modDatabaseFunctions-getContactIDFromDocketID", "Dockets", "DocketID", "ContactIDNum"},
                        docketID);
}

std::int32_t getScheduleIDFromTaskID(std::int32_t taskID) {
    return lookUpNumber({"Tallowbrook.exe-modDatabaseFunctions-getScheduleIDFromTaskID", "Tasks", "TaskID", "ScheduleIDNum"},
                        taskID);
}

std::int32_t getTaskIDFromScheduleIDNum(std::int32_t scheduleID) {
    return lookUpNumber({"Tallowbrook.exe-modDatabaseFunctions-getTaskIDFromScheduleIDNum", "Tasks", "ScheduleIDNum", "TaskID"},
                        scheduleID);
}

bool validCompanyID(std::int32_t companyID) {
    return validCompanyIDIfTold(companyID).value_or(false);
}

std::optional<bool> validCompanyIDIfTold(std::int32_t companyID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validCompanyID", "Companies", "CompanyID", companyID);
}

bool validContactID(std::int32_t contactID) {
    return validContactIDIfTold(contactID).value_or(false);
}

std::optional<bool> validContactIDIfTold(std::int32_t contactID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validContactID", "Contacts", "ContactID", contactID);
}

bool validCategoryID(std::int32_t categoryID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validCategoryID", "Categories", "CategoryID", categoryID).value_or(false);
}

bool validAppointmentID(std::int32_t appointmentID) {
    return validAppointmentIDIfTold(appointmentID).value_or(false);
}

std::optional<bool> validAppointmentIDIfTold(std::int32_t appointmentID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validAppointmentID", "Appointments", "AppointmentID", appointmentID);
}

bool validDocketID(std::int32_t docketID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validDocketID", "Dockets", "DocketID", docketID).value_or(false);
}

bool validTaskID(std::int32_t taskID) {
    return validTaskIDIfTold(taskID).value_or(false);
}

std::optional<bool> validTaskIDIfTold(std::int32_t taskID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validTaskID", "Tasks", "TaskID", taskID);
}

bool validFirmID(std::int32_t companyID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validFirmID", "AccountantFirmInfo", "CompanyID", companyID)
        .value_or(false);
}

bool validEmployeeID(std::int32_t contactID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validEmployeeID", "AccountantEmployeeInfo", "ContactID", contactID)
        .value_or(false);
}

std::string getMainBusinessSQLString(bool filtered, ClientActivity activity, std::int32_t clientDataID) {
    std::string query;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getMainBusinessSQLString"};
    routine.run([&] {
        const bool isCanada = firmCountry() == country::kCanada;
        query = "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, ";
        query += isCanada ? "CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*" : "ClientUSInfo.*";
        query += ", CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes FROM ";
        query += isCanada ? joined(kCanadianJoins) : joined(kUnitedStatesJoins);
        if (clientDataID >= 0)
            query += " AND ClientData.ClientDataID=" + toText(clientDataID);
        else
            query.append(" ").append(activityCondition(filtered, activity)).append(orderByCompanyName());
    });
    return query;
}

}  // namespace wmoutlook::modDatabaseFunctions

#include "hostdata/modDatabaseFunctions.h"

#include "hostdata/HostServices.h"
#include "platform/Routine.h"

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

std::string lookUpText(const LookUp& lookUp, std::int32_t number, std::string_view whenMissing = {}) {
    std::string text;
    Routine routine{lookUp.errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset rows{lookUp.query(number)};
        text = rows.hasRows() ? rows.text(lookUp.wanted) : std::string{whenMissing};
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

bool hasRow(std::string_view errorTag, std::string_view table, std::string_view key, std::int32_t number) {
    bool isThere = false;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::string column{key};
        const Recordset rows{"SELECT " + std::string{table} + "." + column + " FROM " + std::string{table} + " WHERE " + column +
                             " = " + toText(number) + ";"};
        isThere = rows.hasRows();
    });
    return isThere;
}

std::string contactLinksOf(std::int32_t companyID) {
    return "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM ContactLinks "
           "WHERE ContactLinks.CompanyNum = " +
           toText(companyID) + ";";
}

std::string activityCondition(bool filtered, ClientActivity activity) {
    if (activity == ClientActivity::any) return filtered ? "WHERE ClientData.ShowThisClient = True " : "";
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
    return lookUpText(
        {"Tallowbrook.exe-modDatabaseFunctions-getCompanyNameFromCompanyID", "Companies", "CompanyID", "CompanyName"}, companyID,
        kClientNoLongerExists);
}

std::string getContactNameFromContactID(std::int32_t contactID) {
    return lookUpText(
        {"Tallowbrook.exe-modDatabaseFunctions-getContactNameFromContactID", "Contacts", "ContactID", "DisplayName"}, contactID,
        kClientNoLongerExists);
}

std::string getDisplayNameFromContactID(std::int32_t contactID) {
    return lookUpText(
        {"Tallowbrook.exe-modDatabaseFunctions-getDisplayNameFromContactID", "Contacts", "ContactID", "DisplayName"}, contactID);
}

std::string getCategoryNameFromCategoryID(std::int32_t categoryID) {
    return lookUpText(
        {"Tallowbrook.exe-modDatabaseFunctions-getCategoryNameFromCategoryID", "Categories", "CategoryID", "CategoryName"},
        categoryID);
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

bool validCompanyID(std::int32_t companyID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validCompanyID", "Companies", "CompanyID", companyID);
}

bool validContactID(std::int32_t contactID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validContactID", "Contacts", "ContactID", contactID);
}

bool validCategoryID(std::int32_t categoryID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validCategoryID", "Categories", "CategoryID", categoryID);
}

bool validAppointmentID(std::int32_t appointmentID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validAppointmentID", "Appointments", "AppointmentID", appointmentID);
}

bool validDocketID(std::int32_t docketID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validDocketID", "Dockets", "DocketID", docketID);
}

bool validTaskID(std::int32_t taskID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validTaskID", "Tasks", "TaskID", taskID);
}

bool validFirmID(std::int32_t companyID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validFirmID", "AccountantFirmInfo", "CompanyID", companyID);
}

bool validEmployeeID(std::int32_t contactID) {
    return hasRow("Tallowbrook.exe-modDatabaseFunctions-validEmployeeID", "AccountantEmployeeInfo", "ContactID", contactID);
}

std::string getMainBusinessSQLString(bool filtered, ClientActivity activity, std::int32_t clientDataID) {
    std::string query;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getMainBusinessSQLString"};
    routine.run([&] {
        const bool isCanada = firmCountry() == country::kCanada;
        const std::string tables = isCanada ? "CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*" : "ClientUSInfo.*";
        const std::string joins = isCanada ? "INNER JOIN CorpTaxInfo ON ClientData.ClientDataID = CorpTaxInfo.CorpTaxInfoID "
                                             "INNER JOIN LawInfo ON ClientData.ClientDataID = LawInfo.LawInfoID "
                                             "INNER JOIN OtherInfo ON ClientData.ClientDataID = OtherInfo.OtherInfoID "
                                             "INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = WSIB_EHTInfo.WSIB_EHTInfoID "
                                           : "INNER JOIN ClientUSInfo ON ClientData.ClientDataID = ClientUSInfo.ClientUSInfoID ";
        query = "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, " + tables +
                ", CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes FROM ClientData "
                "INNER JOIN AccountingServices ON ClientData.ClientDataID = AccountingServices.AccountingServiceID "
                "INNER JOIN ClientOptions ON ClientData.ClientDataID = ClientOptions.ClientOptionID " +
                joins +
                "INNER JOIN Companies ON ClientData.CompanyIDNum = Companies.CompanyID "
                "INNER JOIN CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum ";
        if (clientDataID >= 0)
            query += " AND ClientData.ClientDataID=" + toText(clientDataID);
        else
            query.append(activityCondition(filtered, activity)).append(orderByCompanyName());
    });
    return query;
}

}  // namespace wmoutlook::modDatabaseFunctions

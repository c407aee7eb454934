#include "adapters/sql/schema/ReferenceSchema.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {
namespace {

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

int compareBytes(void*, int leftSize, const void* left, int rightSize, const void* right) {
    const std::string_view leftText{static_cast<const char*>(left), static_cast<std::size_t>(leftSize)};
    const std::string_view rightText{static_cast<const char*>(right), static_cast<std::size_t>(rightSize)};
    return leftText.compare(rightText);
}

/// The bare engine with the schema in it: what is tested here are the tables, not the dialect.
class EmptyFirm : public ::testing::Test {
protected:
    void SetUp() override {
        sqlite3* opened = nullptr;
        ASSERT_EQ(sqlite3_open(":memory:", &opened), SQLITE_OK);
        database_.reset(opened);
        sqlite3_create_collation(opened, "TEXTUAL", SQLITE_UTF8, nullptr, compareBytes);
        for (const std::string_view statement : referenceSchema()) run(std::string{statement});
    }

    /// All rows, the columns of one row joined by a bar.
    std::vector<std::string> run(const std::string& text) {
        sqlite3_stmt* prepared = nullptr;
        const int code = sqlite3_prepare_v2(database_.get(), text.c_str(), -1, &prepared, nullptr);
        const std::unique_ptr<sqlite3_stmt, Close> statement{prepared};
        EXPECT_EQ(code, SQLITE_OK) << text << "\n" << sqlite3_errmsg(database_.get());
        std::vector<std::string> rows;
        while (prepared && sqlite3_step(prepared) == SQLITE_ROW) {
            std::string row;
            for (int column = 0; column < sqlite3_column_count(prepared); ++column) {
                const void* const value = sqlite3_column_text(prepared, column);
                row += (column > 0 ? "|" : "") + std::string{value ? static_cast<const char*>(value) : "null"};
            }
            rows.push_back(row);
        }
        return rows;
    }

    bool looksAtEachRow(const std::string& text) {
        const auto plan = run("EXPLAIN QUERY PLAN " + text);
        return std::any_of(plan.begin(), plan.end(),
                           [](const std::string& step) { return step.find("SCAN") != std::string::npos; });
    }

    std::unique_ptr<sqlite3, Close> database_;
};

std::string customs(const std::string& table, const std::string& prefix) {
    std::string list;
    for (const char number : {'1', '2', '3', '4', '5'})
        list += ", " + table + ".Custom" + number + " AS " + prefix + "Custom" + number;
    return list;
}

std::string contactLinks(const std::string& key, const std::string& condition, const std::string& order) {
    return "SELECT ContactLinks.ContactIDNum, ContactLinks." + key +
           ", ContactLinks.IsPersonalTaxCategory, ContactLinks.FamilyRelationship, ContactLinks.DefaultContact, "
           "Contacts.FirstName, "
           "Contacts.LastName, Contacts.DisplayName FROM ContactLinks INNER JOIN Contacts ON ContactLinks.ContactIDNum = "
           "Contacts.ContactID WHERE ContactLinks." +
           key + " Is Not Null " + condition + "ORDER BY ContactLinks." + key + order;
}

const std::string kLinks = "SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S'";

const std::string kBusinessClient =
    " ClientOptions.*, Companies.*, CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes, ClientData.*, "
    "AccountingServices.* FROM "
    "ClientData, AccountingServices, ClientOptions, Companies, CompaniesNotes";
const std::string kBusinessClientJoin =
    " WHERE ClientData.ClientDataID = AccountingServices.AccountingServiceID AND ClientData.ClientDataID = "
    "ClientOptions.ClientOptionID "
    "AND ClientData.CompanyIDNum = Companies.CompanyID AND CompaniesNotes.CompanyNum = Companies.CompanyID";

// What runs once per record has to be found by a key, or a pass over a large firm takes hours.
TEST_F(EmptyFirm, FindsWhatIsLookedUpPerRecordByAKey) {
    const std::initializer_list<std::string> texts{
        kLinks + " AND CompanyNum = 7",
        kLinks + " AND ContactNum = 7",
        kLinks + " AND AppointmentNum = 7",
        kLinks + " AND TaskNum = 7",
        kLinks + " AND OutlookID = 'O'",
        kLinks + " AND OutlookID='O' AND IsRecurringItem=True ORDER BY RecurringItemDate;",
        kLinks + " AND IsRecurringItem=True AND RecurringItemDate=46000 AND OutlookID = 'O'",
        "SELECT OutlookSchemeItems.* FROM OutlookSchemeItems WHERE OutlookSchemeItems.SchemeNum = 7;",
        "SELECT Companies.CompanyID, Companies.CompanyName FROM Companies WHERE CompanyID=7;",
        "SELECT Companies.CompanyID, Companies.CompanyNum, Companies.CategoryNum FROM Companies WHERE Companies.CompanyID = 7;",
        "SELECT Companies.CompanyID, Companies.DefaultContactName, Companies.DefaultContactPhoneNumber, "
        "Companies.DefaultContactFaxNumber, Companies.DefaultContactEmail FROM Companies WHERE CompanyID = 7;",
        "SELECT Companies.CompanyName, Companies.CompanyNum FROM Companies WHERE CompanyNum = 7",
        "SELECT Companies.*" + customs("Companies", "Company") + " From Companies WHERE Companies.CompanyID=7;",
        "SELECT Contacts.*" + customs("Contacts", "Contact") + " From Contacts WHERE Contacts.ContactID=7;",
        "SELECT Contacts.ContactID, Contacts.Gender FROM Contacts WHERE ContactID=7;",
        "SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.BusinessPhone_Main, Contacts.BusinessPhone_Fax, "
        "Contacts.BusinessEmail FROM Contacts WHERE ContactID = 7;",
        "SELECT Contacts.ContactID, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName, "
        "Contacts.ContactPersonalTaxDisplayType, Contacts.SpouseFirstName, Contacts.SpouseLastName FROM Contacts WHERE "
        "ContactID=7;",
        "SELECT CompaniesNotes.* From CompaniesNotes WHERE CompaniesNotes.CompanyNum=7;",
        "SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM CompaniesNotes WHERE CompanyNum=7;",
        "SELECT ContactsNotes.* From ContactsNotes WHERE ContactsNotes.ContactNum=7;",
        "SELECT Clients.* FROM Clients WHERE Clients.CompanyIDNum=7;",
        "SELECT Clients.* FROM Clients WHERE Clients.ContactIDNum=7;",
        "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum = 7 AND ContactLinks.CategoryNum = 8",
        "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum = 7 AND ContactLinks.CompanyNum = 8",
        "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum = 7 AND ContactLinks.ContactNum = 8",
        "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM ContactLinks WHERE "
        "ContactLinks.CompanyNum = 7;",
        "SELECT ContactLinks.ContactIDNum, ContactLinks.ContactNum FROM ContactLinks WHERE ContactLinks.ContactNum = 7",
        "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, Companies.CompanyName FROM ContactLinks INNER JOIN Companies "
        "ON "
        "ContactLinks.CompanyNum = Companies.CompanyID WHERE ContactLinks.ContactIDNum=7 AND Not ContactLinks.CompanyNum Is "
        "Null;",
        "SELECT Categories.CategoryName, ContactLinks.ContactIDNum FROM Categories INNER JOIN ContactLinks ON "
        "Categories.CategoryID = "
        "ContactLinks.CategoryNum WHERE ContactLinks.ContactIDNum=7",
        "SELECT Categories.CategorySpecialCode, Categories.CategoryName FROM Categories WHERE CategorySpecialCode = 'Main';",
        "SELECT Categories.CategorySpecialCode, Categories.CategoryName, Categories.CategoryNum, Categories.CategoryID, "
        "Categories.CategoryDescription FROM Categories WHERE CategorySpecialCode = 'TaxYear:2025';",
        "SELECT Categories.CategoryID, Categories.CategoryNum FROM Categories WHERE CategoryID = 7;",
        "SELECT Categories.CategoryID FROM Categories WHERE CategoryNum = 7",
        "SELECT ClientData.* FROM ClientData WHERE CompanyIDNum=7;",
        "SELECT ClientData.ActiveStatus, ClientData.ClientDataID FROM ClientData WHERE ClientDataID=7;",
        "SELECT AccountingServices.* FROM AccountingServices WHERE AccountingServiceID=7;",
        "SELECT ClientOptions.* FROM ClientOptions WHERE ClientOptionID=7;",
        "SELECT ClientNotes.* FROM ClientNotes WHERE ClientNoteID=7;",
        "SELECT CorpTaxInfo.* FROM CorpTaxInfo WHERE CorpTaxInfoID=7;",
        "SELECT LawInfo.* FROM LawInfo WHERE LawInfoID=7;",
        "SELECT OtherInfo.* FROM OtherInfo WHERE OtherInfoID=7;",
        "SELECT WSIB_EHTInfo.* FROM WSIB_EHTInfo WHERE WSIB_EHTInfoID=7;",
        "SELECT ClientUSInfo.* FROM ClientUSInfo WHERE ClientUSInfoID=7;",
        "SELECT ClientUSInfo.*," + kBusinessClient + ", ClientUSInfo" + kBusinessClientJoin +
            " AND ClientUSInfo.ClientUSInfoID = ClientData.ClientDataID AND ClientData.ClientDataID=7",
        "SELECT CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*," + kBusinessClient +
            ", CorpTaxInfo, LawInfo, OtherInfo, WSIB_EHTInfo" + kBusinessClientJoin +
            " AND CorpTaxInfo.CorpTaxInfoID = ClientData.ClientDataID AND LawInfo.LawInfoID = ClientData.ClientDataID AND "
            "OtherInfo.OtherInfoID = ClientData.ClientDataID AND WSIB_EHTInfo.WSIB_EHTInfoID = ClientData.ClientDataID AND "
            "ClientData.ClientDataID=7",
        "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND SoftwareInfo.CompanyIDNum=7;",
        "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND SoftwareInfo.ContactIDNum=7;",
        "SELECT PersonalTaxInfo.* FROM PersonalTaxInfo WHERE ContactNum=7 AND TaxYear=2025;",
        "SELECT PersonalTaxStatus.Custom1 FROM PersonalTaxStatus WHERE TaxYear = 2025 AND PersonalTaxStatus.ContactNum = 7;",
        "SELECT PersonalTaxNotes.* FROM PersonalTaxNotes WHERE ContactNum=7 AND TaxYear=2025;",
        "SELECT PersonalTaxProfileInfo.* FROM PersonalTaxProfileInfo WHERE PersonalTaxProfileInfo.ContactNum=7",
        "SELECT PersonalTaxClientSummary.PersonalTaxNotes FROM PersonalTaxClientSummary WHERE ContactNum=7 AND TaxYear=2025;",
        "SELECT PersonalTaxTasks.StepNum FROM PersonalTaxTasks WHERE ContactNum=7 AND TaxYear=2025;",
        "SELECT PersonalTaxSteps.* FROM PersonalTaxSteps WHERE PersonalTaxSteps.TaxYear=2025",
        "SELECT CompanyProjects.Custom1, CompanyProjects.CompanyIDNum FROM CompanyProjects WHERE CompanyProjects.CompanyIDNum = "
        "7;",
        "SELECT CompanyProjects.Custom1, CompanyProjects.ContactIDNum FROM CompanyProjects WHERE CompanyProjects.ContactIDNum = "
        "7;",
        "SELECT AccountantFirmInfo.*" + customs("AccountantFirmInfo", "Firm") + " From AccountantFirmInfo WHERE CompanyID=7;",
        "SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo WHERE ContactID=7;",
        "SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings.OptionsFamilyDisplayOption FROM UserGeneralSettings WHERE "
        "UserIDNum=7;",
        "SELECT UserCalendarSettings.* FROM UserCalendarSettings WHERE UserIDNum = 7;",
        "SELECT Appointments.AppointmentID FROM Appointments WHERE AppointmentID = 7;",
        "SELECT Appointments.*" + customs("Appointments", "Appt") + " From Appointments WHERE Appointments.AppointmentID=7;",
        "SELECT Appointments.UserIDNum, Appointments.DateFrom, Appointments.TimeFrom, Appointments.TimeTo FROM Appointments "
        "WHERE "
        "Appointments.UserIDNum = 7 AND Appointments.DateFrom = 46000 ORDER BY Appointments.TimeTo;",
        "SELECT Appointments.* FROM Appointments WHERE Appointments.UserIDNum = 7 AND Appointments.DateFrom = 46000 AND "
        "Appointments.Subject = 'Review' AND Appointments.TimeFrom = 0.375 AND Appointments.TimeTo = 0.5;",
        "SELECT Appointments.RepeatNum FROM Appointments WHERE RepeatNum = 7",
        "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=7;",
        "SELECT Tasks.RepeatNum FROM Tasks WHERE RepeatNum = 7",
        "SELECT Tasks.UserIDNum, Tasks.DateFrom, Tasks.TimeFrom, Tasks.TimeTo FROM Tasks WHERE UserIDNum = 7 AND DateFrom = "
        "46000 ORDER BY "
        "Tasks.TimeTo;",
        "SELECT Schedule.*, Tasks.*" + customs("Schedule", "Schedule") + customs("Tasks", "Task") +
            " FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum WHERE Tasks.TaskID=7;",
        "SELECT Dockets.*" + customs("Dockets", "Docket") + " From Dockets WHERE Dockets.DocketID=7;",
        "SELECT Dockets.TimeFrom, Dockets.TimeTo FROM Dockets WHERE Dockets.UserIDNum = 7 AND Dockets.DateFrom = 46000;",
        "SELECT Schedule.ScheduleID, Schedule.scheduleNum, Schedule.totalNum FROM Schedule WHERE ScheduleID=7;",
        "SELECT Schedule.Custom1, Schedule.ClientNum FROM Schedule WHERE Schedule.ClientNum = 7;",
        "SELECT Schedule.Custom1, Schedule.ContactIDNum FROM Schedule WHERE Schedule.ContactIDNum = 7;",
        "SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE ScheduleIDNum = 7;",
        "SELECT Reminders.AppointmentIDNum, Reminders.Completed FROM Reminders WHERE AppointmentIDNum = 7;",
        "SELECT Reminders.TaskIDNum, Reminders.Completed FROM Reminders WHERE TaskIDNum = 7;",
        "SELECT ClientNotification.AppointmentNum, ClientNotification.NotificationSent FROM ClientNotification WHERE "
        "AppointmentNum = 7;",
        "SELECT ClientNotification.DocketNum, ClientNotification.NotificationSent FROM ClientNotification WHERE DocketNum = 7;",
        "SELECT ClientNotification.TaskNum, ClientNotification.NotificationSent FROM ClientNotification WHERE TaskNum = 7;",
        "SELECT ClientNotification.ScheduleNum, ClientNotification.NotificationSent FROM ClientNotification WHERE ScheduleNum = "
        "7;",
    };
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        run(text);
        EXPECT_FALSE(looksAtEachRow(text));
    }
}

// What runs once per walk, per click or per run may look at each row.
TEST_F(EmptyFirm, RunsWhatReadsWholeTables) {
    const std::initializer_list<std::string> texts{
        kLinks + ";",
        "SELECT OutlookSync.* FROM OutlookSync WHERE OutlookSync.SchemeNum = 7;",
        "SELECT OutlookScheme.* From OutlookScheme WHERE OutlookScheme.SyncObject = 1 AND OutlookScheme.DataFileID = 'F';",
        "SELECT OutlookLogin.* From OutlookLogin;",
        "SELECT Companies.* FROM Companies ORDER BY Companies.CompanyName;",
        "SELECT Contacts.* FROM Contacts ORDER BY Contacts.DisplayName;",
        "SELECT ContactLinks.*, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName FROM ContactLinks INNER JOIN "
        "Contacts ON "
        "ContactLinks.ContactIDNum = Contacts.ContactID WHERE ContactLinks.IsPersonalTaxCategory = True ORDER BY "
        "Contacts.LastName, "
        "Contacts.FirstName;",
        contactLinks("CategoryNum", "AND ContactLinks.isPersonalTaxCategory = True ", ", Contacts.FirstName, Contacts.LastName;"),
        contactLinks("CompanyNum", "AND ContactLinks.isPersonalTaxCategory = False ", ", Contacts.DisplayName;"),
        contactLinks("ContactNum", "", ", Contacts.LastName, Contacts.FirstName;"),
        "SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.UserName FROM AccountantEmployeeInfo ORDER BY "
        "AccountantEmployeeInfo.UserName;",
        "SELECT ClientData.ClientDataID, Companies.CompanyName FROM ClientData, Companies WHERE ClientData.CompanyIDNum = "
        "Companies.CompanyID AND ClientData.ShowThisClient = True AND NOT ClientData.ActiveStatus=1 ORDER BY Companies.ClientID, "
        "Companies.CompanyName;",
        "SELECT Companies.CorporateName FROM Companies ORDER BY Companies.CorporateName;",
        "SELECT Appointments.* FROM Appointments WHERE DateFrom >= 46000 AND DateFrom <= 46030;",
        "SELECT Schedule.ClientNum, Schedule.ContactIDNum From Schedule GROUP BY Schedule.ClientNum, Schedule.ContactIDNum ORDER "
        "BY "
        "Schedule.ClientNum, Schedule.ContactIDNum;",
        "SELECT CompanyProjects.CompanyIDNum, CompanyProjects.ContactIDNum From CompanyProjects GROUP BY "
        "CompanyProjects.CompanyIDNum, "
        "CompanyProjects.ContactIDNum ORDER BY CompanyProjects.CompanyIDNum, CompanyProjects.ContactIDNum;",
        "SELECT PersonalTaxStatus.ContactNum, PersonalTaxStatus.TaxYear FROM PersonalTaxStatus WHERE TaxYear = 2025",
        "SELECT PersonalTaxDataImportInfo.* FROM PersonalTaxDataImportInfo WHERE TaxYear = 2025",
        "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;",
        "SELECT CustomFields.RemittanceCustomType1, CustomFields.PersonalTaxTaskCustomType5, CustomFields.ProjectCustomType3, "
        "CustomFields.PersonalTaxTaskCustomInfo5 FROM CustomFields;",
        "SELECT CustomAddressFields.* FROM CustomAddressFields;",
        "SELECT DataVersion.* FROM DataVersion;",
    };
    for (const std::string& text : texts) run(text);
}

// The routines that create a client write the keys alone; the rest are these defaults.
TEST_F(EmptyFirm, ARowWithNothingButItsKeyIsAnActiveClientWithoutLinks) {
    struct Case {
        std::string insert, read, expected;
    };
    for (const Case& c : {
             Case{"INSERT INTO ClientData (CompanyIDNum) VALUES (7)",
                  "SELECT ClientDataID, ActiveStatus, ShowThisClient FROM ClientData", "1|1|1"},
             Case{"INSERT INTO PersonalTaxStatus (ContactNum, TaxYear) VALUES (7, 2025)",
                  "SELECT ActiveStatus, OverdueFlag, InHouseDueDate FROM PersonalTaxStatus", "1|0|null"},
             Case{"INSERT INTO ContactLinks (ContactIDNum, CompanyNum) VALUES (7, 8)",
                  "SELECT CategoryNum, ContactNum, IsPersonalTaxCategory, DefaultContact FROM ContactLinks", "null|null|0|0"},
             Case{"INSERT INTO UserGeneralSettings (UserIDNum) VALUES (7)",
                  "SELECT OptionsCompanyNameDisplayType, OptionsContactNameDisplayType, OptionsFamilyDisplayOption FROM "
                  "UserGeneralSettings",
                  "1|1|1"},
             Case{"INSERT INTO OutlookSync (CompanyNum) VALUES (7)",
                  "SELECT ContactNum, IsRecurringItem, RepeatNum FROM OutlookSync", "null|0|null"},
         }) {
        SCOPED_TRACE(c.insert);
        run(c.insert);
        EXPECT_EQ(run(c.read), std::vector{c.expected});
    }
}

TEST_F(EmptyFirm, ListsEachColumnItCreates) {
    std::vector<std::string> created =
        run("SELECT t.name, c.name FROM sqlite_master t, pragma_table_info(t.name) c WHERE t.type = 'table' AND t.name NOT LIKE "
            "'sqlite%'");
    std::vector<std::string> listed;
    for (const ReferenceColumn& column : referenceColumns())
        listed.push_back(std::string{column.table}.append("|").append(column.name));
    std::sort(listed.begin(), listed.end());
    std::sort(created.begin(), created.end());
    EXPECT_EQ(listed, created);
}

}  // namespace
}  // namespace wmoutlook

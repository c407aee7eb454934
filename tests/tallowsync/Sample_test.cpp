#include "adapters/headless/FirmLocale.h"
#include "adapters/headless/Machine.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/outlookstore/StoreListing.h"
#include "adapters/sql/SqliteDatabase.h"
#include "apps/tallowsync/sample/NewFirm.h"
#include "apps/tallowsync/sample/SampleFirm.h"
#include "hostdata/HostServices.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/DateHelper.h"
#include "platform/Errors.h"
#include "tests/support/RawDatabase.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {
namespace {

namespace fs = std::filesystem;

using wmoutlook::testing::RawDatabase;

std::vector<std::string> everythingIn(const fs::path& file) {
    const RawDatabase database{file};
    std::vector<std::string> all;
    for (const std::string& table : database.rows("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"))
        for (const std::string& row : database.rows("SELECT * FROM \"" + table + "\"")) all.push_back(table + ": " + row);
    return all;
}

fs::path freshDirectory(const std::string& name) {
    static const wmoutlook::testing::TemporaryFolder all;
    fs::path directory = all.file(name);
    fs::remove_all(directory);
    return directory;
}

fs::path makeSample(const std::string& name, const SampleOptions& options) {
    const fs::path directory = freshDirectory(name);
    createSample(directory.string(), options);
    return directory;
}

SampleOptions someOptions() {
    SampleOptions options;
    options.companies = 150;
    options.seed = 7;
    options.now = makeDay(2026, 11, 22);
    return options;
}

/// A Canadian firm of some size, and one in the United States.
class SampleFirms : public ::testing::TestWithParam<std::int32_t> {
protected:
    static const fs::path& directory() {
        static const fs::path canada = makeSample("canada", someOptions());
        static const fs::path unitedStates = [] {
            SampleOptions options = someOptions();
            options.country = country::kUnitedStates;
            options.province = "ca";
            return makeSample("united_states", options);
        }();
        return GetParam() == country::kCanada ? canada : unitedStates;
    }

    RawDatabase firm{directory() / "firm.db"};
};

INSTANTIATE_TEST_SUITE_P(Countries, SampleFirms, ::testing::Values(country::kCanada, country::kUnitedStates));

TEST_P(SampleFirms, NoNumberPointsAtNothing) {
    struct Reference {
        std::string table, field, target, key;
    };
    const std::string companies = "Companies";
    const std::string contacts = "Contacts";
    const std::string categories = "Categories";
    for (const Reference& reference : {
             Reference{companies, "CategoryNum", categories, "CategoryID"},
             Reference{companies, "CompanyNum", companies, "CompanyID"},
             Reference{categories, "CategoryNum", categories, "CategoryID"},
             Reference{"CompaniesNotes", "CompanyNum", companies, "CompanyID"},
             Reference{"ContactsNotes", "ContactNum", contacts, "ContactID"},
             Reference{"ContactLinks", "ContactIDNum", contacts, "ContactID"},
             Reference{"ContactLinks", "ContactNum", contacts, "ContactID"},
             Reference{"ContactLinks", "CompanyNum", companies, "CompanyID"},
             Reference{"ContactLinks", "CategoryNum", categories, "CategoryID"},
             Reference{"Clients", "CompanyIDNum", companies, "CompanyID"},
             Reference{"Clients", "ContactIDNum", contacts, "ContactID"},
             Reference{"ClientData", "CompanyIDNum", companies, "CompanyID"},
             Reference{"PersonalTaxTasks", "ContactNum", contacts, "ContactID"},
             Reference{"PersonalTaxTasks", "StepNum", "PersonalTaxSteps", "SortIndex"},
             Reference{"AccountantEmployeeInfo", "ContactID", contacts, "ContactID"},
             Reference{"UserCalendarSettings", "UserIDNum", "AccountantEmployeeInfo", "ContactID"},
             Reference{"Appointments", "UserIDNum", "AccountantEmployeeInfo", "ContactID"},
             Reference{"Appointments", "CompanyIDNum", companies, "CompanyID"},
             Reference{"Appointments", "ContactIDNum", contacts, "ContactID"},
             Reference{"Tasks", "ScheduleIDNum", "Schedule", "ScheduleID"},
             Reference{"Tasks", "ContactIDNum", contacts, "ContactID"},
             Reference{"Schedule", "ClientNum", companies, "CompanyID"},
             Reference{"Dockets", "CompanyIDNum", companies, "CompanyID"},
             Reference{"Reminders", "AppointmentIDNum", "Appointments", "AppointmentID"},
         }) {
        SCOPED_TRACE(reference.table + "." + reference.field);
        EXPECT_GT(firm.number("SELECT COUNT(" + reference.field + ") FROM " + reference.table), 0);
        EXPECT_EQ(firm.number("SELECT COUNT(*) FROM " + reference.table + " WHERE " + reference.field + " <> -1 AND " +
                              reference.field + " NOT IN (SELECT " + reference.key + " FROM " + reference.target + ")"),
                  0);
    }
}

// What the host's own forms rely on.
TEST_P(SampleFirms, EachClientHasAllItsRows) {
    for (const std::string broken : {
             "SELECT CompanyID FROM Companies WHERE (SELECT COUNT(*) FROM CompaniesNotes WHERE CompanyNum = CompanyID) <> 1",
             "SELECT CompanyID FROM Companies WHERE (SELECT COUNT(*) FROM Clients WHERE CompanyIDNum = CompanyID AND "
             "ContactIDNum = -1) <> 1",
             "SELECT ContactID FROM Contacts WHERE (SELECT COUNT(*) FROM ContactsNotes WHERE ContactNum = ContactID) <> 1",
             "SELECT ContactID FROM Contacts WHERE (SELECT COUNT(*) FROM Clients WHERE ContactIDNum = ContactID AND CompanyIDNum "
             "= -1) <> 1",
             "SELECT ContactID FROM Contacts WHERE ContactID NOT IN (SELECT ContactIDNum FROM ContactLinks)",
             "SELECT ContactID FROM Contacts WHERE TRIM(COALESCE(DisplayName, '')) = ''",
             "SELECT CompanyNum FROM ContactLinks WHERE DefaultContact GROUP BY CompanyNum HAVING COUNT(*) > 1",
             "SELECT CompanyID FROM Companies, ContactLinks, Contacts WHERE CompanyID = ContactLinks.CompanyNum AND "
             "DefaultContact AND "
             "ContactIDNum = ContactID AND (DefaultContactName IS NOT DisplayName OR DefaultContactEmail IS NOT BusinessEmail OR "
             "DefaultContactPhoneNumber IS NOT BusinessPhone_Main OR DefaultContactFaxNumber IS NOT BusinessPhone_Fax)",
             "SELECT ContactNum FROM PersonalTaxStatus s WHERE (SELECT COUNT(*) FROM PersonalTaxTasks t WHERE t.ContactNum = "
             "s.ContactNum AND "
             "t.TaxYear = s.TaxYear) <> 12",
             "SELECT ContactNum FROM PersonalTaxStatus WHERE (ContactNum, TaxYear) NOT IN (SELECT ContactNum, TaxYear FROM "
             "PersonalTaxInfo)",
             // A family link without its mirror.
             "SELECT a.ContactIDNum FROM ContactLinks a WHERE a.ContactNum IS NOT NULL AND NOT EXISTS (SELECT 1 FROM "
             "ContactLinks b WHERE "
             "b.ContactIDNum = a.ContactNum AND b.ContactNum = a.ContactIDNum)",
             "SELECT AppointmentID FROM Appointments WHERE CompanyIDNum >= 0 AND ContactIDNum >= 0",
             "SELECT RepeatNum FROM Appointments WHERE RepeatNum > 0 GROUP BY RepeatNum HAVING COUNT(DISTINCT UserIDNum) > 1 OR "
             "COUNT(*) < 2",
         })
        EXPECT_EQ(firm.rows(broken), std::vector<std::string>{}) << broken;
    for (const std::string side : {"AccountingServices.AccountingServiceID", "ClientOptions.ClientOptionID",
                                   "ClientNotes.ClientNoteID", "CorpTaxInfo.CorpTaxInfoID", "LawInfo.LawInfoID",
                                   "OtherInfo.OtherInfoID", "WSIB_EHTInfo.WSIB_EHTInfoID", "ClientUSInfo.ClientUSInfoID"}) {
        const std::string table = side.substr(0, side.find('.'));
        EXPECT_EQ(firm.number("SELECT COUNT(*) FROM ClientData LEFT JOIN " + table + " ON ClientDataID = " + side + " WHERE " +
                              side + " IS NULL"),
                  0)
            << side;
    }
}

// The bulk of the rows goes past the conversions that would refuse such values.
TEST_P(SampleFirms, EachValueFitsItsColumn) {
    int dates = 0;
    for (const std::string& name : firm.rows("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'")) {
        for (const std::string& row : firm.rows("SELECT name, type FROM pragma_table_info('" + name + "')")) {
            const std::string column = row.substr(0, row.find('|'));
            const std::string type = row.substr(column.size() + 1);
            std::string misfit;
            if (type == "Date")
                misfit = "typeof(" + column + ") NOT IN ('integer', 'real') OR " + column + " NOT BETWEEN -20000 AND 60000";
            else if (type == "Boolean")
                misfit = column + " NOT IN (0, 1)";
            else if (type == "Long" || type == "Integer")
                misfit =
                    "typeof(" + column + ") <> 'integer' OR ABS(" + column + ") > " + (type == "Long" ? "2147483647" : "32767");
            else if (type.starts_with("Text("))
                misfit = "LENGTH(" + column + ") > " + type.substr(5, type.size() - 6);
            else
                continue;
            dates += type == "Date" ? firm.number("SELECT COUNT(" + column + ") FROM " + name) : 0;
            EXPECT_EQ(firm.number("SELECT COUNT(*) FROM " + name + " WHERE " + column + " IS NOT NULL AND (" + misfit + ")"), 0)
                << name << "." << column;
        }
    }
    EXPECT_GT(dates, 500);
    for (const std::string table : {"Appointments", "Tasks", "Dockets"})
        EXPECT_EQ(firm.number("SELECT COUNT(*) FROM " + table + " WHERE DateFrom <> ROUND(DateFrom) OR TimeFrom > TimeTo OR " +
                              "TimeFrom NOT BETWEEN 0 AND 1 OR TimeTo NOT BETWEEN 0 AND 1"),
                  0)
            << table;
}

TEST_P(SampleFirms, HoldsOneOfEachThingThatIsWorthTrying) {
    const bool isCanada = GetParam() == country::kCanada;
    struct Case {
        std::string condition;
        int atLeast;
    };
    for (const Case& c : {
             Case{"Companies", 150},
             Case{"Companies WHERE CompanyName LIKE '%''%'", 1},
             Case{"Companies WHERE CompanyNum IS NOT NULL", 1},
             Case{"Companies WHERE Address IS NULL", 1},
             Case{"ClientData WHERE ActiveStatus = 2", 1},
             Case{"Contacts WHERE Birthday < -5111", 1},  // before 1886
             Case{"Contacts WHERE SpouseFirstName <> '' AND ContactPersonalTaxDisplayType = 2", 3},
             Case{"Contacts WHERE LastName IS NULL", 1},
             Case{"Contacts WHERE DisplayName GLOB '*[éèçœÉ]*'", 5},
             Case{"ContactLinks WHERE FamilyRelationship IN ('Son', 'Daughter')", 2},
             Case{"ContactLinks WHERE FamilyRelationship IN ('Husband', 'Wife')", 2},
             Case{"ContactLinks WHERE IsPersonalTaxCategory", 50},
             Case{"Categories WHERE CategorySpecialCode IN ('TaxYear:2024', 'TaxYear:2025')", 2},
             Case{"AccountantEmployeeInfo", 4},
             Case{"UserCalendarSettings WHERE ApptTemplate LIKE '«%'", 1},
             Case{"Appointments WHERE TimeFrom = 0 AND TimeTo = 0", 1},
             Case{"Appointments WHERE RepeatNum IS NOT NULL", 12},
             Case{"Appointments WHERE Remind AND ReminderPeriod = '2 Days'", 1},
             Case{"Appointments WHERE CompanyIDNum IS NULL", 1},
             Case{"Appointments WHERE NotesFlag AND TextBody LIKE '{\\rtf1%'", 5},
             Case{"Tasks WHERE ScheduleIDNum IS NOT NULL AND Closed", 1},
             Case{isCanada ? "Companies WHERE Province IN ('Ontario', 'ON')" : "Companies WHERE Province IN ('California', 'CA')",
                  60},
             Case{isCanada ? "Companies WHERE PostalCode GLOB '[A-Z][0-9][A-Z] [0-9][A-Z][0-9]'"
                           : "Companies WHERE PostalCode GLOB '[0-9][0-9][0-9][0-9][0-9]'",
                  120},
         })
        EXPECT_GE(firm.number("SELECT COUNT(*) FROM " + c.condition), c.atLeast) << c.condition;
    EXPECT_EQ(firm.number("SELECT COUNT(*) FROM Companies WHERE OfficeNumber NOT GLOB '([0-9][0-9][0-9]) 555-01[0-9][0-9]'"), 0);
    // No name with a double quote, by which Outlook cannot search: a run of the sample reports no failure.
    EXPECT_EQ(firm.number("SELECT COUNT(*) FROM Companies WHERE CompanyName LIKE '%\"%'"), 0);
}

int countRows(HostDatabase& database, const std::string& condition) {
    const RecordsetHandle rows = database.openRecordset(condition, LockCode::readOnly);
    const std::int32_t count = database.recordCount(rows);
    database.closeRecordset(rows);
    return count;
}

// The component adopts an item that is filed under a client's name or lies at an appointment's time.
TEST_P(SampleFirms, SomeItemsOfOutlookMatchTheFirmAndMostDoNot) {
    const auto host = openSqliteDatabase((directory() / "firm.db").string());
    const auto store = openOutlookStore((directory() / "outlook.db").string());
    std::map<outlook::ItemType, int> items;
    std::map<outlook::ItemType, int> matches;
    outlookstore::forEachItem(*store, std::nullopt, [&](const outlookstore::ListedItem& item) {
        std::map<std::string_view, Variant> set;
        for (const auto& property : item.properties) set[property.name] = property.value;
        ++items[item.type];
        if (item.type == outlook::ItemType::contact) {
            const std::string name = host->quoteTextForSql(set["FileAs"].toText());
            matches[item.type] +=
                countRows(*host, "SELECT Companies.CompanyID FROM Companies WHERE CompanyName = " + name + ";") > 0 ||
                countRows(*host, "SELECT Contacts.ContactID FROM Contacts WHERE DisplayName = " + name + ";") > 0;
        } else if (item.type == outlook::ItemType::appointment) {
            const Date start = set["Start"].toDate();
            const Date end = set["End"].toDate();
            matches[item.type] += countRows(*host, "SELECT Appointments.AppointmentID FROM Appointments WHERE DateFrom = #" +
                                                       host->formatDateForSql(dayOf(start)) +
                                                       "# AND Subject = " + host->quoteTextForSql(set["Subject"].toText()) +
                                                       " AND TimeFrom = #" + DateHelper::format(start, "h:nn:ss AMPM") +
                                                       "# AND TimeTo = #" + DateHelper::format(end, "h:nn:ss AMPM") + "#;") > 0;
        }
    });
    for (const outlook::ItemType type : {outlook::ItemType::contact, outlook::ItemType::appointment}) {
        EXPECT_GE(matches[type], 10);
        EXPECT_LT(matches[type], items[type] / 2);
    }
    EXPECT_GT(items[outlook::ItemType::task], 20);
}

TEST(Sample, TheSameSeedGivesTheSameFirmAndTheSameStore) {
    SampleOptions options = someOptions();
    options.companies = 30;
    const fs::path first = makeSample("first", options);
    const fs::path second = makeSample("second", options);
    options.seed = 8;
    const fs::path other = makeSample("other", options);
    for (const char* file : {"firm.db", "outlook.db"}) {
        SCOPED_TRACE(file);
        EXPECT_EQ(everythingIn(first / file), everythingIn(second / file));
        EXPECT_NE(everythingIn(first / file), everythingIn(other / file));
    }
}

TEST(Sample, AFirmWithoutCompaniesIsAFirm) {
    SampleOptions options = someOptions();
    options.companies = 0;
    const RawDatabase firm{makeSample("empty", options) / "firm.db"};
    EXPECT_EQ(firm.number("SELECT COUNT(*) FROM Companies"), 0);
    EXPECT_GT(firm.number("SELECT COUNT(*) FROM Appointments"), 0);
}

TEST(Sample, RefusesWhatItCannotDoAndChangesNothing) {
    const fs::path directory = freshDirectory("refused");
    SampleOptions options = someOptions();
    options.province = "NY";
    EXPECT_THROW(createSample(directory.string(), options), std::invalid_argument);
    options.province = "ON";
    options.companies = -1;
    EXPECT_THROW(createSample(directory.string(), options), std::invalid_argument);
    EXPECT_FALSE(fs::exists(directory));

    options.companies = 3;
    createSample(directory.string(), options);
    const auto before = everythingIn(directory / "firm.db");
    fs::remove(directory / "outlook.db");
    EXPECT_THROW(createSample(directory.string(), options), DatabaseError);
    EXPECT_EQ(everythingIn(directory / "firm.db"), before);
    EXPECT_FALSE(fs::exists(directory / "outlook.db"));
}

struct NewFirmCase {
    std::int32_t country;
    std::string province;
    std::int32_t expectedProvince;
};

TEST(NewFirm, TellsItsCountryItsProvinceAndItsUser) {
    for (const NewFirmCase& c : {NewFirmCase{country::kCanada, "QC", province::kQuebec},
                                 NewFirmCase{country::kCanada, "PE", province::kPrinceEdwardIsland},
                                 NewFirmCase{country::kUnitedStates, "NY", kNoRecord}}) {
        SCOPED_TRACE(c.province);
        const fs::path directory = freshDirectory("new_firm");
        fs::create_directories(directory);
        const std::string file = (directory / "firm.db").string();
        FirmProfile profile;
        profile.country = c.country;
        profile.province = c.province;
        profile.random = std::make_shared<SeededRandom>(3);
        createFirm(file, profile);
        const auto database = openSqliteDatabase(file);
        FirmLocale locale{*database, std::make_shared<FixedClock>(makeDay(2026, 11, 22)), std::nullopt};
        EXPECT_EQ(locale.country(), c.country);
        EXPECT_EQ(locale.province(), c.expectedProvince);
        EXPECT_NE(locale.currentUserID(), kNoRecord);
        const std::vector<std::string> identifiers = RawDatabase{file}.rows("SELECT DataUniqueID FROM DataVersion");
        ASSERT_EQ(identifiers.size(), 1U);
        EXPECT_GT(identifiers[0].size(), 8U);
        EXPECT_LE(identifiers[0].size(), 20U);
        EXPECT_THROW(createFirm(file, profile), DatabaseError);
    }
}

// The files are filled without the component: what both write has to stay the same.
TEST(NewFirm, HasTheCategoriesAndTaxStepsThatTheComponentWouldCreate) {
    const fs::path directory = freshDirectory("categories");
    fs::create_directories(directory);
    const std::string file = (directory / "bare.db").string();
    createSqliteDatabase(file);
    hostServices().database = openSqliteDatabase(file);
    hostServices().locale =
        std::make_shared<FirmLocale>(*hostServices().database, std::make_shared<FixedClock>(Date{}), std::nullopt);
    ASSERT_NE(modDatabaseFunctions::getMainCategoryNum(), kNoRecord);
    for (const std::int32_t year : {2024, 2025}) ASSERT_NE(modDatabaseFunctions::getPersonalTaxYearCategory(year), kNoRecord);
    hostServices() = {};

    const RawDatabase component{file};
    const RawDatabase sample{makeSample("categories_of_sample", someOptions()) / "firm.db"};
    for (const std::string text :
         {"SELECT CategorySpecialCode, CategoryName, CategoryDescription, CategoryNum FROM Categories WHERE "
          "CategorySpecialCode <> '' ORDER BY CategorySpecialCode",
          "SELECT * FROM PersonalTaxSteps ORDER BY TaxYear, SortIndex"})
        EXPECT_EQ(sample.rows(text), component.rows(text));
}

}  // namespace
}  // namespace wmoutlook

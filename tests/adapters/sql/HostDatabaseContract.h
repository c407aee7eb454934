#pragma once

#include "platform/Errors.h"
#include "platform/HostDatabase.h"
#include "tests/adapters/sql/SqlTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wmoutlook {

/// What the contract is run against: an engine and how it gives an empty firm in a folder of its own.
struct HostDatabaseEngine {
    std::string name;
    std::function<std::shared_ptr<HostDatabase>(const std::filesystem::path& folder)> openEmpty;
};

class HostDatabaseContract : public ::testing::TestWithParam<HostDatabaseEngine> {
protected:
    HostDatabaseContract() : database_(GetParam().openEmpty(folder_.path())) {}

    HostDatabase& database() { return *database_; }
    RecordsetHandle open(std::string_view sql) { return database().openRecordset(sql, LockCode::updatable); }
    std::string text(RecordsetHandle rows, std::string_view field) { return database().getField(rows, field).toText(); }
    std::string single(std::string_view sql, std::string_view field) {
        const auto rows = open(sql);
        const std::string value = database().hasRows(rows) ? text(rows, field) : "no row";
        database().closeRecordset(rows);
        return value;
    }
    void addContacts(std::initializer_list<std::string_view> names) {
        for (const std::string_view name : names) addRow(database(), "Contacts", {{"DisplayName", name}});
    }
    template <class Operation>
    std::string messageOf(Operation&& operation) {
        try {
            operation();
        } catch (const DatabaseError& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

    TestFolder folder_;
    std::shared_ptr<HostDatabase> database_;
};

using Names = std::vector<std::string>;

TEST_P(HostDatabaseContract, WalksTheRowsThatWereThereInAStableOrder) {
    addContacts({"Ann", "Bob", "Cid"});
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    EXPECT_TRUE(database().moveFirst(rows));
    addContacts({"Later"});
    EXPECT_EQ(walk(database(), rows, "DisplayName"), (Names{"Ann", "Bob", "Cid"}));
    database().moveNext(rows);
    EXPECT_TRUE(database().isEndOfRecordset(rows));
    EXPECT_TRUE(database().moveFirst(rows));
    EXPECT_EQ(text(rows, "DisplayName"), "Ann");
    EXPECT_EQ(database().recordCount(rows), 3);
}

TEST_P(HostDatabaseContract, RowsThatOthersAddStayOutOfASetThatNobodyHasReadYet) {
    addContacts({"Ann"});
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    addContacts({"Later"});
    EXPECT_FALSE(database().findFirst(rows, "DisplayName", "Later"));
    EXPECT_EQ(walk(database(), rows, "DisplayName"), (Names{"Ann"}));
}

TEST_P(HostDatabaseContract, AnEmptySetIsAtItsEnd) {
    const auto rows = open("SELECT Contacts.* FROM Contacts WHERE ContactID = 5;");
    EXPECT_FALSE(database().hasRows(rows));
    EXPECT_FALSE(database().moveFirst(rows));
    EXPECT_TRUE(database().isEndOfRecordset(rows));
    EXPECT_EQ(database().recordCount(rows), 0);
    EXPECT_NE(messageOf([&] { (void)database().getField(rows, "DisplayName"); }).find("no current row"), std::string::npos);
}

TEST_P(HostDatabaseContract, ADeletedRowIsPassedOverAndTheWalkGoesOnBehindIt) {
    addContacts({"Ann", "Bob", "Cid", "Dan"});
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    const auto others = open("SELECT Contacts.* FROM Contacts;");
    ASSERT_TRUE(database().findFirst(rows, "DisplayName", "Bob"));
    ASSERT_TRUE(database().findFirst(others, "DisplayName", "Cid"));
    database().deleteRecord(rows);
    EXPECT_NE(messageOf([&] { (void)database().getField(rows, "DisplayName"); }).find("deleted"), std::string::npos);
    database().deleteRecord(others);
    database().moveNext(rows);
    EXPECT_EQ(text(rows, "DisplayName"), "Dan");
    EXPECT_TRUE(database().moveFirst(rows));
    EXPECT_EQ(walk(database(), rows, "DisplayName"), (Names{"Ann", "Dan"}));
    EXPECT_EQ(database().recordCount(rows), 2);
}

TEST_P(HostDatabaseContract, EachRowCanBeDeletedInAWalk) {
    addContacts({"Cid", "Ann", "Bob"});
    for (const std::string_view order : {"", " ORDER BY DisplayName"}) {
        SCOPED_TRACE(order);
        const auto rows = open("SELECT Contacts.* FROM Contacts" + std::string{order} + ";");
        if (order.empty()) {
            database().moveFirst(rows);
            database().deleteRecord(rows);
            database().moveNext(rows);
            EXPECT_EQ(walk(database(), rows, "DisplayName"), (Names{"Ann", "Bob"}));
            continue;
        }
        for (; !database().isEndOfRecordset(rows); database().moveNext(rows)) database().deleteRecord(rows);
        EXPECT_FALSE(database().hasRows(rows));
    }
}

TEST_P(HostDatabaseContract, AFoundRowOfASortedSetKeepsItsPlaceWhenItGoes) {
    addContacts({"Ann", "Bob", "Cid"});
    for (const bool isDeletedByAnother : {false, true}) {
        SCOPED_TRACE(isDeletedByAnother);
        addContacts({"Bea"});
        const auto rows = open("SELECT Contacts.* FROM Contacts ORDER BY DisplayName;");
        const auto others = open("SELECT Contacts.* FROM Contacts;");
        for (const auto set : {rows, others}) ASSERT_TRUE(database().findFirst(set, "DisplayName", "Bea"));
        database().deleteRecord(isDeletedByAnother ? others : rows);
        database().moveNext(rows);
        EXPECT_EQ(text(rows, "DisplayName"), "Bob");
    }
}

TEST_P(HostDatabaseContract, APositionSurvivesNestedCallsEvenTheDeletionOfItsRow) {
    addContacts({"Ann", "Bob", "Cid"});
    for (const bool isDeletedMeanwhile : {false, true}) {
        SCOPED_TRACE(isDeletedMeanwhile);
        const auto rows = open("SELECT Contacts.* FROM Contacts;");
        ASSERT_TRUE(database().findFirst(rows, "DisplayName", "Bob"));
        const RecordMarker marker = database().saveRecordPosition(rows);
        database().moveFirst(rows);
        const auto nested = open("SELECT Contacts.* FROM Contacts WHERE DisplayName = 'Bob';");
        if (isDeletedMeanwhile) database().deleteRecord(nested);
        database().closeRecordset(nested);
        database().restoreRecordPosition(rows, marker);
        if (!isDeletedMeanwhile) {
            EXPECT_EQ(text(rows, "DisplayName"), "Bob");
        }
        database().moveNext(rows);
        EXPECT_EQ(text(rows, "DisplayName"), "Cid");
        database().closeRecordset(rows);
    }
}

TEST_P(HostDatabaseContract, AnEditIsStoredAtOnceAndSeenByAllSets) {
    addContacts({"Ann"});
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    const auto others = open("SELECT Contacts.* FROM Contacts;");
    EXPECT_EQ(text(others, "LastName"), "");
    database().updateField(rows, "LastName", "Roy");
    EXPECT_EQ(text(rows, "LastName"), "Roy");
    EXPECT_EQ(text(others, "LastName"), "Roy");
    database().updateField(others, "LastName", "ROY");  // a change of case is a change
    EXPECT_EQ(single("SELECT LastName FROM Contacts", "LastName"), "ROY");
}

TEST_P(HostDatabaseContract, AnEditedRowStaysInTheSetItWasFoundIn) {
    addContacts({"Ann", "Bob"});
    const auto rows = open("SELECT Contacts.* FROM Contacts WHERE DisplayName = 'Ann' OR DisplayName = 'Bob';");
    ASSERT_TRUE(database().moveFirst(rows));
    database().updateField(rows, "DisplayName", "Zoe");
    EXPECT_EQ(text(rows, "DisplayName"), "Zoe");
    database().moveNext(rows);
    EXPECT_EQ(text(rows, "DisplayName"), "Bob");
}

TEST_P(HostDatabaseContract, AnEditOfAVanishedRowIsAnErrorAlsoWhenNothingWouldChange) {
    addContacts({"Ann"});
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    const auto others = open("SELECT Contacts.* FROM Contacts;");
    ASSERT_TRUE(database().hasRows(rows));
    database().deleteRecord(others);
    for (const std::string_view name : {"Eve", "Ann"})
        EXPECT_NE(messageOf([&] { database().updateField(rows, "DisplayName", name); }).find("deleted"), std::string::npos);
    EXPECT_THROW(database().deleteRecord(rows), DatabaseError);
}

TEST_P(HostDatabaseContract, ANewRowHasItsNumberBeforeItIsSavedAndIsSeenByNobodyUntilThen) {
    addContacts({"Ann"});
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    database().addNewRecord(rows);
    database().setNewField(rows, "DisplayName", "New");
    const std::string number = text(rows, "ContactID");
    EXPECT_EQ(text(rows, "DisplayName"), "New");
    EXPECT_EQ(single("SELECT ContactID FROM Contacts WHERE DisplayName = 'New'", "ContactID"), "no row");
    database().saveNewRecord(rows);
    EXPECT_EQ(text(rows, "ContactID"), number);
    EXPECT_EQ(database().recordCount(rows), 2);
    EXPECT_EQ(single("SELECT ContactID FROM Contacts WHERE DisplayName = 'New'", "ContactID"), number);
}

TEST_P(HostDatabaseContract, ANumberIsNeverGivenTwice) {
    const auto first = open("SELECT Contacts.* FROM Contacts;");
    const auto second = open("SELECT Contacts.* FROM Contacts;");
    database().addNewRecord(first);
    database().addNewRecord(second);
    Names numbers{text(first, "ContactID"), text(second, "ContactID")};
    database().saveNewRecord(second);
    database().addNewRecord(first);  // the one begun before is given up, its number too
    numbers.push_back(text(first, "ContactID"));
    database().saveNewRecord(first);
    database().deleteRecord(first);
    database().addNewRecord(first);
    numbers.push_back(text(first, "ContactID"));
    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

TEST_P(HostDatabaseContract, AnOwnNewRowIsInTheSetAtItsEnd) {
    addContacts({"Ann", "Zoe"});
    for (const std::string_view sql :
         {"SELECT Contacts.* FROM Contacts", "SELECT Contacts.* FROM Contacts WHERE LastName IS NULL",
          "SELECT Contacts.* FROM Contacts ORDER BY DisplayName"}) {
        for (const bool isWalkedBefore : {false, true}) {
            SCOPED_TRACE(std::string{sql} + (isWalkedBefore ? " walked" : ""));
            const auto rows = open(sql);
            if (isWalkedBefore) (void)walk(database(), rows, "DisplayName");
            database().addNewRecord(rows);
            database().setNewField(rows, "DisplayName", "Bob");
            database().saveNewRecord(rows);
            EXPECT_EQ(text(rows, "DisplayName"), "Bob");
            database().moveFirst(rows);
            EXPECT_EQ(walk(database(), rows, "DisplayName"), (Names{"Ann", "Zoe", "Bob"}));
            EXPECT_TRUE(database().findFirst(rows, "DisplayName", "bob"));
            database().deleteRecord(rows);
            database().closeRecordset(rows);
        }
    }
}

TEST_P(HostDatabaseContract, FindsTheFirstAndEachFurtherMatch) {
    addContacts({"Ann", "Bob", "ann", "Éloi", "ANN"});
    for (const std::string_view order : {"", " ORDER BY ContactID DESC", " WHERE ContactID > 0"}) {
        SCOPED_TRACE(order);
        const auto rows = open("SELECT Contacts.* FROM Contacts" + std::string{order});
        const bool isBackward = order.find("DESC") != std::string_view::npos;
        for (int search = 0; search < 3; ++search) {  // from the second one on the set answers from what it knows
            Names found;
            for (bool hit = database().findFirst(rows, "DisplayName", "aNN"); hit; hit = database().findNext(rows))
                found.push_back(text(rows, "ContactID"));
            EXPECT_EQ(found, isBackward ? (Names{"5", "3", "1"}) : (Names{"1", "3", "5"}));
            EXPECT_TRUE(database().noMatch(rows));
            EXPECT_EQ(text(rows, "ContactID"), isBackward ? "1" : "5");  // the current row stays
        }
        EXPECT_TRUE(database().findFirst(rows, "DisplayName", "éLOI"));
        EXPECT_FALSE(database().noMatch(rows));
        EXPECT_FALSE(database().findFirst(rows, "DisplayName", "Eloi"));
        EXPECT_EQ(text(rows, "ContactID"), "4");
    }
}

TEST_P(HostDatabaseContract, ASearchAfterAnEditFindsWhatIsThereNow) {
    addContacts({"Ann", "Bob", "Cid"});
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    const auto others = open("SELECT Contacts.* FROM Contacts;");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(database().findFirst(rows, "DisplayName", "Cid"));
    ASSERT_TRUE(database().findFirst(others, "DisplayName", "Ann"));
    database().updateField(others, "DisplayName", "Eve");
    EXPECT_FALSE(database().findFirst(rows, "DisplayName", "Ann"));
    EXPECT_TRUE(database().findFirst(rows, "DisplayName", "Eve"));
    database().updateField(rows, "DisplayName", "Fay");
    EXPECT_TRUE(database().findFirst(rows, "DisplayName", "Fay"));
    database().deleteRecord(rows);
    EXPECT_FALSE(database().findFirst(rows, "DisplayName", "Fay"));
    database().moveFirst(rows);
    EXPECT_EQ(text(rows, "DisplayName"), "Bob");
}

TEST_P(HostDatabaseContract, SearchesByValueInTheTypeOfTheField) {
    addRow(database(), "Contacts", {{"DisplayName", "5"}, {"Birthday", "1885-03-01"}, {"InheritCompanyInfo", "True"}});
    struct Case {
        std::string_view field, value;
        bool isFound;
    };
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    for (const Case& c : {Case{"ContactID", "1", true},
                          {"ContactID", "1.0", true},
                          {"ContactID", "1.4", false},
                          {"ContactID", "one", false},
                          {"ContactID", "", false},
                          {"DisplayName", "5", true},
                          {"DisplayName", "5.0", false},
                          {"Birthday", "March 1, 1885", true},
                          {"Birthday", "3/1/1885", true},
                          {"Birthday", "1885-03-02", false},
                          {"InheritCompanyInfo", "True", true},
                          {"InheritCompanyInfo", "False", false},
                          {"LastName", "", false},
                          {"contacts.contactid", "1", true}}) {
        SCOPED_TRACE(std::string{c.field} + " = " + std::string{c.value});
        EXPECT_EQ(database().findFirst(rows, c.field, c.value), c.isFound);
        EXPECT_EQ(database().noMatch(rows), !c.isFound);
    }
    EXPECT_THROW((void)database().findFirst(rows, "NoSuchField", "1"), DatabaseError);
}

TEST_P(HostDatabaseContract, FindsByCriteria) {
    addRow(database(), "OutlookSchemeItems", {{"SchemeNum", "3"}, {"DataFileID", "a"}, {"ContactNum", "-1"}});
    addRow(database(), "OutlookSchemeItems", {{"SchemeNum", "4"}, {"DataFileID", "it's"}, {"ContactNum", "7"}});
    addRow(database(), "OutlookSchemeItems", {{"SchemeNum", "4"}, {"DataFileID", "a"}, {"ContactNum", "8"}});
    struct Case {
        std::string_view criteria;
        Names contacts;
    };
    const auto rows = open("SELECT OutlookSchemeItems.* From OutlookSchemeItems;");
    for (const Case& c : {Case{"SchemeNum = 4 AND DataFileID = 'a'", {"8"}},
                          {"SchemeNum = 4", {"7", "8"}},
                          {"DataFileID = 'it''s'", {"7"}},
                          {"OutlookSchemeItems.SchemeNum <> 4", {"-1"}},
                          {"ContactNum >= 7 and ContactNum<8", {"7"}},
                          {"ContactNum = -1", {"-1"}},
                          {"ContactNum > -2 AND ContactNum <= 7", {"-1", "7"}},
                          {"SchemeNum = 9", {}}}) {
        SCOPED_TRACE(c.criteria);
        Names found;
        for (bool hit = database().findByCriteria(rows, c.criteria); hit; hit = database().findNext(rows))
            found.push_back(text(rows, "ContactNum"));
        EXPECT_EQ(found, c.contacts);
    }
    for (const std::string_view wrong :
         {"", "SchemeNum", "SchemeNum = ", "SchemeNum = 4 OR 1 = 1", "SchemeNum = DataFileID", "Nothing = 4"}) {
        SCOPED_TRACE(wrong);
        EXPECT_THROW((void)database().findByCriteria(rows, wrong), DatabaseError);
    }
    while (database().findByCriteria(rows, "SchemeNum = 4")) database().deleteRecord(rows);
    database().moveFirst(rows);
    EXPECT_EQ(walk(database(), rows, "SchemeNum"), (Names{"3"}));
}

TEST_P(HostDatabaseContract, ValuesComeBackInTheKindOfTheirColumn) {
    struct Case {
        std::string_view table, field, value;
        Variant expected;
    };
    const auto at = [](std::int32_t hour, std::int32_t minute) { return *makeDate({1899, 12, 30, hour, minute, 0}); };
    for (const Case& c : {
             Case{"Tasks", "UserIDNum", "12", std::int32_t{12}},
             {"Tasks", "UserIDNum", "-2147483648", std::int32_t{-2147483647 - 1}},
             {"Tasks", "UserIDNum", "2.5", std::int32_t{2}},
             {"Tasks", "UserIDNum", "True", std::int32_t{-1}},
             {"Tasks", "UserIDNum", "", Variant{}},
             {"OutlookSchemeItems", "CompanyNum", "32767", std::int32_t{32767}},
             {"Tasks", "EstimatedTime", "0.1", static_cast<double>(0.1F)},
             {"Dockets", "TotalAmountReal", "12.25", 12.25},
             {"Tasks", "Closed", "True", true},
             {"Tasks", "Closed", "-1", true},
             {"Tasks", "Closed", "False", false},
             {"Tasks", "Closed", "", false},
             {"Tasks", "DateFrom", "2026-11-22", makeDay(2026, 11, 22)},
             {"Tasks", "DateFrom", "11/22/2026", makeDay(2026, 11, 22)},
             {"Tasks", "DateFrom", "November 22, 2026", makeDay(2026, 11, 22)},
             {"Tasks", "DateFrom", "1885-03-01", makeDay(1885, 3, 1)},
             {"Tasks", "DateFrom", "11/22/2026 9:05:00 AM", *makeDate({2026, 11, 22, 9, 5, 0})},
             {"Tasks", "DateFrom", "2026-11-22 21:05:09", *makeDate({2026, 11, 22, 21, 5, 9})},
             {"Tasks", "DateFrom", "", Variant{}},
             {"Tasks", "TimeFrom", "09:05 AM", at(9, 5)},
             {"Tasks", "TimeFrom", "12:00 am", at(0, 0)},
             {"Tasks", "TimeFrom", "12:30 PM", at(12, 30)},
             {"Tasks", "TimeFrom", "17:00:00", at(17, 0)},
             {"Tasks", "Subject", "", ""},
             {"Tasks", "Subject", "l'été — 'x' ; #1#", "l'été — 'x' ; #1#"},
         }) {
        SCOPED_TRACE(std::string{c.field} + " = " + std::string{c.value});
        const std::string table{c.table};
        addRow(database(), table, {});
        const auto rows = open("SELECT " + table + ".* FROM " + table);
        database().updateField(rows, c.field, c.value);
        EXPECT_EQ(database().getField(rows, c.field), c.expected);
        database().addNewRecord(rows);
        database().setNewField(rows, c.field, c.value);
        EXPECT_EQ(database().getField(rows, c.field), c.expected);
        database().saveNewRecord(rows);
        EXPECT_EQ(database().getField(rows, c.field), c.expected);
        for (database().moveFirst(rows); !database().isEndOfRecordset(rows); database().moveNext(rows))
            database().deleteRecord(rows);
        database().closeRecordset(rows);
    }
}

TEST_P(HostDatabaseContract, AValueThatDoesNotConvertIsAnErrorThatNamesItAndTheRowKeepsItsOwn) {
    struct Case {
        std::string_view table, field, kept, refused, named;
    };
    const std::string longName(101, 'x');
    std::string accents;
    for (int i = 0; i < 100; ++i) accents += "é";
    for (const Case& c : {
             Case{"Tasks", "UserIDNum", "7", "seven", "seven"},
             {"Tasks", "UserIDNum", "7", "2147483648", "2147483648"},
             {"OutlookSchemeItems", "CompanyNum", "7", "32768", "32768"},
             {"Tasks", "EstimatedTime", "1.5", "1e39", "1e39"},
             {"Tasks", "Closed", "True", "maybe", "maybe"},
             {"Tasks", "DateFrom", "2026-11-22", "2026-02-30", "2026-02-30"},
             {"Tasks", "TimeFrom", "09:00:00", "25:00", "25:00"},
             {"Contacts", "FirstName", accents, longName, "101"},
         }) {
        SCOPED_TRACE(std::string{c.field} + " = " + std::string{c.refused});
        addRow(database(), std::string{c.table}, {{c.field, c.kept}});
        const auto rows = open("SELECT T.* FROM " + std::string{c.table} + " AS T");
        const std::string before = text(rows, c.field);
        const std::string message = messageOf([&] { database().updateField(rows, c.field, c.refused); });
        for (const std::string_view part : {c.table, c.field, c.named})
            EXPECT_NE(message.find(part), std::string::npos) << message;
        EXPECT_EQ(message.find(longName), std::string::npos);
        EXPECT_EQ(text(rows, c.field), before);
        database().addNewRecord(rows);
        EXPECT_THROW(database().setNewField(rows, c.field, c.refused), DatabaseError);
        while (database().moveFirst(rows)) database().deleteRecord(rows);
    }
}

TEST_P(HostDatabaseContract, ReadsTheLiteralsOfTheDialect) {
    addRow(database(), "Appointments",
           {{"UserIDNum", "1"},
            {"DateFrom", "2026-11-22"},
            {"TimeFrom", "09:00 AM"},
            {"Subject", "it's \"so\""},
            {"Remind", "True"},
            {"RepeatNum", "-1"}});
    for (const std::string_view condition :
         {"DateFrom = #2026-11-22#", "DateFrom=#11/22/2026#",
          "Appointments.DateFrom >= #11/22/2026# AND DateFrom <= #2026-11-22#", "TimeFrom = #9:00:00 AM#",
          "TimeFrom = #09:00:00#", "Remind = True", "Remind<>False", "Not Remind = False", "UserIDNum = 1.0", "RepeatNum = -1",
          "RepeatNum = True", "Subject = 'it''s \"so\"'", "[Appointments].[Subject] = \"it's \"\"so\"\"\"",
          "subject = 'IT''S \"SO\"'", "Subject Is Not Null", "Not CompanyIDNum Is Not Null", "Subject LIKE '%so%'",
          "UserIDNum IN (1, 2)", "(UserIDNum = 1 OR UserIDNum = 2)"}) {
        SCOPED_TRACE(condition);
        EXPECT_EQ(single("SELECT Appointments.* From Appointments WHERE " + std::string{condition} + ";", "UserIDNum"), "1");
    }
    const std::string day = database().formatDateForSql(makeDay(2026, 11, 22));
    const std::string subject = database().quoteTextForSql("it's \"so\"");
    EXPECT_EQ(single("select T.* from Appointments T where T.DateFrom = #" + day + "# and T.Subject = " + subject, "UserIDNum"),
              "1");
    EXPECT_EQ(single("SELECT UserIDNum FROM Appointments WHERE UserIDNum = True", "UserIDNum"), "no row");
}

TEST_P(HostDatabaseContract, RefusesWhatIsNotOneSelect) {
    addContacts({"Ann"});
    for (const std::string_view sql :
         {"", "DELETE FROM Contacts", "UPDATE Contacts SET DisplayName = 'x'", "SELECT * FROM Contacts; DELETE FROM Contacts",
          "PRAGMA user_version", "SELECT * FROM Contacts;;", "ATTACH 'x' AS y", "SELECT * FROM Contacts -- all",
          "SELECT * FROM Contacts /* all */", "SELECT * FROM Contacts WHERE DisplayName = 'x",
          "SELECT * FROM Contacts WHERE Birthday = #2026-13-01#", "SELECT * FROM NoSuchTable", "SELECT NoSuchField FROM Contacts",
          "SELECT * FROM Contacts WHERE (1 = 1", "SELECT * FROM Contacts WHERE ContactID = ?",
          "SELECT * FROM Contacts WHERE 1 = 1) OR (1 = 1", "WITH x AS (SELECT 1) SELECT * FROM x", "SELECT"}) {
        SCOPED_TRACE(sql);
        EXPECT_THROW((void)open(sql), DatabaseError);
    }
    EXPECT_EQ(single("SELECT Contacts.* FROM Contacts;", "DisplayName"), "Ann");
}

TEST_P(HostDatabaseContract, ErrorsHideTheLiteralsOfTheirText) {
    const std::string message =
        messageOf([&] { (void)open("SELECT NoSuchField FROM Contacts WHERE SocialInsuranceNumber = '046 454 286'"); });
    EXPECT_NE(message.find("NoSuchField"), std::string::npos) << message;
    EXPECT_EQ(message.find("046"), std::string::npos) << message;
}

TEST_P(HostDatabaseContract, JoinsAreReadAndEditedTableByTable) {
    addRow(database(), "Schedule", {{"ClientNum", "3"}, {"Custom1", "of the schedule"}});
    addRow(database(), "Tasks", {{"ScheduleIDNum", "1"}, {"Subject", "T4"}, {"Custom1", "of the task"}, {"ContactIDNum", "9"}});
    addRow(database(), "Tasks", {{"ScheduleIDNum", "1"}, {"Subject", "T5"}});
    const auto rows = open(
        "SELECT Schedule.*, Tasks.*, Schedule.Custom1 AS ScheduleCustom1, Tasks.Custom1 AS TaskCustom1 FROM Schedule INNER JOIN "
        "Tasks ON "
        "Schedule.ScheduleID = Tasks.ScheduleIDNum;");
    EXPECT_EQ(text(rows, "ScheduleCustom1"), "of the schedule");
    EXPECT_EQ(text(rows, "TaskCustom1"), "of the task");
    EXPECT_EQ(text(rows, "Tasks.ContactIDNum"), "9");
    database().updateField(rows, "TaskCustom1", "changed");
    database().updateField(rows, "ScheduleCustom1", "too");
    EXPECT_EQ(text(rows, "Tasks.Custom1"), "changed");
    EXPECT_EQ(database().recordCount(rows), 2);
    EXPECT_TRUE(database().findFirst(rows, "Subject", "t5"));
    EXPECT_EQ(text(rows, "ScheduleCustom1"), "too");
    EXPECT_THROW(database().deleteRecord(rows), DatabaseError);
    EXPECT_THROW(database().addNewRecord(rows), DatabaseError);
}

TEST_P(HostDatabaseContract, NestedJoinsAndAnOuterJoinWithoutAPartner) {
    addRow(database(), "Companies", {{"CompanyName", "Acme"}});
    addRow(database(), "ClientData", {{"CompanyIDNum", "1"}});
    addRow(database(), "ClientOptions", {{"ClientOptionID", "1"}});
    const auto rows = open(
        "SELECT ClientData.*, ClientOptions.*, Companies.*, CompaniesNotes.BusinessNotes FROM ((ClientData INNER JOIN "
        "ClientOptions ON "
        "ClientData.ClientDataID = ClientOptions.ClientOptionID) INNER JOIN Companies ON ClientData.CompanyIDNum = "
        "Companies.CompanyID) "
        "LEFT JOIN CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum WHERE ClientData.ShowThisClient = True AND "
        "ClientData.ActiveStatus=1 ORDER BY Companies.CompanyName;");
    EXPECT_EQ(text(rows, "CompanyName"), "Acme");
    EXPECT_TRUE(database().getField(rows, "BusinessNotes").isNull());
    EXPECT_THROW(database().updateField(rows, "BusinessNotes", "x"), DatabaseError);
    database().updateField(rows, "CompanyName", "Apex");
    EXPECT_EQ(text(rows, "CompanyName"), "Apex");
}

TEST_P(HostDatabaseContract, GroupedRowsAreReadInTheirOrderAndCannotBeEdited) {
    for (const std::string_view client : {"4", "2", "4"})
        addRow(database(), "Schedule", {{"ClientNum", client}, {"ContactIDNum", "-1"}});
    const auto rows = open(
        "SELECT Schedule.ClientNum, Schedule.ContactIDNum From Schedule GROUP BY Schedule.ClientNum, Schedule.ContactIDNum ORDER "
        "BY "
        "Schedule.ClientNum, Schedule.ContactIDNum;");
    EXPECT_EQ(database().recordCount(rows), 2);
    EXPECT_EQ(walk(database(), rows, "ClientNum"), (Names{"2", "4"}));
    EXPECT_TRUE(database().findFirst(rows, "ClientNum", "4"));
    EXPECT_FALSE(database().findNext(rows));
    EXPECT_EQ(database().getField(rows, "ClientNum"), Variant{4});
    EXPECT_THROW(database().updateField(rows, "ClientNum", "5"), DatabaseError);
    EXPECT_EQ(single("SELECT COUNT(*) AS Number FROM Schedule", "Number"), "3");
}

TEST_P(HostDatabaseContract, SortsTextsAsADirectoryDoes) {
    addContacts({"zoe", "Éloi", "Adam", "eve", "Zoé", "Émile"});
    const auto rows = open("SELECT Contacts.* FROM Contacts ORDER BY Contacts.DisplayName;");
    EXPECT_EQ(walk(database(), rows, "DisplayName"), (Names{"Adam", "Éloi", "Émile", "eve", "zoe", "Zoé"}));
    const auto backward = open("SELECT Contacts.ContactID FROM Contacts ORDER BY Contacts.ContactID DESC;");
    EXPECT_EQ(text(backward, "ContactID"), "6");
}

TEST_P(HostDatabaseContract, ASetForReadingCannotBeWrittenThrough) {
    addContacts({"Ann"});
    const auto rows = database().openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::readOnly);
    EXPECT_THROW(database().updateField(rows, "DisplayName", "x"), DatabaseError);
    EXPECT_THROW(database().deleteRecord(rows), DatabaseError);
    EXPECT_THROW(database().addNewRecord(rows), DatabaseError);
    EXPECT_EQ(text(rows, "DisplayName"), "Ann");
}

TEST_P(HostDatabaseContract, AnOperationOnAHandleThatIsNotOpenNamesItselfAndTheField) {
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    EXPECT_TRUE(database().isRecordsetOpen(rows));
    database().closeRecordset(rows);
    EXPECT_FALSE(database().isRecordsetOpen(rows));
    EXPECT_FALSE(database().isRecordsetOpen(kNoRecordset));
    const auto reopened = open("SELECT Contacts.* FROM Contacts;");
    EXPECT_NE(reopened, rows);
    struct Case {
        std::string_view operation, field;
        std::function<void()> run;
    };
    for (const Case& c : {Case{"getField", "LastName", [&] { (void)database().getField(rows, "LastName"); }},
                          {"updateField", "LastName", [&] { database().updateField(rows, "LastName", "x"); }},
                          {"setNewField", "LastName", [&] { database().setNewField(rows, "LastName", "x"); }},
                          {"findFirst", "LastName", [&] { (void)database().findFirst(rows, "LastName", "x"); }},
                          {"moveNext", "", [&] { database().moveNext(rows); }},
                          {"closeRecordset", "", [&] { database().closeRecordset(rows); }}}) {
        const std::string message = messageOf(c.run);
        EXPECT_NE(message.find(c.operation), std::string::npos) << message;
        EXPECT_NE(message.find(c.field), std::string::npos) << message;
    }
}

TEST_P(HostDatabaseContract, ClosingTheDatabaseClosesItsRecordsets) {
    const auto rows = open("SELECT Contacts.* FROM Contacts;");
    database().closeDatabase();
    EXPECT_FALSE(database().isDatabaseOpen());
    EXPECT_FALSE(database().isRecordsetOpen(rows));
    EXPECT_THROW((void)open("SELECT Contacts.* FROM Contacts;"), DatabaseError);
    EXPECT_THROW((void)database().moveFirst(rows), DatabaseError);
}

TEST_P(HostDatabaseContract, ALocalStoreThatCannotBeOpenedIsNotOpen) {
    const auto store = database().openLocalStore((folder_.path() / "nowhere.mdb").string(), "");
    ASSERT_NE(store, nullptr);
    EXPECT_FALSE(store->isDatabaseOpen());
    EXPECT_TRUE(database().isDatabaseOpen());
}

/// What a recordset is by its description, at any price: a list of rows made at the opening.
struct PlainSet {
    RecordsetHandle handle = kNoRecordset;
    std::vector<std::int32_t> rows;  ///< their numbers, own new ones at the end
    std::size_t at = 0;
    bool isRead = false;  ///< until somebody looks, the first row that is there is current
    std::string sought;
    bool isSearched = false;
    std::vector<std::pair<RecordMarker, std::size_t>> markers;
};

/// All rows of the table by number; an empty name is a deleted row.
using PlainTable = std::vector<std::string>;

inline constexpr auto kAtEnd = static_cast<std::size_t>(-1);

inline bool isThere(const PlainTable& table, std::int32_t row) {
    return !table[static_cast<std::size_t>(row)].empty();
}

inline void settle(PlainSet& set, const PlainTable& table, std::size_t from) {
    set.isRead = true;
    for (set.at = from; set.at < set.rows.size(); ++set.at)
        if (isThere(table, set.rows[set.at])) return;
    set.at = kAtEnd;
}

inline bool findFrom(PlainSet& set, const PlainTable& table, std::size_t from) {
    for (std::size_t i = from; i < set.rows.size(); ++i)
        if (table[static_cast<std::size_t>(set.rows[i])] == set.sought) return (set.at = i), (set.isRead = true);
    return false;
}

TEST_P(HostDatabaseContract, RandomHistoriesAgreeWithAListOfRows) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random{seed};
    const auto roll = [&](std::size_t sides) { return std::uniform_int_distribution<std::size_t>{0, sides - 1}(random); };
    const auto name = [&] { return std::string(1, static_cast<char>('a' + roll(4))); };
    constexpr std::string_view kTexts[] = {"", " WHERE ContactID > 0", " ORDER BY ContactID DESC"};
    PlainTable table{""};
    std::vector<PlainSet> sets;
    const auto openSet = [&] {
        const std::size_t kind = roll(3);
        PlainSet set{open("SELECT Contacts.* FROM Contacts" + std::string{kTexts[kind]}), {}, 0, false, {}, false, {}};
        for (std::size_t row = 1; row < table.size(); ++row)
            if (!table[row].empty()) set.rows.push_back(static_cast<std::int32_t>(row));
        if (kind == 2) std::reverse(set.rows.begin(), set.rows.end());
        sets.push_back(set);
    };
    const auto add = [&](PlainSet& set) {
        const std::string value = name();
        database().addNewRecord(set.handle);
        database().setNewField(set.handle, "DisplayName", value);
        database().saveNewRecord(set.handle);
        table.push_back(value);
        set.rows.push_back(static_cast<std::int32_t>(table.size() - 1));
        set.at = set.rows.size() - 1;
        set.isRead = true;
    };
    openSet();
    for (int i = 0; i < 5; ++i) add(sets[0]);
    for (int step = 0; step < 1500 && !HasFailure(); ++step) {
        if (sets.size() < 4) openSet();
        PlainSet& set = sets[roll(sets.size())];
        if (!set.isRead) settle(set, table, 0);
        const auto hasRow = [&] { return set.at < set.rows.size() && isThere(table, set.rows[set.at]); };
        if (set.at < set.rows.size() && !hasRow() && roll(2) == 0) {
            EXPECT_THROW((void)database().getField(set.handle, "ContactID"), DatabaseError);
            database().moveNext(set.handle);
            settle(set, table, set.at + 1);
        }
        const std::size_t action = roll(11);
        SCOPED_TRACE("step " + std::to_string(step) + ", action " + std::to_string(action));
        if (action == 0) {
            settle(set, table, 0);
            EXPECT_EQ(database().moveFirst(set.handle), set.at != kAtEnd);
        } else if (action <= 2) {
            if (set.at < set.rows.size()) settle(set, table, set.at + 1);
            database().moveNext(set.handle);
        } else if (action <= 4) {
            set.sought = name();
            set.isSearched = true;
            const bool isFound = findFrom(set, table, 0);
            EXPECT_EQ(database().findFirst(set.handle, "DisplayName", set.sought), isFound);
            EXPECT_EQ(database().noMatch(set.handle), !isFound);
        } else if (action == 5 && set.isSearched) {
            const bool isFound = set.at != kAtEnd && findFrom(set, table, set.at + 1);
            EXPECT_EQ(database().findNext(set.handle), isFound);
        } else if (action == 6 && hasRow()) {
            table[static_cast<std::size_t>(set.rows[set.at])] = name();
            database().updateField(set.handle, "DisplayName", table[static_cast<std::size_t>(set.rows[set.at])]);
        } else if (action == 7 && hasRow() && roll(2) == 0) {
            table[static_cast<std::size_t>(set.rows[set.at])].clear();
            database().deleteRecord(set.handle);
        } else if (action == 8) {
            add(set);
        } else if (action == 9) {
            if (!set.markers.empty() && roll(2) == 0) {
                database().restoreRecordPosition(set.handle, set.markers.back().first);
                set.at = set.markers.back().second;
            } else {
                set.markers.emplace_back(database().saveRecordPosition(set.handle), set.at);
            }
        } else if (action == 10 && roll(4) == 0) {
            database().closeRecordset(set.handle);
            std::swap(set, sets.back());
            sets.pop_back();
            continue;
        }
        EXPECT_EQ(database().isEndOfRecordset(set.handle), set.at == kAtEnd);
        if (hasRow()) {
            EXPECT_EQ(database().getField(set.handle, "ContactID"), Variant{set.rows[set.at]});
            EXPECT_EQ(text(set.handle, "DisplayName"), table[static_cast<std::size_t>(set.rows[set.at])]);
        }
    }
}

}  // namespace wmoutlook

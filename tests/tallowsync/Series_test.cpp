#include "tests/tallowsync/ProgramTest.h"

#include <algorithm>

namespace wmoutlook::testing {
namespace {

class Series : public ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        ASSERT_EQ(outlook({"add-folder", "Calendar/Team", "--type", "calendar"}).status, 0);
    }
    Result add(const std::string& recurrence) {
        return outlook({"add", "--folder", "Calendar/Team"},
                       R"({"Subject": "Team", "Start": "2026-11-02T09:00:00", "Recurrence": )" + recurrence + "}");
    }
    /// The starts on the days of November, and what else is other.
    std::string november() {
        std::string text;
        const Result listed = outlook({"list", "--folder", "Calendar/Team", "--expand", "2026-11-01", "2026-11-30", "--json"});
        for (const Json& item : listed.json())
            text += item["Subject"].get<std::string>() + " " + item["Start"].get<std::string>() + "\n";
        return text;
    }
};

constexpr const char* kWeekly = R"({"RecurrenceType": 1, "Interval": 1, "DayOfWeekMask": 2, "Occurrences": 4, "Exceptions": [
    {"OriginalDate": "2026-11-09", "Deleted": true},
    {"OriginalDate": "2026-11-16", "Start": "2026-11-17T15:00:00", "Subject": "Budget", "ReminderSet": true, "Location": null}]})";

TEST_F(Series, WhatIsAddedIsExpandedAndCanBeAddedAgain) {
    ASSERT_EQ(add(kWeekly).err, "");
    const std::string expected = "Team 2026-11-02T09:00:00\nBudget 2026-11-17T15:00:00\nTeam 2026-11-23T09:00:00\n";
    EXPECT_EQ(november(), expected);
    const Json series = outlook({"list", "--folder", "Calendar/Team", "--json"}).json();
    ASSERT_EQ(series.size(), 1U);
    EXPECT_EQ(series[0]["Recurrence"]["PatternEndDate"], "2026-11-23");
    EXPECT_EQ(series[0]["Recurrence"]["NoEndDate"], false);
    ASSERT_EQ(outlook({"delete", series[0]["EntryID"]}).status, 0);
    ASSERT_EQ(outlook({"add"}, series.dump()).err, "");
    EXPECT_EQ(november(), expected);
}

TEST_F(Series, NonsenseIsOneSentenceAndAddsNothing) {
    for (const char* const nonsense :
         {"5",
          "{}",
          R"({"RecurrenceType": 0, "Interval": 0})",
          R"({"RecurrenceType": 0, "Interval": -1})",
          R"({"RecurrenceType": 2, "DayOfMonth": 40})",
          R"({"RecurrenceType": 0, "Occurrences": 1000000000})",
          R"({"RecurrenceType": 0, "Occurrences": 1e300})",
          R"({"RecurrenceType": 0, "Interval": 99999999999999999999})",
          R"({"RecurrenceType": 0, "PatternEndDate": "2026-11-01"})",
          R"({"RecurrenceType": 0, "PatternEndDate": "soon"})",
          R"({"RecurrenceType": 0, "NoEndDate": true, "Occurrences": 3})",
          R"({"RecurrenceType": 0, "NoEndDate": "no"})",
          R"({"RecurrenceType": 4})",
          R"({"RecurrenceType": "weekly"})",
          R"({"RecurrenceType": 0, "Colour": 3})",
          R"({"RecurrenceType": 0, "Exceptions": 3})",
          R"({"RecurrenceType": 0, "Exceptions": [{}]})",
          R"({"RecurrenceType": 0, "Exceptions": [{"OriginalDate": "2026-11-02", "Birthday": "1980-01-01"}]})",
          R"({"RecurrenceType": 0, "Exceptions": [{"OriginalDate": "2026-11-02", "Subject": []}]})",
          R"({"RecurrenceType": 0, "Exceptions": [{"OriginalDate": "2026-11-01"}]})"}) {
        SCOPED_TRACE(nonsense);
        const Result added = add(nonsense);
        EXPECT_EQ(added.status, 3);
        EXPECT_NE(added.err.find("Item 1 has a Recurrence"), std::string::npos) << added.err;
        EXPECT_EQ(std::count(added.err.begin(), added.err.end(), '\n'), 1) << added.err;
    }
    EXPECT_EQ(november(), "");
}

TEST_F(Series, DamagedOnesAreToldAndTheListGoesOn) {
    for (int i = 0; i < 3; ++i) ASSERT_EQ(add(R"({"RecurrenceType": 0, "Occurrences": 2})").err, "");
    RawDatabase{file("outlook.db")}.run(
        "UPDATE Series SET PatternEndDay = 99999999 WHERE ItemNumber IN (SELECT ItemNumber FROM Series ORDER BY ItemNumber DESC "
        "LIMIT 2)");
    const Result listed = outlook({"list", "--folder", "Calendar/Team", "--expand", "2026-11-01", "2026-11-30", "--json"});
    EXPECT_EQ(listed.status, 1);
    EXPECT_EQ(listed.json().size(), 2U);
    EXPECT_EQ(std::count(listed.err.begin(), listed.err.end(), '\n'), 2) << listed.err;
}

TEST_F(Series, DamagedOccurrencesOfOneAreToldDayByDay) {
    ASSERT_EQ(add(R"({"RecurrenceType": 0, "Occurrences": 5, "Exceptions": [{"OriginalDate": "2026-11-03", "Subject": "a"},
                     {"OriginalDate": "2026-11-04", "Subject": "b"}, {"OriginalDate": "2026-11-05", "Subject": "c"}]})")
                  .err,
              "");
    RawDatabase{file("outlook.db")}.run("UPDATE SeriesExceptions SET Properties = x'FF00FF'");
    const Result listed = outlook({"list", "--folder", "Calendar/Team", "--expand", "2026-11-01", "2026-11-30", "--json"});
    EXPECT_EQ(listed.status, 1);
    EXPECT_EQ(listed.json().size(), 2U);
    EXPECT_EQ(std::count(listed.err.begin(), listed.err.end(), '\n'), 3) << listed.err;
    for (const char* const day : {"2026-11-03", "2026-11-04", "2026-11-05"})
        EXPECT_NE(listed.err.find(day), std::string::npos) << listed.err;
}

TEST_F(Series, AWrongSpanIsWrongUsage) {
    EXPECT_EQ(outlook({"list", "--expand", "2026-11-30", "2026-11-01"}).status, 2);
    EXPECT_EQ(outlook({"list", "--expand", "soon", "2026-11-01"}).status, 2);
    EXPECT_EQ(outlook({"list", "--expand", "2026-11-30"}).status, 2);
}

TEST_F(Series, TheSampleHoldsEachKindThatIsEasilyGotWrong) {
    std::map<std::string, int> types;
    int exceptions = 0;
    for (const Json& item : outlook({"list", "--json"}).json()) {
        if (!item.contains("Recurrence")) continue;
        ++types[item["Class"].dump() + "/" + item["Recurrence"]["RecurrenceType"].dump()];
        exceptions += static_cast<int>(item["Recurrence"]["Exceptions"].size());
    }
    EXPECT_EQ(types, (std::map<std::string, int>{{"26/1", 2}, {"26/2", 1}, {"26/5", 1}, {"48/2", 1}}));
    EXPECT_EQ(exceptions, 2);
}

}  // namespace
}  // namespace wmoutlook::testing

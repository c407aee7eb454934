#include "adapters/sql/schema/ReferenceSchema.h"
#include "tests/support/RawDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {
namespace {

/// The bare engine with the schema in it: what is tested here are the tables, not the dialect.
class EmptyFirm : public ::testing::Test {
protected:
    EmptyFirm() {
        for (const std::string_view statement : referenceSchema()) database.run(std::string{statement});
    }

    bool looksAtEachRow(const std::string& text) {
        const auto plan = database.rows("EXPLAIN QUERY PLAN " + text);
        return std::any_of(plan.begin(), plan.end(),
                           [](const std::string& step) { return step.find("SCAN") != std::string::npos; });
    }

    testing::RawDatabase database{":memory:"};
};

/// One text a line.
std::vector<std::string> textsOf(const std::string& name) {
    std::ifstream file{TEST_DATA "/" + name};
    std::vector<std::string> texts;
    for (std::string text; std::getline(file, text);) texts.push_back(text);
    EXPECT_GT(texts.size(), 20U) << name;
    return texts;
}

// What runs once per record has to be found by a key, or a pass over a large firm takes hours.
TEST_F(EmptyFirm, FindsWhatIsLookedUpPerRecordByAKey) {
    for (const std::string& text : textsOf("looked-up-per-record.sql")) {
        SCOPED_TRACE(text);
        (void)database.rows(text);
        EXPECT_FALSE(looksAtEachRow(text));
    }
}

// What runs once per walk, per click or per run may look at each row.
TEST_F(EmptyFirm, RunsWhatReadsWholeTables) {
    for (const std::string& text : textsOf("read-once-per-run.sql")) (void)database.rows(text);
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
        database.run(c.insert);
        EXPECT_EQ(database.rows(c.read), std::vector{c.expected});
    }
}

TEST_F(EmptyFirm, ListsEachColumnItCreates) {
    std::vector<std::string> created = database.rows(
        "SELECT t.name, c.name FROM sqlite_master t, pragma_table_info(t.name) c WHERE t.type = 'table' AND t.name NOT LIKE "
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

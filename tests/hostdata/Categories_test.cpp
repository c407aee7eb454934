#include "tests/hostdata/HostDataTest.h"
#include "tests/support/FaultyDatabase.h"

#include <algorithm>
#include <functional>

namespace wmoutlook::testing {
namespace {

using namespace modDatabaseFunctions;
using Lines = std::vector<std::string>;

class Categories : public HostDataTest {
protected:
    Lines all() { return rows("SELECT Categories.* FROM Categories;", {"CategorySpecialCode", "CategoryNum", "CategoryName"}); }

    /// Every category and the one it hangs under, whatever their numbers and their order.
    Lines tree() {
        const auto column = [this](const char* field) { return rows("SELECT Categories.* FROM Categories;", {field}); };
        const Lines ids = column("CategoryID"), parents = column("CategoryNum"), names = column("CategoryName"),
                    codes = column("CategorySpecialCode"), descriptions = column("CategoryDescription");
        Lines lines;
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const auto parent = std::find(ids.begin(), ids.end(), parents[i]) - ids.begin();
            lines.push_back(codes[i] + "|" + names[i] + "|" + descriptions[i] + "|under " +
                            (parents[i].empty()                        ? "nothing"
                             : (names.begin() + parent != names.end()) ? *(names.begin() + parent)
                                                                       : "a gone one"));
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    Lines steps() {
        Lines lines = rows("SELECT PersonalTaxSteps.* FROM PersonalTaxSteps;",
                           {"TaxYear", "SortIndex", "OldSortIndex", "StepName", "StepDescription", "ColumnName", "DefaultWidth"});
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    void removeRows(const std::string& table, const std::string& condition = {}) {
        const Recordset all{"SELECT " + table + ".* FROM " + table + condition + ";", LockCode::updatable};
        const RecordsetHandle set = all.handle();
        for (host.database->moveFirst(set); !host.database->isEndOfRecordset(set); host.database->moveNext(set))
            host.database->deleteRecord(set);
    }
};

TEST_F(Categories, FirstRequestCreatesTheRootAndItsThreeChildren) {
    const auto business = getBusinessCategoryNum();
    const auto root = toText(getMainCategoryNum());
    EXPECT_EQ(all(),
              (Lines{"Main||Tallow Brook Address Book", "BusinessCategory|" + root + "|Tallow Brook Business Clients",
                     "PersonalCategory|" + root + "|Tallow Brook Personal Clients", "FirmCategory|" + root + "|Firm Staff"}));
    EXPECT_EQ(getBusinessCategoryNum(), business);
    EXPECT_EQ(
        rows("SELECT Categories.* FROM Categories;", {"CategoryDescription"}),
        (Lines{
            "", "This category contains all of the Tallow Brook Business clients.",
            "This category contains all of the Tallow Brook Personal Tax clients.  Drag your contacts into this category to add "
            "them to your personal tax clients list.",
            "This category contains all of your staff members."}));
}

TEST_F(Categories, MissingChildIsAddedAloneAndARenamedOneIsKept) {
    const auto firm = getFirmCategoryNum();
    {
        const Recordset row{"SELECT Categories.* FROM Categories;", LockCode::updatable};
        row.findFirst("CategoryID", firm);
        row.update("CategoryName", "Our people");
        row.findFirst("CategorySpecialCode", "PersonalCategory");
        row.deleteRecord();
    }
    EXPECT_EQ(getFirmCategoryName(), "Our people");
    EXPECT_EQ(getPersonalTaxCategoryName(), "Tallow Brook Personal Clients");
    EXPECT_EQ(all().size(), 4U);
    EXPECT_EQ(getFirmCategoryNum(), firm);
}

TEST_F(Categories, TaxYearGetsTwelveStepsAndTheNextOneThoseOfTheYearBefore) {
    const std::string steps = "SELECT PersonalTaxSteps.* FROM PersonalTaxSteps WHERE TaxYear=";
    const auto first = getPersonalTaxYearCategory(2024);
    EXPECT_EQ(getPersonalTaxYearCategory(2024), first);
    const Lines fields{"SortIndex", "OldSortIndex", "StepName", "ColumnName", "DefaultWidth"};
    const Lines created = rows(steps + "2024;", fields);
    ASSERT_EQ(created.size(), 12U);
    EXPECT_EQ(created.front(), "1|1|Contacted Client|Contacted|1000");
    EXPECT_EQ(created.back(), "12|12|Received Notice of Assessment|NOA Received|1000");

    {  // the user has put the last step first
        const Recordset row{steps + "2024;", LockCode::updatable};
        row.findFirst("SortIndex", 12);
        row.update("SortIndex", "0");
    }
    const auto second = getPersonalTaxYearCategory(2025);
    const Lines copied = rows(steps + "2025;", fields);
    ASSERT_EQ(copied.size(), 12U);
    EXPECT_EQ(copied.front(), "0|0|Received Notice of Assessment|NOA Received|1000");
    EXPECT_EQ(all().back(), "TaxYear:2025|" + toText(getPersonalTaxCategoryNum()) + "|2025");

    EXPECT_TRUE(isCategoryPersonalTaxYearCategory(second));
    EXPECT_FALSE(isCategoryPersonalTaxYearCategory(getFirmCategoryNum()));
    EXPECT_TRUE(isCategoryMainCategory(getMainCategoryNum()));
    EXPECT_FALSE(isCategoryMainCategory(second));
}

TEST_F(Categories, WalksClimbToTheRootAndSurviveACircle) {
    const auto year = getPersonalTaxYearCategory(2024);
    const auto below =
        addRow(*host.database, "Categories", "CategoryID", {{"CategoryNum", toText(year)}, {"CategoryName", "Late"}});
    EXPECT_EQ(getPersonalTaxYearFromCategoryID(below), 2024);
    EXPECT_EQ(getPersonalTaxYearFromCategoryID(getBusinessCategoryNum()), kNoRecord);
    EXPECT_TRUE(doesThisCategoryBelongToCategory(below, getPersonalTaxCategoryNum()));
    EXPECT_TRUE(doesThisCategoryBelongToCategory(year, year));
    EXPECT_FALSE(doesThisCategoryBelongToCategory(year, getBusinessCategoryNum()));
    EXPECT_FALSE(doesThisCategoryBelongToCategory(4711, getMainCategoryNum()));
    {
        const Recordset row{"SELECT Categories.* FROM Categories;", LockCode::updatable};
        row.findFirst("CategoryID", year);
        row.update("CategoryNum", toText(below));
        row.update("CategorySpecialCode", "");
    }
    EXPECT_FALSE(doesThisCategoryBelongToCategory(below, getMainCategoryNum()));
    EXPECT_EQ(getPersonalTaxYearFromCategoryID(below), kNoRecord);
}

TEST_F(Categories, AnyOneFailingCallIsMadeUpForByTheNextRequest) {
    const auto requests = [] {
        (void)getMainCategoryName();
        (void)getBusinessCategoryNum();
        (void)getFirmCategoryName();
        modSettings::initializeNameDisplayType(1);
        return getPersonalTaxYearCategory(2025);
    };
    const auto clear = [&] {
        for (const char* table : {"Categories", "PersonalTaxSteps", "UserGeneralSettings"}) removeRows(table);
    };
    const auto lastYear = [&] {
        const auto year = getPersonalTaxYearCategory(2024);
        addRow(*host.database, "Categories", "", {{"CategoryNum", toText(year)}, {"CategoryName", "Late"}});
        removeRows("PersonalTaxSteps", " WHERE SortIndex=5");  // the user does without it
    };
    struct Start {
        const char* name;
        std::function<void()> prepare;
        std::size_t steps;
    };
    for (const Start& start : {Start{"empty tables", [] {}, 12}, Start{"year absent", lastYear, 22},
                               Start{"root gone",
                                     [&] {
                                         lastYear();
                                         removeRows("Categories", " WHERE CategorySpecialCode='Main'");
                                     },
                                     22},
                               Start{"complete", requests, 12}}) {
        clear();
        start.prepare();
        requests();
        const Lines wantedTree = tree(), wantedSteps = steps();
        ASSERT_EQ(wantedSteps.size(), start.steps);
        for (const auto& [inARow, kind] : {std::pair{1, ErrorAnswer::goOn},
                                           {2, ErrorAnswer::goOn},
                                           {1, ErrorAnswer::leaveRoutine},
                                           {1, ErrorAnswer::tryAgain}}) {
            const ErrorAnswer answer = kind;
            host.errors->answer = [&](const ErrorReport&) { return answer; };
            Faults faults;
            int call = 0;
            for (bool isClean = false; !isClean; isClean = faults.failed == 0) {
                hostServices().database = host.database;
                clear();
                start.prepare();
                hostServices().database = std::make_shared<FaultyDatabase>(host.database, faults);
                faults = {};
                faults.failOnce(++call);
                faults.failTo += inARow - 1;
                const auto given = requests();
                hostServices().database = host.database;
                const bool isReal = given == kNoRecord || validCategoryID(given);
                requests();
                SCOPED_TRACE(std::string{start.name} + ", answer " + toText(static_cast<std::int32_t>(answer)) + ", call " +
                             std::to_string(call) + "-" + std::to_string(faults.failTo) + " (" + faults.firstFailed + ")");
                ASSERT_TRUE(isReal);
                ASSERT_EQ(tree(), wantedTree);
                ASSERT_EQ(steps(), wantedSteps);
                ASSERT_EQ(rows("SELECT UserGeneralSettings.* FROM UserGeneralSettings;", {"UserIDNum"}), Lines{"1"});
            }
            EXPECT_GT(call, 30);
        }
    }
}

TEST_F(Categories, NumberIsKeptWhenClosingLeavesTheRoutine) {
    const auto year = getPersonalTaxYearCategory(2025), main = getMainCategoryNum(), business = getBusinessCategoryNum();
    host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::leaveRoutine; };
    Faults faults;
    hostServices().database = std::make_shared<FaultyDatabase>(host.database, faults);
    const std::function<std::int32_t()> year2025 = [] { return getPersonalTaxYearCategory(2025); };
    for (const auto& [request, number] : {std::pair{year2025, year},
                                          {getMainCategoryNum, main},
                                          {getBusinessCategoryNum, business},
                                          {[&] { return std::int32_t{isCategoryMainCategory(main)}; }, 1}}) {
        int closes = 0;
        faults = {};
        for (int call = 1; call == 1 || faults.failed > 0; ++call) {
            faults = {};
            faults.failOnce(call);
            const std::int32_t given = request();
            if (faults.firstFailed != "isRecordsetOpen" && faults.firstFailed != "closeRecordset") continue;
            EXPECT_EQ(given, number) << faults.firstFailed;
            ++closes;
        }
        EXPECT_EQ(closes, 2);
    }
}

}  // namespace
}  // namespace wmoutlook::testing

#include "tests/hostdata/HostDataTest.h"
#include "tests/support/FaultyDatabase.h"

namespace wmoutlook::testing {
namespace {

using namespace modDatabaseFunctions;
using Lines = std::vector<std::string>;

class Categories : public HostDataTest {
protected:
    Lines all() { return rows("SELECT Categories.* FROM Categories;", {"CategorySpecialCode", "CategoryNum", "CategoryName"}); }
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

TEST_F(Categories, AnyOneFailingCallNeverDoublesWhatIsThere) {
    const auto requests = [] {
        (void)getMainCategoryName();
        (void)getMainCategoryNum();
        (void)getPersonalTaxYearCategory(2025);
        modSettings::initializeNameDisplayType(1);
    };
    requests();
    const Lines before = all();
    Faults faults;
    hostServices().database = std::make_shared<FaultyDatabase>(host.database, faults);
    int call = 0;
    for (bool isClean = false; !isClean; isClean = faults.failed == 0) {
        faults = {};
        faults.failOnce(++call);
        requests();
        SCOPED_TRACE("call " + std::to_string(call) + " (" + faults.firstFailed + ")");
        ASSERT_EQ(all(), before);
        ASSERT_EQ(rows("SELECT UserGeneralSettings.* FROM UserGeneralSettings;", {"UserIDNum"}), Lines{"1"});
        ASSERT_EQ(rows("SELECT PersonalTaxSteps.* FROM PersonalTaxSteps;", {"TaxYear"}).size(), 12U);
    }
    EXPECT_GT(call, 30);
}

}  // namespace
}  // namespace wmoutlook::testing

#include "tests/hostdata/HostDataTest.h"
#include "tests/support/FaultyDatabase.h"

namespace wmoutlook::testing {
namespace {

/// The handle over a database in which single operations fail.
class RecordsetFailures : public HostDataTest {
protected:
    Faults faults;
    std::shared_ptr<FaultyDatabase> faulty = std::make_shared<FaultyDatabase>(host.database, faults);

    void SetUp() override {
        HostDataTest::SetUp();
        addCompany(*host.database, {{"CompanyName", "Birch"}});
        addCompany(*host.database, {{"CompanyName", "Alder"}});
        hostServices().database = faulty;
    }
    void failFromNextCallOn() { faults.failFromNowOn(faults.calls + 1); }
};

TEST_F(RecordsetFailures, LoopOverASetThatKeepsFailingEnds) {
    int turns = 0;
    Routine routine{"test"};
    routine.run([&] {
        Recordset rows{"SELECT Companies.* FROM Companies;"};
        for (rows.moveFirst(); !rows.isAtEnd() && turns < 100; rows.moveNext()) {
            ++turns;
            failFromNextCallOn();
        }
        faults = {};
        EXPECT_TRUE(rows.isAtEnd());  // a skipped move stays at the end
        EXPECT_TRUE(rows.moveFirst());
        EXPECT_FALSE(rows.isAtEnd());
    });
    EXPECT_EQ(turns, 1);
}

TEST_F(RecordsetFailures, SkippedOperationsLeaveEmptyValues) {
    Routine routine{"test"};
    routine.run([&] {
        const Recordset rows{"SELECT Companies.* FROM Companies;"};
        failFromNextCallOn();
        EXPECT_FALSE(rows.hasRows());
        EXPECT_TRUE(rows.field("CompanyName").isNull());
        EXPECT_EQ(rows.textIfRead("CompanyName"), std::nullopt);
        EXPECT_EQ(rows.number("CompanyID", 7), 7);
        EXPECT_EQ(rows.findFirstIfTold("CompanyID", 1), std::nullopt);
        EXPECT_EQ(rows.recordCount(), 0);
        faults = {};
        EXPECT_EQ(rows.findFirstIfTold("CompanyID", 4711), false);
        EXPECT_EQ(rows.number("CompanyName", 7), 7);  // a text that is no number
    });
    EXPECT_EQ(host.errors->reports.size(), 7U);
}

TEST_F(RecordsetFailures, HandleIsClosedWhicheverWayTheRoutineIsLeft) {
    host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::leaveRoutine; };
    Routine routine{"test"};
    routine.run([&] {
        const Recordset rows{"SELECT Companies.* FROM Companies;"};
        (void)rows.field("NoSuchField");
        FAIL() << "the routine goes on";
    });
    EXPECT_TRUE(faulty->openHandles.empty());
    EXPECT_EQ(host.errors->reports.size(), 1U);
}

TEST_F(RecordsetFailures, CloseThatFailsIsReportedAndMayLeaveTheRoutine) {
    host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::leaveRoutine; };
    bool goesOn = false;
    Routine routine{"test"};
    routine.run([&] {
        {
            const Recordset rows{"SELECT Companies.* FROM Companies;"};
            failFromNextCallOn();
        }
        goesOn = true;
    });
    EXPECT_FALSE(goesOn);
    EXPECT_EQ(host.errors->reports.size(), 1U);
}

TEST_F(RecordsetFailures, KeptPositionSurvivesANestedSearch) {
    Routine routine{"test"};
    routine.run([&] {
        Recordset rows{"SELECT Companies.* FROM Companies;"};
        {
            const KeptPosition kept{rows};
            rows.findFirst("CompanyName", "Alder");
            hostServices().database = nullptr;  // the recordset keeps its own
        }
        EXPECT_EQ(rows.text("CompanyName"), "Birch");
        {
            const KeptPosition kept{rows};
            failFromNextCallOn();
        }
        faults = {};
        EXPECT_TRUE(rows.isAtEnd());  // a nested walk's row is not walked on from
        rows.moveNext();
        EXPECT_TRUE(rows.isAtEnd());
        EXPECT_TRUE(rows.findFirst("CompanyName", "Alder"));
        EXPECT_FALSE(rows.isAtEnd());
    });
}

TEST_F(RecordsetFailures, WithoutADatabaseItIsClosedAndEveryUseAReportedFailure) {
    hostServices().database = nullptr;
    Routine routine{"test"};
    routine.run([&] {
        EXPECT_FALSE(isDatabaseOpen());
        const Recordset rows{"SELECT Companies.* FROM Companies;"};
        EXPECT_FALSE(rows.hasRows());
    });
    ASSERT_EQ(host.errors->reports.size(), 2U);
    EXPECT_EQ(host.errors->reports[0].number, 91);
}

}  // namespace
}  // namespace wmoutlook::testing

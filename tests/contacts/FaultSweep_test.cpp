#include "tests/contacts/SmallFirm.h"
#include "tests/support/FaultyRun.h"

namespace wmoutlook::testing {
namespace {

using Faulty = FaultyRun<SmallFirm>;

void selectOneCompany(const SmallFirm& firm, clsOutlookSynchronization& component) {
    TestHost::select(component, {firm.birch}, {});
}

void selectAll(const SmallFirm& firm, clsOutlookSynchronization& component) {
    firm.selectAll(component);
}

/// What was written before the fault is still there, and no record has two links.
void expectNothingLost(Faulty& faulty) {
    const auto links = linksOf(*faulty.host.database);
    ASSERT_FALSE(links.empty());
    std::vector<std::string> records;
    for (const Link& link : links) records.push_back(link.companyNum + "/" + link.contactNum);
    std::sort(records.begin(), records.end());
    EXPECT_EQ(std::adjacent_find(records.begin(), records.end()), records.end());
    EXPECT_EQ(links[0].companyNum, toText(faulty.firm.birch));
    EXPECT_FALSE(contactItems(*faulty.plainOutlook).empty());
}

class FaultSweep : public ::testing::TestWithParam<ErrorAnswer> {};

TEST_P(FaultSweep, AnyOneFailingCallLosesNothingAndTheNextRunIsComplete) {
    const int calls = sweepFaults<SmallFirm>(GetParam(), selectOneCompany, [](Faulty& faulty) {
        expectNothingLost(faulty);
        if (GetParam() == ErrorAnswer::endProgram) {  // shared routines have no event to raise
            EXPECT_LE(faulty.ended, 1);
        }
        if (isRepeated(GetParam())) faulty.firm.expectComplete(faulty.host);
        faulty.runCleanly();
        faulty.firm.expectComplete(faulty.host);
    });
    EXPECT_GT(calls, 300);  // the sweep has really gone through a run
}

TEST_P(FaultSweep, NoFailingCallOfAnUpdateDoublesAnItem) {
    const int calls = sweepFaults<SmallFirm>(GetParam(), selectAll, [](Faulty& faulty) {
        faulty.runCleanly();
        faulty.firm.expectComplete(faulty.host);
        // An item that Outlook does not give counts as deleted there and comes back.
        const std::size_t comesBack = faulty.planned.firstFailed == "NameSpace.getItemFromID" ? 1 : 0;
        EXPECT_EQ(contactItems(*faulty.plainOutlook).size(), 4U + comesBack);
    });
    EXPECT_GT(calls, 300);
}

INSTANTIATE_TEST_SUITE_P(Answers, FaultSweep,
                         ::testing::Values(ErrorAnswer::goOn, ErrorAnswer::leaveRoutine, ErrorAnswer::endProgram,
                                           ErrorAnswer::tryAgain));

TEST(PersistentFaults, ServiceThatFailsFromSomeCallOnEndsTheRun) {
    for (const ErrorAnswer answer : {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine})
        sweepLastingFaults<SmallFirm>(answer, selectOneCompany, expectNothingLost);
}

}  // namespace
}  // namespace wmoutlook::testing

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

/// Somebody's item without a name to be filed under, which a search for a name that could not be read would find.
TEST_P(FaultSweep, NoFailingCallTakesTheItemOfAStranger) {
    if (isRepeated(GetParam())) return;
    int call = 0;
    for (bool isClean = false; !isClean && !HasFailure();) {
        Faulty faulty{GetParam(), selectOneCompany};
        const auto contacts = nameSpaceOf(*faulty.plainOutlook)->getDefaultFolder(outlook::DefaultFolder::contacts);
        const auto stranger = contacts->items()->add(std::nullopt);
        stranger->put(outlook::property::FirstName, Variant{"Stranger"});
        stranger->save();
        const std::string entryID = textOf(*stranger, outlook::property::EntryID);
        const std::string storeID = contacts->storeID();
        faulty.run([&](Faults& faults) { faults.failOnce(++call); });
        isClean = faulty.planned.failed == 0;
        SCOPED_TRACE("call " + std::to_string(call) + " (" + faulty.planned.firstFailed + ")");
        const auto now = nameSpaceOf(*faulty.plainOutlook)->getItemFromID(entryID, storeID);
        EXPECT_EQ(textOf(*now, outlook::property::FirstName), "Stranger");
        EXPECT_EQ(textOf(*now, outlook::property::FileAs), "");
    }
    EXPECT_GT(call, 300);
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

#include "tests/support/KillSweep.h"
#include "tests/contacts/SmallFirm.h"

namespace wmoutlook::testing {
namespace {

TEST(KillSweep, ProcessThatDiesInAnyWriteLeavesSoundStoresAndTheNextRunConverges) {
    const int runs = sweepKills<SmallFirm>([](const SmallFirm& firm, TestHost& host) {
        firm.expectComplete(host);
        EXPECT_EQ(contactItems(*host.outlookStore).size(), 4U);  // an item that was not linked in time is adopted
    });
    EXPECT_GT(runs, 50);  // the sweep has really gone through a run
}

}  // namespace
}  // namespace wmoutlook::testing

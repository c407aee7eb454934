#include "tests/contacts/SmallFirm.h"
#include "tests/support/DyingProcess.h"

namespace wmoutlook::testing {
namespace {

void synchronizeAll(TestHost& host, const SmallFirm& firm) {
    const auto component = host.component();
    firm.selectAll(*component);
    component->startOutlook();
    component->synchronize();
}

TEST(KillSweep, ProcessThatDiesInAnyWriteLeavesSoundStoresAndTheNextRunConverges) {
    const TemporaryFolder prepared;
    const FirmFiles firmFiles = FirmFiles::make(prepared);
    const SmallFirm firm = [&] {
        TestHost host{firmFiles};
        return SmallFirm{*host.database};
    }();

    int write = 1;
    for (bool isKilled = true; isKilled && !::testing::Test::HasFailure(); ++write) {
        SCOPED_TRACE("write " + std::to_string(write));
        const TemporaryFolder folder;
        const FirmFiles files = firmFiles.copyTo(folder);
        isKilled = dies(write, [&] {
            TestHost host{files};
            synchronizeAll(host, firm);
        });
        ASSERT_TRUE(isSound(files.firm));
        ASSERT_TRUE(isSound(files.outlook));
        TestHost host{files};
        synchronizeAll(host, firm);
        firm.expectComplete(host);
        EXPECT_EQ(contactItems(*host.outlookStore).size(), 4U);  // an item that was not linked in time is adopted
    }
    EXPECT_GT(write, 50);  // the sweep has really gone through a run
}

}  // namespace
}  // namespace wmoutlook::testing

#pragma once

#include "tests/support/DyingProcess.h"
#include "tests/support/RawDatabase.h"
#include "tests/support/TestFirm.h"

#include <functional>
#include <string>

namespace wmoutlook::testing {

/// `Rows` puts its rows into the database of a firm and selects all of them for a run.
template <class Rows>
void synchronizeAll(TestHost& host, const Rows& rows) {
    const auto component = host.component();
    rows.selectAll(*component);
    component->startOutlook();
    component->synchronize();
}

/// A run that dies in its n-th write, for each n until it dies no more; behind each, both files are sound and a second run is
/// expected to have come to the end that `expectConverged` tells. The number of runs.
template <class Rows>
int sweepKills(const std::function<void(const Rows&, TestHost&)>& expectConverged) {
    const TemporaryFolder prepared;
    const FirmFiles firmFiles = FirmFiles::make(prepared);
    const Rows rows = [&] {
        TestHost host{firmFiles};
        return Rows{*host.database};
    }();
    int write = 1;
    for (bool isKilled = true; isKilled && !::testing::Test::HasFailure(); ++write) {
        SCOPED_TRACE("write " + std::to_string(write));
        const TemporaryFolder folder;
        const FirmFiles files = firmFiles.copyTo(folder);
        isKilled = dies(write, [&] {
            TestHost host{files};
            synchronizeAll(host, rows);
        });
        EXPECT_TRUE(RawDatabase{files.firm}.isSound());
        EXPECT_TRUE(RawDatabase{files.outlook}.isSound());
        TestHost host{files};
        synchronizeAll(host, rows);
        expectConverged(rows, host);
    }
    return write;
}

}  // namespace wmoutlook::testing

#include "tests/contacts/SmallFirm.h"
#include "tests/support/FaultyDatabase.h"
#include "tests/support/FaultyOutlook.h"

namespace wmoutlook::testing {
namespace {

/// One run, from startOutlook to the end of synchronize, in which port calls fail as planned.
class FaultyRun {
public:
    enum class Before { oneCompanyIsWritten, allIsWritten };

    explicit FaultyRun(ErrorAnswer answer, Before before = Before::oneCompanyIsWritten) : answer_(answer) {
        component->startOutlook();
        firm.selectAll(*component);
        if (before == Before::oneCompanyIsWritten) {
            component->companyCollection->clear();
            TestHost::select(*component, {firm.birch}, {});
            component->contactCollection->clear();
        }
        component->synchronize();
        linked = linksOf(*host.database);
    }

    void run(const std::function<void(Faults&)>& plan) {
        component.reset();
        host.outlookStore = std::make_shared<FaultyAutomation>(plainOutlook, faults);
        host.messageLoop->faults = &faults;
        host.faults = &faults;
        const auto database = std::make_shared<FaultyDatabase>(host.database, faults);
        component = host.component(database);
        component->showProgress(true);
        firm.selectAll(*component);
        host.errors->answer = [this](const ErrorReport&) { return answer_; };
        int ended = 0;
        const auto ends = component->ExitProgram.subscribe([&] { ++ended; });
        faults.calls = 0;
        plan(faults);
        component->startOutlook();
        component->synchronize();
        plan_ = faults;
        faults = {};
        EXPECT_TRUE(database->openHandles.empty());
        EXPECT_TRUE(host.errors->open.empty());
        if (answer_ == ErrorAnswer::endProgram && !host.errors->reports.empty()) endedOften = ended;
        component.reset();
        host.outlookStore = plainOutlook;
    }

    /// What was written before the fault is still there, and no record has two links.
    void expectNothingLost() {
        const auto links = linksOf(*host.database);
        ASSERT_GE(links.size(), linked.size());
        std::vector<std::string> records;
        for (const Link& link : links) records.push_back(link.companyNum + "/" + link.contactNum);
        std::sort(records.begin(), records.end());
        EXPECT_EQ(std::adjacent_find(records.begin(), records.end()), records.end());
        EXPECT_EQ(links[0].companyNum, linked[0].companyNum);
        EXPECT_FALSE(contactItems(*plainOutlook).empty());
    }

    void runCleanly() {
        host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::leaveRoutine; };
        host.messageLoop->faults = nullptr;
        host.faults = nullptr;
        const auto clean = host.component();
        firm.selectAll(*clean);
        clean->startOutlook();
        clean->synchronize();
    }

    TestHost host;
    SmallFirm firm{*host.database};
    std::unique_ptr<clsOutlookSynchronization> component = host.component();
    std::shared_ptr<outlook::port::Automation> plainOutlook = host.outlookStore;
    std::vector<Link> linked;
    Faults faults;
    Faults plan_;
    int endedOften = 0;

private:
    ErrorAnswer answer_;
};

class FaultSweep : public ::testing::TestWithParam<ErrorAnswer> {};

TEST_P(FaultSweep, AnyOneFailingCallLosesNothingAndTheNextRunIsComplete) {
    const bool isRepeated = GetParam() == ErrorAnswer::endProgram || GetParam() == ErrorAnswer::tryAgain;
    bool isClean = false;
    int call = 0;
    while (!isClean && !::testing::Test::HasFailure()) {
        FaultyRun faulty{GetParam()};
        faulty.run([&](Faults& faults) { faults.failOnce(++call); });
        isClean = faulty.plan_.failed == 0;
        SCOPED_TRACE("call " + std::to_string(call) + " (" + faulty.plan_.firstFailed + ")");
        faulty.expectNothingLost();
        if (GetParam() == ErrorAnswer::endProgram) {  // shared routines have no event to raise
            EXPECT_LE(faulty.endedOften, 1);
        }
        if (isRepeated) faulty.firm.expectComplete(faulty.host);
        faulty.runCleanly();
        faulty.firm.expectComplete(faulty.host);
    }
    EXPECT_GT(call, 300);  // the sweep has really gone through a run
}

TEST_P(FaultSweep, NoFailingCallOfAnUpdateDoublesAnItem) {
    bool isClean = false;
    int call = 0;
    while (!isClean && !::testing::Test::HasFailure()) {
        FaultyRun faulty{GetParam(), FaultyRun::Before::allIsWritten};
        faulty.run([&](Faults& faults) { faults.failOnce(++call); });
        isClean = faulty.plan_.failed == 0;
        SCOPED_TRACE("call " + std::to_string(call) + " (" + faulty.plan_.firstFailed + ")");
        faulty.runCleanly();
        faulty.firm.expectComplete(faulty.host);
        // An item that Outlook does not give counts as deleted there and comes back.
        const std::size_t comesBack = faulty.plan_.firstFailed == "NameSpace.getItemFromID" ? 1 : 0;
        EXPECT_EQ(contactItems(*faulty.plainOutlook).size(), 4U + comesBack);
    }
    EXPECT_GT(call, 300);
}

INSTANTIATE_TEST_SUITE_P(Answers, FaultSweep,
                         ::testing::Values(ErrorAnswer::goOn, ErrorAnswer::leaveRoutine, ErrorAnswer::endProgram,
                                           ErrorAnswer::tryAgain));

TEST(PersistentFaults, ServiceThatFailsFromSomeCallOnEndsTheRun) {
    for (const ErrorAnswer answer : {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine}) {
        bool isClean = false;
        for (int call = 1; !isClean && !::testing::Test::HasFailure(); call += 3) {
            SCOPED_TRACE("from call " + std::to_string(call));
            FaultyRun faulty{answer};
            faulty.run([&](Faults& faults) { faults.failFromNowOn(call); });
            isClean = faulty.plan_.failed == 0;
            EXPECT_LT(faulty.plan_.calls, 5000);
            faulty.expectNothingLost();
        }
    }
}

}  // namespace
}  // namespace wmoutlook::testing

#pragma once

#include "tests/support/FaultyDatabase.h"
#include "tests/support/FaultyOutlook.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace wmoutlook::testing {

/// A firm after one clean run, and then one run, from startOutlook to the end of synchronize, in which port calls fail as
/// planned. A Firm is made of a database; its selectAll chooses what a run does.
template <class Firm>
class FaultyRun {
public:
    using Choose = std::function<void(const Firm& firm, clsOutlookSynchronization& component)>;

    FaultyRun(ErrorAnswer answer, const Choose& before) : answer_(answer) {
        const auto component = host.component();
        component->startOutlook();
        before(firm, *component);
        component->synchronize();
        if constexpr (requires { firm.changeAfterFirstRun(*host.database); }) firm.changeAfterFirstRun(*host.database);
    }

    void run(const std::function<void(Faults&)>& plan) {
        host.outlookStore = std::make_shared<FaultyAutomation>(plainOutlook, faults_);
        host.messageLoop->faults = &faults_;
        host.faults = &faults_;
        const auto database = std::make_shared<FaultyDatabase>(host.database, faults_);
        auto component = host.component(database);
        component->showProgress(true);
        firm.selectAll(*component);
        host.errors->answer = [this](const ErrorReport&) { return answer_; };
        const auto ends = component->ExitProgram.subscribe([&] { ++ended; });
        faults_.calls = 0;
        plan(faults_);
        component->startOutlook();
        component->synchronize();
        planned = faults_;
        faults_ = {};
        EXPECT_TRUE(database->openHandles.empty());
        EXPECT_TRUE(host.errors->open.empty());
        component.reset();
        host.outlookStore = plainOutlook;
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
    Firm firm{*host.database};
    std::shared_ptr<outlook::port::Automation> plainOutlook = host.outlookStore;
    Faults planned;  ///< what became of the plan
    int ended = 0;   ///< how often ExitProgram was raised

private:
    ErrorAnswer answer_;
    Faults faults_;
};

/// Whether the host wanted each failed statement tried again, so that even the faulty run is complete.
inline bool isRepeated(ErrorAnswer answer) {
    return answer == ErrorAnswer::endProgram || answer == ErrorAnswer::tryAgain;
}

/// Makes each single call of a run fail in turn, until a run goes through without; each gets a look when it is over.
template <class Firm>
int sweepFaults(ErrorAnswer answer, const typename FaultyRun<Firm>::Choose& before,
                const std::function<void(FaultyRun<Firm>&)>& look) {
    int call = 0;
    for (bool isClean = false; !isClean && !::testing::Test::HasFailure();) {
        FaultyRun<Firm> faulty{answer, before};
        faulty.run([&](Faults& faults) { faults.failOnce(++call); });
        isClean = faulty.planned.failed == 0;
        SCOPED_TRACE("call " + std::to_string(call) + " (" + faulty.planned.firstFailed + ")");
        look(faulty);
    }
    return call;
}

/// Makes all calls fail from some call on, each third in turn.
template <class Firm>
void sweepLastingFaults(ErrorAnswer answer, const typename FaultyRun<Firm>::Choose& before,
                        const std::function<void(FaultyRun<Firm>&)>& look) {
    bool isClean = false;
    for (int call = 1; !isClean && !::testing::Test::HasFailure(); call += 3) {
        SCOPED_TRACE("from call " + std::to_string(call));
        FaultyRun<Firm> faulty{answer, before};
        faulty.run([&](Faults& faults) { faults.failFromNowOn(call); });
        isClean = faulty.planned.failed == 0;
        EXPECT_LT(faulty.planned.calls, 5000);
        look(faulty);
    }
}

}  // namespace wmoutlook::testing

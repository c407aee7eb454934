#pragma once

#include "adapters/headless/Machine.h"
#include "adapters/headless/ProgramEnd.h"
#include "apps/tallowsync/Console.h"

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace wmoutlook {

/// What ends a run early: the error service's answer, or a signal. A signal waits for the run to yield, so that the record at work
/// is finished; a record that takes longer than kPatience (a locked file that is tried again and again) is left where it is, as
/// after a crash. Unwinding is by HostUnwind.
class RunEnd {
public:
    static constexpr std::chrono::seconds kPatience{1};

    explicit RunEnd(StopSignal stopSignal) : stopSignal_(std::move(stopSignal)) { static_cast<void>(stopSignal_()); }

    /// What the error service decides about; once a signal has stopped the run, its reports are no news either.
    [[nodiscard]] const std::shared_ptr<ProgramEnd>& program() const { return program_; }
    [[nodiscard]] int stoppingSignal() const { return stoppingSignal_; }  ///< 0: no signal has stopped the run

    /// Before each call of a port.
    void atCall() {
        if (stopSignal_() != 0 && isPatienceOver()) stop();
        program_->unwindIfDecided();
    }
    /// Between two records.
    void atYield() {
        if (stopSignal_() != 0) stop();
        program_->unwindIfDecided();
    }

private:
    void stop() {
        if (program_->isDecided()) return;
        stoppingSignal_ = stopSignal_();
        program_->decide();
    }
    bool isPatienceOver() {
        const auto moment = std::chrono::steady_clock::now();
        if (!askedSince_) askedSince_ = moment;
        return moment - *askedSince_ > kPatience;
    }

    StopSignal stopSignal_;
    std::shared_ptr<ProgramEnd> program_ = std::make_shared<ProgramEnd>();
    int stoppingSignal_ = 0;
    std::optional<std::chrono::steady_clock::time_point> askedSince_;
};

/// Counts the yields of a run and ends it at one when it is to end.
class RunMessageLoop : public IdleMessageLoop {
public:
    explicit RunMessageLoop(std::shared_ptr<RunEnd> end) : end_(std::move(end)) {}
    void yield() override {
        IdleMessageLoop::yield();
        end_->atYield();
    }

private:
    std::shared_ptr<RunEnd> end_;
};

}  // namespace wmoutlook

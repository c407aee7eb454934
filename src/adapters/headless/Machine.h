#pragma once

#include "platform/Platform.h"

#include <cstdint>
#include <random>
#include <string>

namespace wmoutlook {

/// The machine's clock, in its own time zone.
class SystemClock : public Clock {
public:
    [[nodiscard]] Date now() override;
};

/// A clock that stands still, so that a run can be repeated.
class FixedClock : public Clock {
public:
    explicit FixedClock(Date moment) : moment_(moment) {}
    [[nodiscard]] Date now() override { return moment_; }

private:
    Date moment_;
};

/// The same numbers on every machine for the same seed.
class SeededRandom : public RandomSource {
public:
    explicit SeededRandom(std::uint64_t seed) : engine_(seed) {}
    [[nodiscard]] double next() override;

private:
    std::mt19937_64 engine_;
};

/// The folder of the program that is running; empty when the system does not tell.
[[nodiscard]] std::string folderOfThisProgram();

/// A message loop without events: it only counts how often a run yields to it.
class IdleMessageLoop : public MessageLoop {
public:
    void yield() override { ++yields_; }
    [[nodiscard]] std::int64_t yields() const { return yields_; }

private:
    std::int64_t yields_ = 0;
};

}  // namespace wmoutlook

#pragma once

#include <cstdint>

namespace wmoutlook::bench {

/// What a run cost.
struct Cost {
    double seconds = 0;              ///< of the processor
    std::int64_t laterPrepared = 0;  ///< statements prepared after the first record
};

/// The processor time that this process has used, its own and the system's for it, in seconds. The files lie in memory, so
/// nothing waits, and what else the machine does at the same time counts little.
[[nodiscard]] double processorSeconds();

/// How many texts this process has handed to the engine to prepare, whoever did it: the linker leads every call past a
/// counter. A text that is executed without being kept counts as well.
[[nodiscard]] std::int64_t preparedStatements();

}  // namespace wmoutlook::bench

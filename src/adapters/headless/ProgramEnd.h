#pragma once

#include "platform/Routine.h"

#include <exception>
#include <stdexcept>

namespace wmoutlook {

/// Reaches the host's own code when the error service has ended the program.
class ProgramEnded : public std::runtime_error {
public:
    ProgramEnded() : std::runtime_error("The error service ended the program") {}
};

/// The end of the program, once the error service has answered so. The answer alone does not end a run: a routine that is
/// shared with the host only tries again. So the host's ports ask here before each call, and the run is unwound at the next.
class ProgramEnd {
public:
    void decide() { isDecided_ = true; }
    [[nodiscard]] bool isDecided() const { return isDecided_; }
    void unwindIfDecided() const {
        if (isDecided_) throw HostUnwind{std::make_exception_ptr(ProgramEnded{})};
    }

private:
    bool isDecided_ = false;
};

}  // namespace wmoutlook

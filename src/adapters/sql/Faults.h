#pragma once

#include "platform/Errors.h"

#include <string>

namespace wmoutlook::sql {

/// Faults that the adapter finds before the engine does, under the numbers that the embedded engine has for them.
enum class Fault : std::int32_t {
    syntax = 1,
    readOnly = 8,
    notFound = 12,
    cannotOpen = 14,
    tooLong = 18,
    wrongType = 20,
    notOpen = 21,
    refused = 23,
};

[[noreturn]] inline void fail(Fault fault, const std::string& message) {
    throw DatabaseError{static_cast<std::int32_t>(fault), message};
}

}  // namespace wmoutlook::sql

#pragma once

#include "platform/Errors.h"

#include <limits>
#include <string>
#include <string_view>

namespace wmoutlook::testing {

/// Counts the calls into all decorated ports and makes one of them, or all from one on, fail.
struct Faults {
    int calls = 0;
    int failFrom = std::numeric_limits<int>::max();
    int failTo = -1;  ///< the last call that fails
    int failed = 0;
    std::string firstFailed;
    std::string firstField;  ///< which the first failed call was about

    void failOnce(int call) { failFrom = failTo = call; }
    void failFromNowOn(int call) {
        failFrom = call;
        failTo = std::numeric_limits<int>::max();
    }

    void hit(const char* operation, std::string_view field = {}) {
        ++calls;
        if (calls < failFrom || calls > failTo) return;
        if (failed++ == 0) {
            firstFailed = operation;
            firstField = field;
        }
        throw Failure{-2147467259, std::string{"Injected failure of "} + operation};
    }
};

}  // namespace wmoutlook::testing

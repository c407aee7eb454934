#pragma once

#include "platform/Services.h"

#include <optional>
#include <string_view>

namespace wmoutlook {

/// Keeps the first failure of a command that is done as a whole or not at all: every routine that fails is left.
class FirstFailure : public ErrorService {
public:
    void enterFunction(std::string_view) override {}
    void leaveFunction() override {}
    ErrorAnswer reportError(const ErrorReport& report) override {
        if (!first_) first_ = report;
        return ErrorAnswer::leaveRoutine;
    }
    [[nodiscard]] const std::optional<ErrorReport>& first() const { return first_; }

private:
    std::optional<ErrorReport> first_;
};

}  // namespace wmoutlook

#pragma once

#include "adapters/headless/ProgramEnd.h"
#include "platform/Services.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {

/// What an unattended error service answers to every report.
enum class ErrorPolicy { resume, leave, retry, stop };

/// Keeps the reports, shows each and answers by its policy. Retrying is given up after kMostRetries answers in a row: nothing
/// has succeeded in between, since no routine was entered or left.
class ConsoleErrorService : public ErrorService {
public:
    using Show = std::function<void(const ErrorReport&)>;
    static constexpr int kMostRetries = 100;

    ConsoleErrorService(ErrorPolicy policy, std::shared_ptr<ProgramEnd> end, Show show);

    void enterFunction(std::string_view errorTag) override;
    void leaveFunction() override;
    ErrorAnswer reportError(const ErrorReport& report) override;

    [[nodiscard]] const std::vector<ErrorReport>& reports() const { return reports_; }

private:
    ErrorAnswer answer();

    ErrorPolicy policy_;
    std::shared_ptr<ProgramEnd> end_;
    Show show_;
    std::vector<ErrorReport> reports_;
    int answersInARow_ = 0;
};

/// Keeps the messages and shows each. Nobody can be asked: every question is answered with no, which changes nothing.
class RecordingMessageBoxes : public MessageBoxService {
public:
    using Show = std::function<void(const Message&)>;

    explicit RecordingMessageBoxes(Show show) : show_(std::move(show)) {}

    void showMessage(const Message& message) override;
    [[nodiscard]] bool askQuestion(const Message& question) override;

    [[nodiscard]] const std::vector<Message>& messages() const { return messages_; }

private:
    Show show_;
    std::vector<Message> messages_;
};

}  // namespace wmoutlook

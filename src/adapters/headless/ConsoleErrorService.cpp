#include "adapters/headless/ConsoleErrorService.h"

#include <utility>

namespace wmoutlook {

ConsoleErrorService::ConsoleErrorService(ErrorPolicy policy, std::shared_ptr<ProgramEnd> end, Show show)
    : policy_(policy), end_(std::move(end)), show_(std::move(show)) {}

void ConsoleErrorService::enterFunction(std::string_view) {
    answersInARow_ = 0;
}

void ConsoleErrorService::leaveFunction() {
    answersInARow_ = 0;
}

ErrorAnswer ConsoleErrorService::reportError(const ErrorReport& report) {
    if (end_->isDecided()) return ErrorAnswer::leaveRoutine;  // what fails on the way out is no news
    const bool isNews =
        reports_.empty() || reports_.back().errorTag != report.errorTag || reports_.back().message != report.message;
    reports_.push_back(report);
    if (isNews) show_(report);  // a statement that is tried over and over is shown once
    return answer();
}

ErrorAnswer ConsoleErrorService::answer() {
    switch (policy_) {
        case ErrorPolicy::resume: return ErrorAnswer::goOn;
        case ErrorPolicy::leave: return ErrorAnswer::leaveRoutine;
        case ErrorPolicy::stop: end_->decide(); return ErrorAnswer::endProgram;
        case ErrorPolicy::retry: break;
    }
    if (++answersInARow_ >= kMostRetries) end_->decide();
    return ErrorAnswer::tryAgain;
}

void RecordingMessageBoxes::showMessage(const Message& message) {
    messages_.push_back(message);
    show_(message);
}

bool RecordingMessageBoxes::askQuestion(const Message& question) {
    showMessage(question);
    return false;
}

}  // namespace wmoutlook

#include "platform/Routine.h"

#include "platform/Errors.h"

#include <new>
#include <string>

namespace wmoutlook {

namespace {

std::shared_ptr<ErrorService>& theErrorService() {
    static std::shared_ptr<ErrorService> service;
    return service;
}

Routine*& theCurrentRoutine() {
    static Routine* routine = nullptr;
    return routine;
}

std::uint64_t& theFailures() {
    static std::uint64_t failures = 0;
    return failures;
}

ErrorReport reportOfCaught(std::string_view errorTag) {
    ErrorReport report;
    report.errorTag = errorTag;
    try {
        throw;
    } catch (const Failure& failure) {
        report.number = failure.number();
        report.message = failure.what();
    } catch (const std::bad_alloc&) {
        report.message = "There is not enough memory";
    } catch (const std::exception& error) {
        report.message = error.what();
    } catch (...) {
        report.message = "Unknown error";
    }
    return report;
}

}  // namespace

void setErrorService(std::shared_ptr<ErrorService> service) {
    theErrorService() = std::move(service);
}

const std::shared_ptr<ErrorService>& errorService() {
    return theErrorService();
}

Routine* Routine::current() {
    return theCurrentRoutine();
}

std::uint64_t Routine::failures() {
    return theFailures();
}

Routine::Routine(std::string_view errorTag, const Event<>* exitProgram, OnFailure onFailure)
    : errorTag_(errorTag),
      exitProgram_(exitProgram),
      onFailure_(onFailure),
      caller_(theCurrentRoutine()),
      traced_(theErrorService()) {
    theCurrentRoutine() = this;
    if (!traced_) return;
    try {
        quietly([&] { traced_->enterFunction(errorTag_); });  // a failing trace is no reason to fail the routine
    } catch (...) {  // a service that called the component, on the host's way out: there is no destructor to restore the caller
        theCurrentRoutine() = caller_;
        throw;
    }
}

Routine::~Routine() {
    theCurrentRoutine() = caller_;
    if (!traced_) return;
    try {
        traced_->leaveFunction();
    } catch (...) {  // leaving must not fail, also not while an exception passes through
    }
}

Routine::Next Routine::handleCaught() {
    Routine* const routine = current();
    if (routine == nullptr) throw;
    switch (routine->report()) {
        case ErrorAnswer::goOn: ++theFailures(); return Next::goOn;
        case ErrorAnswer::leaveRoutine: ++theFailures(); throw Leave{routine};
        case ErrorAnswer::endProgram: routine->raiseExitProgram(); return Next::tryAgain;
        case ErrorAnswer::tryAgain: break;
    }
    return Next::tryAgain;
}

void Routine::reportUncaught() {
    ++theFailures();
    if (report() == ErrorAnswer::endProgram) raiseExitProgram();
}

ErrorAnswer Routine::report() {
    const auto service = theErrorService();
    if (!service || onFailure_ == OnFailure::ignore) return ErrorAnswer::goOn;
    const ErrorReport report = reportOfCaught(errorTag_);
    try {
        return service->reportError(report);
    } catch (const HostUnwind&) {  // the service called the component, on the host's way out
        throw;
    } catch (...) {  // a service that cannot even be told is as good as none
        return ErrorAnswer::goOn;
    }
}

void Routine::raiseExitProgram() const {
    if (exitProgram_ == nullptr) return;
    try {
        exitProgram_->raise();
    } catch (const HostUnwind&) {
        throw;
    } catch (...) {
        throw HostUnwind{std::current_exception()};
    }
}

}  // namespace wmoutlook

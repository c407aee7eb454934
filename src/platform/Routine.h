#pragma once

#include "platform/Event.h"
#include "platform/Services.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

namespace wmoutlook {

// How every routine of the system meets failures, in one place.
//
// A *routine* has an error tag and one handler. A *statement* is what the handler skips or repeats: one call into a
// service or into Outlook, or one computation that can fail. When a statement fails, the error service is told and its
// answer decides: go on behind the statement, leave the routine with the result that it has by then, end the program
// (the event ExitProgram, in routines of the public class) and try again, or try again. Without a service: go on. A failure
// never crosses a routine: its caller goes on with the result.
//
// What a skipped statement leaves behind is chosen so that no loop can hang on a service that keeps failing: a null, an
// empty text, nothing found, a set at its end.

/// The module-wide error service, shared by all instances of the component; the last one set wins. Nothing means silence.
void setErrorService(std::shared_ptr<ErrorService> service);
[[nodiscard]] const std::shared_ptr<ErrorService>& errorService();

/// What the host throws from its handler of ExitProgram, on its way out through all routines. Public operations of the
/// component unwrap it, so that the host meets exactly the exception that it threw.
class HostUnwind {
public:
    explicit HostUnwind(std::exception_ptr thrown) : thrown_(std::move(thrown)) {}
    [[noreturn]] void rethrow() const { std::rethrow_exception(thrown_); }

private:
    std::exception_ptr thrown_;
};

/// The frame of one routine: tells the error service that it is entered and, whatever way it is left, that it is left.
class Routine {
public:
    /// Setters of services, construction and destruction ignore errors statement by statement, without a report.
    enum class OnFailure { ask, ignore };

    /// A routine of the public class names its event; a shared routine has none.
    explicit Routine(std::string_view errorTag, const Event<>* exitProgram = nullptr, OnFailure onFailure = OnFailure::ask);
    ~Routine();
    Routine(const Routine&) = delete;
    Routine& operator=(const Routine&) = delete;

    /// Runs the body. An exception that no statement of the body has caught counts as a failure of the rest of the body:
    /// it is reported, and the routine is left, since there is nothing to repeat.
    template <class Body>
    void run(Body&& body) {
        try {
            body();
        } catch (const Leave& leave) {
            if (leave.routine != this) throw;
        } catch (const HostUnwind&) {
            throw;
        } catch (...) {
            reportUncaught();
        }
    }

    /// The routine that is running; nothing outside of all routines.
    [[nodiscard]] static Routine* current();
    /// How many failures have had a consequence so far: a statement that was skipped or a routine that was left. For those who have
    /// to tell an empty answer from none.
    [[nodiscard]] static std::uint64_t failures();

private:
    template <class Attempt>
    friend auto statement(Attempt&& attempt, std::invoke_result_t<Attempt> skipped) -> std::invoke_result_t<Attempt>;
    template <class Attempt>
    friend auto quietly(Attempt&& attempt) -> std::invoke_result_t<Attempt>;

    struct Leave {
        const Routine* routine;
    };
    enum class Next { goOn, tryAgain };

    /// Reports the exception being handled and does what the answer says; throws Leave or HostUnwind.
    static Next handleCaught();
    void reportUncaught();
    ErrorAnswer report();
    void raiseExitProgram() const;

    std::string_view errorTag_;
    const Event<>* exitProgram_;
    OnFailure onFailure_;
    Routine* caller_;
    std::shared_ptr<ErrorService> traced_;  ///< the service that was told of the entry
};

/// Runs one statement under the handler of the current routine. When it is skipped, its result is `skipped`, by default the
/// empty value of its type (a null, an empty text, 0, False, nothing). Outside of all routines the exception goes on.
template <class Attempt>
auto statement(Attempt&& attempt, std::invoke_result_t<Attempt> skipped) -> std::invoke_result_t<Attempt> {
    for (;;) {
        try {
            return attempt();
        } catch (const Routine::Leave&) {
            throw;
        } catch (const HostUnwind&) {
            throw;
        } catch (...) {
            if (Routine::handleCaught() == Routine::Next::goOn) break;
        }
    }
    return skipped;
}

template <class Attempt>
auto statement(Attempt&& attempt) -> std::invoke_result_t<Attempt> {
    using Result = std::invoke_result_t<Attempt>;
    if constexpr (std::is_void_v<Result>)
        statement([&] { return attempt(), true; }, false);
    else
        return statement(std::forward<Attempt>(attempt), Result{});
}

/// Runs one statement with errors caught on the spot: a failure is no failure here, and the result is the default.
template <class Attempt>
auto quietly(Attempt&& attempt) -> std::invoke_result_t<Attempt> {
    using Result = std::invoke_result_t<Attempt>;
    try {
        return attempt();
    } catch (const Routine::Leave&) {
        throw;
    } catch (const HostUnwind&) {
        throw;
    } catch (...) {
        if constexpr (!std::is_void_v<Result>) return Result{};
    }
}

/// A public operation of the component: what the host threw from ExitProgram leaves it unwrapped, unless the operation was
/// called from within a routine, through which it passes on as it is.
template <class Operation>
auto publicOperation(Operation&& operation) -> std::invoke_result_t<Operation> {
    try {
        return operation();
    } catch (const HostUnwind& unwind) {
        if (Routine::current() != nullptr) throw;
        unwind.rethrow();
    }
}

}  // namespace wmoutlook

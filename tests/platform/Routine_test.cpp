#include "platform/Routine.h"

#include "platform/Errors.h"
#include "platform/Variant.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace wmoutlook {
namespace {

/// The host's error service: one line of what it was told, "(outer(inner!))" for a failure in the inner of two routines.
class Desk : public ErrorService {
public:
    std::string trace;
    std::vector<ErrorReport> reports;
    ErrorAnswer answer = ErrorAnswer::goOn;
    std::function<void(char)> onCall = [](char) {};

    void enterFunction(std::string_view errorTag) override {
        trace.append("(").append(errorTag);
        onCall('(');
    }
    void leaveFunction() override {
        trace += ')';
        onCall(')');
    }
    ErrorAnswer reportError(const ErrorReport& report) override {
        trace += '!';
        reports.push_back(report);
        onCall('!');
        return reports.size() < 10 ? answer : ErrorAnswer::goOn;  // a retry without end shall fail its test, not hang it
    }
};

struct HostStop {
    int code;
};

int failing() {
    throw Failure{7, "The disk is full"};
}

/// Fails so many times, then gives 42.
std::function<int()> failingTimes(int times) {
    return [times]() mutable { return times-- > 0 ? failing() : 42; };
}

class FailureRule : public ::testing::Test {
protected:
    FailureRule() { setErrorService(desk); }
    ~FailureRule() override {
        EXPECT_EQ(Routine::current(), nullptr);
        setErrorService(nullptr);
    }

    void answerWith(int answer) {
        desk->answer = static_cast<ErrorAnswer>(answer);
        desk->trace.clear();
        desk->reports.clear();
        exits = steps = 0;
    }

    /// One routine; `steps` counts what its body still reaches.
    template <class Body>
    void routine(std::string_view tag, Body&& body, const Event<>* event = nullptr) {
        Routine frame{tag, event};
        frame.run(body);
    }

    /// A public operation of two nested routines, the inner one failing.
    int nestedOperation(bool isStatement = true) {
        return publicOperation([&] {
            const auto inner = [&] { isStatement ? statement(failing) : failing(), ++steps; };
            const auto outer = [&] {
                statement([&] { quietly([&] { routine("inner", inner, &exitProgram); }), ++steps; });
                ++steps;
            };
            routine("outer", outer, &exitProgram);
            return ++steps;
        });
    }

    std::shared_ptr<Desk> desk = std::make_shared<Desk>();
    Event<> exitProgram;
    int exits = 0;
    int steps = 0;
    Subscription countExits = exitProgram.subscribe([this] { ++exits; });
};

TEST_F(FailureRule, TheAnswerDecidesWhatBecomesOfAFailedStatement) {
    struct Case {
        int answer, failures, result;  // -1: what the routine had before the statement
        int steps;
        std::string trace;
        int exits;
    };
    for (const Case& c :
         {Case{1, 1, 0, 1, "(callee!)", 0}, Case{2, 1, -1, 0, "(callee!)", 0}, Case{3, 2, 42, 1, "(callee!!)", 2},
          Case{4, 2, 42, 1, "(callee!!)", 0}, Case{0, 2, 42, 1, "(callee!!)", 0}, Case{-1, 1, 42, 1, "(callee!)", 0},
          Case{99, 3, 42, 1, "(callee!!!)", 0}, Case{1, 0, 42, 1, "(callee)", 0}}) {
        for (const bool isPublic : {true, false}) {
            SCOPED_TRACE(testing::Message() << "answer " << c.answer << (isPublic ? " public" : " shared"));
            answerWith(c.answer);
            int result = -1;
            const auto body = [&] { result = statement(failingTimes(c.failures)), ++steps; };
            routine("callee", body, isPublic ? &exitProgram : nullptr);
            EXPECT_EQ(result, c.result);
            EXPECT_EQ(steps, c.steps);
            EXPECT_EQ(desk->trace, c.trace);
            EXPECT_EQ(exits, isPublic ? c.exits : 0);
        }
    }
}

TEST_F(FailureRule, ASkippedStatementLeavesTheEmptyValueOfItsKind) {
    routine("callee", [&] {
        statement([] { failing(); });
        EXPECT_EQ(statement(failing), 0);
        EXPECT_EQ(statement([] { return failing() == 7; }), false);
        EXPECT_EQ(statement([] { return std::to_string(failing()); }), "");
        EXPECT_TRUE(statement([] { return Variant{failing()}; }).isNull());
        EXPECT_EQ(statement([] { return std::make_shared<int>(failing()); }), nullptr);
        EXPECT_EQ(statement([] { return std::optional{failing()}; }), std::nullopt);
        EXPECT_EQ(statement(failing, kNoRecord), kNoRecord);
    });
    EXPECT_EQ(desk->reports.size(), 8U);
}

TEST_F(FailureRule, AFailureNeverCrossesTheRoutine) {
    struct Case {
        int answer;
        bool isStatement;
        int steps;  // 1 of the callee, 10 of its caller
    };
    for (const Case& c : {Case{1, true, 11}, Case{2, true, 10}, Case{1, false, 10}, Case{2, false, 10}}) {
        answerWith(c.answer);
        const auto callee = [&] { routine("inner", [&] { c.isStatement ? statement(failing) : failing(), ++steps; }); };
        routine("outer",
                [&] { statement(callee), steps += 10; });  // the callee's leaving is no failure of the caller's statement
        EXPECT_EQ(steps, c.steps);
        EXPECT_EQ(desk->trace, "(outer(inner!))");
    }
}

TEST_F(FailureRule, LeavingFromDeepWithinLambdasLeavesTheRoutineAndIsReportedOnce) {
    answerWith(2);
    routine("callee", [&] {
        const auto walk = [&] {
            for (int i = 0; i < 3; ++i) quietly([&] { statement(failing), ++steps; });
            ++steps;
        };
        statement(walk);
        ++steps;
    });
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(desk->trace, "(callee!)");
}

TEST_F(FailureRule, AnExceptionOutsideAnyStatementIsReportedOnceAndLeavesTheRoutine) {
    for (const int answer : {1, 2, 3, 4, 0}) {
        SCOPED_TRACE(answer);
        answerWith(answer);
        int result = 0;
        routine(
            "callee", [&] { result = 5, ++steps, result = failing(); }, &exitProgram);
        EXPECT_EQ(result, 5);
        EXPECT_EQ(steps, 1);  // also with an answer that asks for a retry: there is nothing to repeat
        EXPECT_EQ(desk->trace, "(callee!)");
        EXPECT_EQ(exits, answer == 3 ? 1 : 0);
    }
}

TEST_F(FailureRule, TheReportNamesTheRoutineAndTheError) {
    struct Case {
        std::function<void()> attempt;
        std::int32_t number;
        std::string message;
    };
    for (const Case& c :
         {Case{failing, 7, "The disk is full"}, Case{[] { throw ConversionError{"No number"}; }, 13, "No number"},
          Case{[] { throw ObjectNotSet{"Outlook"}; }, 91, "Object not set: Outlook"},
          Case{[] { throw std::out_of_range{"index"}; }, 0, "index"}, Case{[] { throw 5; }, 0, "Unknown error"}}) {
        routine("file-module-function", [&] { statement(c.attempt); });
        ASSERT_FALSE(desk->reports.empty());
        EXPECT_EQ(desk->reports.back().errorTag, "file-module-function");
        EXPECT_EQ(desk->reports.back().number, c.number);
        EXPECT_EQ(desk->reports.back().message, c.message);
    }
}

TEST_F(FailureRule, WithoutAServiceEverythingGoesOnInSilence) {
    setErrorService(nullptr);
    routine(
        "callee", [&] { statement(failing), ++steps, failing(); }, &exitProgram);
    EXPECT_EQ(steps, 1);
    EXPECT_EQ(exits, 0);
    EXPECT_EQ(desk->trace, "");
}

TEST_F(FailureRule, OutsideOfAllRoutinesTheExceptionGoesOn) {
    EXPECT_THROW(statement(failing), Failure);
    EXPECT_EQ(desk->trace, "");
}

TEST_F(FailureRule, AServiceThatItselfFailsNeverStopsARoutine) {
    for (const char failingCall : {'(', '!', ')'}) {
        SCOPED_TRACE(failingCall);
        answerWith(2);
        desk->onCall = [&](char call) { call == failingCall ? throw std::runtime_error{"service is gone"} : void(); };
        routine("callee", [&] { ++steps, statement(failing), ++steps; });
        EXPECT_EQ(steps, failingCall == '!' ? 2 : 1);  // a service that cannot be told is as good as none
    }
}

TEST_F(FailureRule, ErrorsCaughtOnTheSpotAreNoFailures) {
    routine("callee", [&] {
        quietly([] { failing(); });
        EXPECT_EQ(quietly(failing), 0);
        EXPECT_EQ(quietly([] { return std::to_string(failing()); }), "");
        EXPECT_EQ(quietly([] { return 42; }), 42);
    });
    EXPECT_EQ(desk->trace, "(callee)");
}

TEST_F(FailureRule, ARoutineThatIgnoresErrorsAsksNobodyButItsCalleesDo) {
    answerWith(2);
    {
        Routine setter{"setter", &exitProgram, Routine::OnFailure::ignore};
        setter.run([&] {
            statement(failing), ++steps;
            routine("inner", [&] { statement(failing), ++steps; });
            failing();
        });
    }
    EXPECT_EQ(steps, 1);
    EXPECT_EQ(desk->trace, "(setter(inner!))");
}

TEST_F(FailureRule, WhatTheHostThrowsFromExitProgramReachesTheHostAsItIs) {
    const Subscription stop = exitProgram.subscribe([] { throw HostStop{77}; });
    for (const bool isStatement : {true, false}) {
        answerWith(3);
        int code = 0;
        try {
            nestedOperation(isStatement);
        } catch (const HostStop& caught) {
            code = caught.code;
        }
        EXPECT_EQ(code, 77);
        EXPECT_EQ(steps, 0);
        EXPECT_EQ(desk->trace, "(outer(inner!))");
    }
    answerWith(1);
    EXPECT_EQ(nestedOperation(), 4);  // an ordinary result passes
}

TEST_F(FailureRule, APublicOperationWithinARoutineHandsTheHostsExceptionOn) {
    const Subscription stop = exitProgram.subscribe([] { throw HostStop{77}; });
    answerWith(3);
    const auto caller = [&] { statement([&] { return nestedOperation(); }), ++steps; };
    EXPECT_THROW(publicOperation([&] { routine("caller", caller); }), HostStop);
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(desk->trace, "(caller(outer(inner!)))");
}

TEST_F(FailureRule, TheHostsExceptionAlsoPassesAServiceThatCallsTheComponent) {
    const Subscription stop = exitProgram.subscribe([] { throw HostStop{77}; });
    for (const char calling : {'(', '!'}) {
        SCOPED_TRACE(calling);
        answerWith(3);
        bool isCalling = false;
        desk->onCall = [&](char call) {
            if (call == calling && !std::exchange(isCalling, true)) nestedOperation();
        };
        EXPECT_THROW(publicOperation([&] { routine("caller", [&] { statement(failing), ++steps; }); }), HostStop);
        EXPECT_EQ(steps, 0);
        EXPECT_EQ(Routine::current(), nullptr);
    }
}

TEST_F(FailureRule, AServiceReplacedOnTheWayHearsOnlyOfWhatItSawEntered) {
    const auto successor = std::make_shared<Desk>();
    routine("outer", [&] {
        setErrorService(successor);
        statement(failing);
        routine("inner", [] {});
    });
    EXPECT_EQ(desk->trace, "(outer)");
    EXPECT_EQ(successor->trace, "!(inner)");
}

}  // namespace
}  // namespace wmoutlook

#include "platform/Event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace wmoutlook {
namespace {

TEST(Events, HandlersAreCalledInOrderUntilTheirSubscriptionEnds) {
    Event<> event;
    std::string calls;
    Subscription first = event.subscribe([&] { calls += '1'; });
    {
        const Subscription second = event.subscribe([&] { calls += '2'; });
        event.raise();
    }
    const Subscription third = event.subscribe([&] { calls += '3'; });
    event.raise();
    first.end();
    event.raise();
    EXPECT_EQ(calls, "12133");
}

TEST(Events, HandlersMaySubscribeAndUnsubscribeWhileTheyRun) {
    Event<> event;
    std::string calls;
    Subscription second;
    Subscription added;
    Subscription first;
    first = event.subscribe([&] {
        second.end();
        first.end();
        added = event.subscribe([&] { calls += '3'; });  // from the next time on
        calls += '1';
    });
    second = event.subscribe([&] { calls += '2'; });
    event.raise();
    EXPECT_EQ(calls, "1");
    event.raise();
    EXPECT_EQ(calls, "13");
}

TEST(Events, ArgumentsByReferenceComeBackAndExceptionsReachTheRaiser) {
    Event<int&> event;
    const Subscription doubling = event.subscribe([](int& number) { number *= 2; });
    const Subscription throwing = event.subscribe([](int& number) { throw number; });
    const Subscription never = event.subscribe([](int& number) { number = 0; });
    int number = 21;
    EXPECT_THROW(event.raise(number), int);
    EXPECT_EQ(number, 42);
}

TEST(Events, ASubscriptionMayOutliveItsEvent) {
    auto event = std::make_unique<Event<>>();
    const auto watched = std::make_shared<int>(1);
    Subscription subscription = event->subscribe([watched] {});
    event.reset();
    EXPECT_EQ(watched.use_count(), 2);
    subscription.end();
    EXPECT_EQ(watched.use_count(), 1);
}

}  // namespace
}  // namespace wmoutlook

#pragma once

#include <functional>
#include <list>
#include <memory>
#include <utility>

namespace wmoutlook {

/// Ends its handler when it goes out of scope. It may outlive the event.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> handler) : handler_(std::move(handler)) {}
    void end() { handler_.reset(); }

private:
    std::shared_ptr<void> handler_;
};

/// An event with its handlers, called in the order of subscription on the caller's thread. What a handler throws reaches
/// whoever raised the event.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    Subscription subscribe(Handler handler) {
        auto kept = std::make_shared<Handler>(std::move(handler));
        handlers_.remove_if([](const auto& known) { return known.expired(); });
        handlers_.push_back(kept);
        return Subscription{kept};
    }

    void raise(Args... args) const {
        const auto present = handlers_;  // a handler may subscribe or unsubscribe
        for (const auto& known : present)
            if (const auto handler = known.lock()) (*handler)(args...);
    }

private:
    std::list<std::weak_ptr<Handler>> handlers_;
};

}  // namespace wmoutlook

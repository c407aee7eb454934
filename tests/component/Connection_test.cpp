#include "adapters/outlookstore/OutlookStore.h"
#include "tests/support/FaultyOutlook.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

namespace wmoutlook::testing {
namespace {

using Names = std::vector<std::string>;

/// Notes the calls that matter here on their way to the store.
struct Calls {
    Names names;
};

class WatchedNameSpace : public FaultyNameSpace {
public:
    WatchedNameSpace(std::shared_ptr<port::NameSpace> inner, Faults& faults, Calls& calls)
        : FaultyNameSpace(std::move(inner), faults), calls_(calls) {}
    void logon(std::optional<std::string_view> profile, std::optional<std::string_view> password, bool dialog,
               bool session) override {
        calls_.names.push_back("logon " + std::string{profile.value_or("missing")} + " " +
                               std::string{password.value_or("missing")} + (dialog ? " dialog" : "") + (session ? " new" : ""));
        FaultyNameSpace::logon(profile, password, dialog, session);
    }

private:
    Calls& calls_;
};

class WatchedApplication : public FaultyApplication {
public:
    WatchedApplication(std::shared_ptr<port::Application> inner, Faults& faults, Calls& calls)
        : FaultyApplication(inner, faults), inner_(std::move(inner)), faults_(faults), calls_(calls) {}
    std::shared_ptr<port::NameSpace> getNamespace(std::string_view type) override {
        return std::make_shared<WatchedNameSpace>(inner_->getNamespace(type), faults_, calls_);
    }
    void quit() override {
        calls_.names.emplace_back("quit");
        FaultyApplication::quit();
    }

private:
    std::shared_ptr<port::Application> inner_;
    Faults& faults_;
    Calls& calls_;
};

class WatchedAutomation : public port::Automation {
public:
    WatchedAutomation(std::shared_ptr<port::Automation> inner, Calls& calls) : inner_(std::move(inner)), calls_(calls) {}
    std::shared_ptr<port::Application> getRunning() override { return watched(inner_->getRunning()); }
    std::shared_ptr<port::Application> createNew() override { return watched(inner_->createNew()); }

private:
    std::shared_ptr<port::Application> watched(std::shared_ptr<port::Application> application) {
        return std::make_shared<WatchedApplication>(std::move(application), none_, calls_);
    }
    std::shared_ptr<port::Automation> inner_;
    Calls& calls_;
    Faults none_;
};

class Connection : public ::testing::Test {
protected:
    TestHost host;
    Calls calls;
    Names events;
    std::unique_ptr<clsOutlookSynchronization> component;
    std::vector<Subscription> subscriptions;

    void open(OutlookStoreOptions options) {
        host.outlookStore = nullptr;
        host.outlookStore = std::make_shared<WatchedAutomation>(openOutlookStore(host.files.outlook, options), calls);
        component = host.component();
        const auto note = [this](Event<>& event, const char* name) {
            subscriptions.push_back(event.subscribe([this, name] { events.emplace_back(name); }));
        };
        note(component->startingConnectingToOutlook, "starting");
        note(component->successfullyConnectedToOutlook, "connected");
        note(component->errorConnectingToOutlook, "failed");
        note(component->ExitProgram, "exit");
    }
};

TEST_F(Connection, RunningOutlookIsLeftRunningWhateverTheHostPutBefore) {
    open({});
    component->closeOutlookWhenFinished(true);
    EXPECT_TRUE(component->startOutlook());
    EXPECT_TRUE(component->connectedToOutlook());
    EXPECT_FALSE(component->closeOutlookWhenFinished());
    component.reset();
    EXPECT_EQ(calls.names, Names{"logon missing missing dialog new"});
    EXPECT_EQ(events, (Names{"starting", "connected"}));
}

TEST_F(Connection, OutlookThatTheComponentStartedIsQuitAtTheEnd) {
    OutlookStoreOptions options;
    options.isRunning = false;
    open(options);
    EXPECT_TRUE(component->startOutlook());
    EXPECT_TRUE(component->closeOutlookWhenFinished());
    component->startOutlook();  // goes through not connected
    component.reset();
    const std::string logon = "logon missing missing dialog new";
    EXPECT_EQ(calls.names, (Names{logon, "quit", logon, "quit"}));
    EXPECT_EQ(events, (Names{"starting", "connected", "starting", "connected"}));
}

TEST_F(Connection, PutAfterTheStartIsHonoured) {
    open({});
    component->startOutlook();
    component->closeOutlookWhenFinished(true);
    component.reset();
    EXPECT_EQ(calls.names.back(), "quit");
}

TEST_F(Connection, EmptyProfileAndPasswordAreMissingArguments) {
    struct Case {
        const char *profile, *password;
        const char* logon;
    };
    open({});
    component->displayLoginDialog(false);
    component->openNewSession(false);
    for (const Case& c : {Case{"me", "secret", "logon me secret"}, Case{"me", "", "logon me missing"},
                          Case{"", "secret", "logon missing secret"}, Case{"", "", "logon missing missing"}}) {
        component->profile(c.profile);
        component->password(c.password);
        component->startOutlook();
        EXPECT_EQ(calls.names.back(), c.logon);
    }
}

TEST_F(Connection, NoOutlookAtAllIsSilentAndTellsByTheEvent) {
    OutlookStoreOptions options;
    options.isRunning = options.canStart = false;
    open(options);
    EXPECT_FALSE(component->startOutlook());
    EXPECT_FALSE(component->connectedToOutlook());
    EXPECT_TRUE(component->closeOutlookWhenFinished());
    EXPECT_EQ(events, (Names{"starting", "failed"}));
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(Connection, OutlookReleasedWhileItLogsOnIsHeldForTheCall) {
    /// The logon shows a dialog; the host gets a turn and starts anew.
    class Reentering : public FaultyNameSpace {
    public:
        Reentering(std::shared_ptr<port::NameSpace> inner, Faults& none, std::function<void()> turn)
            : FaultyNameSpace(std::move(inner), none), turn_(std::move(turn)) {}
        void logon(std::optional<std::string_view> profile, std::optional<std::string_view> password, bool d, bool n) override {
            turn_();
            FaultyNameSpace::logon(profile, password, d, n);
        }

    private:
        std::function<void()> turn_;
    };
    class ReenteringApplication : public FaultyApplication {
    public:
        ReenteringApplication(std::shared_ptr<port::Application> inner, Faults& none, std::function<void()> turn)
            : FaultyApplication(inner, none), inner_(std::move(inner)), none_(none), turn_(std::move(turn)) {}
        std::shared_ptr<port::NameSpace> getNamespace(std::string_view type) override {
            return std::make_shared<Reentering>(inner_->getNamespace(type), none_, turn_);
        }

    private:
        std::shared_ptr<port::Application> inner_;
        Faults& none_;
        std::function<void()> turn_;
    };
    class ReenteringAutomation : public port::Automation {
    public:
        std::shared_ptr<port::Automation> inner;
        Faults none;
        std::function<void()> turn;
        std::shared_ptr<port::Application> getRunning() override {
            return std::make_shared<ReenteringApplication>(inner->getRunning(), none, turn);
        }
        std::shared_ptr<port::Application> createNew() override { return inner->createNew(); }
    };
    const auto automation = std::make_shared<ReenteringAutomation>();
    automation->inner = host.outlookStore;
    host.outlookStore = automation;
    component = host.component();
    int turns = 0;
    automation->turn = [&] {
        if (++turns == 1) component->startOutlook();
    };
    EXPECT_TRUE(component->startOutlook());
    EXPECT_TRUE(component->connectedToOutlook());
    EXPECT_EQ(turns, 2);
}

TEST_F(Connection, RefusedLogonGoesToTheHandler) {
    OutlookStoreOptions options;
    options.acceptsLogon = false;
    open(options);
    host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::leaveRoutine; };
    EXPECT_TRUE(component->startOutlook());  // an application was obtained
    EXPECT_FALSE(component->connectedToOutlook());
    EXPECT_EQ(events, Names{"starting"});
    ASSERT_EQ(host.errors->reports.size(), 1U);
    EXPECT_EQ(host.errors->reports[0].errorTag, "wmoutlooktb.dll-clsOutlookSynchronization-startOutlook");

    int reports = 0;
    host.errors->answer = [&](const ErrorReport&) { return ++reports < 3 ? ErrorAnswer::endProgram : ErrorAnswer::leaveRoutine; };
    component->startOutlook();
    EXPECT_EQ(std::count(events.begin(), events.end(), "exit"), 2);  // each time, and the logon is tried again
}

TEST_F(Connection, ProfileThatTheHostCorrectsIsTriedNext) {
    OutlookStoreOptions options;
    options.acceptsLogon = false;
    open(options);
    component->profile("a profile that was renamed since");
    host.errors->answer = [&](const ErrorReport&) {
        if (calls.names.size() > 1) return ErrorAnswer::leaveRoutine;
        component->profile("me");
        component->password("secret");
        component->displayLoginDialog(false);
        return ErrorAnswer::tryAgain;
    };
    component->startOutlook();
    EXPECT_EQ(calls.names, (Names{"logon a profile that was renamed since missing dialog new", "logon me secret new"}));
}

TEST_F(Connection, HostMayUnwindFromExitProgramWithItsOwnException) {
    struct HostEnds {};
    OutlookStoreOptions options;
    options.acceptsLogon = false;
    open(options);
    host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::endProgram; };
    const auto unwinding = component->ExitProgram.subscribe([] { throw HostEnds{}; });
    EXPECT_THROW(component->startOutlook(), HostEnds);
    EXPECT_TRUE(host.errors->open.empty());
}

TEST(DeferredSteps, RunOnceInTheirOwnOrder) {
    using Step = DeferredSteps::Step;
    DeferredSteps steps;
    Names ran;
    steps.ask(Step::populateOutlookSchemeItemsTable, [&] { ran.emplace_back("items"); });
    steps.ask(Step::populateFolderStoreIDField, [&] { ran.emplace_back("store"); });
    EXPECT_TRUE(steps.isAsked(Step::populateFolderStoreIDField));
    steps.run();
    steps.run();
    EXPECT_EQ(ran, (Names{"store", "items"}));
}

}  // namespace
}  // namespace wmoutlook::testing

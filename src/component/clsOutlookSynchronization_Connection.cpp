#include "component/clsOutlookSynchronization.h"

#include "platform/Errors.h"

#include <optional>

namespace wmoutlook {

namespace {

/// An empty profile or password is a missing argument, not an empty text.
std::optional<std::string> unlessEmpty(const std::string& text) {
    if (text.empty()) return std::nullopt;
    return text;
}

}  // namespace

bool clsOutlookSynchronization::startOutlook() {
    bool hasApplication = false;
    publicOperation([&] {
        Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-startOutlook", &ExitProgram};
        routine.run([&] {
            if (!run_.outlook.application.isNothing()) StopOutlook();
            statement([&] { startingConnectingToOutlook.raise(); });
            reachOutlook();
            hasApplication = !run_.outlook.application.isNothing();
            if (hasApplication) {
                logOn();
                deferredSteps_.run();
            }
            raiseConnectionEvent();
        });
    });
    return hasApplication;
}

/// Attaches to a running Outlook, otherwise starts one, which is then this component's to close. Failures are silent.
void clsOutlookSynchronization::reachOutlook() {
    const auto reach = [&](std::shared_ptr<outlook::port::Application> (outlook::port::Automation::*way)()) {
        return quietly([&] {
            if (!platform_.outlook) throw ObjectNotSet{"Outlook"};
            run_.outlook.application = outlook::Application{(*platform_.outlook.*way)()};
            return true;
        });
    };
    own_.closeOutlookWhenFinished = false;
    if (reach(&outlook::port::Automation::getRunning)) return;
    own_.closeOutlookWhenFinished = true;
    reach(&outlook::port::Automation::createNew);
}

void clsOutlookSynchronization::logOn() {
    OutlookSession& session = run_.outlook;
    session.nameSpace = session.application.getNamespace("MAPI");
    session.nameSpace.logon([&] {
        return outlook::LogonArguments{unlessEmpty(own_.profile), unlessEmpty(own_.password), own_.displayLoginDialog,
                                       own_.openNewSession};
    });
}

void clsOutlookSynchronization::raiseConnectionEvent() {
    if (!run_.outlook.nameSpace.isNothing()) run_.outlook.isConnected = true;
    const Event<>& event = run_.outlook.isConnected ? successfullyConnectedToOutlook : errorConnectingToOutlook;
    statement([&] { event.raise(); });
}

/// A running Outlook that the component attached to stays as it was, and stays logged on.
void clsOutlookSynchronization::StopOutlook() {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-StopOutlook", &ExitProgram};
    routine.run([&] {
        OutlookSession& session = run_.outlook;
        if (!session.application.isNothing() && own_.closeOutlookWhenFinished) session.application.quit();
        session.nameSpace.release();
        session.application.release();
        session.isConnected = false;
    });
}

}  // namespace wmoutlook

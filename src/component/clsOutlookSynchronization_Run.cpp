#include "component/clsOutlookSynchronization.h"

#include "calendar/SynchronizeAppointmentsOrTasks.h"
#include "contacts/SynchronizeContacts.h"
#include "hostdata/HostServices.h"
#include "platform/Errors.h"

namespace wmoutlook {

namespace {

constexpr std::string_view kPleaseWait = "Synchronizing Outlook information, please wait ...";
constexpr std::int32_t kBarStyle = 1;
constexpr std::int32_t kIcon = 101;
constexpr ProgressDisplayOptions kDisplayOptions{true, false, false, true};

std::int32_t countOf(const std::shared_ptr<RecordList>& list) {
    return statement([&] {
        if (!list) throw ObjectNotSet{"selection list"};
        return list->count();
    });
}

}  // namespace

bool clsOutlookSynchronization::synchronize() {
    publicOperation([&] {
        Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-synchronize", &ExitProgram};
        routine.run([&] {
            switch (run_.options.syncObjects) {
                case outlookSyncObjectsEnum::syncContacts:
                    run_.options.showProgress ? showContactsProgress() : SynchronizeContacts(run_);
                    break;
                case outlookSyncObjectsEnum::syncAppointments:
                case outlookSyncObjectsEnum::syncTasks:
                    run_.options.showProgress ? showAppointmentsProgress() : SynchronizeAppointmentsOrTasks(run_);
                    break;
            }
        });
    });
    return false;
}

/// The bar's maximum is the number of companies, also when contacts are walked.
void clsOutlookSynchronization::showContactsProgress() {
    showDialog(
        run_.contactsProgress, [this] { return getCompaniesCollectionRecordCount(); },
        &clsOutlookSynchronization::syncContactsProgress_StartProgress);
}

/// The calendar pass sets the maximum when it knows how many items it has.
void clsOutlookSynchronization::showAppointmentsProgress() {
    showDialog(
        run_.appointmentsProgress, [] { return 1; }, &clsOutlookSynchronization::syncAppointmentsProgress_StartProgress);
}

void clsOutlookSynchronization::showDialog(std::shared_ptr<ProgressDialog>& dialog, const std::function<std::int32_t()>& maximum,
                                           StartHandler start) {
    const auto shown = statement([&] { return platform_.newProgressDialog(); });
    dialog = shown;
    const auto onDialog = [&](auto operation) {
        statement([&] {
            if (!shown) throw ObjectNotSet{"progress dialog"};
            operation(*shown);
        });
    };
    if (shown) startProgress_ = shown->StartProgress.subscribe([this, start] { (this->*start)(); });
    onDialog([](ProgressDialog& it) { it.setMessage(kPleaseWait); });
    onDialog([](ProgressDialog& it) { it.setBarStyle(kBarStyle); });
    const WindowObject owner = ownerWindow();
    onDialog([&](ProgressDialog& it) { it.setOwner(owner); });
    onDialog([](ProgressDialog& it) { it.setMinimum(0); });
    const std::int32_t most = maximum();
    onDialog([&](ProgressDialog& it) { it.setMaximum(most); });
    onDialog([](ProgressDialog& it) { it.setDisplayOptions(kDisplayOptions); });
    onDialog([](ProgressDialog& it) { it.setIcon(kIcon); });
    onDialog([](ProgressDialog& it) { it.show(true); });  // raises StartProgress and comes back when the run is over
}

void clsOutlookSynchronization::endProgress(std::shared_ptr<ProgressDialog>& dialog) {
    closeProgress(dialog);
    startProgress_.end();  // a dialog that is released has no more to say
}

void clsOutlookSynchronization::syncContactsProgress_StartProgress() {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-syncContactsProgress_StartProgress", &ExitProgram};
    routine.run([&] {
        SynchronizeContacts(run_);
        endProgress(run_.contactsProgress);
    });
}

void clsOutlookSynchronization::syncAppointmentsProgress_StartProgress() {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-syncAppointmentsProgress_StartProgress", &ExitProgram};
    routine.run([&] {
        SynchronizeAppointmentsOrTasks(run_);
        endProgress(run_.appointmentsProgress);
    });
}

std::int32_t clsOutlookSynchronization::getCompaniesCollectionRecordCount() const {
    std::int32_t count = 0;
    publicOperation([&] {
        Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getCompaniesCollectionRecordCount", &ExitProgram};
        routine.run([&] { count = countOf(companyCollection); });
    });
    return count;
}

std::int32_t clsOutlookSynchronization::getContactsCollectionRecordCount() const {
    std::int32_t count = 0;
    publicOperation([&] {
        Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getContactsCollectionRecordCount", &ExitProgram};
        routine.run([&] { count = countOf(contactCollection); });
    });
    return count;
}

void clsOutlookSynchronization::openSynchForm() {
    publicOperation([&] {
        Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-openSyncForm", &ExitProgram};
        routine.run([&] {
            const auto form = statement([&] { return newWizard_ ? newWizard_() : nullptr; });
            statement([&] {
                if (!form) throw ObjectNotSet{"wizard form"};
                form->showModal(*this);
            });
        });
    });
}

}  // namespace wmoutlook

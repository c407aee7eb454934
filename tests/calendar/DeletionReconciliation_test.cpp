#include "calendar/DeletionReconciliation.h"
#include "platform/Routine.h"
#include "tests/calendar/CalendarFirm.h"

namespace wmoutlook::testing {
namespace {

/// Towards the host, after one run that has linked everything.
struct ReconcilingFirm : CalendarFirm {
    SyncRun state;

    explicit ReconcilingFirm(outlookSyncObjectsEnum objects) : CalendarFirm(objects) {
        state.options.dataFileUniqueID = "DF";
        state.outlook.nameSpace = outlook::NameSpace{nameSpace()};
        state.outlook.isConnected = true;
    }
    void reconcile() {
        const DeletionReconciliation deletions{state, calendarTableOf(component->syncObjects())};
        deletions.deleteMissingOutlookApptsInTallowbrook(folder()->storeID());
    }
};

TEST(DeletionInTheHost, TakesTheRowsWhoseItemsOutlookStillGives) {
    ReconcilingFirm firm{outlookSyncObjectsEnum::syncAppointments};
    const auto kept = firm.addAppointment({{"Subject", "item is gone"}});
    const auto deleted = firm.addAppointment({{"Subject", "item is there"}});
    addRow(*firm.host.database, "Reminders", "", {{"AppointmentIDNum", toText(deleted)}, {"Completed", "True"}});
    firm.run();
    const auto contacts = firm.nameSpace()->getDefaultFolder(outlook::DefaultFolder::contacts)->items()->add(std::nullopt);
    contacts->save();
    addRow(*firm.host.database, "OutlookSync", "",
           {{"DataFileID", "DF"},
            {"FolderStoreID", firm.folder()->storeID()},
            {"OutlookID", textOf(*contacts, property::EntryID)},
            {"ContactNum", "1"}});
    firm.items()[0]->remove();
    firm.reconcile();
    EXPECT_EQ(firm.column("Appointments", "AppointmentID"), std::vector<std::string>{toText(kept)});
    EXPECT_EQ(firm.column("Reminders", "Completed"), std::vector<std::string>{"True"});  // history is kept
    ASSERT_EQ(firm.links().size(), 2U);  // the one of the row that stays, the contact's
    EXPECT_EQ(firm.links()[0].appointmentNum, toText(kept));
    EXPECT_TRUE(firm.host.errors->reports.empty());
}

TEST(DeletionInTheHost, ReadsTheNumberOfAnAppointmentInARunOfTasksToo) {
    for (const ErrorAnswer answer : {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine}) {
        ReconcilingFirm firm{outlookSyncObjectsEnum::syncTasks};
        firm.addTask({});
        firm.run();
        firm.host.errors->answer = [&](const ErrorReport&) { return answer; };
        firm.reconcile();
        EXPECT_EQ(firm.column("Tasks", "TaskID").size(), 1U);
        EXPECT_EQ(firm.host.errors->reports.size(), 1U);
        EXPECT_EQ(firm.links().size(), answer == ErrorAnswer::goOn ? 0U : 1U);
    }
}

}  // namespace
}  // namespace wmoutlook::testing

#include "calendar/DeletionReconciliation.h"

#include "hostdata/HostServices.h"
#include "platform/Routine.h"
#include "tests/calendar/CalendarFirm.h"
#include "tests/support/FaultyDatabase.h"
#include "tests/support/FaultyOutlook.h"

#include <algorithm>

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

TEST(DeletionInTheHost, RunOfAppointmentsLeavesTasksAndOneOfTasksReadsAppointments) {
    ReconcilingFirm firm{outlookSyncObjectsEnum::syncTasks};
    firm.addTask({});
    firm.addTask({});
    firm.run();
    firm.component->syncObjects(outlookSyncObjectsEnum::syncAppointments);
    firm.addAppointment({});
    firm.run();
    firm.remove("Appointments", "AppointmentID", 1);
    firm.addAppointment({});  // number 2, without a link
    firm.reconcile();
    EXPECT_TRUE(firm.host.errors->reports.empty());
    EXPECT_EQ(firm.column("Tasks", "TaskID").size(), 2U);
    ASSERT_EQ(firm.links().size(), 2U);  // the link of the gone appointment went, those of the tasks stay

    const auto item = firm.folder()->items()->add(std::nullopt);
    item->save();
    addRow(*firm.host.database, "OutlookSync", "",
           {{"DataFileID", "DF"},
            {"FolderStoreID", firm.folder()->storeID()},
            {"OutlookID", textOf(*item, property::EntryID)},
            {"AppointmentNum", "2"}});
    firm.host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::goOn; };
    firm.component->syncObjects(outlookSyncObjectsEnum::syncTasks);
    firm.reconcile();
    EXPECT_EQ(firm.column("Tasks", "TaskID"), std::vector<std::string>{"1"});
}

TEST(DeletionInTheHost, NoFailingCallLeavesARowWithoutItsLink) {
    for (const ErrorAnswer answer : {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine}) {
        bool isClean = false;
        for (int call = 1; !isClean && !::testing::Test::HasFailure(); ++call) {
            ReconcilingFirm firm{outlookSyncObjectsEnum::syncAppointments};
            firm.addAppointment({});
            firm.addAppointment({});
            firm.run();
            Faults faults;
            const auto outlook = std::make_shared<FaultyAutomation>(firm.host.outlookStore, faults);
            firm.state.outlook.nameSpace = outlook::NameSpace{outlook->getRunning()->getNamespace("MAPI")};
            hostServices().database = std::make_shared<FaultyDatabase>(firm.host.database, faults);
            firm.host.errors->answer = [&](const ErrorReport&) { return answer; };
            faults = {};
            faults.failOnce(call);
            firm.reconcile();
            isClean = faults.failed == 0;
            SCOPED_TRACE("call " + std::to_string(call) + " (" + faults.firstFailed + ")");
            hostServices().database = firm.host.database;
            std::vector<std::string> linked;
            for (const CalendarLink& link : firm.links()) linked.push_back(link.appointmentNum);
            for (const std::string& row : firm.column("Appointments", "AppointmentID"))
                EXPECT_NE(std::find(linked.begin(), linked.end(), row), linked.end()) << row;
            EXPECT_EQ(isClean, firm.column("Appointments", "AppointmentID").empty() && faults.failed == 0);
        }
    }
}

}  // namespace
}  // namespace wmoutlook::testing

#include "platform/Routine.h"
#include "syncstore/TargetItem.h"
#include "tests/calendar/CalendarFirm.h"
#include "tests/support/FaultyOutlook.h"

namespace wmoutlook::testing {
namespace {

constexpr auto kAppointments = outlookSyncObjectsEnum::syncAppointments;
constexpr auto kTasks = outlookSyncObjectsEnum::syncTasks;

TEST(CalendarPass, WritesTheChosenUsersRowsAndLinksThem) {
    CalendarFirm firm{kAppointments};
    const auto first = firm.addAppointment({{"Subject", "A"}});
    firm.addAppointment({{"Subject", "B"}, {"UserIDNum", "2"}});
    firm.addAppointment({{"Subject", "C"}, {"UserIDNum", "-1"}});
    firm.run({1});
    EXPECT_EQ(firm.subjects(), std::vector<std::string>{"A"});
    ASSERT_EQ(firm.links().size(), 1U);
    EXPECT_EQ(firm.links()[0].appointmentNum, toText(first));
    EXPECT_EQ(firm.links()[0].outlookID, textOf(*firm.items()[0], property::EntryID));
    EXPECT_EQ(firm.host.messageLoop->yields, 4);  // two for the row, two for its link in the walk over deletions

    firm.run({-1});  // a user like any other
    EXPECT_EQ(firm.subjects(), (std::vector<std::string>{"A", "C"}));
    firm.run({0});  // all users; those that are linked are written again
    EXPECT_EQ(firm.subjects(), (std::vector<std::string>{"A", "C", "B"}));
    EXPECT_EQ(firm.component->outlookImportFolderEntryID(), firm.folder()->entryID());
    EXPECT_TRUE(firm.host.errors->reports.empty());
}

TEST(CalendarPass, DateRangeIsOneOfWholeDays) {
    struct Row {
        std::int32_t type;
        std::vector<std::string> subjects;
    };
    const Row rows[] = {{0, {"24"}}, {1, {"24", "25", "26"}}, {2, {"23", "24"}}, {3, {"24", "25"}}};
    for (const bool isForAll : {false, true})
        for (const Row& row : rows) {
            SCOPED_TRACE(row.type);
            CalendarFirm firm{kTasks};
            for (const char* day : {"23", "24", "25", "26"})
                firm.addTask({{"Subject", day}, {"DateFrom", std::string{"2026-11-"} + day}});
            firm.component->mvarUseAppointmentDateRange = true;
            firm.component->mvarAppointmentSynchDateRangeType = row.type;
            firm.component->mvarApptSynchStartRange = *fromIsoText("2026-11-24 15:00:00");  // as Now leaves it
            firm.component->mvarApptSynchEndRange = *fromIsoText("2026-11-25 15:00:00");
            firm.run({isForAll ? 0 : 1});
            EXPECT_EQ(firm.subjects(), row.subjects);
            EXPECT_EQ(toIsoText(firm.component->mvarApptSynchStartRange), "2026-11-24 15:00:00");
            EXPECT_TRUE(firm.host.errors->reports.empty());
        }
}

TEST(CalendarPass, UnknownRangeTypeIsAFailureAndWritesNothing) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({});
    firm.component->mvarUseAppointmentDateRange = true;
    firm.component->mvarAppointmentSynchDateRangeType = 4;
    firm.run();
    EXPECT_TRUE(firm.items().empty());
    EXPECT_FALSE(firm.host.errors->reports.empty());
}

TEST(CalendarPass, FolderOfAnEarlierRunIsNotTakenForOneThatCannotBeTold) {
    CalendarFirm firm{kAppointments};
    Faults faults;
    faults.failOnce(2);
    SyncRun run;
    run.outlook.nameSpace = outlook::NameSpace{std::make_shared<FaultyNameSpace>(firm.nameSpace(), faults)};
    run.options.outlookImportFolderEntryID = "folder of contacts";
    firm.host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::goOn; };
    Routine routine{"test"};
    routine.run([&] { EXPECT_NE(targetStore(run, outlook::DefaultFolder::calendar), ""); });
    EXPECT_EQ(faults.firstFailed, "Folder.entryID");
    EXPECT_EQ(run.options.outlookImportFolderEntryID, "");
}

TEST(CalendarPass, ItemDeletedInOutlookComesBack) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({{"Subject", "A"}});
    firm.run();
    const std::string before = firm.links()[0].outlookID;
    firm.items()[0]->remove();
    firm.run();
    ASSERT_EQ(firm.links().size(), 1U);
    EXPECT_NE(firm.links()[0].outlookID, before);
    EXPECT_EQ(firm.links()[0].outlookID, textOf(*firm.items().at(0), property::EntryID));
}

TEST(CalendarPass, LinkToAnItemOfAnotherTypeIsNoLink) {
    CalendarFirm firm{kTasks};
    firm.addTask({{"Subject", "T"}});
    const auto other = firm.nameSpace()->getDefaultFolder(outlook::DefaultFolder::contacts)->items()->add(std::nullopt);
    other->put(property::FileAs, "Somebody");
    other->save();
    const std::string otherID = textOf(*other, property::EntryID);
    firm.run();
    const auto pointToOther = [&] {
        const RecordsetHandle rows =
            firm.host.database->openRecordset("SELECT OutlookSync.* FROM OutlookSync;", LockCode::updatable);
        firm.host.database->updateField(rows, "OutlookID", otherID);
        firm.host.database->closeRecordset(rows);
    };
    pointToOther();
    firm.run();
    EXPECT_NE(firm.links()[0].outlookID, otherID);
    pointToOther();
    firm.remove("Tasks", "TaskID", 1);
    firm.host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::goOn; };
    firm.run();
    EXPECT_TRUE(firm.links().empty());
    EXPECT_EQ(firm.host.errors->reports.size(), 1U);
    EXPECT_EQ(textOf(*firm.nameSpace()->getItemFromID(otherID, ""), property::FileAs), "Somebody");
}

TEST(CalendarPass, WritesIntoTheChosenFolder) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({{"Subject", "A"}});
    const auto chosen = firm.folder()->folders()->add("Clients", outlook::DefaultFolder::calendar);
    firm.component->outlookImportFolderStoreID(chosen->storeID());
    firm.component->outlookImportFolderEntryID(chosen->entryID());
    firm.run();
    EXPECT_TRUE(firm.items().empty());
    EXPECT_EQ(textOf(*chosen->items()->getFirst(), property::Subject), "A");
}

TEST(CalendarPass, NothingIsTouchedWithoutUsersConnectionOrDirection) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({});
    firm.run({});
    firm.component->syncDirectionType(outlookSyncTypeEnum::syncBothsWays);
    firm.run();
    firm.component->syncDirectionType(outlookSyncTypeEnum::syncFromTallowbrookToOutlook);
    const auto unconnected = firm.host.component();
    unconnected->syncObjects(kAppointments);
    unconnected->companyCollection->add({Variant{}, Variant{}, 1});
    unconnected->synchronize();
    EXPECT_TRUE(firm.items().empty());
    EXPECT_TRUE(firm.links().empty());
    EXPECT_TRUE(firm.host.errors->reports.empty());
}

TEST(CalendarPass, BarIsSetForEachUserAndShowsTheHostsSubject) {
    CalendarFirm firm{kAppointments};
    firm.addAppointment({{"Subject", "A"}, {"CompanyIDNum", toText(firm.company)}});
    firm.addAppointment({{"Subject", "B"}});
    firm.component->showProgress(true);
    firm.run();
    EXPECT_EQ(firm.host.dialog->maximum, 2);
    EXPECT_EQ(firm.host.dialog->shownValue, 3);  // from 1, a step for each row
    EXPECT_EQ(firm.host.dialog->captions, (std::vector<std::string>{"Synchronizing A", "Synchronizing B"}));
    EXPECT_FALSE(firm.host.dialog->isUp);
}

TEST(CalendarDeletions, ItemOfARowThatIsGoneGoesTooWhenAskedFor) {
    for (const bool isTasks : {false, true}) {
        CalendarFirm firm{isTasks ? kTasks : kAppointments};
        const auto gone = isTasks ? firm.addTask({{"Subject", "A"}}) : firm.addAppointment({{"Subject", "A"}});
        isTasks ? firm.addTask({{"Subject", "B"}}) : firm.addAppointment({{"Subject", "B"}});
        addRow(
            *firm.host.database, "OutlookSync", "",
            {{"DataFileID", "DF"}, {"FolderStoreID", firm.folder()->storeID()}, {"OutlookID", "contact"}, {"ContactNum", "1"}});
        firm.run();
        firm.remove(isTasks ? "Tasks" : "Appointments", isTasks ? "TaskID" : "AppointmentID", gone);
        firm.component->mvarApptSynchDeleteMissingTallowbrookApptInOutlook = false;
        firm.run();
        EXPECT_EQ(firm.items().size(), 2U);
        firm.component->mvarApptSynchDeleteMissingTallowbrookApptInOutlook = true;
        firm.run();
        EXPECT_EQ(firm.subjects(), std::vector<std::string>{"B"});
        EXPECT_EQ(firm.links().size(), 2U);  // B's, and the contact's
        EXPECT_TRUE(firm.host.errors->reports.empty());
    }
}

TEST(CalendarDeletions, ItemThatIsGoneOnBothSidesIsAFailureOfTheWalk) {
    CalendarFirm firm{kAppointments};
    const auto gone = firm.addAppointment({});
    firm.addAppointment({});
    firm.run();
    firm.remove("Appointments", "AppointmentID", gone);
    firm.items()[0]->remove();
    firm.host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::leaveRoutine; };
    firm.run();
    EXPECT_EQ(firm.links().size(), 2U);
    ASSERT_EQ(firm.host.errors->reports.size(), 1U);
    EXPECT_EQ(firm.host.errors->reports[0].errorTag,
              "wmoutlooktb.dll-clsOutlookSynchronization-deleteMissingTallowbrookApptsInOutlook");
    firm.host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::goOn; };
    firm.run();
    EXPECT_EQ(firm.links().size(), 1U);
}

}  // namespace
}  // namespace wmoutlook::testing

#include "component/clsOutlookSynchronization.h"

#include "hostdata/HostServices.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "settings/clsINI.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace wmoutlook::testing {
namespace {

class Surface : public ::testing::Test {
protected:
    TestHost host;
};

TEST_F(Surface, NewInstanceHasTheDefaultsAndMakesNoSound) {
    const clsOutlookSynchronization component{host.platform()};
    EXPECT_EQ(component.syncObjects(), outlookSyncObjectsEnum::syncContacts);
    EXPECT_EQ(component.syncDirectionType(), outlookSyncTypeEnum::syncFromTallowbrookToOutlook);
    EXPECT_EQ(component.syncCompanyInformation(), syncCompanyInformationEnum::companyWithDefaultContact);
    EXPECT_EQ(component.syncCompanyDisplayType(), syncCompanyDisplayEnum::companyShowCompanyName);
    EXPECT_EQ(component.syncContactInformation(), syncContactInformationEnum::contactWithCompanyInfo);
    EXPECT_EQ(component.syncContactDisplayType(), syncContactDisplayEnum::contactShowContactName);
    EXPECT_EQ(component.outlookCategory(), "Business");
    EXPECT_EQ(component.companyList(), companyListType::Tallowbrook);
    EXPECT_EQ(component.SchemeID(), -1);
    EXPECT_TRUE(component.showProgress() && component.displayLoginDialog() && component.openNewSession());
    EXPECT_FALSE(component.closeOutlookWhenFinished() || component.connectedToOutlook() || component.refreshData() ||
                 component.failedToInitializeFlag() || component.openForAddressBook());
    EXPECT_TRUE(component.companyCollection->isEmpty() && component.contactCollection->isEmpty());
    EXPECT_TRUE(component.mvarCompanyDuplicateFinderClass && component.mvarContactDuplicateFinderClass);
    EXPECT_TRUE(component.mvarUseAppointmentDateRange);
    EXPECT_EQ(component.mvarAppointmentSynchDateRangeType, 1);
    EXPECT_EQ(toIsoText(component.mvarApptSynchStartRange), "2026-11-21");
    EXPECT_EQ(toIsoText(component.mvarApptSynchEndRange), "2026-12-31");
    EXPECT_FALSE(component.mvarApptSynchDeleteMissingOutlookApptInTallowbrook);
    EXPECT_TRUE(component.mvarApptSynchDeleteMissingTallowbrookApptInOutlook);
}

TEST_F(Surface, ReadingThePriorityChangesTheDirection) {
    clsOutlookSynchronization component{host.platform()};
    EXPECT_EQ(static_cast<int>(component.syncBothsWaysPriority()), 0);
    EXPECT_EQ(static_cast<int>(component.syncDirectionType()), 0);
    component.syncBothsWaysPriority(enumOutlookSyncBothsWaysPriority::syncPriorityMostRecentChange);
    EXPECT_EQ(static_cast<int>(component.syncBothsWaysPriority()), 0);
    EXPECT_EQ(static_cast<int>(component.syncDirectionType()), 3);
}

TEST_F(Surface, DatabaseBringsTheUsersSettingsAndTheBusinessCategory) {
    host.locale->userID = 12;
    const auto component = host.component();
    EXPECT_EQ(component->importCategory(), modDatabaseFunctions::getBusinessCategoryNum());
    EXPECT_GE(component->importCategory(), 0);
    const RecordsetHandle rows =
        host.database->openRecordset("SELECT UserGeneralSettings.* FROM UserGeneralSettings;", LockCode::readOnly);
    EXPECT_EQ(host.database->getField(rows, "UserIDNum").toInteger(), 12);
    host.database->closeRecordset(rows);
    EXPECT_FALSE(component->failedToInitializeFlag());
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(Surface, ServiceThatCannotAnswerLeavesWhatWasThere) {
    class Mute : public TestLocale, public WorkingFolderService {
    public:
        std::int32_t currentUserID() override { throw Failure{1, "no user"}; }
        std::string workingFolderPath() override { throw Failure{1, "no folder"}; }
    };
    clsOutlookSynchronization component{host.platform()};
    component.errorClass(host.errors);
    component.WorkingFolderReference(std::make_shared<TestWorkingFolder>());
    const auto mute = std::make_shared<Mute>();
    component.LocaleReference(mute);
    component.WorkingFolderReference(mute);
    component.DatabaseReference(host.database);
    EXPECT_EQ(settingsFile()->iniFile(), "/work/Tbinitbd.dni1");
    const RecordsetHandle rows =
        host.database->openRecordset("SELECT UserGeneralSettings.* FROM UserGeneralSettings;", LockCode::readOnly);
    EXPECT_FALSE(host.database->hasRows(rows));  // no settings for a user that nobody knows
    host.database->closeRecordset(rows);
    EXPECT_TRUE(host.errors->reports.empty());  // setters ignore errors
}

TEST_F(Surface, MissingDatabaseRaisesTheFlagAndTellsTheUserWhereItCan) {
    clsOutlookSynchronization component{host.platform()};
    component.LocaleReference(host.locale);
    component.DatabaseReference(nullptr);
    EXPECT_TRUE(component.failedToInitializeFlag());
    EXPECT_TRUE(host.messages->messages.empty());  // no message box service yet

    component.MsgboxClass(host.messages);
    component.DatabaseReference(nullptr);
    ASSERT_EQ(host.messages->messages.size(), 1U);
    const Message& message = host.messages->messages[0];
    EXPECT_EQ(message.text, "The outlook synchronization was not able to access the companies database and needs to close.");
    EXPECT_EQ(message.code, MessageCode::warning);
    EXPECT_EQ(message.helpNumber, 101);
    EXPECT_EQ(message.owner, host.locale->owner);
    component.DatabaseReference(host.database);
    EXPECT_FALSE(component.failedToInitializeFlag());
}

TEST_F(Surface, SecondWayToSetTheDatabaseHasNoSideEffects) {
    clsOutlookSynchronization component{host.platform()};
    component.korrisService(host.database);
    EXPECT_EQ(hostServices().database, host.database);
    EXPECT_EQ(component.importCategory(), kNoRecord);
    component.DatabaseReference(host.database);
    component.korrisService(nullptr);
    EXPECT_FALSE(component.failedToInitializeFlag());
    EXPECT_EQ(hostServices().database, nullptr);
}

TEST_F(Surface, WorkingFolderNamesTheSettingsFile) {
    clsOutlookSynchronization component{host.platform()};
    component.WorkingFolderReference(std::make_shared<TestWorkingFolder>());
    EXPECT_EQ(settingsFile()->iniFile(), "/work/Tbinitbd.dni1");
}

TEST_F(Surface, ResetTouchesTheOptionsOfASchemeAndNothingElse) {
    const auto component = host.component();
    const auto business = component->importCategory();
    component->syncObjects(outlookSyncObjectsEnum::syncTasks);
    component->syncDirectionType(outlookSyncTypeEnum::syncBothsWays);
    component->syncCompanyInformation(syncCompanyInformationEnum::companyOnly);
    component->syncCompanyDisplayType(syncCompanyDisplayEnum::companyShowContactName);
    component->syncContactInformation(syncContactInformationEnum::contactOnly);
    component->syncContactDisplayType(syncContactDisplayEnum::contactShowCompanyName);
    component->importTallowbrookLocation(importTallowbrookLocationEnum::importAllSelectedOutlookContactsIntoPersonalTaxSection);
    component->importCategory(4711);
    component->outlookImportFolderStoreID("store");
    component->outlookImportFolderEntryID("folder");
    component->profile("me");
    component->password("secret");
    component->outlookCategory("Private");
    component->showProgress(false);
    component->SchemeID(5);
    component->mvarUseAppointmentDateRange = false;
    component->mvarApptSynchStartRange = makeDay(2020, 1, 1);

    component->resetOutlookSchemeToDefault();
    EXPECT_EQ(component->syncDirectionType(), outlookSyncTypeEnum::syncFromTallowbrookToOutlook);
    EXPECT_EQ(component->syncCompanyInformation(), syncCompanyInformationEnum::companyWithDefaultContact);
    EXPECT_EQ(component->syncCompanyDisplayType(), syncCompanyDisplayEnum::companyShowCompanyName);
    EXPECT_EQ(component->syncContactInformation(), syncContactInformationEnum::contactWithCompanyInfo);
    EXPECT_EQ(component->syncContactDisplayType(), syncContactDisplayEnum::contactShowContactName);
    EXPECT_EQ(component->importTallowbrookLocation(),
              importTallowbrookLocationEnum::importAllSelectedOutlookContactsIntoBusinessSection);
    EXPECT_EQ(component->importCategory(), business);
    EXPECT_EQ(component->outlookImportFolderStoreID() + component->outlookImportFolderEntryID() + component->profile() +
                  component->password(),
              "");
    EXPECT_EQ(component->outlookCategory(), "Business");
    EXPECT_NE(host.errors->entered.end(), std::find(host.errors->entered.begin(), host.errors->entered.end(),
                                                    "wmlabeltb3.dll-frmWizard-resetOutlookSchemeToDefault"));

    EXPECT_EQ(component->syncObjects(), outlookSyncObjectsEnum::syncTasks);
    EXPECT_FALSE(component->showProgress());
    EXPECT_EQ(component->SchemeID(), 5);
    EXPECT_FALSE(component->mvarUseAppointmentDateRange);
    EXPECT_EQ(toIsoText(component->mvarApptSynchStartRange), "2020-01-01");
}

TEST_F(Surface, ServicesAreSharedByAllInstancesAndOptionsAreNot) {
    const auto first = host.component();
    clsOutlookSynchronization second{host.platform()};
    EXPECT_EQ(second.importCategory(), first->importCategory());  // the database of the first serves the second
    second.outlookCategory("Private");
    EXPECT_EQ(first->outlookCategory(), "Business");
    second.errorClass(nullptr);
    EXPECT_EQ(errorService(), nullptr);
}

}  // namespace
}  // namespace wmoutlook::testing

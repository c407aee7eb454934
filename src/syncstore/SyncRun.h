#pragma once

#include "platform/DuplicateFinders.h"
#include "platform/Event.h"
#include "platform/ProgressDialog.h"
#include "platform/RecordList.h"
#include "platform/outlook/Handles.h"
#include "syncstore/SyncEnumerations.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

/// The options of a run, under the names of the public properties that hold them, with their values after construction.
struct SyncOptions {
    outlookSyncObjectsEnum syncObjects = outlookSyncObjectsEnum::syncContacts;
    outlookSyncTypeEnum syncDirectionType = outlookSyncTypeEnum::syncFromTallowbrookToOutlook;
    enumOutlookSyncBothsWaysPriority syncBothsWaysPriority{};  ///< no enumerated value
    syncCompanyInformationEnum syncCompanyInformation = syncCompanyInformationEnum::companyWithDefaultContact;
    syncCompanyDisplayEnum syncCompanyDisplayType = syncCompanyDisplayEnum::companyShowCompanyName;
    syncContactInformationEnum syncContactInformation = syncContactInformationEnum::contactWithCompanyInfo;
    syncContactDisplayEnum syncContactDisplayType = syncContactDisplayEnum::contactShowContactName;
    importTallowbrookLocationEnum importTallowbrookLocation =
        importTallowbrookLocationEnum::importAllSelectedOutlookContactsIntoBusinessSection;
    bool showProgress = true;
    std::string outlookCategory = "Business";  ///< category text of written items
    std::int32_t importCategory = kNoRecord;   ///< category of imported clients
    std::string outlookImportFolderStoreID;    ///< blank: the default folder
    std::string outlookImportFolderEntryID;
    std::string dataFileUniqueID;  ///< identifier of the host's data file, first key of every query of the sync store
    bool refreshData = false;      ///< set by an import: the host's data changed

    bool useAppointmentDateRange = true;
    std::int32_t appointmentSynchDateRangeType = 1;
    Date apptSynchStartRange;
    Date apptSynchEndRange;
    bool apptSynchDeleteMissingOutlookApptInTallowbrook = false;
    bool apptSynchDeleteMissingTallowbrookApptInOutlook = true;
};

/// The connection to Outlook. Connected means that a session is there; a logon that failed can leave objects without one.
struct OutlookSession {
    outlook::Application application;
    outlook::NameSpace nameSpace;
    bool isConnected = false;
};

/// What the host is asked to make a schedule entry of; it may write its answers back.
struct ScheduleEntryRequest {
    std::int32_t taskID = kNoRecord;
    std::int32_t companyNum = kNoRecord;
    std::int32_t contactNum = kNoRecord;
    bool recordDueDate = false;
    Date dueDate;
};

/// All that the passes need to know of a run. The public class owns one; the passes never see that class.
struct SyncRun {
    SyncOptions options;
    OutlookSession outlook;
    std::shared_ptr<RecordList> companyCollection;  ///< columns: see namespace selection
    std::shared_ptr<RecordList> contactCollection;
    std::shared_ptr<CompanyDuplicateFinder> companyDuplicateFinder;
    std::shared_ptr<ContactDuplicateFinder> contactDuplicateFinder;
    std::shared_ptr<ProgressDialog> contactsProgress;  ///< nothing outside a run
    std::shared_ptr<ProgressDialog> appointmentsProgress;
    Event<> ExitProgram;  ///< raised when the answer to an error report is to end the program
    Event<ScheduleEntryRequest&> createNewScheduleEntryFromTask;  ///< an Outlook task is to become a schedule entry
};

// Each of the following is a statement of the current routine, and holds the dialog while it runs; without a dialog it fails.

void showProgressMessage(std::shared_ptr<ProgressDialog> dialog, std::string_view message);
void showProgressCaption(std::shared_ptr<ProgressDialog> dialog, std::string_view caption);
void startProgress(std::shared_ptr<ProgressDialog> dialog, std::int32_t maximum);  ///< puts the bar to 1 of so many
/// Adds one to the bar's value without comparing it with the maximum: a walk steps for rows outside the selection too.
void stepProgress(std::shared_ptr<ProgressDialog> dialog);
void closeProgress(std::shared_ptr<ProgressDialog>& dialog);  ///< closes and releases it

}  // namespace wmoutlook

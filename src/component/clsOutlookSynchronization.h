#pragma once

#include "component/DeferredSteps.h"
#include "platform/Platform.h"
#include "platform/Routine.h"
#include "syncstore/SyncRun.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

class clsOutlookSynchronization;

/// The wizard as the component sees it: a form that is shown for one instance and comes back when it has been closed.
class WizardForm {
public:
    virtual ~WizardForm() = default;
    virtual void showModal(clsOutlookSynchronization& component) = 0;
};

/// The public class of the component. The host creates one, hands it its services in the order errorClass, MsgboxClass,
/// LocaleReference, WorkingFolderReference, DatabaseReference, gives dataFileUniqueID (and syncDatabaseLocation when a legacy
/// store may exist), and then either opens the wizard or sets the options and calls startOutlook and synchronize. It can run
/// any number of times; the selection lists are kept between runs.
///
/// Services are module-wide: two instances in one process share them, and the last one set wins. Options are per instance.
/// One thread. Nothing throws but what a handler of ExitProgram throws.
///
/// A property is a pair of overloads of its name: without an argument it is read, with one it is put.
class clsOutlookSynchronization {
public:
    using NewWizard = std::function<std::unique_ptr<WizardForm>()>;

    explicit clsOutlookSynchronization(Platform platform, NewWizard newWizard = {});
    ~clsOutlookSynchronization();  ///< quits an Outlook that this instance started
    clsOutlookSynchronization(const clsOutlookSynchronization&) = delete;
    clsOutlookSynchronization& operator=(const clsOutlookSynchronization&) = delete;

    // Services, set only. Nothing is allowed; a service that fails while it is handed on does not stop the setter.

    void errorClass(std::shared_ptr<ErrorService> service);
    void MsgboxClass(std::shared_ptr<MessageBoxService> service);
    void LocaleReference(std::shared_ptr<LocaleService> service);
    void WorkingFolderReference(std::shared_ptr<WorkingFolderService> service);
    /// A database that is nothing raises failedToInitializeFlag and is told to the user where a message box service is set.
    void DatabaseReference(std::shared_ptr<HostDatabase> database);
    /// Replaces the module-wide database and does nothing else: the finders and the flag keep what they have.
    void korrisService(std::shared_ptr<HostDatabase> database);

    // What a run does

    [[nodiscard]] outlookSyncObjectsEnum syncObjects() const { return run_.options.syncObjects; }
    void syncObjects(outlookSyncObjectsEnum value) { run_.options.syncObjects = value; }
    [[nodiscard]] outlookSyncTypeEnum syncDirectionType() const { return run_.options.syncDirectionType; }
    void syncDirectionType(outlookSyncTypeEnum value) { run_.options.syncDirectionType = value; }
    /// Reading it is not what it seems: it puts the stored priority into syncDirectionType and gives 0. Meant so; nothing in
    /// the system reads the priority.
    [[nodiscard]] enumOutlookSyncBothsWaysPriority syncBothsWaysPriority();
    void syncBothsWaysPriority(enumOutlookSyncBothsWaysPriority value) { run_.options.syncBothsWaysPriority = value; }
    [[nodiscard]] syncCompanyInformationEnum syncCompanyInformation() const { return run_.options.syncCompanyInformation; }
    void syncCompanyInformation(syncCompanyInformationEnum value) { run_.options.syncCompanyInformation = value; }
    [[nodiscard]] syncCompanyDisplayEnum syncCompanyDisplayType() const { return run_.options.syncCompanyDisplayType; }
    void syncCompanyDisplayType(syncCompanyDisplayEnum value) { run_.options.syncCompanyDisplayType = value; }
    [[nodiscard]] syncContactInformationEnum syncContactInformation() const { return run_.options.syncContactInformation; }
    void syncContactInformation(syncContactInformationEnum value) { run_.options.syncContactInformation = value; }
    [[nodiscard]] syncContactDisplayEnum syncContactDisplayType() const { return run_.options.syncContactDisplayType; }
    void syncContactDisplayType(syncContactDisplayEnum value) { run_.options.syncContactDisplayType = value; }
    [[nodiscard]] importTallowbrookLocationEnum importTallowbrookLocation() const {
        return run_.options.importTallowbrookLocation;
    }
    void importTallowbrookLocation(importTallowbrookLocationEnum value) { run_.options.importTallowbrookLocation = value; }
    /// The category of imported clients: the host's business category unless put.
    [[nodiscard]] std::int32_t importCategory() const { return run_.options.importCategory; }
    void importCategory(std::int32_t value) { run_.options.importCategory = value; }
    /// The category text of written items.
    [[nodiscard]] const std::string& outlookCategory() const { return run_.options.outlookCategory; }
    void outlookCategory(std::string value) { run_.options.outlookCategory = std::move(value); }
    /// Store and folder in Outlook that a run uses; a blank store means the default folder, whose entry identifier a run then
    /// leaves here.
    [[nodiscard]] const std::string& outlookImportFolderStoreID() const { return run_.options.outlookImportFolderStoreID; }
    void outlookImportFolderStoreID(std::string value) { run_.options.outlookImportFolderStoreID = std::move(value); }
    [[nodiscard]] const std::string& outlookImportFolderEntryID() const { return run_.options.outlookImportFolderEntryID; }
    void outlookImportFolderEntryID(std::string value) { run_.options.outlookImportFolderEntryID = std::move(value); }
    [[nodiscard]] bool showProgress() const { return run_.options.showProgress; }
    void showProgress(bool value) { run_.options.showProgress = value; }
    /// True once an import has changed the host's data.
    [[nodiscard]] bool refreshData() const { return run_.options.refreshData; }
    void refreshData(bool value) { run_.options.refreshData = value; }

    // The data file and its schemes

    /// The identifier of the host's data file: the first key of every query of the sync store.
    [[nodiscard]] const std::string& dataFileUniqueID() const { return run_.options.dataFileUniqueID; }
    void dataFileUniqueID(std::string value) { run_.options.dataFileUniqueID = std::move(value); }
    [[nodiscard]] const std::string& syncDatabaseLocation() const { return own_.syncDatabaseLocation; }
    void syncDatabaseLocation(std::string value) { own_.syncDatabaseLocation = std::move(value); }
    [[nodiscard]] std::int32_t SchemeID() const { return own_.schemeID; }  ///< -1: no scheme is loaded
    void SchemeID(std::int32_t value) { own_.schemeID = value; }
    [[nodiscard]] bool openForAddressBook() const { return own_.openForAddressBook; }
    void openForAddressBook(bool value) { own_.openForAddressBook = value; }
    /// Stored and returned only, as is tempFolder.
    [[nodiscard]] companyListType companyList() const { return own_.companyList; }
    void companyList(companyListType value) { own_.companyList = value; }
    [[nodiscard]] const std::string& tempFolder() const { return own_.tempFolder; }
    void tempFolder(std::string value) { own_.tempFolder = std::move(value); }
    /// True when DatabaseReference was set to nothing or a legacy store could not be opened.
    [[nodiscard]] bool failedToInitializeFlag() const { return own_.failedToInitialize; }

    // The connection to Outlook

    /// Empty profile and password are left out of the logon.
    [[nodiscard]] const std::string& profile() const { return own_.profile; }
    void profile(std::string value) { own_.profile = std::move(value); }
    [[nodiscard]] const std::string& password() const { return own_.password; }
    void password(std::string value) { own_.password = std::move(value); }
    [[nodiscard]] bool displayLoginDialog() const { return own_.displayLoginDialog; }
    void displayLoginDialog(bool value) { own_.displayLoginDialog = value; }
    [[nodiscard]] bool openNewSession() const { return own_.openNewSession; }
    void openNewSession(bool value) { own_.openNewSession = value; }
    [[nodiscard]] bool connectedToOutlook() const { return run_.outlook.isConnected; }
    /// Whether StopOutlook quits Outlook. startOutlook overwrites it, so only a put after startOutlook is honoured.
    [[nodiscard]] bool closeOutlookWhenFinished() const { return own_.closeOutlookWhenFinished; }
    void closeOutlookWhenFinished(bool value) { own_.closeOutlookWhenFinished = value; }

    // Operations

    /// Puts the options of a scheme back to their defaults. What is to be synchronized, the date range, showProgress and
    /// SchemeID stay.
    void resetOutlookSchemeToDefault();
    void openSynchForm();  ///< shows the wizard and returns when it has been closed
    /// True when an Outlook could be had. connectedToOutlook and the events tell whether there is a session to work with.
    bool startOutlook();
    /// Does one run for the kind of objects chosen. The result says nothing: it is always false.
    bool synchronize();

    [[nodiscard]] std::int32_t getCompaniesCollectionRecordCount() const;
    [[nodiscard]] std::int32_t getContactsCollectionRecordCount() const;

    // Events

    Event<>& ExitProgram;
    Event<> startingConnectingToOutlook;
    Event<> successfullyConnectedToOutlook;
    Event<> errorConnectingToOutlook;
    Event<ScheduleEntryRequest&>& createNewScheduleEntryFromTask;

    // Public fields

    std::shared_ptr<RecordList>& companyCollection;
    std::shared_ptr<RecordList>& contactCollection;
    std::shared_ptr<CompanyDuplicateFinder>& mvarCompanyDuplicateFinderClass;
    std::shared_ptr<ContactDuplicateFinder>& mvarContactDuplicateFinderClass;
    bool& mvarUseAppointmentDateRange;
    std::int32_t& mvarAppointmentSynchDateRangeType;  ///< 0 on one day, 1 on or after, 2 on or before, 3 between
    Date& mvarApptSynchStartRange;
    Date& mvarApptSynchEndRange;
    bool& mvarApptSynchDeleteMissingOutlookApptInTallowbrook;
    bool& mvarApptSynchDeleteMissingTallowbrookApptInOutlook;

private:
    friend struct WizardAccess;

    /// What only this class reads.
    struct OwnState {
        std::string syncDatabaseLocation;
        std::string tempFolder;
        std::string profile;
        std::string password;
        std::int32_t schemeID = kNoRecord;
        companyListType companyList = companyListType::Tallowbrook;
        bool openForAddressBook = false;
        bool displayLoginDialog = true;
        bool openNewSession = true;
        bool closeOutlookWhenFinished = false;
        bool failedToInitialize = false;
    };

    void createHelpers();
    void setInitialDateRange();
    template <class Body>
    void setService(std::string_view errorTag, Body body);
    template <class Handing>
    void handToFinders(Handing handing) const;

    // clsOutlookSynchronization_Connection.cpp
    void StopOutlook();
    void reachOutlook();
    void logOn();
    void raiseConnectionEvent();

    // clsOutlookSynchronization_Run.cpp
    void showContactsProgress();
    void showAppointmentsProgress();
    using StartHandler = void (clsOutlookSynchronization::*)();
    void showDialog(std::shared_ptr<ProgressDialog>& dialog, const std::function<std::int32_t()>& maximum, StartHandler start);
    void endProgress(std::shared_ptr<ProgressDialog>& dialog);
    void syncContactsProgress_StartProgress();
    void syncAppointmentsProgress_StartProgress();

    Platform platform_;
    NewWizard newWizard_;
    SyncRun run_;
    OwnState own_;
    DeferredSteps deferredSteps_;
    Subscription startProgress_;
};

/// What the wizard of this component needs beyond the public surface.
struct WizardAccess {
    static const std::shared_ptr<MessageBoxService>& messageBoxes();
    static const outlook::NameSpace& nameSpace(const clsOutlookSynchronization& component) {
        return component.run_.outlook.nameSpace;
    }
    static void failedToInitializeFlag(clsOutlookSynchronization& component, bool value) {
        component.own_.failedToInitialize = value;
    }
    static void connectedToOutlook(clsOutlookSynchronization& component, bool value) {
        component.run_.outlook.isConnected = value;
    }
};

}  // namespace wmoutlook

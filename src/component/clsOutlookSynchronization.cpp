#include "component/clsOutlookSynchronization.h"

#include "hostdata/HostServices.h"
#include "hostdata/duplicates/Finders.h"
#include "hostdata/modDatabaseFunctions.h"
#include "hostdata/modSettings.h"
#include "settings/clsINI.h"

#include <optional>

namespace wmoutlook {

namespace {

constexpr std::string_view kDatabaseMissing =
    "The outlook synchronization was not able to access the companies database and needs to close.";

}  // namespace

clsOutlookSynchronization::clsOutlookSynchronization(Platform platform, NewWizard newWizard)
    : ExitProgram(run_.ExitProgram),
      createNewScheduleEntryFromTask(run_.createNewScheduleEntryFromTask),
      companyCollection(run_.companyCollection),
      contactCollection(run_.contactCollection),
      mvarCompanyDuplicateFinderClass(run_.companyDuplicateFinder),
      mvarContactDuplicateFinderClass(run_.contactDuplicateFinder),
      mvarUseAppointmentDateRange(run_.options.useAppointmentDateRange),
      mvarAppointmentSynchDateRangeType(run_.options.appointmentSynchDateRangeType),
      mvarApptSynchStartRange(run_.options.apptSynchStartRange),
      mvarApptSynchEndRange(run_.options.apptSynchEndRange),
      mvarApptSynchDeleteMissingOutlookApptInTallowbrook(run_.options.apptSynchDeleteMissingOutlookApptInTallowbrook),
      mvarApptSynchDeleteMissingTallowbrookApptInOutlook(run_.options.apptSynchDeleteMissingTallowbrookApptInOutlook),
      platform_(std::move(platform)),
      newWizard_(std::move(newWizard)) {
    publicOperation([&] {
        Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-Class_Initialize", &ExitProgram, Routine::OnFailure::ignore};
        routine.run([&] {
            createHelpers();
            // Without a database yet there is no number to be had; it is asked again when the database is set.
            run_.options.importCategory = modDatabaseFunctions::getBusinessCategoryNum();
            resetOutlookSchemeToDefault();
            companyCollection = std::make_shared<RecordList>();
            contactCollection = std::make_shared<RecordList>();
            setInitialDateRange();
        });
    });
}

clsOutlookSynchronization::~clsOutlookSynchronization() {
    try {
        Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-Class_Terminate", &ExitProgram, Routine::OnFailure::ignore};
        routine.run([&] {
            companyCollection.reset();
            contactCollection.reset();
            mvarCompanyDuplicateFinderClass.reset();
            mvarContactDuplicateFinderClass.reset();
            StopOutlook();
        });
    } catch (...) {  // a host that unwinds from ExitProgram is past hearing of it here
    }
}

void clsOutlookSynchronization::createHelpers() {
    HostServices& services = hostServices();
    services.files = platform_.files;
    services.privateProfile = platform_.privateProfile;
    services.programFolder = platform_.programFolder;
    services.clock = platform_.clock;
    services.random = platform_.random;
    services.messageLoop = platform_.messageLoop;
    settingsFile() = std::make_shared<clsINI>();
    if (auto folder = statement([&] { return platform_.newWorkingFolder(); })) services.workingFolder = std::move(folder);
    mvarCompanyDuplicateFinderClass = makeCompanyDuplicateFinder();
    mvarContactDuplicateFinderClass = makeContactDuplicateFinder();
}

void clsOutlookSynchronization::setInitialDateRange() {
    const Date day = today();
    mvarApptSynchStartRange = addDays(day, -1);
    mvarApptSynchEndRange = makeDay(civil(day).year, 12, 31);
}

/// Setters of services ignore errors, so that a failing hand-on does not stop the host.
template <class Body>
void clsOutlookSynchronization::setService(std::string_view errorTag, Body body) {
    publicOperation([&] {
        Routine routine{errorTag, &ExitProgram, Routine::OnFailure::ignore};
        routine.run(body);
    });
}

template <class Handing>
void clsOutlookSynchronization::handToFinders(Handing handing) const {
    if (mvarCompanyDuplicateFinderClass) statement([&] { handing(*mvarCompanyDuplicateFinderClass); });
    if (mvarContactDuplicateFinderClass) statement([&] { handing(*mvarContactDuplicateFinderClass); });
}

void clsOutlookSynchronization::errorClass(std::shared_ptr<ErrorService> service) {
    setService("wmoutlooktb.dll-clsOutlookSynchronization-errorClass", [&] {
        setErrorService(service);
        handToFinders([&](DuplicateFinder& finder) { finder.setErrorService(service); });
    });
}

void clsOutlookSynchronization::MsgboxClass(std::shared_ptr<MessageBoxService> service) {
    setService("wmoutlooktb.dll-clsOutlookSynchronization-MsgboxClass", [&] {
        hostServices().messageBoxes = service;
        handToFinders([&](DuplicateFinder& finder) { finder.setMessageBoxService(service); });
    });
}

void clsOutlookSynchronization::LocaleReference(std::shared_ptr<LocaleService> service) {
    setService("wmoutlooktb.dll-clsOutlookSynchronization-LocaleReference", [&] {
        hostServices().locale = service;
        if (service) handToFinders([&](DuplicateFinder& finder) { finder.setLocaleService(service); });
    });
}

void clsOutlookSynchronization::WorkingFolderReference(std::shared_ptr<WorkingFolderService> service) {
    setService("wmoutlooktb.dll-clsOutlookSynchronization-WorkingFolderReference", [&] {
        hostServices().workingFolder = service;
        if (!service) return;
        // A folder that cannot be told leaves the settings file where it was.
        const auto path = statement([&]() -> std::optional<std::string> {
            FileHelper& files = *hostServices().files;
            const std::string folder = files.normalizeFolder(service->workingFolderPath());
            return folder + std::string{clsINI::kFileName} + files.suffixForFolder(folder);
        });
        if (path) settingsFile()->iniFile(*path);
    });
}

void clsOutlookSynchronization::DatabaseReference(std::shared_ptr<HostDatabase> database) {
    setService("wmoutlooktb.dll-clsOutlookSynchronization-DatabaseReference", [&] {
        hostServices().database = database;
        own_.failedToInitialize = database == nullptr;
        if (!database) {
            showMessage(kDatabaseMissing, MessageCode::warning);
            return;
        }
        if (const auto userID = currentUserID()) modSettings::initializeNameDisplayType(*userID);
        run_.options.importCategory = modDatabaseFunctions::getBusinessCategoryNum();
        handToFinders([&](DuplicateFinder& finder) { finder.setDatabase(database); });
    });
}

void clsOutlookSynchronization::korrisService(std::shared_ptr<HostDatabase> database) {
    setService("wmoutlooktb.dll-clsOutlookSynchronization-korrisService", [&] { hostServices().database = std::move(database); });
}

enumOutlookSyncBothsWaysPriority clsOutlookSynchronization::syncBothsWaysPriority() {
    run_.options.syncDirectionType = static_cast<outlookSyncTypeEnum>(run_.options.syncBothsWaysPriority);
    return {};
}

void clsOutlookSynchronization::resetOutlookSchemeToDefault() {
    publicOperation([&] {
        // The routine came from another component and keeps its tag.
        Routine routine{"wmlabeltb3.dll-frmWizard-resetOutlookSchemeToDefault", &ExitProgram};
        routine.run([&] {
            const SyncOptions defaults;
            SyncOptions& options = run_.options;
            options.syncDirectionType = defaults.syncDirectionType;
            options.syncCompanyInformation = defaults.syncCompanyInformation;
            options.syncCompanyDisplayType = defaults.syncCompanyDisplayType;
            options.syncContactInformation = defaults.syncContactInformation;
            options.syncContactDisplayType = defaults.syncContactDisplayType;
            options.importTallowbrookLocation = defaults.importTallowbrookLocation;
            options.importCategory = modDatabaseFunctions::getBusinessCategoryNum();
            options.outlookImportFolderStoreID.clear();
            options.outlookImportFolderEntryID.clear();
            own_.profile.clear();
            own_.password.clear();
            options.outlookCategory = defaults.outlookCategory;
        });
    });
}

const std::shared_ptr<MessageBoxService>& WizardAccess::messageBoxes() {
    return hostServices().messageBoxes;
}

}  // namespace wmoutlook

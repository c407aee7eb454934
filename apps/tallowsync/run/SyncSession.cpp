#include "apps/tallowsync/run/SyncSession.h"
#include "apps/tallowsync/run/FirmHost.h"

#include "adapters/headless/BarProgressDialog.h"
#include "adapters/headless/ConsoleErrorService.h"
#include "adapters/headless/DiskFiles.h"
#include "adapters/headless/FirmLocale.h"
#include "adapters/headless/HostRows.h"
#include "adapters/headless/Machine.h"
#include "adapters/headless/PrivateProfileFile.h"
#include "adapters/headless/RunLock.h"
#include "adapters/headless/WorkingFolders.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/outlookstore/StoreListing.h"
#include "adapters/sql/SqliteDatabase.h"
#include "apps/tallowsync/items/Folders.h"
#include "apps/tallowsync/run/RecordingDatabase.h"
#include "apps/tallowsync/run/RecordingOutlook.h"
#include "apps/tallowsync/run/RunEnd.h"
#include "apps/tallowsync/run/SelectionLists.h"
#include "component/PropertyTable.h"
#include "component/clsOutlookSynchronization.h"
#include "platform/Errors.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <random>

namespace wmoutlook {

namespace {

using outlook::DefaultFolder;
using outlook::ItemType;

Platform platformFor(const SyncRequest& request, std::shared_ptr<MessageLoop> messageLoop) {
    Platform platform;
    if (request.now)
        platform.clock = std::make_shared<FixedClock>(*request.now);
    else
        platform.clock = std::make_shared<SystemClock>();
    platform.random = std::make_shared<SeededRandom>(request.seed.value_or(std::random_device{}()));
    platform.messageLoop = std::move(messageLoop);
    platform.files = std::make_shared<DiskFiles>();
    platform.privateProfile = std::make_shared<PrivateProfileFile>();
    platform.programFolder = folderOfThisProgram();
    platform.newWorkingFolder = [folder = std::make_shared<TemporaryWorkingFolder>()] { return folder; };
    return platform;
}

void applySettings(const SyncRequest& request, clsOutlookSynchronization& component) {
    for (const auto& [name, value] : request.settings) {
        const PublicProperty* const property = findPublicProperty(name);
        if (property == nullptr)
            throw UsageError{"--set: the component has no property \"" + name + "\"; 'tallowsync sync --help' lists them"};
        try {
            property->put(component, value);
        } catch (const ConversionError& error) {
            throw UsageError{std::string{"--set: "} + error.what()};
        }
    }
}

bool isNumberWithoutName(const PublicProperty& property, std::string_view text) {
    if (property.kind != PropertyKind::enumeration) return false;
    std::int32_t number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc{}) return false;  // a name
    const auto isIt = [&](const EnumerationValue& value) { return value.value == number; };
    return std::none_of(property.enumeration.begin(), property.enumeration.end(), isIt);
}

struct FolderOfObjects {
    ItemType items;
    DefaultFolder folder;
    std::string_view holds;
};

FolderOfObjects folderOf(outlookSyncObjectsEnum objects) {
    switch (objects) {
        case outlookSyncObjectsEnum::syncAppointments: return {ItemType::appointment, DefaultFolder::calendar, "appointments"};
        case outlookSyncObjectsEnum::syncTasks: return {ItemType::task, DefaultFolder::tasks, "tasks"};
        case outlookSyncObjectsEnum::syncContacts: break;
    }
    return {ItemType::contact, DefaultFolder::contacts, "contacts"};
}

std::shared_ptr<outlook::port::MAPIFolder> chosenFolder(const SyncRequest& request, outlook::port::Automation& store) {
    const FolderOfObjects wanted = folderOf(request.objects);
    if (!request.folder) {
        const auto session = store.getRunning()->getNamespace("MAPI");
        session->logon({}, {}, false, false);
        return session->getDefaultFolder(wanted.folder);
    }
    auto folder = requireFolder(store, *request.folder);
    if (folder->defaultItemType() != wanted.items)
        throw UsageError{"--folder: \"" + *request.folder + "\" holds no " + std::string{wanted.holds}};
    return folder;
}

std::string dataFileOf(const SyncRequest& request, HostDatabase& database) {
    if (request.dataFile) return *request.dataFile;
    const HostRows version{database, "SELECT DataVersion.DataUniqueID FROM DataVersion;"};
    std::string identifier = version.isAtEnd() ? std::string{} : version.field("DataUniqueID").toText();
    if (identifier.empty()) throw InputError{request.firm + " has no identifier in DataVersion; give one with --data-file"};
    return identifier;
}

/// One run and all that it needs, from opening both sides to closing them.
class SyncSession {
public:
    SyncSession(const SyncRequest& request, Console& console) : request_(request), console_(console) { openSides(); }
    ~SyncSession();
    SyncSession(const SyncSession&) = delete;
    SyncSession& operator=(const SyncSession&) = delete;

    SyncReport run();

private:
    void openSides();
    void makeComponent();
    void listen();
    void handServices();
    void setOptions();
    void collect();

    template <class... Args>
    void note(Event<Args...>& event, const std::string& name) {
        subscriptions_.push_back(event.subscribe([this, name](Args...) { report_.events.push_back(name); }));
    }

    const SyncRequest& request_;
    Console& console_;
    const RunLock firmLock_{request_.firm};  // released behind all that opens the files
    const RunLock outlookLock_{request_.outlook};
    std::shared_ptr<RunEnd> end_ = std::make_shared<RunEnd>(console_.stopSignal);
    std::shared_ptr<IdleMessageLoop> messageLoop_ = std::make_shared<RunMessageLoop>(end_);
    Platform platform_ = platformFor(request_, messageLoop_);
    std::shared_ptr<OutlookRecord> outlookRecord_ = std::make_shared<OutlookRecord>();
    std::shared_ptr<outlook::port::Automation> store_;
    std::shared_ptr<outlook::port::MAPIFolder> folder_;
    std::shared_ptr<RecordingDatabase> database_;
    std::shared_ptr<FirmLocale> locale_;
    std::shared_ptr<ConsoleErrorService> errors_;
    std::shared_ptr<RecordingMessageBoxes> messageBoxes_;
    std::unique_ptr<clsOutlookSynchronization> component_;
    std::vector<Subscription> subscriptions_;
    SyncReport report_;
};

/// Whatever must be known to refuse the request is looked at here, before the component could write anything.
void SyncSession::openSides() {
    SqliteOptions firmOptions;
    firmOptions.dryRun = request_.isDryRun;
    // First: opening an old Outlook store brings it up to date, which a firm that is refused should not lead to.
    const auto firm = openSqliteDatabase(request_.firm, firmOptions);
    OutlookStoreOptions storeOptions;
    storeOptions.dryRun = request_.isDryRun;
    storeOptions.clock = platform_.clock;
    store_ = openOutlookStore(request_.outlook, storeOptions);
    folder_ = chosenFolder(request_, *store_);
    database_ = std::make_shared<RecordingDatabase>(firm, end_);
    if (request_.user) requireStaff(*database_, *request_.user);
    locale_ = std::make_shared<FirmLocale>(*database_, platform_.clock, request_.user);
}

SyncReport SyncSession::run() {
    makeComponent();
    listen();
    try {
        handServices();
        component_->dataFileUniqueID(dataFileOf(request_, *database_));
        setOptions();
        const auto start = std::chrono::steady_clock::now();
        report_.hasStartedOutlook = component_->startOutlook();
        component_->synchronize();
        report_.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    } catch (const ProgramEnded&) {  // who has ended it is told by end_
    } catch (const HostUnwind&) {    // the same, in this program's own use of a port
    }
    collect();
    return std::move(report_);
}

void SyncSession::makeComponent() {
    outlookRecord_->end = end_;
    platform_.outlook = recordOutlook(store_, outlookRecord_);
    platform_.newProgressDialog = [this] {
        report_.progress = std::make_shared<ProgressRecord>();
        return std::make_shared<BarProgressDialog>(
            BarOutput{&console_.err, console_.errIsTerminal, console_.mayColour, std::chrono::steady_clock::now},
            report_.progress);
    };
    component_ = std::make_unique<clsOutlookSynchronization>(platform_);
}

void SyncSession::listen() {
    note(component_->startingConnectingToOutlook, "startingConnectingToOutlook");
    note(component_->successfullyConnectedToOutlook, "successfullyConnectedToOutlook");
    note(component_->errorConnectingToOutlook, "errorConnectingToOutlook");
    note(component_->createNewScheduleEntryFromTask, "createNewScheduleEntryFromTask");
    note(component_->ExitProgram, "ExitProgram");
    subscriptions_.push_back(component_->createNewScheduleEntryFromTask.subscribe(
        [this](ScheduleEntryRequest& request) { report_.scheduleEntries.push_back(request); }));
    subscriptions_.push_back(component_->ExitProgram.subscribe([] { throw ProgramEnded{}; }));
}

void SyncSession::handServices() {
    errors_ = std::make_shared<ConsoleErrorService>(request_.onError, end_->program(), [this](const ErrorReport& report) {
        tellFailure(console_, report.message + " (" + report.errorTag + ")");
    });
    messageBoxes_ =
        std::make_shared<RecordingMessageBoxes>([this](const Message& message) { tellFailure(console_, message.text); });
    component_->errorClass(errors_);
    component_->MsgboxClass(messageBoxes_);
    component_->LocaleReference(locale_);
    component_->WorkingFolderReference(platform_.newWorkingFolder());
    component_->DatabaseReference(database_);
}

void SyncSession::setOptions() {
    component_->syncObjects(request_.objects);
    component_->syncDirectionType(request_.direction);
    component_->showProgress(request_.showProgress);
    if (request_.folder) {
        component_->outlookImportFolderStoreID(folder_->storeID());
        component_->outlookImportFolderEntryID(folder_->entryID());
    }
    const auto tell = [this](std::string_view sentence) { tellFailure(console_, sentence); };
    fillSelection(request_, {*database_, *store_, *folder_, tell}, *component_->companyCollection,
                  *component_->contactCollection);
    applySettings(request_, *component_);
}

void SyncSession::collect() {
    report_.objects = component_->syncObjects();
    report_.direction = component_->syncDirectionType();
    report_.isDryRun = request_.isDryRun;
    report_.stoppingSignal = end_->stoppingSignal();
    report_.isEnded = end_->program()->isDecided() && report_.stoppingSignal == 0;
    report_.isConnected = component_->connectedToOutlook();
    report_.yields = messageLoop_->yields();
    report_.errors = errors_->reports();
    report_.messages = messageBoxes_->messages();
    report_.refreshData = component_->refreshData();
    report_.writtenInOutlook = outlookRecord_->items;
    report_.writtenInHost = database_->rows();
}

/// The services are module-wide: left in place they would outlive the run and keep the firm's file open.
SyncSession::~SyncSession() {
    if (component_) {
        component_->korrisService(nullptr);
        component_->WorkingFolderReference(nullptr);
        component_->LocaleReference(nullptr);
        component_->MsgboxClass(nullptr);
        component_->errorClass(nullptr);
    }
    component_.reset();
    try {
        if (database_) database_->closeDatabase();
    } catch (const Failure&) {  // everything that was written is written
    }
}

}  // namespace

void checkSettings(const SyncRequest& request, Console& console) {
    if (request.settings.empty()) return;
    clsOutlookSynchronization scratch{platformFor(request, std::make_shared<IdleMessageLoop>())};
    applySettings(request, scratch);
    for (const auto& [name, text] : request.settings)
        if (isNumberWithoutName(*findPublicProperty(name), text))
            tellFailure(console, "--set: " + name + " has no value " + text + "; the component takes it all the same");
}

SyncReport runSync(const SyncRequest& request, Console& console) {
    try {
        SyncSession session{request, console};
        return session.run();
    } catch (const HostUnwind&) {  // while the sides were opened: only a signal can ask for the end as early as that
        throw Stopped{console.stopSignal()};
    }
}

}  // namespace wmoutlook

#include "bench/Pass.h"

#include "adapters/headless/DiskFiles.h"
#include "adapters/headless/FirmLocale.h"
#include "adapters/headless/Machine.h"
#include "adapters/headless/PrivateProfileFile.h"
#include "adapters/headless/WorkingFolders.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/sql/SqliteDatabase.h"
#include "hostdata/HostServices.h"

#include <optional>
#include <stdexcept>

namespace wmoutlook::bench {

namespace {

/// Counts the failures, and notes what had been prepared when the work on the second record began.
class CountingErrors : public ErrorService {
public:
    explicit CountingErrors(const PassPlan& plan) : plan_(plan) {}

    std::int64_t reports = 0;
    std::string first;

    void beginRun() {
        recordsBegun_ = 0;
        preparedByFirst_.reset();
        preparedByEnd_.reset();
    }
    [[nodiscard]] std::int64_t laterPrepared() const {
        return preparedByFirst_ ? preparedByEnd_.value_or(preparedStatements()) - *preparedByFirst_ : 0;
    }

    void enterFunction(std::string_view errorTag) override {
        if (!plan_.endRoutine.empty() && errorTag.ends_with(plan_.endRoutine)) preparedByEnd_ = preparedStatements();
        if (preparedByFirst_ || !errorTag.ends_with(plan_.firstRoutine)) return;
        if (++recordsBegun_ == plan_.kindsOfRecords + 1) preparedByFirst_ = preparedStatements();
    }
    void leaveFunction() override {}
    ErrorAnswer reportError(const ErrorReport& report) override {
        if (++reports == 1) first = report.errorTag + ": " + report.message;
        return ErrorAnswer::goOn;
    }

private:
    PassPlan plan_;
    int recordsBegun_ = 0;
    std::optional<std::int64_t> preparedByFirst_;
    std::optional<std::int64_t> preparedByEnd_;
};

constexpr PassPlan kCompanies{outlookSyncObjectsEnum::syncContacts, "-getOutlookIDFromTallowbrookCompanyID", {}, 1, 2};
constexpr PassPlan kAppointments{outlookSyncObjectsEnum::syncAppointments, "-getOutlookIDFromTallowbrookAppointmentID",
                                 "-deleteMissingTallowbrookApptsInOutlook", 2,
                                 4};  // with and without a company; the walk over the links yields too

}  // namespace

struct Pass::Host {
    Host(std::int32_t records, const PassPlan& plan)
        : wantedYields(records * plan.yieldsPerRecord), errors(std::make_shared<CountingErrors>(plan)) {}

    std::int64_t wantedYields;
    std::shared_ptr<Clock> clock = std::make_shared<FixedClock>(kToday);
    std::shared_ptr<IdleMessageLoop> messageLoop = std::make_shared<IdleMessageLoop>();
    std::shared_ptr<CountingErrors> errors;
    std::shared_ptr<HostDatabase> firm;
    std::unique_ptr<clsOutlookSynchronization> component;

    Platform platform(const Files& files) const {
        OutlookStoreOptions options;
        options.clock = clock;
        Platform platform;
        platform.clock = clock;
        platform.random = std::make_shared<SeededRandom>(1);
        platform.messageLoop = messageLoop;
        platform.files = std::make_shared<DiskFiles>();
        platform.privateProfile = std::make_shared<PrivateProfileFile>();
        platform.programFolder = folderOfThisProgram();
        platform.outlook = openOutlookStore(files.outlook, options);
        platform.newWorkingFolder = [] { return std::make_shared<TemporaryWorkingFolder>(); };
        platform.newProgressDialog = [] { return nullptr; };
        return platform;
    }
};

Pass::Pass(const Files& files, std::int32_t records, const PassPlan& plan) : host_(std::make_unique<Host>(records, plan)) {
    host_->firm = openSqliteDatabase(files.firm);
    host_->component = std::make_unique<clsOutlookSynchronization>(host_->platform(files));
    clsOutlookSynchronization& component = *host_->component;
    component.errorClass(host_->errors);
    component.LocaleReference(std::make_shared<FirmLocale>(*host_->firm, host_->clock, std::nullopt));
    component.DatabaseReference(host_->firm);
    component.dataFileUniqueID(std::string{kDataFileID});
    component.showProgress(false);
    component.syncObjects(plan.objects);
    component.mvarUseAppointmentDateRange = false;
    if (!component.startOutlook() || !component.connectedToOutlook()) throw std::runtime_error{"Outlook cannot be reached"};
}

Pass::Pass(const Files& files, std::int32_t companies) : Pass(files, companies, kCompanies) {
    for (std::int32_t id = 1; id <= companies; ++id) component().companyCollection->add({Variant{id}});
}

CalendarPass::CalendarPass(const Files& files, std::int32_t appointments) : Pass(files, appointments, kAppointments) {
    component().companyCollection->add({Variant{}, Variant{}, std::int32_t{0}});  // all users
}

clsOutlookSynchronization& Pass::component() const {
    return *host_->component;
}

Pass::~Pass() {
    host_->component.reset();
    setErrorService(nullptr);  // services are module-wide, and the files are to be closed
    hostServices() = {};
}

Cost Pass::run() {
    const std::int64_t yieldsBefore = host_->messageLoop->yields();
    host_->errors->beginRun();
    const double begin = processorSeconds();
    host_->component->synchronize();
    const double end = processorSeconds();
    const std::int64_t yields = host_->messageLoop->yields() - yieldsBefore;
    if (host_->errors->reports != 0) throw std::runtime_error{"The pass met a failure: " + host_->errors->first};
    if (yields != host_->wantedYields) throw std::runtime_error{"The pass did not walk all records"};
    return {end - begin, host_->errors->laterPrepared()};
}

}  // namespace wmoutlook::bench

#include "adapters/outlookstore/StoreFile.h"

#include "adapters/outlookstore/Schema.h"

#include <ctime>

namespace wmoutlook::outlookstore {

namespace {

class MachineClock : public Clock {
public:
    Date now() override {
        const std::time_t moment = std::time(nullptr);
        std::tm local{};
        if (localtime_r(&moment, &local) == nullptr) return {};
        return makeDate({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec % 60})
            .value_or(Date{});
    }
};

}  // namespace

StoreFile::StoreFile(const std::string& path, const OutlookStoreOptions& options)
    : clock_(options.clock ? options.clock : std::make_shared<MachineClock>()),
      dryRun_(options.dryRun),
      connection_(openStoreFile(path, options.durability, options.busyTimeoutMilliseconds)),
      folders_(std::make_unique<FolderStorage>(*connection_)),
      items_(std::make_unique<ItemStorage>(*connection_)),
      series_(std::make_unique<SeriesStorage>(*connection_)),
      mails_(std::make_unique<MailRows>(*connection_)) {
    // Who cannot write hears it here and not at the first record.
    constexpr std::string_view kAttempt = "opening it for writing";
    dryRun_ ? connection_->beginTrial(kAttempt) : connection_->execute("BEGIN IMMEDIATE; ROLLBACK", kAttempt);
}

StoreFile::~StoreFile() {
    mails_.reset();
    series_.reset();
    items_.reset();
    folders_.reset();
    if (!dryRun_) return;
    try {
        connection_->execute("ROLLBACK", "undoing the dry run");
    } catch (const OutlookError&) {  // closing undoes it as well
    }
}

Date StoreFile::now() {
    return clock_->now();
}

void Instance::logon() {
    if (!isAlive_) throw OutlookError{-1, "Outlook has been quit"};
    if (!acceptsLogon_) throw OutlookError{-1, "The logon to Outlook was refused"};
    isLoggedOn_ = true;
}

StoreFile& Instance::file() const {
    if (!isAlive_) throw OutlookError{-1, "Outlook has been quit"};
    return *file_;
}

StoreFile& Instance::session() {
    if (!isLoggedOn_) logon();
    return file();
}

}  // namespace wmoutlook::outlookstore

#include "apps/tallowsync/run/FirmHost.h"

#include "adapters/headless/HostRows.h"
#include "adapters/headless/Machine.h"
#include "hostdata/HostServices.h"
#include "platform/Errors.h"
#include "platform/Routine.h"

namespace wmoutlook {

ErrorAnswer TellingErrors::reportError(const ErrorReport& report) {
    reports_.push_back(report);
    tellFailure(console_, report.message + " (" + report.errorTag + ")");
    return ErrorAnswer::goOn;
}

void requireStaff(HostDatabase& database, std::int32_t user) {
    for (HostRows staff{database, "SELECT AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo;"}; !staff.isAtEnd();
         staff.next())
        if (staff.field("ContactID").toInteger() == user) return;
    throw UsageError{"--user: nobody on the staff has the number " + toText(user)};
}

FirmHost::FirmHost(const Options& options, Console& console) : errors_(std::make_shared<TellingErrors>(console)) {
    std::shared_ptr<Clock> clock = std::make_shared<SystemClock>();
    if (options.now) clock = std::make_shared<FixedClock>(*options.now);
    if (options.firm.empty()) {
        locale_ = std::make_shared<FirmLocale>(clock, options.country, options.province);
    } else {
        database_ = openSqliteDatabase(options.firm, {.readOnly = true});
        if (options.user) requireStaff(*database_, *options.user);
        locale_ = std::make_shared<FirmLocale>(*database_, clock, options.user);
    }
    HostServices& services = hostServices();
    services.database = database_;
    services.locale = locale_;
    services.clock = clock;
    services.messageLoop = std::make_shared<IdleMessageLoop>();
    setErrorService(errors_);
}

FirmHost::~FirmHost() {
    setErrorService(nullptr);
    hostServices() = {};
    try {
        if (database_) database_->closeDatabase();
    } catch (const Failure&) {  // only read from
    }
}

}  // namespace wmoutlook

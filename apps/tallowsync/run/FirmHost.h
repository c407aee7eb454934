#pragma once

#include "adapters/headless/FirmLocale.h"
#include "adapters/sql/SqliteDatabase.h"
#include "apps/tallowsync/Console.h"
#include "platform/Platform.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wmoutlook {

/// Keeps what fails and goes on, as a host does whose user is not there; each is told on standard error.
class TellingErrors : public ErrorService {
public:
    explicit TellingErrors(Console& console) : console_(console) {}
    void enterFunction(std::string_view) override {}
    void leaveFunction() override {}
    ErrorAnswer reportError(const ErrorReport& report) override;
    [[nodiscard]] const std::vector<ErrorReport>& reports() const { return reports_; }

private:
    Console& console_;
    std::vector<ErrorReport> reports_;
};

/// A firm's file opened for reading, with the services that shared routines use, for the life of this object.
class FirmHost {
public:
    struct Options {
        std::string firm;  ///< empty: without a database, in `country` and `province`
        std::optional<std::int32_t> user;
        std::optional<Date> now;
        std::int32_t country = country::kCanada;
        std::int32_t province = province::kOntario;
    };

    FirmHost(const Options& options, Console& console);
    ~FirmHost();
    FirmHost(const FirmHost&) = delete;
    FirmHost& operator=(const FirmHost&) = delete;

    [[nodiscard]] HostDatabase& database() const { return *database_; }
    [[nodiscard]] LocaleService& locale() const { return *locale_; }
    [[nodiscard]] const std::vector<ErrorReport>& errors() const { return errors_->reports(); }
    [[nodiscard]] ExitStatus status() const { return errors().empty() ? ExitStatus::done : ExitStatus::doneWithFailures; }

private:
    std::shared_ptr<HostDatabase> database_;
    std::shared_ptr<FirmLocale> locale_;
    std::shared_ptr<TellingErrors> errors_;
};

/// Throws UsageError about --user.
void requireStaff(HostDatabase& database, std::int32_t user);

}  // namespace wmoutlook

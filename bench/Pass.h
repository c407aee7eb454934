#pragma once

#include "bench/BenchFirm.h"
#include "bench/Cost.h"
#include "component/clsOutlookSynchronization.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace wmoutlook::bench {

/// What a run carries.
struct PassPlan {
    outlookSyncObjectsEnum objects = outlookSyncObjectsEnum::syncContacts;
    std::string_view firstRoutine;  ///< the end of the tag of the routine with which the work on a record begins
    std::string_view endRoutine;    ///< that of the routine in which the pass over the records has ended, if there is one
    int kindsOfRecords = 1;         ///< so many records need statements of their own
    std::int64_t yieldsPerRecord = 2;
};

/// The component, wired up as a host does it, on the embedded adapters: no progress dialog, an error service that only counts.
/// By itself it carries companies.
class Pass {
public:
    static constexpr const char* kRecords = "companies";
    static void makeFiles(const Files& files, std::int32_t companies) { makeFirm(files, companies); }

    Pass(const Files& files, std::int32_t companies);
    ~Pass();
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;

    /// Carries all records to Outlook. Throws when the error service was told of a failure or a record was left out.
    Cost run();

protected:
    Pass(const Files& files, std::int32_t records, const PassPlan& plan);
    [[nodiscard]] clsOutlookSynchronization& component() const;

private:
    struct Host;
    std::unique_ptr<Host> host_;
};

/// Carries all appointments, whoever's they are, and looks for those that are gone.
class CalendarPass : public Pass {
public:
    static constexpr const char* kRecords = "appointments";
    static void makeFiles(const Files& files, std::int32_t appointments) { makeCalendar(files, appointments); }

    CalendarPass(const Files& files, std::int32_t appointments);
};

}  // namespace wmoutlook::bench

#pragma once

#include "adapters/headless/BarProgressDialog.h"
#include "apps/tallowsync/Console.h"
#include "apps/tallowsync/Json.h"
#include "apps/tallowsync/run/WrittenRecords.h"
#include "platform/Services.h"
#include "syncstore/SyncRun.h"

#include <memory>
#include <string>
#include <vector>

namespace wmoutlook {

/// What a run did, as it was seen from outside.
struct SyncReport {
    outlookSyncObjectsEnum objects{};
    outlookSyncTypeEnum direction{};
    bool isDryRun = false;
    bool hasStartedOutlook = false;
    bool isConnected = false;
    bool isEnded = false;    ///< by the error service
    int stoppingSignal = 0;  ///< of a run that a signal has stopped
    std::vector<std::string> events;
    std::shared_ptr<ProgressRecord> progress;  ///< nothing when no dialog was shown
    std::int64_t yields = 0;
    std::vector<ErrorReport> errors;
    std::vector<Message> messages;
    bool refreshData = false;
    std::vector<ScheduleEntryRequest> scheduleEntries;
    WrittenRecords writtenInOutlook;
    WrittenRecords writtenInHost;
    double seconds = 0;
};

[[nodiscard]] Json toJson(const SyncReport& report);
void printReport(const SyncReport& report, std::ostream& out);
[[nodiscard]] ExitStatus statusOf(const SyncReport& report);

// The words of the command line.

struct ObjectsWord {
    const char* word;
    outlookSyncObjectsEnum value;
};
inline constexpr ObjectsWord kObjectsWords[] = {{"contacts", outlookSyncObjectsEnum::syncContacts},
                                                {"appointments", outlookSyncObjectsEnum::syncAppointments},
                                                {"tasks", outlookSyncObjectsEnum::syncTasks}};
struct DirectionWord {
    const char* word;
    outlookSyncTypeEnum value;
};
inline constexpr DirectionWord kDirectionWords[] = {{"to-outlook", outlookSyncTypeEnum::syncFromTallowbrookToOutlook},
                                                    {"to-host", outlookSyncTypeEnum::syncFromOutlookToTallowbrook},
                                                    {"both", outlookSyncTypeEnum::syncBothsWays}};

}  // namespace wmoutlook

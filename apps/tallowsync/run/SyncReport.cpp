#include "apps/tallowsync/run/SyncReport.h"

#include <algorithm>
#include <cmath>

namespace wmoutlook {

namespace {

constexpr std::string_view kLinkTable = "OutlookSync";

/// The word, or the number of a value that has none and with which a run does nothing.
template <class Words, class Value>
Json wordOf(const Words& words, Value value) {
    for (const auto& row : words)
        if (row.value == value) return row.word;
    return static_cast<std::int32_t>(value);
}

Json progressToJson(const std::shared_ptr<ProgressRecord>& progress) {
    if (!progress) return {{"maximum", nullptr}, {"value", nullptr}, {"messages", Json::array()}};
    return {{"maximum", progress->maximum}, {"value", progress->value}, {"messages", progress->messages}};
}

Json errorsToJson(const std::vector<ErrorReport>& errors) {
    Json json = Json::array();
    for (const ErrorReport& error : errors) json.push_back({{"tag", error.errorTag}, {"message", error.message}});
    return json;
}

Json messagesToJson(const std::vector<Message>& messages) {
    Json json = Json::array();
    for (const Message& message : messages)
        json.push_back({{"text", message.text}, {"code", static_cast<std::int32_t>(message.code)}});
    return json;
}

Json scheduleEntriesToJson(const std::vector<ScheduleEntryRequest>& requests) {
    Json json = Json::array();
    for (const ScheduleEntryRequest& request : requests)
        json.push_back({{"taskID", request.taskID},
                        {"companyNum", request.companyNum},
                        {"contactNum", request.contactNum},
                        {"recordDueDate", request.recordDueDate},
                        {"dueDate", request.recordDueDate ? jsonDay(request.dueDate) : Json{}}});
    return json;
}

std::size_t countOf(const std::vector<Json>& records, bool areLinks) {
    return static_cast<std::size_t>(std::count_if(records.begin(), records.end(), [&](const Json& record) {
        return (record.is_object() && record.at("table") == kLinkTable) == areLinks;
    }));
}

void printCounts(std::string_view what, const WrittenRecords& records, bool areLinks, std::ostream& out) {
    out << what << ": " << countOf(records.created(), areLinks) << " created, " << countOf(records.updated(), areLinks)
        << " updated, " << countOf(records.deleted(), areLinks) << " deleted\n";
}

}  // namespace

Json toJson(const SyncReport& report) {
    Json json{{"objects", wordOf(kObjectsWords, report.objects)},
              {"direction", wordOf(kDirectionWords, report.direction)},
              {"connected", report.isConnected},
              {"startOutlook", report.hasStartedOutlook},
              {"events", report.events},
              {"progress", progressToJson(report.progress)},
              {"yields", report.yields},
              {"errors", errorsToJson(report.errors)},
              {"messages", messagesToJson(report.messages)},
              {"refreshData", report.refreshData},
              {"scheduleEntries", scheduleEntriesToJson(report.scheduleEntries)},
              {"written", {{"outlook", report.writtenInOutlook.toJson()}, {"host", report.writtenInHost.toJson()}}},
              {"seconds", std::round(report.seconds * 1000) / 1000}};
    if (report.isDryRun) json["dryRun"] = true;
    if (report.stoppingSignal != 0) json["stopped"] = true;
    return json;
}

void printReport(const SyncReport& report, std::ostream& out) {
    printCounts("Outlook items", report.writtenInOutlook, false, out);
    printCounts("Host records", report.writtenInHost, false, out);
    printCounts("Links", report.writtenInHost, true, out);
    if (!report.errors.empty()) out << "Failures: " << report.errors.size() << '\n';
    if (report.isDryRun) out << "Dry run: both sides are as they were.\n";
}

ExitStatus statusOf(const SyncReport& report) {
    if (report.stoppingSignal != 0) return stoppedBy(report.stoppingSignal);
    if (report.isEnded) return ExitStatus::ended;
    return report.errors.empty() && report.isConnected ? ExitStatus::done : ExitStatus::doneWithFailures;
}

}  // namespace wmoutlook

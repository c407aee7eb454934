#include "adapters/headless/HostRows.h"
#include "apps/tallowsync/Command.h"
#include "apps/tallowsync/Json.h"
#include "apps/tallowsync/OptionTexts.h"
#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/run/FirmHost.h"
#include "hostdata/modDatabaseFunctions.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "platform/Text.h"
#include "platform/richtext/RichText.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <memory>

namespace wmoutlook {

namespace {

namespace Look = modDatabaseFunctions;
using merge::FieldList;

/// A text from the command line, or from standard input when it is a hyphen.
std::string templateText(const std::string& given, Console& console) {
    return given == "-" ? wholeInput(console.in) : given;
}

Json errorsToJson(const std::vector<ErrorReport>& errors) {
    Json all = Json::array();
    for (const ErrorReport& error : errors) all.push_back({{"tag", error.errorTag}, {"message", error.message}});
    return all;
}

constexpr const char* kNowHelp = "The time of the merge, such as 2026-11-22T09:00:00";

void declareFirm(CLI::App& line, FirmHost::Options& options, std::optional<std::string>& now) {
    line.add_option("--firm", options.firm, "The firm's database")->required();
    line.add_option("--now", now, kNowHelp);
}

FirmHost::Options at(FirmHost::Options options, const std::optional<std::string>& now) {
    if (now) options.now = moment("--now", *now);
    return options;
}

// fields

/// The items of a pick list: what they say and to which row they lead.
class ListedPicks : public PickList {
public:
    Json items = Json::array();

    void Clear() override { items = Json::array(); }
    void AddItem(std::string_view text) override { items.push_back({{"text", text}, {"row", nullptr}}); }
    std::int32_t NewIndex() override { return static_cast<std::int32_t>(items.size()) - 1; }
    std::int32_t ItemData(std::int32_t index) override {
        const Json& row = items.at(static_cast<std::size_t>(index))["row"];
        return row.is_null() ? kNoRecord : row.get<std::int32_t>();
    }
    void ItemData(std::int32_t index, std::int32_t data) override {
        items.at(static_cast<std::size_t>(index))["row"] = data < 0 ? Json(nullptr) : Json(data);
    }
    void Refresh() override {}
};

Json fieldsToJson(FieldList list) {
    Json rows = Json::array();
    for (std::int32_t index = 1; list.moveTo(index); ++index) {
        const merge::Field& field = *list.current();
        rows.push_back({{"row", index},
                        {"name", field.displayName},
                        {"field", field.databaseField},
                        {"source", merge::nameOf(field.source)},
                        {"type", static_cast<std::int32_t>(field.type)},
                        {"sample", field.sample},
                        {"length", field.length}});
    }
    return rows;
}

/// The name of the placeholder stands behind a text that differs from it.
void printPicks(const ListedPicks& picks, FieldList list, Console& console) {
    for (const Json& item : picks.items) {
        const std::string text = item["text"];
        console.out << onOneLine(text);
        if (!item["row"].is_null() && list.moveTo(item["row"].get<std::int32_t>()) && list.current()->displayName != text)
            console.out << " = «" << onOneLine(list.current()->displayName) << "»";
        console.out << '\n';
    }
}

struct FieldsOptions {
    FirmHost::Options host;
    std::optional<std::string> now;
    std::int32_t listType = 0;
    std::int32_t use = clsInsertFieldsInRTB::kOrdinaryMerge;
    bool asJson = false;
};

constexpr const char* kListTypes =
    "1 company with its default contact, 2 company and contact, 3 contact alone, 5 appointment, 6 time entry, 8 task";

std::string faultOfListType(const std::string& given) {
    constexpr std::string_view kNumbers[] = {"1", "2", "3", "5", "6", "8"};
    const bool isOne = std::find(std::begin(kNumbers), std::end(kNumbers), given) != std::end(kNumbers);
    return isOne ? std::string{} : inQuotes(given) + " is none of 1, 2, 3, 5, 6, 8";
}

ExitStatus listFields(const FieldsOptions& options, Console& console) {
    const FirmHost host{at(options.host, options.now), console};
    clsInsertFieldsInRTB merge;
    merge.ListType = options.listType;
    merge.MergeFieldListUse(options.use);
    const auto picks = std::make_shared<ListedPicks>();
    const auto firmPicks = std::make_shared<ListedPicks>();
    merge.ListBox = picks;
    merge.ListBox2 = firmPicks;
    bool skipList = false;
    bool clearList = true;
    merge.createDefaultFieldListStructure(skipList, clearList);
    if (options.asJson) {
        const Json json{
            {"fields", fieldsToJson(merge.fieldList())}, {"pickList", picks->items}, {"firmPickList", firmPicks->items}};
        console.out << jsonText(json, 2) << '\n';
        return host.status();
    }
    for (const auto& list : {picks, firmPicks}) printPicks(*list, merge.fieldList(), console);
    return host.status();
}

Action declareFields(CLI::App& line) {
    const auto options = std::make_shared<FieldsOptions>();
    declareFirm(line, options->host, options->now);
    line.add_option("--list-type", options->listType, kListTypes)->required()->check(faultOfListType);
    line.add_option("--use", options->use, "1 a merge (the default), 3 whole address lines and a full name")
        ->check(CLI::Range(1, 5));
    line.add_flag("--json", options->asJson, "Print JSON: the rows of the list and the items of both pick lists");
    return [options](Console& console) { return listFields(*options, console); };
}

// merge

struct MergeOptions {
    FirmHost::Options host;
    std::optional<std::string> now;
    merge::MergeRecordIDs ids;
    std::string text;
    bool isRich = false, isPlain = false, asJson = false;
};

struct NamedRecord {
    const char* option;
    const char* noun;
    std::int32_t merge::MergeRecordIDs::*id;
    bool (*isThere)(std::int32_t);
};

constexpr NamedRecord kRecords[] = {
    {"--company", "company", &merge::MergeRecordIDs::companyID, Look::validCompanyID},
    {"--contact", "contact", &merge::MergeRecordIDs::contactID, Look::validContactID},
    {"--appointment", "appointment", &merge::MergeRecordIDs::AppointmentID, Look::validAppointmentID},
    {"--task", "task", &merge::MergeRecordIDs::taskID, Look::validTaskID},
    {"--docket", "time entry", &merge::MergeRecordIDs::docketId, Look::validDocketID},
};

CLI::Range recordNumber() {
    return {0, std::numeric_limits<std::int32_t>::max()};
}

/// By the kind of a calendar record.
const NamedRecord& calendarRecordOf(std::int32_t kind) {
    constexpr std::size_t kAppointments = 2;
    return kRecords[kAppointments + static_cast<std::size_t>(kind)];
}

struct CalendarRecord {
    std::int32_t merge::MergeRecordIDs::*id;
    std::int32_t listType;
    std::int32_t (*companyOf)(std::int32_t);
    std::int32_t (*contactOf)(std::int32_t);
};

constexpr CalendarRecord kCalendarRecords[] = {
    {&merge::MergeRecordIDs::AppointmentID, clsInsertFieldsInRTB::kAppointment, Look::getCompanyIDFromAppointmentID,
     Look::getContactIDFromAppointmentID},
    {&merge::MergeRecordIDs::taskID, clsInsertFieldsInRTB::kTask, Look::getCompanyIDFromTaskID, Look::getContactIDFromTaskID},
    {&merge::MergeRecordIDs::docketId, clsInsertFieldsInRTB::kTimeEntry, Look::getCompanyIDFromDocketID,
     Look::getContactIDFromDocketID},
};

/// The client of a calendar record, the default contact of a company and the firm itself are taken along, as a host does.
void chooseRecords(clsInsertFieldsInRTB& merge, HostDatabase& database) {
    merge.ListType = merge.companyID < 0 && merge.contactID >= 0 ? clsInsertFieldsInRTB::kContactAlone
                                                                 : clsInsertFieldsInRTB::kCompanyAndContact;
    for (const CalendarRecord& record : kCalendarRecords) {
        const std::int32_t id = merge.*record.id;
        if (id < 0) continue;
        merge.ListType = record.listType;
        if (merge.companyID >= 0 || merge.contactID >= 0) continue;
        merge.companyID = record.companyOf(id);
        merge.contactID = record.contactOf(id);
    }
    if (merge.companyID >= 0 && merge.contactID < 0) merge.contactID = Look::getDefaultContactIDFromCompanyID(merge.companyID);
    const HostRows firm{database, "SELECT AccountantFirmInfo.CompanyID FROM AccountantFirmInfo;"};
    if (!firm.isAtEnd()) merge.firmID = firm.field("CompanyID").toInteger();
}

void tellIfMissing(const NamedRecord& record, const char* option, std::int32_t id, Console& console) {
    if (id < 0 || record.isThere(id)) return;
    tellFailure(console, std::string{option} + ": the firm has no " + record.noun + " " + toText(id) + "; its fields are empty");
}

ExitStatus mergeTemplate(const MergeOptions& options, Console& console) {
    const std::string text = templateText(options.text, console);
    const FirmHost host{at(options.host, options.now), console};
    for (const NamedRecord& record : kRecords) tellIfMissing(record, record.option, options.ids.*record.id, console);
    clsInsertFieldsInRTB merge;
    static_cast<merge::MergeRecordIDs&>(merge) = options.ids;
    merge.userID = host.locale().currentUserID();
    chooseRecords(merge, host.database());
    merge.ConvertStrToRTF = options.isRich || (!options.isPlain && RichText::isRichText(text));
    merge.initializeDataRecordsetsForSingleDocMerge();
    merge.TemplateText = text;
    const std::string merged = merge.parseRTBComment();
    if (options.asJson)
        console.out << jsonText({{"text", merged}, {"rich", merge.ConvertStrToRTF}, {"errors", errorsToJson(host.errors())}}, 2);
    else
        console.out << merged;
    if (options.asJson || !merged.ends_with('\n')) console.out << '\n';
    return host.status();
}

Action declareMerge(CLI::App& line) {
    const auto options = std::make_shared<MergeOptions>();
    declareFirm(line, options->host, options->now);
    std::vector<CLI::Option*> calendarRecords;
    for (const NamedRecord& record : kRecords) {
        auto* const option =
            line.add_option(record.option, options->ids.*record.id, "The number of the record")->check(recordNumber());
        if (&record < &calendarRecordOf(0)) continue;
        for (auto* const other : calendarRecords) option->excludes(other);
        calendarRecords.push_back(option);
    }
    line.add_option("--user", options->host.user, "The number of the staff member at work; the first by name without it");
    auto* const rich = line.add_flag("--rtf", options->isRich, "The template is rich text; otherwise it is looked at");
    line.add_flag("--plain", options->isPlain, "The template is plain text")->excludes(rich);
    line.add_flag("--json", options->asJson, "Print JSON: text, rich, errors");
    line.add_option("TEMPLATE", options->text, "The template; - reads it from standard input")->required();
    return [options](Console& console) { return mergeTemplate(*options, console); };
}

// check-template

struct CheckOptions {
    FirmHost::Options host;
    std::string text;
    std::optional<std::string> now;
    std::optional<std::int32_t> listType;
    bool isRich = false, isPlain = false, asJson = false;
};

/// A list that a template is checked with.
void buildList(clsInsertFieldsInRTB& merge, std::int32_t listType) {
    merge.ListType = listType;
    bool skipList = true;
    bool clearList = true;
    merge.createDefaultFieldListStructure(skipList, clearList);
}

/// What is wrong first; a failure of the check is told by the host.
std::vector<std::string> checkTemplate(const CheckOptions& options, const std::string& text, const FirmHost& host) {
    clsInsertFieldsInRTB merge;
    clsInsertFieldsInRTB others[3];  // whose lists hold all that those of companies and contacts lack
    buildList(merge, options.listType.value_or(clsInsertFieldsInRTB::kCompanyAndContact));
    if (!options.listType) {
        for (std::size_t i = 0; i < std::size(kCalendarRecords); ++i) buildList(others[i], kCalendarRecords[i].listType);
        merge.isKnownElsewhere = [&](std::string_view name) {
            return std::any_of(std::begin(others), std::end(others), [&](auto& other) { return other.testStr(name); });
        };
    }
    std::vector<std::string> faults;
    const auto listener = merge.MergeCommentError.subscribe([&](const std::string& message) { faults.push_back(message); });
    const bool isRich = options.isRich || (!options.isPlain && RichText::isRichText(text));
    // Plain marks count in rich text too.
    const bool hasFault =
        merge.testRTBComment(text, false, true, false) || (isRich && merge.testRTBComment(text, true, true, false));
    if (hasFault && faults.empty())
        for (const ErrorReport& error : host.errors()) faults.push_back(error.message);
    return faults;
}

Action declareCheckTemplate(CLI::App& line) {
    const auto options = std::make_shared<CheckOptions>();
    line.add_option("--firm", options->host.firm,
                    "The firm's database, for its country, province and own fields; Ontario without it");
    line.add_option("--now", options->now, kNowHelp);
    line.add_option("--list-type", options->listType, std::string{kListTypes} + "; without it a name of any list is known")
        ->check(faultOfListType);
    auto* const rich = line.add_flag("--rtf", options->isRich,
                                     "The template is rich text, where escaped marks count too; otherwise it is looked at");
    line.add_flag("--plain", options->isPlain, "The template is plain text")->excludes(rich);
    line.add_flag("--json", options->asJson, "Print JSON: valid, messages; the check ends at the first fault");
    line.add_option("TEMPLATE", options->text, "The template; - reads it from standard input")->required();
    return [options](Console& console) {
        const std::string text = templateText(options->text, console);
        const FirmHost host{at(options->host, options->now), console};
        const auto faults = checkTemplate(*options, text, host);
        if (options->asJson)
            console.out << jsonText({{"valid", faults.empty()}, {"messages", faults}}, 2) << '\n';
        else if (host.errors().empty())  // those are told
            for (const std::string& fault : faults) console.out << onOneLine(replaceAll(fault, "\r\n\r\n", " ")) << '\n';
        return faults.empty() ? host.status() : ExitStatus::doneWithFailures;
    };
}

// display-text

struct DisplayOptions {
    FirmHost::Options host;
    std::optional<std::string> now;
    std::int32_t kind = 0;
    std::int32_t id = 0;
    bool asJson = false;
};

Action declareDisplayText(CLI::App& line) {
    const auto options = std::make_shared<DisplayOptions>();
    declareFirm(line, options->host, options->now);
    line.add_option("--kind", options->kind, "0 an appointment, 1 a task, 2 a time entry")->required()->check(CLI::Range(0, 2));
    line.add_option("--id", options->id, "The number of the record")->required()->check(recordNumber());
    line.add_option("--user", options->host.user, "The number of the staff member whose template it is")->required();
    line.add_flag("--json", options->asJson, "Print JSON: text, errors");
    return [options](Console& console) {
        const FirmHost host{at(options->host, options->now), console};
        tellIfMissing(calendarRecordOf(options->kind), "--id", options->id, console);
        const std::string text = createTextByID(options->kind, options->id, *options->host.user);
        if (options->asJson)
            console.out << jsonText({{"text", text}, {"errors", errorsToJson(host.errors())}}, 2);
        else
            console.out << text;
        console.out << '\n';
        return host.status();
    };
}

constexpr Command kCommands[] = {
    {"fields", "Lists what the host offers to put into a template.", "fields --firm demo/firm.db --list-type 5", declareFields},
    {"merge", "Turns a template into text for a client or a calendar record.",
     "merge --firm demo/firm.db --company 2 \"Dear «Contact Display Name» of «Company Name»\"", declareMerge},
    {"check-template", "Tells what is wrong with a template; status 1 when something is.",
     "check-template \"«Company Name» «(Todays Date, mmmm d yyyy)»\"", declareCheckTemplate},
    {"display-text", "Shows the text of a calendar record as the host's calendar has it.",
     "display-text --firm demo/firm.db --kind 0 --id 1 --user 1", declareDisplayText},
};

}  // namespace

std::span<const Command> mergeCommands() {
    return kCommands;
}

}  // namespace wmoutlook

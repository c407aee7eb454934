#include "apps/tallowsync/Command.h"
#include "apps/tallowsync/OptionTexts.h"
#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/run/SyncSession.h"
#include "component/PropertyTable.h"
#include "platform/Text.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>

namespace wmoutlook {

namespace {

constexpr std::size_t kLongestDataFileID = 20;  // the narrowest field that holds it, in OutlookSchemeItems

/// The texts of the command line, as they stand.
struct SyncTexts {
    std::string firm, outlook, objects, direction, progress = "dialog", onError = "resume";
    std::optional<std::string> companies, contacts, users, items, folder, dataFile, user, now, seed;
    std::vector<std::string> settings;
    bool isDryRun = false;
    bool asJson = false;
};

template <std::size_t count, class Row>
std::vector<std::string> wordsOf(const Row (&rows)[count]) {
    std::vector<std::string> words;
    for (const Row& row : rows) words.emplace_back(row.word);
    return words;
}

template <std::size_t count, class Row>
auto valueOf(const Row (&rows)[count], std::string_view word) {
    for (const Row& row : rows)
        if (row.word == word) return row.value;
    return rows[0].value;
}

struct PolicyWord {
    const char* word;
    ErrorPolicy value;
};
constexpr PolicyWord kPolicyWords[] = {
    {"resume", ErrorPolicy::resume}, {"leave", ErrorPolicy::leave}, {"retry", ErrorPolicy::retry}, {"stop", ErrorPolicy::stop}};

// The selection

/// Reads "all", "none" or a list; without the option it is `unnamed`.
template <class Element, class Read>
Choice<Element> choiceOf(std::string_view option, const std::optional<std::string>& text, bool isAllUnnamed, Read read) {
    Choice<Element> choice;
    choice.isAll = text ? *text == "all" : isAllUnnamed;
    if (!text || choice.isAll || *text == "none") return choice;
    for (const std::string& part : listParts(option, *text)) choice.listed.push_back(read(option, part));
    return choice;
}

ContactChoice contactChoice(std::string_view option, std::string_view text) {
    const std::size_t colon = text.find(':');
    ContactChoice choice{wholeNumber(option, text.substr(0, colon)), std::nullopt};
    if (colon != std::string_view::npos) choice.company = wholeNumber(option, text.substr(colon + 1));
    return choice;
}

void refuseMisplaced(std::string_view option, const std::optional<std::string>& text, bool hasPlace, std::string_view place) {
    if (text && !hasPlace) throw UsageError{std::string{option} + " goes with " + std::string{place} + " only"};
}

/// A selection that the run would not look at is refused, so that nobody takes it for a limit.
Selection selectionOf(const SyncTexts& texts, const SyncRequest& request) {
    const bool areContacts = request.objects == outlookSyncObjectsEnum::syncContacts;
    const bool isImport = areContacts && request.direction == outlookSyncTypeEnum::syncFromOutlookToTallowbrook;
    const bool isExport = areContacts && !isImport;
    constexpr std::string_view kExport = "--objects contacts and a direction other than to-host";
    refuseMisplaced("--companies", texts.companies, isExport, kExport);
    refuseMisplaced("--contacts", texts.contacts, isExport, kExport);
    refuseMisplaced("--users", texts.users, !areContacts, "--objects appointments or tasks");
    refuseMisplaced("--items", texts.items, isImport, "--objects contacts --direction to-host");
    const bool areAllClients = isExport && !texts.companies && !texts.contacts;
    const auto text = [](std::string_view, const std::string& part) { return part; };
    return {choiceOf<std::int32_t>("--companies", texts.companies, areAllClients, wholeNumber),
            choiceOf<ContactChoice>("--contacts", texts.contacts, areAllClients, contactChoice),
            choiceOf<std::int32_t>("--users", texts.users, !areContacts, wholeNumber),
            choiceOf<std::string>("--items", texts.items, isImport, text)};
}

// The other options

std::pair<std::string, std::string> settingOf(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0) throw UsageError{"--set: \"" + text + "\" is not of the form NAME=VALUE"};
    return {text.substr(0, equals), text.substr(equals + 1)};
}

/// The identifier becomes part of the texts of queries as it is.
std::optional<std::string> checkedDataFile(const std::optional<std::string>& identifier) {
    if (!identifier) return identifier;
    const std::size_t length = characterCount(*identifier);
    if (!faultOfName(*identifier).empty() || length > kLongestDataFileID || identifier->find('\'') != std::string::npos)
        throw UsageError{"--data-file: an identifier has 1 to 20 characters, no apostrophe and no control character"};
    return identifier;
}

/// A run that the component has no pass for would end well and do nothing: said at once instead.
void refuseWithoutPass(const SyncRequest& request) {
    if (request.direction == outlookSyncTypeEnum::syncFromOutlookToTallowbrook)
        throw UsageError{"--direction: this version carries nothing to the host yet; use --direction to-outlook"};
}

SyncRequest requestOf(const SyncTexts& texts) {
    SyncRequest request;
    request.firm = texts.firm;
    request.outlook = texts.outlook;
    request.objects = valueOf(kObjectsWords, texts.objects);
    request.direction = valueOf(kDirectionWords, texts.direction);
    request.selection = selectionOf(texts, request);
    refuseWithoutPass(request);
    request.folder = texts.folder;
    for (const std::string& setting : texts.settings) request.settings.push_back(settingOf(setting));
    request.dataFile = checkedDataFile(texts.dataFile);
    request.showProgress = texts.progress == "dialog";
    request.isDryRun = texts.isDryRun;
    request.asJson = texts.asJson;
    request.onError = valueOf(kPolicyWords, texts.onError);
    if (texts.user) request.user = wholeNumber("--user", *texts.user);
    if (texts.now) request.now = moment("--now", *texts.now);
    if (texts.seed) request.seed = seedNumber("--seed", *texts.seed);
    return request;
}

ExitStatus sync(const SyncTexts& texts, Console& console) {
    const SyncRequest request = requestOf(texts);
    std::error_code error;
    if (std::filesystem::equivalent(request.firm, request.outlook, error))
        throw UsageError{"--firm and --outlook name the same file, " + inQuotes(request.firm)};
    checkSettings(request, console);
    const SyncReport report = runSync(request, console);
    const bool isBroken = report.isEnded || report.stoppingSignal != 0;
    if (!report.isConnected && !isBroken) tellFailure(console, "Outlook could not be reached with " + request.outlook);
    if (report.stoppingSignal != 0)
        tellFailure(console, report.isDryRun ? "Stopped by a signal; both sides are as they were"
                                             : "Stopped by a signal; what was written stays, run it again to go on");
    if (report.isEnded)
        tellFailure(console, report.isDryRun ? "The error service ended the program; both sides are as they were"
                                             : "The error service ended the program; what was written before stays");
    if (request.asJson)
        console.out << jsonText(toJson(report), 2) << '\n';
    else
        printReport(report, console.out);
    return statusOf(report);
}

void declareSides(CLI::App& line, SyncTexts& texts) {
    line.add_option("--firm", texts.firm, "The firm's database")->required();
    line.add_option("--outlook", texts.outlook, "The Outlook store")->required();
    line.add_option("--objects", texts.objects, "What is synchronized: contacts, appointments or tasks")
        ->required()
        ->check(CLI::IsMember(wordsOf(kObjectsWords)));
    line.add_option("--direction", texts.direction,
                    "to-outlook, to-host or both; 'both' is kept for old settings and does nothing")
        ->required()
        ->check(CLI::IsMember(wordsOf(kDirectionWords)));
}

void declareSelection(CLI::App& line, SyncTexts& texts) {
    line.add_option("--companies", texts.companies,
                    "To Outlook: all, none or numbers such as 1,2,3. Without --companies and --contacts all of both are chosen; "
                    "with one of them, none of the other. A number that names nothing is told and skipped");
    line.add_option("--contacts", texts.contacts,
                    "To Outlook: all, none or numbers such as 7,12:3, which is contact 12 under company 3; 'all' takes each "
                    "contact under its company");
    line.add_option("--users", texts.users,
                    "Appointments and tasks: all (the default, everyone on the staff) or numbers such as 1,2; 0 is everybody at "
                    "once, -1 what nobody is assigned to");
    line.add_option("--items", texts.items, "Contacts to the host: all (the default, of the folder) or entry identifiers");
    line.add_option("--folder", texts.folder, "The Outlook folder; the default folder of the objects without it");
}

void declareRun(CLI::App& line, SyncTexts& texts) {
    line.add_option("--set", texts.settings, "Sets a property of the component, as NAME=VALUE; may be repeated")
        ->allow_extra_args(false);
    line.add_option("--data-file", texts.dataFile, "The identifier of the data file; the firm's own without it");
    line.add_option("--progress", texts.progress, "dialog (the default) or none")->check(CLI::IsMember({"dialog", "none"}));
    line.add_flag("--dry-run", texts.isDryRun, "Do the whole run and put both sides back as they were");
    line.add_flag("--json", texts.asJson, "Print the report as JSON");
    line.add_option("--on-error", texts.onError,
                    "What a failure is answered with: resume (the default), leave, retry (100 times at most) or stop")
        ->check(CLI::IsMember(wordsOf(kPolicyWords)));
    line.add_option("--user", texts.user, "The number of the staff member at work; the first by name without it");
    line.add_option("--now", texts.now, "The time of the run, such as 2026-11-22T09:00:00");
    line.add_option("--seed", texts.seed, "The start of the random numbers of the run");
}

std::string propertyList() {
    std::string list =
        "\nProperties for --set, enumeration values by name or number (a number that is none of\n"
        "them is told and set all the same):";
    for (const PublicProperty& property : publicProperties()) {
        if (property.write == nullptr) continue;
        list.append("\n  ").append(property.name);
        for (const EnumerationValue& value : property.enumeration)
            list.append(&value == property.enumeration.data() ? ": " : ", ").append(value.name);
    }
    return list;
}

Action declareSync(CLI::App& line) {
    const auto texts = std::make_shared<SyncTexts>();
    declareSides(line, *texts);
    declareSelection(line, *texts);
    declareRun(line, *texts);
    line.footer(line.get_footer() + "\n" + propertyList());
    return [texts](Console& console) { return sync(*texts, console); };
}

constexpr Command kCommands[] = {
    {"sync", "Runs one synchronization between a firm and an Outlook store.",
     "sync --firm demo/firm.db --outlook demo/outlook.db --objects contacts --direction to-outlook \\\n"
     "    --companies 1,2,3 --set outlookCategory=Clients --dry-run --json",
     declareSync, true},
};

}  // namespace

std::span<const Command> syncCommands() {
    return kCommands;
}

}  // namespace wmoutlook

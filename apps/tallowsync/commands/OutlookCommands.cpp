#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/Command.h"
#include "apps/tallowsync/OptionTexts.h"
#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/items/Folders.h"
#include "apps/tallowsync/items/ItemJson.h"
#include "apps/tallowsync/items/ItemText.h"
#include "apps/tallowsync/items/MailFile.h"
#include "platform/Text.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iomanip>
#include <map>
#include <memory>

namespace wmoutlook {

namespace {

using outlook::port::Automation;

/// The store that is named in front of the command.
std::shared_ptr<Automation> storeOf(const CLI::App& line) {
    return openOutlookStore(line.get_parent()->get_option("FILE")->as<std::string>());
}

Action declareGroup(CLI::App& line) {
    line.add_option("FILE", "The Outlook store")->required();
    return {};
}

// folders

Json folderToJson(const outlookstore::ListedFolder& folder) {
    return {{"path", folder.path},       {"name", folder.name},
            {"store", folder.storeName}, {"type", folderTypeName(folder.defaultItemType)},
            {"items", folder.itemCount}, {"EntryID", folder.entryID},
            {"StoreID", folder.storeID}};
}

void printFolderLine(const outlookstore::ListedFolder& folder, std::ostream& out) {
    constexpr std::size_t kWidth = 48;
    std::string name = std::string(static_cast<std::size_t>(folder.depth) * 2, ' ') + onOneLine(folder.path);
    name.append(kWidth - std::min(kWidth, characterCount(name)), ' ');
    out << name << "  " << std::left << std::setw(8) << folderTypeName(folder.defaultItemType) << std::right << std::setw(8)
        << folder.itemCount << '\n';
}

Action declareFolders(CLI::App& line) {
    const auto asJson = std::make_shared<bool>(false);
    line.add_flag("--json", *asJson, "Print JSON");
    return [&line, asJson](Console& console) {
        const auto store = storeOf(line);
        Json all = Json::array();
        for (const auto& folder : outlookstore::listFolders(*store))
            *asJson ? all.push_back(folderToJson(folder)) : printFolderLine(folder, console.out);
        if (*asJson) console.out << jsonText(all, 2) << '\n';
        return ExitStatus::done;
    };
}

// add-folder

Action declareAddFolder(CLI::App& line) {
    const auto path = std::make_shared<std::string>();
    const auto type = std::make_shared<std::string>();
    line.add_option(
            "PATH", *path,
            "The new folder, such as Contacts/Clients; the folder above it exists already. Names are separated by a slash "
            "or a backslash, and behind a leading \\\\STORE by backslashes only; a name has at most 255 characters")
        ->required();
    line.add_option("--type", *type, "What it holds: contacts, calendar, tasks or mail")
        ->required()
        ->check(CLI::IsMember({"contacts", "calendar", "tasks", "mail"}));
    return [&line, path, type](Console& console) {
        const auto store = storeOf(line);
        console.out << addNamedFolder(*store, *path, folderKind(*type))->entryID() << '\n';
        return ExitStatus::done;
    };
}

// list

struct ListOptions {
    std::optional<std::string> folder;
    std::vector<std::string> expand;  ///< the first day and the last
    bool asJson = false;
};

/// An item that cannot be read is told, and the list goes on behind it. Whether there was none.
bool visitItems(Automation& store, const ListOptions& options, Console& console,
                const std::function<void(const outlookstore::ListedItem&)>& visit) {
    bool areAllRead = true;
    const auto unreadable = [&](const std::string& sentence) {
        areAllRead = false;
        tellFailure(console, sentence);
    };
    if (options.expand.empty()) {
        outlookstore::forEachItem(store, options.folder, visit, unreadable);
        return areAllRead;
    }
    const Date first = moment("--expand", options.expand.front());
    const Date last = moment("--expand", options.expand.back());
    if (isEarlier(last, first)) throw UsageError{"--expand ends on a day before it begins; give the first day, then the last"};
    outlookstore::forEachOccurrence(store, options.folder, first, last, visit, unreadable);
    return areAllRead;
}

/// One element at a time, so that a large folder never lies in memory as a whole.
bool printItemsAsJson(Automation& store, const ListOptions& options, Console& console) {
    const char* separator = "[\n";
    const auto end = [&] { console.out << (*separator == '[' ? "[]\n" : "\n]\n"); };
    const auto print = [&](const outlookstore::ListedItem& item) {
        console.out << separator << jsonText(itemToJson(item));
        separator = ",\n";
    };
    try {
        const bool areAllRead = visitItems(store, options, console, print);
        end();
        return areAllRead;
    } catch (const OutlookError&) {  // a list that breaks off is a document all the same
        end();
        throw;
    }
}

Action declareList(CLI::App& line) {
    const auto options = std::make_shared<ListOptions>();
    line.add_option("--folder", options->folder, "Only the items of this folder, by its path as 'folders' shows it");
    line.add_option("--expand", options->expand,
                    "The appointments that start on the days FROM to TO, such as 2026-11-01 2026-11-30, each occurrence of a "
                    "series for itself")
        ->expected(2)
        ->type_name("FROM TO");
    line.add_flag("--json", options->asJson, "Print JSON: all that is set, by Outlook's names");
    return [&line, options](Console& console) {
        const auto store = storeOf(line);
        if (options->folder) static_cast<void>(requireFolder(*store, *options->folder));
        const bool areAllRead = options->asJson ? printItemsAsJson(*store, *options, console)
                                                : visitItems(*store, *options, console,
                                                             [&](const auto& item) { console.out << itemToLine(item) << '\n'; });
        return areAllRead ? ExitStatus::done : ExitStatus::doneWithFailures;
    };
}

// add

ExitStatus addItemsOf(Automation& store, const std::optional<std::string>& folder, Console& console) {
    if (folder) static_cast<void>(requireFolder(store, *folder));
    ItemReader reader{store, folder};
    reader.read(readItemText(console.in));
    for (const std::string& fault : reader.faults()) tellFailure(console, fault);
    if (!reader.isRight()) return ExitStatus::badFile;
    const auto checkpoint = [&] { stopIfAsked(console.stopSignal); };
    for (const std::string& entryID : addItems(store, reader.items(), checkpoint)) console.out << entryID << '\n';
    return ExitStatus::done;
}

Action declareAdd(CLI::App& line) {
    const auto folder = std::make_shared<std::optional<std::string>>();
    line.add_option("--folder", *folder,
                    "Where they go; without it each item goes to the Folder that it names. A folder takes items of its own type");
    return [&line, folder](Console& console) { return addItemsOf(*storeOf(line), *folder, console); };
}

// delete

ExitStatus deleteItems(Automation& store, const std::vector<std::string>& entryIDs, Console& console) {
    std::map<std::string, std::shared_ptr<outlook::port::Item>> items;
    for (const std::string& entryID : entryIDs)
        items[entryID] = requireItem(store, entryID);  // all of them, before one is deleted
    stopIfAsked(console.stopSignal);                   // from here on a signal is noted, and all of them go
    for (const auto& [entryID, item] : items) item->remove();
    return ExitStatus::done;
}

Action declareDelete(CLI::App& line) {
    const auto entryIDs = std::make_shared<std::vector<std::string>>();
    line.add_option("ENTRYID", *entryIDs, "The items, by identifier as 'list' shows it")->required();
    return [&line, entryIDs](Console& console) { return deleteItems(*storeOf(line), *entryIDs, console); };
}

// export

struct ExportOptions {
    std::string file;
    std::optional<std::string> entryID, folder;
};

Action declareExport(CLI::App& line) {
    const auto options = std::make_shared<ExportOptions>();
    line.add_option("FILE", options->file, "The new file, a mail as .eml")->required();
    auto* const item = line.add_option("--item", options->entryID, "The mail, by identifier as 'list' shows it");
    line.add_option("--folder", options->folder, "The newest mail of this folder; of the Outbox without --item and --folder")
        ->excludes(item);
    return [&line, options](Console& console) {
        if (!equalsTextually(std::filesystem::path{options->file}.extension().string(), ".eml"))
            throw UsageError{"A mail goes to a file whose name ends in .eml, not to " + inQuotes(options->file)};
        const auto store = storeOf(line);
        const std::string folder = options->folder.value_or("Outbox");
        if (!options->entryID) static_cast<void>(requireFolder(*store, folder));
        const auto mail = options->entryID ? requireItem(*store, *options->entryID) : newestMail(*store, folder);
        writeMailFile(*mail, options->file, console.stopSignal);
        return ExitStatus::done;
    };
}

constexpr Command kStoreCommands[] = {
    {"folders", "Lists the folders of an Outlook store.", "outlook demo/outlook.db folders", declareFolders},
    {"add-folder", "Adds a folder and prints its identifier.",
     "outlook demo/outlook.db add-folder Contacts/Clients --type contacts", declareAddFolder, true},
    {"list", "Lists items with everything that is set in them.", "outlook demo/outlook.db list --folder Contacts --json",
     declareList},
    {"add",
     "Adds the items that standard input holds as JSON, in the shape that 'list --json' prints, and prints their identifiers. "
     "When one item is not right, nothing is added.",
     "outlook demo/outlook.db add --folder Contacts < items.json", declareAdd, true},
    {"delete", "Deletes items. When one is not there, nothing is deleted.", "outlook demo/outlook.db delete ENTRYID",
     declareDelete, true},
    {"export", "Writes a mail to a file that a mail program opens.", "outlook demo/outlook.db export mail.eml --folder Drafts",
     declareExport, true},
};

constexpr Command kCommands[] = {
    {"outlook", "Shows and changes an Outlook store.", "outlook demo/outlook.db list --folder Contacts", declareGroup, false,
     kStoreCommands},
};

}  // namespace

std::span<const Command> outlookCommands() {
    return kCommands;
}

}  // namespace wmoutlook

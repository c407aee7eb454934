#include "adapters/outlookstore/StoreListing.h"

#include "adapters/outlookstore/Identifiers.h"
#include "adapters/outlookstore/StoreAutomation.h"
#include "adapters/outlookstore/StoreFolder.h"
#include "adapters/outlookstore/StoreItem.h"
#include "platform/Errors.h"

#include <algorithm>

namespace wmoutlook::outlookstore {

namespace {

using outlook::port::Automation;

constexpr std::string_view kStoreMark = "\\\\";

FolderRow defaultRoot(FolderStorage& folders) {
    auto root = folders.childAt(kNoParent, 0);
    if (!root) throw OutlookError{-1, "The file holds no Outlook store"};
    return std::move(*root);
}

[[noreturn]] void failAsMissing(std::string_view path) {
    throw OutlookError{-1, std::string{"There is no folder "}.append(path).append(" in the Outlook store")};
}

/// The names of a path in order, without empty ones at either end.
std::vector<std::string_view> partsOf(std::string_view path, std::string_view separators) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = std::min(path.find_first_of(separators), path.size());
        if (end > 0) parts.push_back(path.substr(0, end));
        if (end == path.size()) return parts;
        path.remove_prefix(end + 1);
    }
}

/// Where a path begins and the names behind it.
struct Route {
    std::optional<FolderRow> start;  ///< nothing: above the roots
    std::vector<std::string_view> names;
};

Route routeOf(FolderStorage& folders, std::string_view path) {
    if (path.starts_with(kStoreMark)) return {std::nullopt, partsOf(path, "\\")};
    return {defaultRoot(folders), partsOf(path, "/\\")};
}

FolderRow follow(FolderStorage& folders, Route route, std::string_view path) {
    for (const std::string_view name : route.names) {
        auto child = folders.findChild(route.start ? route.start->number : kNoParent, name);
        if (!child) failAsMissing(path);
        route.start = std::move(child);
    }
    if (!route.start) failAsMissing(path);
    return std::move(*route.start);
}

/// Short in the default store, unless a name holds the short form's separator.
std::string pathOf(FolderStorage& folders, const FolderRow& folder) {
    std::string whole = folder.name;
    bool isShort = true;
    for (std::optional<FolderRow> row = folder; row && row->parent != kNoParent;) {
        isShort = isShort && row->name.find('/') == std::string::npos;
        row = folders.find(row->parent);
        if (row) whole.insert(0, row->name + "\\");
    }
    const std::string root = defaultRoot(folders).name;
    const bool isInDefaultStore = folder.store->number == defaultRoot(folders).store->number;
    if (!isInDefaultStore || !isShort || folder.parent == kNoParent) return std::string{kStoreMark} + whole;
    whole.erase(0, root.size() + 1);
    std::replace(whole.begin(), whole.end(), '\\', '/');
    return whole;
}

void listBelow(StoreFile& file, const FolderRow& folder, std::int32_t depth, std::vector<ListedFolder>& listed) {
    listed.push_back({pathOf(file.folders(), folder), folder.name, folder.store->name,
                      entryIDOf(folder.store->key, EntryKind::folder, folder.number), storeIDOf(folder.store->key),
                      folder.itemType, depth, static_cast<std::int32_t>(file.items().count(folder.number))});
    for (std::int64_t i = 0; const auto child = file.folders().childAt(folder.number, i); ++i)
        listBelow(file, *child, depth + 1, listed);
}

std::vector<ListedProperty> propertiesOf(const StoreItem& item) {
    std::vector<ListedProperty> properties;
    const auto rows = item.data().table().rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool isMoment = rows[i].name == "CreationTime" || rows[i].name == "LastModificationTime";
        if (isMoment && item.head().number != 0) properties.push_back({rows[i].name, rows[i].kind, item.get(rows[i].name)});
        if (!item.data().stored(i).isNull()) properties.push_back({rows[i].name, rows[i].kind, item.data().stored(i)});
    }
    return properties;
}

ListedItem listed(const StoreItem& item, std::string folder) {
    ListedItem result{item.entryID(),
                      storeIDOf(item.store().key),
                      std::move(folder),
                      item.head().type,
                      classOf(item.head().type),
                      propertiesOf(item),
                      {},
                      item.recurrence()};
    for (const UserPropertyData& property : item.data().userProperties())
        result.userProperties.push_back({property.name, property.type, property.value});
    if (!item.mail()) return result;
    for (const RecipientRow& recipient : item.mail()->recipients())
        result.recipients.push_back({recipient.type, recipient.name, recipient.address});
    for (const AttachmentRow& attachment : item.mail()->attachments())
        result.attachments.push_back({attachment.fileName, attachment.displayName, attachment.size});
    return result;
}

/// The next that can be read: reading goes on behind an item that cannot. The same failure twice at the same position is one of the
/// file.
template <class Read>
auto nextReadable(const Unreadable& unreadable, const std::int64_t& position, Read read) -> std::invoke_result_t<Read> {
    std::string last;
    for (std::int64_t at = position;; at = position) try {
            return read();
        } catch (const OutlookError& error) {
            if (!unreadable || (last == error.what() && position == at)) throw;
            last = error.what();
            unreadable(last);
        }
}

void visitItems(const std::shared_ptr<Instance>& instance, const FolderRow& folder, const std::string& path,
                const std::function<void(const ListedItem&)>& visit, const Unreadable& unreadable) {
    ItemStorage& items = instance->file().items();
    std::int64_t position = 0;
    const auto next = [&]() -> std::optional<ListedItem> {
        auto loaded = items.next(folder.number, position, nullptr, {});
        if (!loaded) return std::nullopt;
        return listed(StoreItem{instance, folder.store, std::move(*loaded)}, path);
    };
    while (const auto item = nextReadable(unreadable, position, next)) visit(*item);
}

/// `Item` is an item of the object model, const or not.
template <typename Item>
auto& ownItem(Item& item) {
    using Own = std::conditional_t<std::is_const_v<Item>, const StoreItem, StoreItem>;
    if (auto* const own = dynamic_cast<Own*>(&item)) return *own;
    throw OutlookError{-1, "This is no item of an embedded Outlook store"};
}

/// The folder that the path names, or all folders, each with the path under which it is listed.
void visitFolders(Automation& store, std::optional<std::string_view> path,
                  const std::function<void(const FolderRow&, const std::string&)>& visit) {
    FolderStorage& folders = storeOf(store).inspection()->file().folders();
    if (path) {
        const FolderRow folder = follow(folders, routeOf(folders, *path), *path);
        visit(folder, pathOf(folders, folder));
        return;
    }
    for (const ListedFolder& folder : listFolders(store))
        if (const auto row = folders.find(readEntryID(folder.entryID)->number)) visit(*row, folder.path);
}

}  // namespace

std::vector<ListedFolder> listFolders(Automation& store) {
    StoreFile& file = storeOf(store).inspection()->file();
    std::vector<ListedFolder> listed;
    for (std::int64_t i = 0; const auto root = file.folders().childAt(kNoParent, i); ++i) listBelow(file, *root, 0, listed);
    return listed;
}

std::shared_ptr<outlook::port::MAPIFolder> findFolder(Automation& store, std::string_view path) {
    const auto& instance = storeOf(store).inspection();
    FolderStorage& folders = instance->file().folders();
    return std::make_shared<StoreFolder>(instance, follow(folders, routeOf(folders, path), path));
}

std::shared_ptr<outlook::port::MAPIFolder> addFolder(Automation& store, std::string_view path, outlook::DefaultFolder kind) {
    const auto& instance = storeOf(store).inspection();
    FolderStorage& folders = instance->file().folders();
    Route route = routeOf(folders, path);
    if (route.names.empty() || (!route.start && route.names.size() < 2))
        throw OutlookError{-1, "The path names no folder to add"};
    const std::string_view name = route.names.back();
    route.names.pop_back();
    return std::make_shared<StoreFolder>(instance, folders.add(follow(folders, std::move(route), path), name, kind));
}

void forEachItem(Automation& store, std::optional<std::string_view> folderPath,
                 const std::function<void(const ListedItem&)>& visit, const Unreadable& unreadable) {
    const auto& instance = storeOf(store).inspection();
    visitFolders(store, folderPath, [&](const FolderRow& folder, const std::string& path) {
        visitItems(instance, folder, path, visit, unreadable);
    });
}

void forEachOccurrence(Automation& store, std::optional<std::string_view> folderPath, Date first, Date last,
                       const std::function<void(const ListedItem&)>& visit, const Unreadable& unreadable) {
    const auto& instance = storeOf(store).inspection();
    const std::string filter =
        "[Start] >= '" + toIsoText(dayOf(first)) + "' and [Start] <= '" + toIsoText(dayOf(last)) + " 11:59 pm' and [Class] = 26";
    visitFolders(store, folderPath, [&](const FolderRow& folder, const std::string& path) {
        ViewTerms terms{folder.number, {{Filter::parse(filter), true}}, sortOrder("Start", false), true};
        const auto walk = makeWalk(instance->file(), terms);
        const auto next = [&]() -> std::optional<ListedItem> {
            auto walked = walk->next();
            if (!walked) return std::nullopt;
            return listed(StoreItem{instance, folder.store, std::move(walked->item), walked->occurrenceDay}, path);
        };
        while (const auto item = nextReadable(unreadable, 0, next)) visit(*item);
    });
}

void setRecurrence(outlook::port::Item& item, const Recurrence& recurrence) {
    ownItem(item).setRecurrence(recurrence);
}

ListedItem describe(const outlook::port::Item& item) {
    const StoreItem& own = ownItem(item);
    FolderStorage& folders = own.instance()->file().folders();
    const auto folder = folders.find(own.head().folder);
    return listed(own, folder ? pathOf(folders, *folder) : std::string{});
}

std::string attachmentContent(const outlook::port::Item& mail, std::size_t index) {
    const StoreItem& own = ownItem(mail);
    if (!own.mail() || index >= own.mail()->attachments().size())
        throw OutlookError{-1, "The item of the Outlook store has no such attachment"};
    return own.mail()->content(index, own.head().number);
}

std::shared_ptr<outlook::port::Item> findItem(Automation& store, std::string_view entryID) {
    return itemFromID(storeOf(store).inspection(), entryID, {});
}

void deleteItem(Automation& store, std::string_view entryID) {
    findItem(store, entryID)->remove();
}

std::span<const PropertyRow> propertyTable(outlook::ItemType type) {
    return PropertyTable::of(type).rows();
}

}  // namespace wmoutlook::outlookstore

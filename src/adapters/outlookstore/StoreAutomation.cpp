#include "adapters/outlookstore/StoreAutomation.h"

#include "adapters/outlookstore/Identifiers.h"
#include "adapters/outlookstore/StoreFolder.h"
#include "adapters/outlookstore/StoreItem.h"
#include "platform/Errors.h"
#include "platform/Text.h"

#include <utility>

namespace wmoutlook::outlookstore {

namespace {

using outlook::DefaultFolder;
using outlook::ItemType;

FolderRow defaultFolder(Instance& instance, DefaultFolder role) {
    auto row = instance.session().folders().findDefault(role);
    if (!row) throw OutlookError{-1, "There is no default folder with the number " + std::to_string(static_cast<int>(role))};
    return std::move(*row);
}

/// New mails wait among the drafts.
DefaultFolder homeOf(ItemType type) {
    switch (type) {
        case ItemType::appointment: return DefaultFolder::calendar;
        case ItemType::contact: return DefaultFolder::contacts;
        case ItemType::task: return DefaultFolder::tasks;
        case ItemType::mail: return DefaultFolder::drafts;
    }
    throw OutlookError{-1, "There is no such type of item"};
}

class StoreNameSpace : public outlook::port::NameSpace {
public:
    explicit StoreNameSpace(std::shared_ptr<Instance> instance) : instance_(std::move(instance)) {}

    // There is one profile, and a file has no password: both are taken and not looked at.
    void logon([[maybe_unused]] std::optional<std::string_view> profile,
               [[maybe_unused]] std::optional<std::string_view> password, [[maybe_unused]] bool showDialog,
               [[maybe_unused]] bool newSession) override {
        instance_->logon();
    }

    std::shared_ptr<outlook::port::MAPIFolder> getDefaultFolder(DefaultFolder folder) override {
        return std::make_shared<StoreFolder>(instance_, defaultFolder(*instance_, folder));
    }

    std::shared_ptr<outlook::port::MAPIFolder> getFolderFromID(std::string_view entryID, std::string_view storeID) override {
        return folderFromID(instance_, entryID, storeID);
    }

    std::shared_ptr<outlook::port::Item> getItemFromID(std::string_view entryID, std::string_view storeID) override {
        return itemFromID(instance_, entryID, storeID);
    }

    std::shared_ptr<outlook::port::Folders> folders() override {
        static_cast<void>(instance_->session());
        return foldersBelow(instance_, std::nullopt);
    }

private:
    std::shared_ptr<Instance> instance_;
};

class StoreApplication : public outlook::port::Application {
public:
    explicit StoreApplication(std::shared_ptr<Instance> instance) : instance_(std::move(instance)) {}

    std::shared_ptr<outlook::port::NameSpace> getNamespace(std::string_view type) override {
        static_cast<void>(instance_->file());
        if (!equalsTextually(type, "MAPI")) throw OutlookError{-1, "The only namespace is MAPI"};
        return std::make_shared<StoreNameSpace>(instance_);
    }

    std::shared_ptr<outlook::port::Item> createItem(ItemType type) override {
        const FolderRow folder = defaultFolder(*instance_, homeOf(type));
        return std::make_shared<StoreItem>(instance_, folder.store, folder.number, type);
    }

    void quit() override {
        static_cast<void>(instance_->file());
        instance_->quit();
    }

private:
    std::shared_ptr<Instance> instance_;
};

/// The number of an entry of this kind, of any store when `storeID` is empty.
EntryNumber readEntry(EntryKind kind, std::string_view entryID, std::string_view storeID) {
    const auto entry = readEntryID(entryID);
    if (!entry || entry->kind != kind) throw OutlookError{-1, "This is no identifier of an entry of the Outlook store"};
    if (!storeID.empty() && storeID != storeIDOf(entry->storeKey))
        throw OutlookError{-1, "The entry lies in another Outlook store"};
    return *entry;
}

}  // namespace

std::shared_ptr<outlook::port::MAPIFolder> folderFromID(const std::shared_ptr<Instance>& instance, std::string_view entryID,
                                                        std::string_view storeID) {
    const EntryNumber entry = readEntry(EntryKind::folder, entryID, storeID);
    auto row = instance->session().folders().find(entry.number);
    if (!row || row->store->key != entry.storeKey) throw OutlookError{-1, "The folder is not in the Outlook store"};
    return std::make_shared<StoreFolder>(instance, std::move(*row));
}

std::shared_ptr<outlook::port::Item> itemFromID(const std::shared_ptr<Instance>& instance, std::string_view entryID,
                                                std::string_view storeID) {
    const EntryNumber entry = readEntry(EntryKind::item, entryID, storeID);
    StoreFile& file = instance->session();
    std::int64_t storeNumber = 0;
    auto loaded = file.items().load(entry.number, storeNumber);
    auto store = loaded ? file.folders().store(storeNumber) : nullptr;
    if (!store || store->key != entry.storeKey) throw OutlookError{-1, "The item is not in the Outlook store"};
    return std::make_shared<StoreItem>(instance, std::move(store), std::move(*loaded));
}

StoreAutomation::StoreAutomation(std::shared_ptr<StoreFile> file, const OutlookStoreOptions& options)
    : file_(std::move(file)),
      canStart_(options.canStart),
      acceptsLogon_(options.acceptsLogon),
      running_(options.isRunning ? std::make_shared<Instance>(file_, acceptsLogon_, true) : nullptr),
      inspection_(std::make_shared<Instance>(file_, true, true)) {}

std::shared_ptr<outlook::port::Application> StoreAutomation::getRunning() {
    if (!running_ || !running_->isAlive()) throw OutlookError{-1, "No Outlook is running"};
    return std::make_shared<StoreApplication>(running_);
}

// As with Outlook, there is one at a time: asking for a new one while one runs gives that one.
std::shared_ptr<outlook::port::Application> StoreAutomation::createNew() {
    if (running_ && running_->isAlive()) return getRunning();
    if (!canStart_) throw OutlookError{-1, "Outlook cannot be started"};
    running_ = std::make_shared<Instance>(file_, acceptsLogon_, false);
    return getRunning();
}

StoreAutomation& storeOf(outlook::port::Automation& automation) {
    if (auto* store = dynamic_cast<StoreAutomation*>(&automation)) return *store;
    throw OutlookError{-1, "This is no embedded Outlook store"};
}

}  // namespace wmoutlook::outlookstore

#include "apps/tallowsync/run/RecordingOutlook.h"

#include "platform/outlook/PropertyNames.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace wmoutlook {

namespace {

namespace port = outlook::port;

/// One object of Outlook; what it hands out is wrapped the same way.
template <class Port>
class Recording : public Port {
public:
    Recording(std::shared_ptr<Port> inner, std::shared_ptr<OutlookRecord> record)
        : inner_(std::move(inner)), record_(std::move(record)) {}

protected:
    [[nodiscard]] Port& pass() const {
        record_->end->atCall();
        return *inner_;
    }
    template <class Wrapper, class Object>
    [[nodiscard]] std::shared_ptr<Object> wrap(std::shared_ptr<Object> object) const {
        if (!object) return nullptr;
        return std::make_shared<Wrapper>(std::move(object), record_);
    }
    [[nodiscard]] Port& inner() const { return *inner_; }
    [[nodiscard]] WrittenRecords& written() const { return record_->items; }

private:
    std::shared_ptr<Port> inner_;
    std::shared_ptr<OutlookRecord> record_;
};

class RecordingItem : public Recording<port::Item> {
public:
    using Recording::Recording;

    Variant get(std::string_view property) const override { return pass().get(property); }
    void put(std::string_view property, const Variant& value) override { pass().put(property, value); }
    void save() override {
        const bool isNew = entryID().empty();
        pass().save();
        noteWritten(isNew);
    }
    void remove() override {
        const std::string removed = entryID();
        pass().remove();
        if (!removed.empty()) written().deleted(removed);
    }
    std::shared_ptr<port::UserProperties> userProperties() override { return pass().userProperties(); }
    std::shared_ptr<port::Recipients> recipients() override { return pass().recipients(); }
    std::shared_ptr<port::Attachments> attachments() override { return pass().attachments(); }
    /// Showing a new mail may leave a draft.
    void display(bool modal) override {
        const bool isNew = entryID().empty();
        pass().display(modal);
        if (isNew && !entryID().empty()) noteWritten(isNew);
    }
    void send() override {
        const bool isNew = entryID().empty();
        pass().send();
        noteWritten(isNew);
    }

private:
    void noteWritten(bool isNew) { isNew ? written().created(entryID()) : written().updated(entryID()); }
    [[nodiscard]] std::string entryID() const { return pass().get(outlook::property::EntryID).toText(); }
};

class RecordingItems : public Recording<port::Items> {
public:
    using Recording::Recording;

    std::shared_ptr<port::Item> add(std::optional<outlook::ItemType> type) override {
        return wrap<RecordingItem>(pass().add(type));
    }
    std::shared_ptr<port::Item> find(std::string_view filter) override { return wrap<RecordingItem>(pass().find(filter)); }
    std::shared_ptr<port::Items> restrict(std::string_view filter) override {
        return wrap<RecordingItems>(pass().restrict(filter));
    }
    void sort(std::string_view property, bool descending) override { pass().sort(property, descending); }
    void setIncludeRecurrences(bool include) override { pass().setIncludeRecurrences(include); }
    std::int32_t count() override { return pass().count(); }
    std::shared_ptr<port::Item> getFirst() override { return wrap<RecordingItem>(pass().getFirst()); }
    std::shared_ptr<port::Item> getNext() override { return wrap<RecordingItem>(pass().getNext()); }
};

class RecordingFolder : public Recording<port::MAPIFolder> {
public:
    using Recording::Recording;

    std::string name() const override { return pass().name(); }
    std::string entryID() const override { return pass().entryID(); }
    std::string storeID() const override { return pass().storeID(); }
    outlook::ItemType defaultItemType() const override { return pass().defaultItemType(); }
    std::shared_ptr<port::Items> items() override { return wrap<RecordingItems>(pass().items()); }
    std::shared_ptr<port::Folders> folders() override;
};

class RecordingFolders : public Recording<port::Folders> {
public:
    using Recording::Recording;

    std::int32_t count() override { return pass().count(); }
    std::shared_ptr<port::MAPIFolder> item(std::int32_t index) override { return wrap<RecordingFolder>(pass().item(index)); }
    std::shared_ptr<port::MAPIFolder> add(std::string_view name, outlook::DefaultFolder kind) override {
        return wrap<RecordingFolder>(pass().add(name, kind));
    }
};

std::shared_ptr<port::Folders> RecordingFolder::folders() {
    return wrap<RecordingFolders>(pass().folders());
}

class RecordingNameSpace : public Recording<port::NameSpace> {
public:
    using Recording::Recording;

    void logon(std::optional<std::string_view> profile, std::optional<std::string_view> password, bool showDialog,
               bool newSession) override {
        pass().logon(profile, password, showDialog, newSession);
    }
    std::shared_ptr<port::MAPIFolder> getDefaultFolder(outlook::DefaultFolder folder) override {
        return wrap<RecordingFolder>(pass().getDefaultFolder(folder));
    }
    std::shared_ptr<port::MAPIFolder> getFolderFromID(std::string_view entryID, std::string_view storeID) override {
        return wrap<RecordingFolder>(pass().getFolderFromID(entryID, storeID));
    }
    std::shared_ptr<port::Item> getItemFromID(std::string_view entryID, std::string_view storeID) override {
        return wrap<RecordingItem>(pass().getItemFromID(entryID, storeID));
    }
    std::shared_ptr<port::Folders> folders() override { return wrap<RecordingFolders>(pass().folders()); }
};

class RecordingApplication : public Recording<port::Application> {
public:
    using Recording::Recording;

    std::shared_ptr<port::NameSpace> getNamespace(std::string_view type) override {
        return wrap<RecordingNameSpace>(pass().getNamespace(type));
    }
    std::shared_ptr<port::Item> createItem(outlook::ItemType type) override {
        return wrap<RecordingItem>(pass().createItem(type));
    }
    void quit() override { inner().quit(); }  // on the way out too
};

class RecordingAutomation : public Recording<port::Automation> {
public:
    using Recording::Recording;

    std::shared_ptr<port::Application> getRunning() override { return wrap<RecordingApplication>(pass().getRunning()); }
    std::shared_ptr<port::Application> createNew() override { return wrap<RecordingApplication>(pass().createNew()); }
};

}  // namespace

std::shared_ptr<port::Automation> recordOutlook(std::shared_ptr<port::Automation> outlook,
                                                std::shared_ptr<OutlookRecord> record) {
    return std::make_shared<RecordingAutomation>(std::move(outlook), std::move(record));
}

}  // namespace wmoutlook

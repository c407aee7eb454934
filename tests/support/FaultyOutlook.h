#pragma once

#include "platform/outlook/ObjectModel.h"
#include "tests/support/Faults.h"

#include <memory>

/// Outlook objects whose calls can be made to fail. Each wraps one object of the store and hands out wrapped objects.
namespace wmoutlook::testing {

namespace port = outlook::port;

template <class Port>
class Faulty : public Port {
public:
    Faulty(std::shared_ptr<Port> inner, Faults& faults) : inner_(std::move(inner)), faults_(faults) {}

protected:
    Port& pass(const char* operation) const {
        faults_.hit(operation);
        return *inner_;
    }
    template <class Wrapper, class Object>
    std::shared_ptr<Object> wrap(std::shared_ptr<Object> object) const {
        if (!object) return nullptr;
        return std::make_shared<Wrapper>(std::move(object), faults_);
    }

private:
    std::shared_ptr<Port> inner_;
    Faults& faults_;
};

class FaultyUserProperty : public Faulty<port::UserProperty> {
public:
    using Faulty::Faulty;
    std::string name() const override { return pass("UserProperty.name").name(); }
    outlook::UserPropertyType type() const override { return pass("UserProperty.type").type(); }
    Variant value() const override { return pass("UserProperty.value").value(); }
    void setValue(const Variant& value) override { pass("UserProperty.setValue").setValue(value); }
};

class FaultyUserProperties : public Faulty<port::UserProperties> {
public:
    using Faulty::Faulty;
    std::shared_ptr<port::UserProperty> add(std::string_view name, outlook::UserPropertyType type, bool toFolder) override {
        return wrap<FaultyUserProperty>(pass("UserProperties.add").add(name, type, toFolder));
    }
    std::int32_t count() const override { return pass("UserProperties.count").count(); }
    std::shared_ptr<port::UserProperty> item(std::int32_t index) override {
        return wrap<FaultyUserProperty>(pass("UserProperties.item").item(index));
    }
};

class FaultyRecipient : public Faulty<port::Recipient> {
public:
    using Faulty::Faulty;
    std::string name() const override { return pass("Recipient.name").name(); }
    std::string address() const override { return pass("Recipient.address").address(); }
    outlook::RecipientType type() const override { return pass("Recipient.type").type(); }
    void setType(outlook::RecipientType type) override { pass("Recipient.setType").setType(type); }
    bool resolve() override { return pass("Recipient.resolve").resolve(); }
};

class FaultyRecipients : public Faulty<port::Recipients> {
public:
    using Faulty::Faulty;
    std::shared_ptr<port::Recipient> add(std::string_view name) override {
        return wrap<FaultyRecipient>(pass("Recipients.add").add(name));
    }
    std::int32_t count() const override { return pass("Recipients.count").count(); }
    std::shared_ptr<port::Recipient> item(std::int32_t index) override {
        return wrap<FaultyRecipient>(pass("Recipients.item").item(index));
    }
};

class FaultyAttachment : public Faulty<port::Attachment> {
public:
    using Faulty::Faulty;
    std::string fileName() const override { return pass("Attachment.fileName").fileName(); }
    std::string displayName() const override { return pass("Attachment.displayName").displayName(); }
    void setDisplayName(std::string_view name) override { pass("Attachment.setDisplayName").setDisplayName(name); }
};

class FaultyAttachments : public Faulty<port::Attachments> {
public:
    using Faulty::Faulty;
    std::shared_ptr<port::Attachment> add(std::string_view path) override {
        return wrap<FaultyAttachment>(pass("Attachments.add").add(path));
    }
    std::int32_t count() const override { return pass("Attachments.count").count(); }
    std::shared_ptr<port::Attachment> item(std::int32_t index) override {
        return wrap<FaultyAttachment>(pass("Attachments.item").item(index));
    }
};

class FaultyItem : public Faulty<port::Item> {
public:
    using Faulty::Faulty;
    Variant get(std::string_view property) const override { return pass("Item.get").get(property); }
    void put(std::string_view property, const Variant& value) override { pass("Item.put").put(property, value); }
    void save() override { pass("Item.save").save(); }
    void remove() override { pass("Item.remove").remove(); }
    std::shared_ptr<port::UserProperties> userProperties() override {
        return wrap<FaultyUserProperties>(pass("Item.userProperties").userProperties());
    }
    std::shared_ptr<port::Recipients> recipients() override {
        return wrap<FaultyRecipients>(pass("Item.recipients").recipients());
    }
    std::shared_ptr<port::Attachments> attachments() override {
        return wrap<FaultyAttachments>(pass("Item.attachments").attachments());
    }
    void display(bool modal) override { pass("Item.display").display(modal); }
    void send() override { pass("Item.send").send(); }
};

class FaultyItems : public Faulty<port::Items> {
public:
    using Faulty::Faulty;
    std::shared_ptr<port::Item> add(std::optional<outlook::ItemType> type) override {
        return wrap<FaultyItem>(pass("Items.add").add(type));
    }
    std::shared_ptr<port::Item> find(std::string_view filter) override {
        return wrap<FaultyItem>(pass("Items.find").find(filter));
    }
    std::shared_ptr<port::Items> restrict(std::string_view filter) override {
        return wrap<FaultyItems>(pass("Items.restrict").restrict(filter));
    }
    void sort(std::string_view property, bool descending) override { pass("Items.sort").sort(property, descending); }
    void setIncludeRecurrences(bool include) override { pass("Items.setIncludeRecurrences").setIncludeRecurrences(include); }
    std::int32_t count() override { return pass("Items.count").count(); }
    std::shared_ptr<port::Item> getFirst() override { return wrap<FaultyItem>(pass("Items.getFirst").getFirst()); }
    std::shared_ptr<port::Item> getNext() override { return wrap<FaultyItem>(pass("Items.getNext").getNext()); }
};

class FaultyFolder : public Faulty<port::MAPIFolder> {
public:
    using Faulty::Faulty;
    std::string name() const override { return pass("Folder.name").name(); }
    std::string entryID() const override { return pass("Folder.entryID").entryID(); }
    std::string storeID() const override { return pass("Folder.storeID").storeID(); }
    outlook::ItemType defaultItemType() const override { return pass("Folder.defaultItemType").defaultItemType(); }
    std::shared_ptr<port::Items> items() override { return wrap<FaultyItems>(pass("Folder.items").items()); }
    std::shared_ptr<port::Folders> folders() override { return pass("Folder.folders").folders(); }
};

class FaultyNameSpace : public Faulty<port::NameSpace> {
public:
    using Faulty::Faulty;
    void logon(std::optional<std::string_view> profile, std::optional<std::string_view> password, bool dialog,
               bool session) override {
        pass("NameSpace.logon").logon(profile, password, dialog, session);
    }
    std::shared_ptr<port::MAPIFolder> getDefaultFolder(outlook::DefaultFolder folder) override {
        return wrap<FaultyFolder>(pass("NameSpace.getDefaultFolder").getDefaultFolder(folder));
    }
    std::shared_ptr<port::MAPIFolder> getFolderFromID(std::string_view entryID, std::string_view storeID) override {
        return wrap<FaultyFolder>(pass("NameSpace.getFolderFromID").getFolderFromID(entryID, storeID));
    }
    std::shared_ptr<port::Item> getItemFromID(std::string_view entryID, std::string_view storeID) override {
        return wrap<FaultyItem>(pass("NameSpace.getItemFromID").getItemFromID(entryID, storeID));
    }
    std::shared_ptr<port::Folders> folders() override { return pass("NameSpace.folders").folders(); }
};

class FaultyApplication : public Faulty<port::Application> {
public:
    using Faulty::Faulty;
    std::shared_ptr<port::NameSpace> getNamespace(std::string_view type) override {
        return wrap<FaultyNameSpace>(pass("Application.getNamespace").getNamespace(type));
    }
    std::shared_ptr<port::Item> createItem(outlook::ItemType type) override {
        return wrap<FaultyItem>(pass("Application.createItem").createItem(type));
    }
    void quit() override { pass("Application.quit").quit(); }
};

class FaultyAutomation : public Faulty<port::Automation> {
public:
    using Faulty::Faulty;
    std::shared_ptr<port::Application> getRunning() override {
        return wrap<FaultyApplication>(pass("Automation.getRunning").getRunning());
    }
    std::shared_ptr<port::Application> createNew() override {
        return wrap<FaultyApplication>(pass("Automation.createNew").createNew());
    }
};

}  // namespace wmoutlook::testing

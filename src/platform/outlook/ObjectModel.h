#pragma once

#include "platform/Variant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// Outlook's object model, under its own names (without the leading underscore). Terms: a *store* holds a tree of
/// *folders*, a folder holds *items*; an item is identified by its entry identifier together with its store's identifier.
/// `outlook::port` is what an adapter implements; the logic uses the handles of Handles.h, which run under the handler of
/// the current routine. One thread; calls are synchronous and not timed out. Every call throws OutlookError when it fails.
namespace wmoutlook::outlook {

enum class ItemType : std::int32_t { mail = 0, appointment = 1, contact = 2, task = 3 };

/// The numbers by which GetDefaultFolder knows them.
enum class DefaultFolder : std::int32_t {
    outbox = 4,
    sentMail = 5,
    inbox = 6,
    calendar = 9,
    contacts = 10,
    tasks = 13,
    drafts = 16
};

/// The values of an item's property Class.
enum class ItemClass : std::int32_t { appointment = 26, contact = 40, mail = 43, task = 48 };

[[nodiscard]] constexpr ItemClass classOf(ItemType type) {
    switch (type) {
        case ItemType::appointment: return ItemClass::appointment;
        case ItemType::contact: return ItemClass::contact;
        case ItemType::task: return ItemClass::task;
        case ItemType::mail: break;
    }
    return ItemClass::mail;
}

enum class UserPropertyType : std::int32_t { text = 1, number = 3, dateTime = 5, yesNo = 6 };

/// How a mail names a recipient.
enum class RecipientType : std::int32_t { to = 1, cc = 2, bcc = 3 };

namespace port {

class UserProperty {
public:
    virtual ~UserProperty() = default;

    [[nodiscard]] virtual std::string name() const = 0;
    [[nodiscard]] virtual UserPropertyType type() const = 0;
    [[nodiscard]] virtual Variant value() const = 0;  ///< never set: 0, "", the absent date or False
    virtual void setValue(const Variant& value) = 0;
};

class UserProperties {
public:
    virtual ~UserProperties() = default;

    /// An existing property of this name is given back as it is when its type is the same; another type is an error.
    virtual std::shared_ptr<UserProperty> add(std::string_view name, UserPropertyType type, bool addToFolderFields) = 0;
    [[nodiscard]] virtual std::int32_t count() const = 0;
    [[nodiscard]] virtual std::shared_ptr<UserProperty> item(std::int32_t index) = 0;  ///< from 1
};

class Recipient {
public:
    virtual ~Recipient() = default;

    [[nodiscard]] virtual std::string name() const = 0;     ///< as it was given; resolved, the contact's name
    [[nodiscard]] virtual std::string address() const = 0;  ///< "" until it is resolved
    [[nodiscard]] virtual RecipientType type() const = 0;   ///< `to` until it is set
    virtual void setType(RecipientType type) = 0;
    virtual bool resolve() = 0;  ///< against the contacts; an address resolves to itself
};

class Recipients {
public:
    virtual ~Recipients() = default;

    virtual std::shared_ptr<Recipient> add(std::string_view name) = 0;  ///< a blank name is an error
    [[nodiscard]] virtual std::int32_t count() const = 0;
    [[nodiscard]] virtual std::shared_ptr<Recipient> item(std::int32_t index) = 0;  ///< from 1
};

class Attachment {
public:
    virtual ~Attachment() = default;

    [[nodiscard]] virtual std::string fileName() const = 0;     ///< without folders
    [[nodiscard]] virtual std::string displayName() const = 0;  ///< the file name until it is set
    virtual void setDisplayName(std::string_view name) = 0;
};

class Attachments {
public:
    virtual ~Attachments() = default;

    /// Takes a copy of the file at once. A path that is no readable file is an error.
    virtual std::shared_ptr<Attachment> add(std::string_view path) = 0;
    [[nodiscard]] virtual std::int32_t count() const = 0;
    [[nodiscard]] virtual std::shared_ptr<Attachment> item(std::int32_t index) = 0;  ///< from 1
};

/// A contact, appointment, task or mail. Changes are in memory until they are saved.
class Item {
public:
    virtual ~Item() = default;

    /// By Outlook's property name (see PropertyNames.h). A property never set has Outlook's default: "", 0, False, or the
    /// absent date. EntryID is empty until the first save. A name that the type of item does not have is an error.
    [[nodiscard]] virtual Variant get(std::string_view property) const = 0;
    /// A value of another kind is converted to the property's own; a null gives the default.
    virtual void put(std::string_view property, const Variant& value) = 0;
    virtual void save() = 0;    ///< the first save assigns EntryID
    virtual void remove() = 0;  ///< Delete
    [[nodiscard]] virtual std::shared_ptr<UserProperties> userProperties() = 0;
    [[nodiscard]] virtual std::shared_ptr<Recipients> recipients() = 0;
    [[nodiscard]] virtual std::shared_ptr<Attachments> attachments() = 0;
    virtual void display(bool modal) = 0;  ///< shows it to the user
    virtual void send() = 0;               ///< of a mail; the item can be changed no more
};

/// A view of a folder's items, in order of creation until it is sorted. A series of appointments or tasks is one item; the
/// occurrences of a recurring appointment show up one by one, each with its own start and end and the series' EntryID, on a
/// view that was sorted by "[Start]" and then told to include recurrences.
class Items {
public:
    virtual ~Items() = default;

    /// A new, unsaved item in the folder; with a missing type, of the folder's default type.
    [[nodiscard]] virtual std::shared_ptr<Item> add(std::optional<ItemType> type) = 0;
    /// The first item for which the filter holds, nothing when there is none. See the filter language in docs/outlook-store.md.
    [[nodiscard]] virtual std::shared_ptr<Item> find(std::string_view filter) = 0;
    /// The items for which the filter holds, with the sorting and the occurrences of this view.
    [[nodiscard]] virtual std::shared_ptr<Items> restrict(std::string_view filter) = 0;
    virtual void sort(std::string_view property, bool descending) = 0;  ///< "[Start]" or "Start"
    virtual void setIncludeRecurrences(bool include) = 0;
    /// With occurrences of a series without an end it has no meaning, as in Outlook: the highest number.
    [[nodiscard]] virtual std::int32_t count() = 0;
    [[nodiscard]] virtual std::shared_ptr<Item> getFirst() = 0;  ///< nothing when there is none
    [[nodiscard]] virtual std::shared_ptr<Item> getNext() = 0;   ///< nothing at the end
};

class MAPIFolder;

/// The folders directly below a folder; below the namespace, the root folder of each store.
class Folders {
public:
    virtual ~Folders() = default;

    [[nodiscard]] virtual std::int32_t count() = 0;
    [[nodiscard]] virtual std::shared_ptr<MAPIFolder> item(std::int32_t index) = 0;  ///< from 1
    /// The kind decides the default item type. A name that is empty, holds a backslash or is taken is an error.
    virtual std::shared_ptr<MAPIFolder> add(std::string_view name, DefaultFolder kind) = 0;
};

class MAPIFolder {
public:
    virtual ~MAPIFolder() = default;

    [[nodiscard]] virtual std::string name() const = 0;
    [[nodiscard]] virtual std::string entryID() const = 0;
    [[nodiscard]] virtual std::string storeID() const = 0;
    [[nodiscard]] virtual ItemType defaultItemType() const = 0;
    [[nodiscard]] virtual std::shared_ptr<Items> items() = 0;
    [[nodiscard]] virtual std::shared_ptr<Folders> folders() = 0;
};

class NameSpace {
public:
    virtual ~NameSpace() = default;

    /// A profile or password that is nothing is a missing argument.
    virtual void logon(std::optional<std::string_view> profile, std::optional<std::string_view> password, bool showDialog,
                       bool newSession) = 0;
    [[nodiscard]] virtual std::shared_ptr<MAPIFolder> getDefaultFolder(DefaultFolder folder) = 0;
    [[nodiscard]] virtual std::shared_ptr<MAPIFolder> getFolderFromID(std::string_view entryID, std::string_view storeID) = 0;
    [[nodiscard]] virtual std::shared_ptr<Item> getItemFromID(std::string_view entryID,
                                                              std::string_view storeID) = 0;  ///< a missing item is an error
    [[nodiscard]] virtual std::shared_ptr<Folders> folders() = 0;
};

class Application {
public:
    virtual ~Application() = default;

    [[nodiscard]] virtual std::shared_ptr<NameSpace> getNamespace(std::string_view type) = 0;  ///< type is "MAPI"
    [[nodiscard]] virtual std::shared_ptr<Item> createItem(ItemType type) = 0;  ///< saved, it lies in the type's default folder
    virtual void quit() = 0;
};

/// The system's way to reach the class "Outlook.Application".
class Automation {
public:
    virtual ~Automation() = default;

    [[nodiscard]] virtual std::shared_ptr<Application> getRunning() = 0;  ///< an error when no Outlook is running
    [[nodiscard]] virtual std::shared_ptr<Application> createNew() = 0;
};

}  // namespace port
}  // namespace wmoutlook::outlook

#pragma once

#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/outlook/ObjectModel.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// Handles on Outlook's objects. Each operation is a statement of the current routine; on a handle that is nothing it fails
/// with "object not set". A skipped operation gives a handle that is nothing, a null, an empty text or 0.
namespace wmoutlook::outlook {

template <class Object>
class Handle {
public:
    Handle() = default;
    explicit Handle(std::shared_ptr<Object> object) : object_(std::move(object)) {}

    /// The test by which the rules ask whether an item is there.
    [[nodiscard]] bool isNothing() const { return object_ == nullptr; }
    void release() { object_.reset(); }

protected:
    /// One call into the object as a statement. The object is held for the call: a host that gets a turn meanwhile may
    /// release the handle.
    template <class Operation>
    auto call(Operation operation) const {
        return statement([&] {
            const auto held = object_;
            if (!held) throw ObjectNotSet{"Outlook"};
            return operation(*held);
        });
    }
    [[nodiscard]] std::shared_ptr<Object> object() const { return object_; }

private:
    std::shared_ptr<Object> object_;
};

class UserProperty : public Handle<port::UserProperty> {
public:
    using Handle::Handle;
    void setValue(const Variant& value) const;
};

class UserProperties : public Handle<port::UserProperties> {
public:
    using Handle::Handle;
    /// Without adding the property to the folder's fields.
    UserProperty add(std::string_view name, UserPropertyType type) const;
};

class Recipient : public Handle<port::Recipient> {
public:
    using Handle::Handle;
    void setType(RecipientType type) const;
    void resolve() const;  ///< whether it could be told is looked at by nobody
};

class Recipients : public Handle<port::Recipients> {
public:
    using Handle::Handle;
    [[nodiscard]] Recipient add(std::string_view name) const;
};

class Attachment : public Handle<port::Attachment> {
public:
    using Handle::Handle;
    void setDisplayName(std::string_view name) const;
};

class Attachments : public Handle<port::Attachments> {
public:
    using Handle::Handle;
    [[nodiscard]] Attachment add(std::string_view path) const;
};

class Item : public Handle<port::Item> {
public:
    using Handle::Handle;
    [[nodiscard]] Variant get(std::string_view property) const;
    [[nodiscard]] std::string text(std::string_view property) const;
    [[nodiscard]] std::optional<std::string> textIfRead(std::string_view property) const;  ///< nothing when it was skipped
    void put(std::string_view property, const Variant& value) const;
    bool save() const;    ///< whether it went through
    bool remove() const;  ///< whether it went through
    [[nodiscard]] UserProperties userProperties() const;
    [[nodiscard]] Recipients recipients() const;
    [[nodiscard]] Attachments attachments() const;
    void display() const;  ///< without waiting for the user
    void send() const;
};

class Items : public Handle<port::Items> {
public:
    using Handle::Handle;
    [[nodiscard]] Item add() const;  ///< of the folder's default type
    [[nodiscard]] Item find(std::string_view filter) const;
    void sort(std::string_view property) const;  ///< ascending
    void includeRecurrences() const;
    [[nodiscard]] Items restrict(std::string_view filter) const;
    [[nodiscard]] Item getFirst() const;
    [[nodiscard]] Item getNext() const;
};

class MAPIFolder : public Handle<port::MAPIFolder> {
public:
    using Handle::Handle;
    [[nodiscard]] Items items() const;
    [[nodiscard]] std::string storeID() const;
    [[nodiscard]] std::string entryID() const;
};

/// A profile or password that has no value is a missing argument.
struct LogonArguments {
    std::optional<std::string> profile;
    std::optional<std::string> password;
    bool showDialog = false;
    bool newSession = false;
};

class NameSpace : public Handle<port::NameSpace> {
public:
    using Handle::Handle;
    /// Asks for the arguments at each attempt: a host that hears of a refusal may correct the profile and have it tried again.
    bool logon(const std::function<LogonArguments()>& arguments) const;  ///< whether it went through
    [[nodiscard]] MAPIFolder getDefaultFolder(DefaultFolder folder) const;
    [[nodiscard]] MAPIFolder getFolderFromID(std::string_view entryID, std::string_view storeID) const;
    [[nodiscard]] Item getItemFromID(std::string_view entryID, std::string_view storeID) const;
    /// With errors caught on the spot: nothing when the item is not there, for whatever reason.
    [[nodiscard]] Item findItemFromID(std::string_view entryID, std::string_view storeID) const;
};

class Application : public Handle<port::Application> {
public:
    using Handle::Handle;
    [[nodiscard]] NameSpace getNamespace(std::string_view type) const;
    [[nodiscard]] Item createItem(ItemType type) const;
    void quit() const;
};

}  // namespace wmoutlook::outlook

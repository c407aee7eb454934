#include "platform/outlook/Handles.h"

namespace wmoutlook::outlook {

void UserProperty::setValue(const Variant& value) const {
    call([&](auto& object) { object.setValue(value); });
}

UserProperty UserProperties::add(std::string_view name, UserPropertyType type) const {
    return call([&](auto& object) { return UserProperty{object.add(name, type, false)}; });
}

void Recipient::setType(RecipientType type) const {
    call([&](auto& object) { object.setType(type); });
}

void Recipient::resolve() const {
    call([&](auto& object) { object.resolve(); });
}

Recipient Recipients::add(std::string_view name) const {
    return call([&](auto& object) { return Recipient{object.add(name)}; });
}

void Attachment::setDisplayName(std::string_view name) const {
    call([&](auto& object) { object.setDisplayName(name); });
}

Attachment Attachments::add(std::string_view path) const {
    return call([&](auto& object) { return Attachment{object.add(path)}; });
}

Variant Item::get(std::string_view property) const {
    return call([&](auto& object) { return object.get(property); });
}

std::string Item::text(std::string_view property) const {
    return get(property).toText();
}

std::optional<std::string> Item::textIfRead(std::string_view property) const {
    return call([&](auto& object) -> std::optional<std::string> { return object.get(property).toText(); });
}

void Item::put(std::string_view property, const Variant& value) const {
    call([&](auto& object) { object.put(property, value); });
}

bool Item::save() const {
    return call([&](auto& object) { return object.save(), true; });
}

bool Item::remove() const {
    return call([&](auto& object) { return object.remove(), true; });
}

UserProperties Item::userProperties() const {
    return call([&](auto& object) { return UserProperties{object.userProperties()}; });
}

Recipients Item::recipients() const {
    return call([&](auto& object) { return Recipients{object.recipients()}; });
}

Attachments Item::attachments() const {
    return call([&](auto& object) { return Attachments{object.attachments()}; });
}

void Item::display() const {
    call([&](auto& object) { object.display(false); });
}

void Item::send() const {
    call([&](auto& object) { object.send(); });
}

Item Items::add() const {
    return call([&](auto& object) { return Item{object.add(std::nullopt)}; });
}

Item Items::find(std::string_view filter) const {
    return call([&](auto& object) { return Item{object.find(filter)}; });
}

void Items::sort(std::string_view property) const {
    call([&](auto& object) { object.sort(property, false); });
}

void Items::includeRecurrences() const {
    call([&](auto& object) { object.setIncludeRecurrences(true); });
}

Items Items::restrict(std::string_view filter) const {
    return call([&](auto& object) { return Items{object.restrict(filter)}; });
}

Item Items::getFirst() const {
    return call([&](auto& object) { return Item{object.getFirst()}; });
}

Item Items::getNext() const {
    return call([&](auto& object) { return Item{object.getNext()}; });
}

Items MAPIFolder::items() const {
    return call([&](auto& object) { return Items{object.items()}; });
}

std::string MAPIFolder::storeID() const {
    return call([&](auto& object) { return object.storeID(); });
}

std::string MAPIFolder::entryID() const {
    return call([&](auto& object) { return object.entryID(); });
}

bool NameSpace::logon(const std::function<LogonArguments()>& arguments) const {
    return call([&](auto& object) {
        const LogonArguments with = arguments();
        object.logon(with.profile, with.password, with.showDialog, with.newSession);
        return true;
    });
}

MAPIFolder NameSpace::getDefaultFolder(DefaultFolder folder) const {
    return call([&](auto& object) { return MAPIFolder{object.getDefaultFolder(folder)}; });
}

MAPIFolder NameSpace::getFolderFromID(std::string_view entryID, std::string_view storeID) const {
    return call([&](auto& object) { return MAPIFolder{object.getFolderFromID(entryID, storeID)}; });
}

Item NameSpace::getItemFromID(std::string_view entryID, std::string_view storeID) const {
    return call([&](auto& object) { return Item{object.getItemFromID(entryID, storeID)}; });
}

Item NameSpace::findItemFromID(std::string_view entryID, std::string_view storeID) const {
    return quietly([&] {
        const auto held = object();
        return held ? Item{held->getItemFromID(entryID, storeID)} : Item{};
    });
}

NameSpace Application::getNamespace(std::string_view type) const {
    return call([&](auto& object) { return NameSpace{object.getNamespace(type)}; });
}

Item Application::createItem(ItemType type) const {
    return call([&](auto& object) { return Item{object.createItem(type)}; });
}

void Application::quit() const {
    call([&](auto& object) { object.quit(); });
}

}  // namespace wmoutlook::outlook

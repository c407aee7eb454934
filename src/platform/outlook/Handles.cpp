#include "platform/outlook/Handles.h"

namespace wmoutlook::outlook {

void UserProperty::setValue(const Variant& value) const {
    statement([&] { object().setValue(value); });
}

UserProperty UserProperties::add(std::string_view name, UserPropertyType type) const {
    return statement([&] { return UserProperty{object().add(name, type, false)}; });
}

Variant Item::get(std::string_view property) const {
    return statement([&] { return object().get(property); });
}

std::string Item::text(std::string_view property) const {
    return get(property).toText();
}

void Item::put(std::string_view property, const Variant& value) const {
    statement([&] { object().put(property, value); });
}

void Item::save() const {
    statement([&] { object().save(); });
}

void Item::remove() const {
    statement([&] { object().remove(); });
}

UserProperties Item::userProperties() const {
    return statement([&] { return UserProperties{object().userProperties()}; });
}

Item Items::add() const {
    return statement([&] { return Item{object().add(std::nullopt)}; });
}

Item Items::find(std::string_view filter) const {
    return statement([&] { return Item{object().find(filter)}; });
}

Items MAPIFolder::items() const {
    return statement([&] { return Items{object().items()}; });
}

std::string MAPIFolder::storeID() const {
    return statement([&] { return object().storeID(); });
}

std::string MAPIFolder::entryID() const {
    return statement([&] { return object().entryID(); });
}

void NameSpace::logon(std::optional<std::string_view> profile, std::optional<std::string_view> password, bool showDialog,
                      bool newSession) const {
    statement([&] { object().logon(profile, password, showDialog, newSession); });
}

MAPIFolder NameSpace::getDefaultFolder(DefaultFolder folder) const {
    return statement([&] { return MAPIFolder{object().getDefaultFolder(folder)}; });
}

MAPIFolder NameSpace::getFolderFromID(std::string_view entryID, std::string_view storeID) const {
    return statement([&] { return MAPIFolder{object().getFolderFromID(entryID, storeID)}; });
}

Item NameSpace::findItemFromID(std::string_view entryID, std::string_view storeID) const {
    return quietly([&] { return Item{object().getItemFromID(entryID, storeID)}; });
}

NameSpace Application::getNamespace(std::string_view type) const {
    return statement([&] { return NameSpace{object().getNamespace(type)}; });
}

Item Application::createItem(ItemType type) const {
    return statement([&] { return Item{object().createItem(type)}; });
}

void Application::quit() const {
    statement([&] { object().quit(); });
}

}  // namespace wmoutlook::outlook

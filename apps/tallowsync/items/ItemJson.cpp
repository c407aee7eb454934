#include "apps/tallowsync/items/ItemJson.h"

#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/items/MailJson.h"
#include "apps/tallowsync/items/RecurrenceJson.h"
#include "platform/Errors.h"

namespace wmoutlook {

namespace {

using outlook::ItemType;
using outlookstore::ListedItem;
using outlookstore::PropertyKind;

Json valueToJson(const Variant& value, PropertyKind kind) {
    return std::visit(
        [&](const auto& held) -> Json {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>)
                return {};
            else if constexpr (std::is_same_v<Held, Date>)
                return kind == PropertyKind::day ? jsonDay(held) : jsonMoment(held);
            else
                return held;
        },
        value.value());
}

std::string_view nameOf(ItemType type) {
    switch (type) {
        case ItemType::appointment: return "appointment";
        case ItemType::contact: return "contact";
        case ItemType::task: return "task";
        case ItemType::mail: break;
    }
    return "mail";
}

}  // namespace

Json itemToJson(const ListedItem& item) {
    Json json{{"EntryID", item.entryID},
              {"StoreID", item.storeID},
              {"Folder", item.folder},
              {"Class", static_cast<std::int32_t>(item.itemClass)}};
    for (const auto& property : item.properties) json[std::string{property.name}] = valueToJson(property.value, property.kind);
    Json& userProperties = json["UserProperties"] = Json::array();
    for (const auto& property : item.userProperties)
        userProperties.push_back({{"name", property.name},
                                  {"type", static_cast<std::int32_t>(property.type)},
                                  {"value", valueToJson(property.value, PropertyKind::moment)}});
    if (item.recurrence) json["Recurrence"] = recurrenceToJson(*item.recurrence);
    if (!item.recipients.empty()) json["Recipients"] = recipientsToJson(item.recipients);
    if (!item.attachments.empty()) json["Attachments"] = attachmentsToJson(item.attachments);
    return json;
}

std::string itemToLine(const ListedItem& item) {
    std::string title;
    std::string start;
    if (item.type == ItemType::appointment)
        for (const auto& property : item.properties)
            if (property.name == "Start") start = toIsoText(property.value.toDate()) + "  ";
    for (const std::string_view name : {"Subject", "FullName", "FileAs"})  // the last one that is set
        for (const auto& property : item.properties)
            if (property.name == name) title = property.value.toText();
    return item.entryID + "  " + std::string{nameOf(item.type)} + "  " + start + onOneLine(title);
}

std::shared_ptr<outlook::port::Item> makeItem(outlook::port::Automation& store, const NewItem& item) {
    auto added = outlookstore::findFolder(store, item.folder)->items()->add(item.type);
    for (const auto& [name, value] : item.properties) added->put(name, value);
    const auto userProperties = added->userProperties();
    for (const auto& property : item.userProperties) {
        const auto userProperty = userProperties->add(property.name, property.type, false);
        if (!property.value.isNull()) userProperty->setValue(property.value);
    }
    if (item.recurrence) outlookstore::setRecurrence(*added, *item.recurrence);
    if (!item.recipients.empty()) addRecipients(*added, item.recipients);
    return added;
}

namespace {

/// What was added so far, to be deleted again unless it is kept.
class AddedItems {
public:
    AddedItems() = default;
    ~AddedItems() {
        for (auto item = items_.rbegin(); item != items_.rend(); ++item) try {
                (*item)->remove();
            } catch (const Failure&) {  // what made it fail is told already
            }
    }
    AddedItems(const AddedItems&) = delete;
    AddedItems& operator=(const AddedItems&) = delete;

    void add(std::shared_ptr<outlook::port::Item> item) { items_.push_back(std::move(item)); }
    void keep() { items_.clear(); }

private:
    std::vector<std::shared_ptr<outlook::port::Item>> items_;
};

}  // namespace

std::vector<std::string> addItems(outlook::port::Automation& store, const std::vector<NewItem>& items,
                                  const std::function<void()>& checkpoint) {
    AddedItems added;
    std::vector<std::string> entryIDs;
    for (const NewItem& item : items) {
        checkpoint();
        auto saved = makeItem(store, item);
        saved->save();
        entryIDs.push_back(saved->get("EntryID").toText());
        added.add(std::move(saved));
    }
    added.keep();
    return entryIDs;
}

}  // namespace wmoutlook

#pragma once

#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/Json.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Outlook items as JSON: an object with EntryID, StoreID, Folder, Class (Outlook's number), the properties that are set, by
/// Outlook's names, UserProperties, the Recurrence of a series, the Recipients and Attachments of a mail.
namespace wmoutlook {

[[nodiscard]] Json itemToJson(const outlookstore::ListedItem& item);
/// One line for people: identifier, type of item, of an appointment the start, and its title.
[[nodiscard]] std::string itemToLine(const outlookstore::ListedItem& item);

/// An item that is to be made, checked against the properties of its type.
struct NewItem {
    outlook::ItemType type = outlook::ItemType::contact;
    std::string folder;
    std::vector<std::pair<std::string, Variant>> properties;
    std::vector<outlookstore::ListedUserProperty> userProperties;
    std::optional<outlookstore::Recurrence> recurrence;
    std::vector<outlookstore::ListedRecipient> recipients{};
};

/// Reads the shape that itemToJson writes: an array of items or one item alone. Identifiers, and properties that cannot be
/// written, are read over. Each fault becomes one sentence that says which item and property, never a value.
class ItemReader {
public:
    static constexpr std::size_t kMostFaults = 20;

    /// With a folder, all items go there; otherwise each says its own.
    ItemReader(outlook::port::Automation& store, std::optional<std::string> folder);

    void read(const Json& document);
    [[nodiscard]] const std::vector<NewItem>& items() const { return items_; }
    [[nodiscard]] bool isRight() const { return faultCount_ == 0; }
    /// The first kMostFaults of them, and then how many more there are.
    [[nodiscard]] std::vector<std::string> faults() const;

private:
    void readItem(const Json& object);
    bool chooseFolder(const Json& object, NewItem& item);
    bool chooseType(const Json& object, NewItem& item);
    void readProperty(const std::string& name, const Json& value, NewItem& item);
    void addProperty(std::string_view name, Variant value, NewItem& item);
    void readRecurrence(const Json& value, NewItem& item);
    void readMail(const Json& object, NewItem& item);
    void readUserProperties(const Json& values, NewItem& item);
    void readUserProperty(const Json& value, NewItem& item);
    void fault(std::string_view sentence);

    outlook::port::Automation& store_;
    std::optional<std::string> folder_;
    std::size_t position_ = 0;
    std::vector<NewItem> items_;
    std::vector<std::string> faults_;
    std::size_t faultCount_ = 0;
};

/// The item in its folder, not saved yet.
[[nodiscard]] std::shared_ptr<outlook::port::Item> makeItem(outlook::port::Automation& store, const NewItem& item);

/// Saves all items and gives their identifiers, or none: when one cannot be saved, those before it are deleted again and the
/// failure goes on. `checkpoint` is called before each and may throw too.
[[nodiscard]] std::vector<std::string> addItems(outlook::port::Automation& store, const std::vector<NewItem>& items,
                                                const std::function<void()>& checkpoint);

}  // namespace wmoutlook

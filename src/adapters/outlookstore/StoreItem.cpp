#include "adapters/outlookstore/StoreItem.h"

#include "adapters/outlookstore/Identifiers.h"
#include "adapters/outlookstore/ItemRules.h"
#include "adapters/outlookstore/SeriesItem.h"
#include "platform/Errors.h"
#include "platform/Text.h"

#include <algorithm>

namespace wmoutlook::outlookstore {

namespace {

using outlook::UserPropertyType;

class StoreUserProperty : public outlook::port::UserProperty {
public:
    StoreUserProperty(std::shared_ptr<ItemData> data, std::size_t index) : data_(std::move(data)), index_(index) {}

    std::string name() const override { return property().name; }
    UserPropertyType type() const override { return property().type; }
    Variant value() const override { return property().value.isNull() ? defaultOf(property().type) : property().value; }
    void setValue(const Variant& value) override { property().value = convertedFor(property(), value); }

private:
    [[nodiscard]] UserPropertyData& property() const { return data_->userProperties()[index_]; }

    std::shared_ptr<ItemData> data_;
    std::size_t index_;  // a user property is never removed, so its place stays
};

class StoreUserProperties : public outlook::port::UserProperties {
public:
    explicit StoreUserProperties(std::shared_ptr<ItemData> data) : data_(std::move(data)) {}

    // The fields of a folder are not kept: every user property belongs to its item alone.
    std::shared_ptr<outlook::port::UserProperty> add(std::string_view name, UserPropertyType type,
                                                     [[maybe_unused]] bool addToFolderFields) override {
        if (withoutWhiteSpaceAround(name).empty()) throw OutlookError{-1, "A user property needs a name"};
        auto& properties = data_->userProperties();
        for (std::size_t i = 0; i < properties.size(); ++i) {
            if (!equalsTextually(properties[i].name, name)) continue;
            if (properties[i].type != type)
                throw OutlookError{-1, "The user property " + properties[i].name + " exists already with another type"};
            return std::make_shared<StoreUserProperty>(data_, i);
        }
        checkType(type);
        properties.push_back({std::string{name}, type, {}});
        return std::make_shared<StoreUserProperty>(data_, properties.size() - 1);
    }

    std::int32_t count() const override { return static_cast<std::int32_t>(data_->userProperties().size()); }

    std::shared_ptr<outlook::port::UserProperty> item(std::int32_t index) override {
        if (index < 1 || index > count()) throw OutlookError{-1, "There is no user property with this index"};
        return std::make_shared<StoreUserProperty>(data_, static_cast<std::size_t>(index - 1));
    }

private:
    static void checkType(UserPropertyType type) {
        switch (type) {
            case UserPropertyType::text:
            case UserPropertyType::number:
            case UserPropertyType::dateTime:
            case UserPropertyType::yesNo: return;
        }
        throw OutlookError{-1, "There is no such type of user property"};
    }

    std::shared_ptr<ItemData> data_;
};

[[noreturn]] void failAsGone() {
    throw OutlookError{-1, "The item has been deleted"};
}

/// An all-day event moves its start.
bool isIndexed(std::string_view property) {
    return std::find(kIndexedProperties.begin(), kIndexedProperties.end(), property) != kIndexedProperties.end() ||
           std::find(kSortedProperties.begin(), kSortedProperties.end(), property) != kSortedProperties.end() ||
           property == "AllDayEvent";
}

std::shared_ptr<MailParts> mailPartsOf(const std::shared_ptr<Instance>& instance, const ItemHead& head,
                                       const std::shared_ptr<ItemData>& data) {
    return head.type == outlook::ItemType::mail ? std::make_shared<MailParts>(instance, data, head.number) : nullptr;
}

}  // namespace

StoreItem::StoreItem(std::shared_ptr<Instance> instance, std::shared_ptr<const StoreRow> store, std::int64_t folder,
                     outlook::ItemType type)
    : instance_(std::move(instance)), store_(std::move(store)), data_(std::make_shared<ItemData>(type)) {
    head_.folder = folder;
    head_.type = type;
    mail_ = mailPartsOf(instance_, head_, data_);
}

StoreItem::StoreItem(std::shared_ptr<Instance> instance, std::shared_ptr<const StoreRow> store, LoadedItem loaded,
                     std::optional<DayNumber> occurrenceDay)
    : instance_(std::move(instance)),
      store_(std::move(store)),
      head_(loaded.head),
      data_(std::make_shared<ItemData>(std::move(loaded.data))),
      mail_(mailPartsOf(instance_, head_, data_)),
      occurrenceDay_(occurrenceDay) {}

const ItemData& StoreItem::data() const {
    if (mail_) mail_->bringAddressLinesUpToDate();
    return *data_;
}

std::string StoreItem::entryID() const {
    return head_.number == 0 ? std::string{} : entryIDOf(store_->key, EntryKind::item, head_.number);
}

std::string StoreItem::nameOf(std::string_view property) const {
    return std::string{typeName(head_.type)}.append(".").append(property);
}

std::size_t StoreItem::indexOf(std::string_view property) const {
    if (const auto index = data_->table().find(property)) return *index;
    throw OutlookError{-1, nameOf(property) + " is no property of this type of item"};
}

Variant StoreItem::get(std::string_view property) const {
    static_cast<void>(instance_->file());
    const std::size_t index = indexOf(property);
    if (mail_) mail_->bringAddressLinesUpToDate();
    const PropertyRow& row = data_->table().rows()[index];
    if (row.name == "EntryID") return entryID();
    if (row.name == "Class") return static_cast<std::int32_t>(classOf(head_.type));
    if (row.name == "CreationTime") return head_.created;
    if (row.name == "LastModificationTime") return head_.modified;
    if (row.name == "MessageClass" && data_->stored(index).isNull()) return defaultMessageClass(head_.type);
    return data_->valueOrDefault(index);
}

void StoreItem::put(std::string_view property, const Variant& value) {
    static_cast<void>(instance_->file());
    const std::size_t index = indexOf(property);
    const PropertyRow& row = data_->table().rows()[index];
    if (row.access == PropertyAccess::readOnly) throw OutlookError{-1, nameOf(row.name) + " cannot be written"};
    if (mail_) mail_->requireWritable(row.name);
    if (!data_->set(index, convertedFor(head_.type, row, value))) return;
    if (isIndexed(row.name)) keysChanged_ = true;
    if (head_.type == outlook::ItemType::appointment || head_.type == outlook::ItemType::task)
        followUp(*data_, row.name, instance_->file().now());
}

void StoreItem::setRecurrence(Recurrence recurrence) {
    if (occurrenceDay_) throw OutlookError{-1, "An occurrence of a series cannot recur itself"};
    static_cast<void>(soundPattern(recurrence, *data_));
    static_cast<void>(soundExceptions(recurrence, *data_));
    newRecurrence_ = std::move(recurrence);
}

std::optional<Recurrence> StoreItem::recurrence() const {
    if (newRecurrence_) return newRecurrence_;
    if (occurrenceDay_ || head_.number == 0 || !isSeries(*data_)) return std::nullopt;
    SeriesStorage& series = instance_->file().series();
    auto recurrence = series.pattern(head_.number);
    if (recurrence) recurrence->exceptions = series.exceptions(head_.number);
    return recurrence;
}

bool StoreItem::saveIn(StoreFile& file) {
    if (mail_) return mail_->save(head_, keysChanged_);
    if (occurrenceDay_) return saveOccurrence(file, head_, *data_, *occurrenceDay_);
    if (!newRecurrence_ && !isSeries(*data_)) return file.items().save(head_, *data_, file.now(), keysChanged_);
    return saveSeries(file, head_, *data_, newRecurrence_ ? &*newRecurrence_ : nullptr);
}

void StoreItem::save() {
    StoreFile& file = instance_->file();
    if (isDeleted_ || !saveIn(file)) failAsGone();
    keysChanged_ = false;
    newRecurrence_.reset();
}

bool StoreItem::removeFrom(StoreFile& file) {
    if (occurrenceDay_) return removeOccurrence(file, head_, *occurrenceDay_);
    if (head_.number == 0) return true;
    if (!mail_ && !isSeries(*data_)) return file.items().remove(head_.number);
    Savepoint whole{file.connection(), "deleting an item"};
    if (mail_)
        file.mails().remove(head_.number);
    else
        file.series().remove(head_.number);
    if (!file.items().remove(head_.number)) return false;
    whole.release();
    return true;
}

void StoreItem::remove() {
    StoreFile& file = instance_->file();
    if (isDeleted_ || !removeFrom(file)) failAsGone();
    isDeleted_ = true;
}

std::shared_ptr<outlook::port::UserProperties> StoreItem::userProperties() {
    static_cast<void>(instance_->file());
    return std::make_shared<StoreUserProperties>(data_);
}

const std::shared_ptr<MailParts>& StoreItem::requireMail(std::string_view member) const {
    static_cast<void>(instance_->file());
    if (!mail_) throw OutlookError{-1, nameOf(member) + " is kept of mails alone"};
    return mail_;
}

std::shared_ptr<outlook::port::Recipients> StoreItem::recipients() {
    return recipientsOf(requireMail("Recipients"));
}

std::shared_ptr<outlook::port::Attachments> StoreItem::attachments() {
    return attachmentsOf(requireMail("Attachments"));
}

// Without a window, a mail is shown where its user finds it: among the drafts.
void StoreItem::display(bool) {
    static_cast<void>(instance_->file());
    if (isDeleted_) failAsGone();
    if (mail_ && mail_->isDraftStill(head_.number)) save();
}

void StoreItem::send() {
    const auto& mail = requireMail("Send");
    if (isDeleted_) failAsGone();
    mail->requireDraft();
    mail->requireAddresses();
    if (!mail->submit(head_, store_->number)) failAsGone();
    keysChanged_ = false;
}

}  // namespace wmoutlook::outlookstore

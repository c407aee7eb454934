#pragma once

#include "adapters/outlookstore/ItemData.h"
#include "adapters/outlookstore/Recurrence.h"
#include "adapters/outlookstore/StoreFile.h"
#include "adapters/outlookstore/StoreMail.h"
#include "platform/outlook/ObjectModel.h"

#include <memory>
#include <optional>
#include <string>

namespace wmoutlook::outlookstore {

/// An item in memory, saved or not. Two handles on one row know nothing of one another: the last save wins.
class StoreItem : public outlook::port::Item {
public:
    /// A new one, which `save` puts in the folder.
    StoreItem(std::shared_ptr<Instance> instance, std::shared_ptr<const StoreRow> store, std::int64_t folder,
              outlook::ItemType type);
    StoreItem(std::shared_ptr<Instance> instance, std::shared_ptr<const StoreRow> store, LoadedItem loaded,
              std::optional<DayNumber> occurrenceDay = std::nullopt);

    [[nodiscard]] Variant get(std::string_view property) const override;
    void put(std::string_view property, const Variant& value) override;
    void save() override;
    void remove() override;
    [[nodiscard]] std::shared_ptr<outlook::port::UserProperties> userProperties() override;
    [[nodiscard]] std::shared_ptr<outlook::port::Recipients> recipients() override;
    [[nodiscard]] std::shared_ptr<outlook::port::Attachments> attachments() override;
    void display(bool modal) override;
    void send() override;

    [[nodiscard]] const ItemHead& head() const { return head_; }
    [[nodiscard]] const ItemData& data() const;
    [[nodiscard]] const StoreRow& store() const { return *store_; }
    [[nodiscard]] const std::shared_ptr<Instance>& instance() const { return instance_; }
    [[nodiscard]] std::string entryID() const;  ///< empty until the first save

    /// The next save makes it a series. Throws OutlookError, one sentence, for what cannot be.
    void setRecurrence(Recurrence recurrence);
    /// Of a series; with its exceptions.
    [[nodiscard]] std::optional<Recurrence> recurrence() const;
    /// Of a mail, otherwise nothing.
    [[nodiscard]] const std::shared_ptr<MailParts>& mail() const { return mail_; }

private:
    bool saveIn(StoreFile& file);
    bool removeFrom(StoreFile& file);
    /// Throws OutlookError for an item that is no mail.
    [[nodiscard]] const std::shared_ptr<MailParts>& requireMail(std::string_view member) const;
    [[nodiscard]] std::size_t indexOf(std::string_view property) const;
    [[nodiscard]] std::string nameOf(std::string_view property) const;

    std::shared_ptr<Instance> instance_;
    std::shared_ptr<const StoreRow> store_;
    ItemHead head_;
    std::shared_ptr<ItemData> data_;  ///< shared with the user properties that were handed out
    std::shared_ptr<MailParts> mail_;
    std::optional<DayNumber> occurrenceDay_;   ///< it is the occurrence of a series on this day of its pattern
    std::optional<Recurrence> newRecurrence_;  ///< waits for the next save
    bool keysChanged_ = false;
    bool isDeleted_ = false;
};

}  // namespace wmoutlook::outlookstore

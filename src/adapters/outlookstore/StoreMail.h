#pragma once

#include "adapters/outlookstore/ItemData.h"
#include "adapters/outlookstore/StoreFile.h"
#include "adapters/outlookstore/StoreMailRows.h"
#include "platform/outlook/ObjectModel.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::outlookstore {

inline constexpr std::int64_t kMostAttached = std::int64_t{150} * 1024 * 1024;  ///< of all attachments of a mail, in bytes

/// The recipients and attachments of a mail in memory, shared with the objects that were handed out. To, CC and BCC of its data
/// follow the recipients, when they are asked for.
class MailParts {
public:
    MailParts(std::shared_ptr<Instance> instance, std::shared_ptr<ItemData> data, std::int64_t item);

    [[nodiscard]] StoreFile& file() const { return instance_->file(); }
    [[nodiscard]] bool isSubmitted() const;
    /// Another handle may have sent it.
    [[nodiscard]] bool isDraftStill(std::int64_t item) const;
    /// Throws OutlookError once the mail has been sent.
    void requireDraft() const;
    /// Throws OutlookError when To, CC or BCC cannot be written, since they tell what recipients there are.
    void requireWritable(std::string_view property) const;

    [[nodiscard]] const std::vector<RecipientRow>& recipients() const { return recipients_; }
    void addRecipient(std::string_view name);
    void setRecipientType(std::size_t index, outlook::RecipientType type);
    bool resolveRecipient(std::size_t index);
    /// Throws OutlookError, which names nobody, unless there is a recipient and all of them are resolved.
    void requireAddresses();

    /// To be called before the mail's data are looked at.
    void bringAddressLinesUpToDate() const;

    [[nodiscard]] const std::vector<AttachmentRow>& attachments() const { return attachments_; }
    void addAttachment(std::string_view path);
    void setDisplayName(std::size_t index, std::string_view name);
    /// What the attachment of a mail holds, whether it is saved or not.
    [[nodiscard]] std::string content(std::size_t index, std::int64_t item) const;

    /// Saves the mail as a whole in the folder that `head` names. False: it has been deleted.
    bool save(ItemHead& head, bool keysChanged);
    /// Saves it in the Outbox of its store, as submitted now.
    bool submit(ItemHead& head, std::int64_t store);

private:
    bool write(ItemHead& head, const ItemData& data, bool keysChanged);

    std::shared_ptr<Instance> instance_;
    std::shared_ptr<ItemData> data_;
    std::vector<RecipientRow> recipients_;
    mutable bool areLinesStale_ = false;
    std::vector<AttachmentRow> attachments_;
};

[[nodiscard]] std::shared_ptr<outlook::port::Recipients> recipientsOf(std::shared_ptr<MailParts> mail);
[[nodiscard]] std::shared_ptr<outlook::port::Attachments> attachmentsOf(std::shared_ptr<MailParts> mail);

}  // namespace wmoutlook::outlookstore

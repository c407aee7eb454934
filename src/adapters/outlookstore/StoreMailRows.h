#pragma once

#include "adapters/outlookstore/Sqlite.h"
#include "platform/outlook/ObjectModel.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wmoutlook::outlookstore {

struct RecipientRow {
    std::string name;
    std::string address;  ///< empty until it is resolved
    outlook::RecipientType type = outlook::RecipientType::to;
};

struct AttachmentRow {
    std::int64_t number = 0;  ///< 0 until it is saved
    std::string fileName;
    std::string displayName;
    std::int64_t size = 0;
    std::shared_ptr<const std::string> content;  ///< in memory until it is saved
};

/// The rows of the recipients and attachments of mails, by the number of the item, in the order in which they were added.
class MailRows {
public:
    explicit MailRows(Connection& connection);

    [[nodiscard]] std::vector<RecipientRow> recipients(std::int64_t item);
    [[nodiscard]] std::vector<AttachmentRow> attachments(std::int64_t item);  ///< without what they hold
    /// Throws OutlookError when there is no such attachment any more.
    [[nodiscard]] std::string content(std::int64_t item, std::int64_t attachment);

    /// Writes these recipients over those that were there.
    void saveRecipients(std::int64_t item, const std::vector<RecipientRow>& recipients);
    /// Adds those that have no number, which they get, and renames the others; none is taken away.
    void saveAttachments(std::int64_t item, std::vector<AttachmentRow>& attachments);
    void remove(std::int64_t item);

    /// Throws OutlookError when the store has none.
    [[nodiscard]] std::int64_t outboxOf(std::int64_t store);
    void move(std::int64_t item, std::int64_t folder);

private:
    Statement recipients_, attachments_, content_, addRecipient_, removeRecipients_, addAttachment_, renameAttachment_,
        removeAttachments_, outbox_, move_;
    Connection& connection_;
};

}  // namespace wmoutlook::outlookstore

#include "adapters/outlookstore/StoreMailRows.h"

#include "platform/Errors.h"

namespace wmoutlook::outlookstore {

namespace {

constexpr std::string_view kReadingRecipients = "reading the recipients of a mail";
constexpr std::string_view kReadingAttachments = "reading the attachments of a mail";
constexpr std::string_view kSaving = "saving a mail";
constexpr std::string_view kSending = "sending a mail";
constexpr std::string_view kDeleting = "deleting a mail";

outlook::RecipientType recipientType(std::int64_t number) {
    if (number < 1 || number > 3) throw OutlookError{-1, "A recipient of the Outlook store is of no known type"};
    return static_cast<outlook::RecipientType>(number);
}

}  // namespace

MailRows::MailRows(Connection& connection)
    : recipients_(connection, "SELECT Name, Address, RecipientType FROM Recipients WHERE ItemNumber = ?1 ORDER BY Position",
                  kReadingRecipients),
      attachments_(connection,
                   "SELECT AttachmentNumber, FileName, DisplayName, length(Content) FROM Attachments WHERE ItemNumber = ?1 "
                   "ORDER BY AttachmentNumber",
                   kReadingAttachments),
      content_(connection, "SELECT Content FROM Attachments WHERE AttachmentNumber = ?2 AND ItemNumber = ?1",
               kReadingAttachments),
      addRecipient_(connection,
                    "INSERT INTO Recipients (ItemNumber, Position, Name, Address, RecipientType) VALUES (?1, ?2, ?3, ?4, ?5)",
                    kSaving),
      removeRecipients_(connection, "DELETE FROM Recipients WHERE ItemNumber = ?1", kSaving),
      addAttachment_(connection, "INSERT INTO Attachments (ItemNumber, FileName, DisplayName, Content) VALUES (?1, ?2, ?3, ?4)",
                     kSaving),
      renameAttachment_(connection, "UPDATE Attachments SET DisplayName = ?3 WHERE AttachmentNumber = ?2 AND ItemNumber = ?1",
                        kSaving),
      removeAttachments_(connection, "DELETE FROM Attachments WHERE ItemNumber = ?1", kDeleting),
      outbox_(connection, "SELECT FolderNumber FROM Folders WHERE StoreNumber = ?1 AND Role = ?2", kSending),
      move_(connection, "UPDATE Items SET FolderNumber = ?2 WHERE ItemNumber = ?1", kSending),
      connection_(connection) {}

std::vector<RecipientRow> MailRows::recipients(std::int64_t item) {
    std::vector<RecipientRow> rows;
    auto run = recipients_.run();
    run.bind(1, item);
    while (run.next()) rows.push_back({run.text(0), run.text(1), recipientType(run.integer(2))});
    return rows;
}

std::vector<AttachmentRow> MailRows::attachments(std::int64_t item) {
    std::vector<AttachmentRow> rows;
    auto run = attachments_.run();
    run.bind(1, item);
    while (run.next()) rows.push_back({run.integer(0), run.text(1), run.text(2), run.integer(3), nullptr});
    return rows;
}

std::string MailRows::content(std::int64_t item, std::int64_t attachment) {
    auto run = content_.run();
    if (!run.bind(1, item).bind(2, attachment).next()) throw OutlookError{-1, "The attachment has been deleted"};
    return std::string{run.bytes(0)};
}

void MailRows::saveRecipients(std::int64_t item, const std::vector<RecipientRow>& recipients) {
    removeRecipients_.run().bind(1, item).finish();
    for (std::int64_t position = 1; const RecipientRow& recipient : recipients) {
        auto run = addRecipient_.run();
        run.bind(1, item).bind(2, position++).bind(3, std::string_view{recipient.name});
        run.bind(4, std::string_view{recipient.address}).bind(5, static_cast<std::int64_t>(recipient.type)).finish();
    }
}

void MailRows::saveAttachments(std::int64_t item, std::vector<AttachmentRow>& attachments) {
    for (AttachmentRow& attachment : attachments) {
        if (attachment.number != 0) {
            renameAttachment_.run()
                .bind(1, item)
                .bind(2, attachment.number)
                .bind(3, std::string_view{attachment.displayName})
                .finish();
            continue;
        }
        auto run = addAttachment_.run();
        run.bind(1, item).bind(2, std::string_view{attachment.fileName}).bind(3, std::string_view{attachment.displayName});
        run.bindBlob(4, *attachment.content).finish();
        attachment.number = connection_.lastKey();
        attachment.content.reset();
    }
}

void MailRows::remove(std::int64_t item) {
    removeRecipients_.run().bind(1, item).finish();
    removeAttachments_.run().bind(1, item).finish();
}

std::int64_t MailRows::outboxOf(std::int64_t store) {
    auto run = outbox_.run();
    if (!run.bind(1, store).bind(2, static_cast<std::int64_t>(outlook::DefaultFolder::outbox)).next())
        throw OutlookError{-1, "The mail's Outlook store has no Outbox"};
    return run.integer(0);
}

void MailRows::move(std::int64_t item, std::int64_t folder) {
    move_.run().bind(1, item).bind(2, folder).finish();
}

}  // namespace wmoutlook::outlookstore

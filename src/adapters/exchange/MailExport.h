#pragma once

#include "platform/Date.h"
#include "platform/outlook/ObjectModel.h"

#include <functional>
#include <string>
#include <vector>

/// Files in which mails, contacts and appointments travel between programs.
namespace wmoutlook::exchange {

struct MailRecipient {
    outlook::RecipientType type = outlook::RecipientType::to;
    std::string name;
    std::string address;  ///< empty when nobody knows it
};

struct MailAttachment {
    std::string name;
    std::string content;
};

struct Mail {
    std::string identifier;  ///< ASCII letters and digits, another one for each mail
    std::string subject;
    std::string body;
    Date date;             ///< in local time
    bool isDraft = false;  ///< a mail program opens it to be finished
    std::vector<MailRecipient> recipients;
    std::vector<MailAttachment> attachments;
};

/// Writes the mail to a new file as a MIME message (.eml): the body as plain text in UTF-8, then each attachment under its name.
/// There is no From, since the store knows no sender: the program that sends the mail puts it in. Bcc recipients stand in a
/// draft and are left out of a mail that was sent, which others may read. A recipient without address is a group of nobody, with
/// its name. What would break a line of the head becomes a blank.
///
/// `beforeTheEnd` is called when all is written and may throw, and then there is no file. Throws Failure, one sentence that names the
/// file; an existing file stays as it is, and no part of one is ever there.
void writeMailFile(
    const Mail& mail, const std::string& path, const std::function<void()>& beforeTheEnd = [] {});

}  // namespace wmoutlook::exchange

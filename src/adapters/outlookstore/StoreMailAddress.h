#pragma once

#include "adapters/outlookstore/StoreFile.h"

#include <optional>
#include <string>
#include <string_view>

/// What a recipient's text stands for.
namespace wmoutlook::outlookstore {

struct MailAddress {
    std::string name;
    std::string address;  ///< such as "anne@example.ca"
};

/// Whether the text is an address as web forms check it: a local part and a host name of ASCII characters, without quotes or
/// comments.
[[nodiscard]] bool isMailAddress(std::string_view text);

/// Whether the text holds a character that could begin another line of a message's head, or end a text.
[[nodiscard]] bool hasControlCharacter(std::string_view text);

/// "anne@example.ca" and "Anne Roy <anne@example.ca>" stand for themselves. Any other text stands for the contact of the default
/// contacts folder whose FullName, FileAs or Email1Address it is. Nothing when there is none, when several have different
/// addresses, or when one has none.
[[nodiscard]] std::optional<MailAddress> resolveRecipient(StoreFile& file, std::string_view text);

}  // namespace wmoutlook::outlookstore

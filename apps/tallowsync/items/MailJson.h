#pragma once

#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/Json.h"

#include <string>
#include <string_view>
#include <vector>

/// What a mail has beside its properties: Recipients with Type (1 To, 2 CC, 3 BCC), Name and Address (null while it is not
/// resolved), and Attachments with FileName, DisplayName and Size in bytes.
namespace wmoutlook {

[[nodiscard]] Json recipientsToJson(const std::vector<outlookstore::ListedRecipient>& recipients);
[[nodiscard]] Json attachmentsToJson(const std::vector<outlookstore::ListedAttachment>& attachments);

/// When it is no list of recipients, none of them, and `fault` is the end of a sentence that says so.
[[nodiscard]] std::vector<outlookstore::ListedRecipient> recipientsFromJson(const Json& json, std::string& fault);

/// Whether the property shows recipients.
[[nodiscard]] bool isAddressLine(std::string_view property);

/// Adds them to a mail, those with an address as resolved.
void addRecipients(outlook::port::Item& mail, const std::vector<outlookstore::ListedRecipient>& recipients);

}  // namespace wmoutlook

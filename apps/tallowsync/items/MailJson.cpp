#include "apps/tallowsync/items/MailJson.h"

#include "adapters/outlookstore/StoreMailAddress.h"
#include "apps/tallowsync/PlainText.h"

#include <algorithm>
#include <optional>

namespace wmoutlook {

namespace {

using outlook::RecipientType;
using outlookstore::ListedRecipient;

std::optional<std::string> textOf(const Json& object, const char* key) {
    const auto value = object.find(key);
    if (value == object.end() || value->is_null()) return std::string{};
    if (!value->is_string()) return std::nullopt;
    return value->get<std::string>();
}

std::optional<ListedRecipient> recipientFromJson(const Json& json) {
    if (!json.is_object()) return std::nullopt;
    const auto type = json.find("Type");
    const auto name = textOf(json, "Name");
    const auto address = textOf(json, "Address");
    if (type == json.end() || !type->is_number_integer() || !name || !address) return std::nullopt;
    const auto number = type->get<std::int64_t>();
    const auto first = static_cast<std::int64_t>(RecipientType::to);
    const auto last = static_cast<std::int64_t>(RecipientType::bcc);
    const bool isAddress = address->empty() || outlookstore::isMailAddress(*address);
    if (number < first || number > last || !faultOfName(*name).empty() || !isAddress) return std::nullopt;
    return ListedRecipient{static_cast<RecipientType>(number), *name, *address};
}

}  // namespace

Json recipientsToJson(const std::vector<ListedRecipient>& recipients) {
    Json all = Json::array();
    for (const ListedRecipient& recipient : recipients)
        all.push_back({{"Type", static_cast<std::int32_t>(recipient.type)},
                       {"Name", recipient.name},
                       {"Address", recipient.address.empty() ? Json(nullptr) : Json(recipient.address)}});
    return all;
}

Json attachmentsToJson(const std::vector<outlookstore::ListedAttachment>& attachments) {
    Json all = Json::array();
    for (const auto& attachment : attachments)
        all.push_back({{"FileName", attachment.fileName}, {"DisplayName", attachment.displayName}, {"Size", attachment.size}});
    return all;
}

std::vector<ListedRecipient> recipientsFromJson(const Json& json, std::string& fault) {
    std::vector<ListedRecipient> recipients;
    for (const Json& element : json.is_array() ? json : Json::array({json})) {
        auto recipient = recipientFromJson(element);
        if (!recipient) {
            fault = "has a recipient without a usable Name, Address or Type of 1 (To), 2 (CC) or 3 (BCC)";
            return {};
        }
        recipients.push_back(std::move(*recipient));
    }
    return recipients;
}

bool isAddressLine(std::string_view property) {
    return property == "To" || property == "CC" || property == "BCC";
}

void addRecipients(outlook::port::Item& mail, const std::vector<ListedRecipient>& recipients) {
    const auto all = mail.recipients();
    for (const ListedRecipient& recipient : recipients) {
        const bool isWhole = recipient.address.empty() || recipient.address == recipient.name;
        const auto added = all->add(isWhole ? recipient.name : '"' + recipient.name + "\" <" + recipient.address + ">");
        added->setType(recipient.type);
        if (!recipient.address.empty()) static_cast<void>(added->resolve());
    }
}

}  // namespace wmoutlook

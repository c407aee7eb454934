#include "apps/tallowsync/items/MailFile.h"

#include "adapters/exchange/MailExport.h"
#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/PlainText.h"
#include "platform/outlook/PropertyNames.h"

#include <optional>
#include <string_view>

namespace wmoutlook {

namespace {

using outlookstore::ListedItem;

const Variant* valueOf(const ListedItem& item, std::string_view name) {
    for (const auto& property : item.properties)
        if (property.name == name) return &property.value;
    return nullptr;
}

/// When it was sent, of a draft when it was saved.
Date momentOf(const ListedItem& mail) {
    const Variant* const sent = valueOf(mail, "SentOn");
    const Variant* const moment = sent != nullptr ? sent : valueOf(mail, "LastModificationTime");
    return moment != nullptr ? moment->toDate() : absentDate();
}

exchange::Mail mailOf(const outlook::port::Item& item, const ListedItem& listed) {
    exchange::Mail mail;
    mail.identifier = listed.entryID;
    mail.subject = item.get(outlook::property::Subject).toText();
    mail.body = item.get(outlook::property::Body).toText();
    mail.date = momentOf(listed);
    mail.isDraft = !item.get("Submitted").toBoolean();
    for (const auto& recipient : listed.recipients)
        mail.recipients.push_back({recipient.type, recipient.name, recipient.address});
    for (std::size_t i = 0; i < listed.attachments.size(); ++i)
        mail.attachments.push_back({listed.attachments[i].displayName, outlookstore::attachmentContent(item, i)});
    return mail;
}

}  // namespace

std::shared_ptr<outlook::port::Item> newestMail(outlook::port::Automation& store, const std::string& folder) {
    std::string newest;
    Date last = absentDate();
    outlookstore::forEachItem(store, folder, [&](const ListedItem& item) {
        if (item.type != outlook::ItemType::mail) return;
        const Date moment = momentOf(item);
        if (!newest.empty() && isEarlier(moment, last)) return;
        newest = item.entryID;
        last = moment;
    });
    if (newest.empty()) throw UsageError{"The folder " + inQuotes(folder) + " holds no mail"};
    return outlookstore::findItem(store, newest);
}

void writeMailFile(const outlook::port::Item& mail, const std::string& path, const StopSignal& stopSignal) {
    stopIfAsked(stopSignal);  // from here on a signal is noted, and the file is taken back
    const ListedItem listed = outlookstore::describe(mail);
    if (listed.type != outlook::ItemType::mail) throw UsageError{"The item is no mail; only mails can be exported as .eml"};
    exchange::writeMailFile(mailOf(mail, listed), path, [&] { stopIfAsked(stopSignal); });
}

}  // namespace wmoutlook

#include "apps/tallowsync/run/SelectionLists.h"

#include "adapters/headless/HostRows.h"
#include "adapters/outlookstore/StoreListing.h"
#include "platform/Errors.h"

#include <unordered_map>

namespace wmoutlook {

namespace {

template <class Visit>
void forEachNumber(HostDatabase& database, std::string_view sql, std::string_view field, Visit visit) {
    for (HostRows rows{database, sql}; !rows.isAtEnd(); rows.next()) visit(rows.field(field).toInteger());
}

template <class Visit>
void forEachChosen(const Choice<std::int32_t>& choice, HostDatabase& database, std::string_view sql, std::string_view field,
                   Visit visit) {
    for (const std::int32_t number : choice.listed) visit(number);
    if (choice.isAll) forEachNumber(database, sql, field, visit);
}

/// The company under which the client tree shows a contact first.
std::unordered_map<std::int32_t, std::int32_t> companiesOfContacts(HostDatabase& database) {
    std::unordered_map<std::int32_t, std::int32_t> companies;
    HostRows links{database, "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum FROM ContactLinks WHERE CompanyNum > 0;"};
    for (; !links.isAtEnd(); links.next()) {
        const Variant contact = links.field("ContactIDNum");
        if (!contact.isNull()) companies.emplace(contact.toInteger(), links.field("CompanyNum").toInteger());
    }
    return companies;
}

void addContacts(const Choice<ContactChoice>& choice, HostDatabase& database, RecordList& contacts) {
    const auto add = [&](std::int32_t contact, std::optional<std::int32_t> company) {
        contacts.add({company ? Variant{toText(*company)} : Variant{}, toText(contact)});
    };
    for (const ContactChoice& chosen : choice.listed) add(chosen.contact, chosen.company);
    if (!choice.isAll) return;
    const auto companies = companiesOfContacts(database);
    forEachNumber(database, "SELECT Contacts.ContactID FROM Contacts;", "ContactID", [&](std::int32_t contact) {
        const auto company = companies.find(contact);
        add(contact, company == companies.end() ? std::nullopt : std::optional{company->second});
    });
}

/// The store of an item that is not there is taken to be the folder's.
std::string storeOfItem(outlook::port::Automation& store, const std::string& entryID, const std::string& fallback) {
    try {
        return outlookstore::describe(*outlookstore::findItem(store, entryID)).storeID;
    } catch (const OutlookError&) {
        return fallback;
    }
}

void addItems(const Choice<std::string>& choice, outlook::port::Automation& store, const outlook::port::MAPIFolder& folder,
              RecordList& items) {
    const std::string folderStore = folder.storeID();
    const auto add = [&](const std::string& entryID, const std::string& storeID) {
        items.add({Variant{}, Variant{}, Variant{}, entryID, storeID});
    };
    for (const std::string& entryID : choice.listed) add(entryID, storeOfItem(store, entryID, folderStore));
    if (!choice.isAll) return;
    const std::string folderID = folder.entryID();
    for (const auto& listed : outlookstore::listFolders(store)) {
        if (listed.entryID != folderID) continue;
        outlookstore::forEachItem(store, listed.path, [&](const outlookstore::ListedItem& item) {
            if (item.type == outlook::ItemType::contact) add(item.entryID, item.storeID);
        });
    }
}

}  // namespace

void fillSelection(const SyncRequest& request, HostDatabase& database, outlook::port::Automation& store,
                   const outlook::port::MAPIFolder& folder, RecordList& companies, RecordList& contacts) {
    const Selection& chosen = request.selection;
    forEachChosen(chosen.companies, database, "SELECT Companies.CompanyID FROM Companies;", "CompanyID",
                  [&](std::int32_t company) { companies.add({toText(company)}); });
    addContacts(chosen.contacts, database, contacts);
    forEachChosen(chosen.users, database, "SELECT AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo;", "ContactID",
                  [&](std::int32_t user) {
                      companies.add({Variant{}, Variant{}, toText(user)});
                  });
    addItems(chosen.items, store, folder, companies);
}

}  // namespace wmoutlook

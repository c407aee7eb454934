#include "apps/tallowsync/run/SelectionLists.h"

#include "adapters/headless/HostRows.h"
#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/PlainText.h"
#include "platform/Errors.h"

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace wmoutlook {

namespace {

template <class Visit>
void forEachNumber(HostDatabase& database, std::string_view sql, std::string_view field, Visit visit) {
    for (HostRows rows{database, sql}; !rows.isAtEnd(); rows.next()) visit(rows.field(field).toInteger());
}

/// The rows of the host among which a selection is made.
struct Pool {
    std::string_view sql;
    std::string_view field;
    std::string_view whatIsMissing;  ///< with the number behind it
};

constexpr Pool kCompanies{"SELECT Companies.CompanyID FROM Companies;", "CompanyID", "The firm has no company "};
constexpr Pool kContacts{"SELECT Contacts.ContactID FROM Contacts;", "ContactID", "The firm has no contact "};
constexpr Pool kStaff{"SELECT AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo;", "ContactID",
                      "Nobody on the staff has the number "};

/// A number that names nothing would be dropped without a word: a slip of the finger is to be seen.
void tellMissing(const std::vector<std::int32_t>& listed, const Pool& pool, const SelectionSources& sources) {
    if (listed.empty()) return;
    std::set<std::int32_t> missing{listed.begin(), listed.end()};
    forEachNumber(sources.database, pool.sql, pool.field, [&](std::int32_t number) { missing.erase(number); });
    for (const std::int32_t number : missing)
        sources.tell(std::string{pool.whatIsMissing} + std::to_string(number) + "; it is skipped");
}

template <class Visit>
void forEachChosen(const Choice<std::int32_t>& choice, HostDatabase& database, const Pool& pool, Visit visit) {
    for (const std::int32_t number : choice.listed) visit(number);
    if (choice.isAll) forEachNumber(database, pool.sql, pool.field, visit);
}

void tellMissingContacts(const std::vector<ContactChoice>& listed, const SelectionSources& sources) {
    std::vector<std::int32_t> contacts, companies;
    for (const ContactChoice& chosen : listed) {
        contacts.push_back(chosen.contact);
        if (chosen.company) companies.push_back(*chosen.company);
    }
    tellMissing(contacts, kContacts, sources);
    tellMissing(companies, kCompanies, sources);
}

void tellMissingUsers(std::vector<std::int32_t> listed, const SelectionSources& sources) {
    std::erase_if(listed, [](std::int32_t user) { return user == 0 || user == kNoRecord; });  // everybody, and nobody
    tellMissing(listed, kStaff, sources);
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
    forEachNumber(database, kContacts.sql, kContacts.field, [&](std::int32_t contact) {
        const auto company = companies.find(contact);
        add(contact, company == companies.end() ? std::nullopt : std::optional{company->second});
    });
}

/// The store of an item that is not there is taken to be the folder's.
std::string storeOfItem(const std::string& entryID, const SelectionSources& sources) {
    try {
        return outlookstore::describe(*outlookstore::findItem(sources.store, entryID)).storeID;
    } catch (const OutlookError&) {
        sources.tell("The Outlook store has no item " + inQuotes(entryID) + "; it is skipped");
        return sources.folder.storeID();
    }
}

void addItems(const Choice<std::string>& choice, const SelectionSources& sources, RecordList& items) {
    const auto add = [&](const std::string& entryID, const std::string& storeID) {
        items.add({Variant{}, Variant{}, Variant{}, entryID, storeID});
    };
    for (const std::string& entryID : choice.listed) add(entryID, storeOfItem(entryID, sources));
    if (!choice.isAll) return;
    const std::string folderID = sources.folder.entryID();
    for (const auto& listed : outlookstore::listFolders(sources.store)) {
        if (listed.entryID != folderID) continue;
        outlookstore::forEachItem(sources.store, listed.path, [&](const outlookstore::ListedItem& item) {
            if (item.type == outlook::ItemType::contact) add(item.entryID, item.storeID);
        });
    }
}

}  // namespace

void fillSelection(const SyncRequest& request, const SelectionSources& sources, RecordList& companies, RecordList& contacts) {
    const Selection& chosen = request.selection;
    tellMissing(chosen.companies.listed, kCompanies, sources);
    tellMissingContacts(chosen.contacts.listed, sources);
    tellMissingUsers(chosen.users.listed, sources);
    forEachChosen(chosen.companies, sources.database, kCompanies,
                  [&](std::int32_t company) { companies.add({toText(company)}); });
    addContacts(chosen.contacts, sources.database, contacts);
    forEachChosen(chosen.users, sources.database, kStaff, [&](std::int32_t user) {
        companies.add({Variant{}, Variant{}, toText(user)});
    });
    addItems(chosen.items, sources, companies);
}

}  // namespace wmoutlook

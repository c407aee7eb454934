#include "syncstore/ContactLinks.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "platform/outlook/PropertyNames.h"

namespace wmoutlook {

namespace property = outlook::property;

namespace {

/// The finders' kinds of search, from the strictest to the most tolerant.
constexpr std::int32_t kSameName = 1;
constexpr std::int32_t kNormalisedName = 2;
constexpr std::int32_t kTolerant = 3;

std::string todayAsText() {
    return toIsoText(today());
}

template <class Finder>
Finder& required(const std::shared_ptr<Finder>& finder) {
    if (!finder) throw ObjectNotSet{"duplicate finder"};
    return *finder;
}

/// The entry identifier of the item in the folder that is filed under the name; empty when there is none.
std::string entryIDFiledUnder(const outlook::Items& items, const std::string& name) {
    const outlook::Item item = items.find("[FileAs] = \"" + name + "\"");
    return item.isNothing() ? std::string{} : item.text(property::EntryID);
}

outlook::Items defaultContacts(const SyncRun& run) {
    return run.outlook.nameSpace.getDefaultFolder(outlook::DefaultFolder::contacts).items();
}

/// The number that a finder has found, unless its found-test fails.
template <class IsFound, class FoundNumber>
std::optional<std::int32_t> numberIfFound(IsFound isFound, FoundNumber foundNumber) {
    if (!statement(isFound)) return std::nullopt;
    return statement([&]() -> std::optional<std::int32_t> { return foundNumber(); });
}

std::optional<std::int32_t> searchCompany(CompanyDuplicateFinder& finder, const outlook::Item& item) {
    statement([&] { finder.clear(); });
    const std::string name = item.text(property::CompanyName);
    if (!ValueHelper::isNullOrEmpty(name)) statement([&] { finder.setCompanyName(name); });

    statement([&] { finder.setLookAtInactiveClients(false); });
    for (const std::int32_t kind : {kSameName, kNormalisedName}) {  // a blank name does not stop the passes
        statement([&] { finder.setSearchKind(kind); });
        statement([&] { finder.search(); });
        const auto found = numberIfFound([&] { return finder.isFound(); }, [&] { return finder.foundNumber(); });
        if (found) return found;
    }
    statement([&] { finder.setLookAtInactiveClients(true); });
    statement([&] { finder.setSearchKind(kTolerant); });
    statement([&] { finder.search(); });
    return numberIfFound([&] { return finder.isFoundTolerantly(); }, [&] { return finder.tolerantlyFoundNumber(); });
}

std::optional<std::int32_t> searchContact(ContactDuplicateFinder& finder, const outlook::Item& item) {
    using Give = void (ContactDuplicateFinder::*)(std::string_view);
    struct Row {
        std::string_view property;
        Give give;
    };
    constexpr Row kGiven[] = {{property::FullName, &ContactDuplicateFinder::setFullName},
                              {property::FirstName, &ContactDuplicateFinder::setFirstName},
                              {property::LastName, &ContactDuplicateFinder::setLastName}};

    statement([&] { finder.clear(); });
    for (const Row& row : kGiven) {
        const std::string value = item.text(row.property);
        if (!ValueHelper::isNullOrEmpty(value)) statement([&] { (finder.*row.give)(value); });
    }
    statement([&] { finder.setLookAtInactiveClients(true); });  // one pass, also when no name was given
    statement([&] { finder.setSearchKind(kTolerant); });
    statement([&] { finder.search(); });
    return numberIfFound([&] { return finder.isFound(); }, [&] { return finder.foundNumber(); });
}

}  // namespace

std::string_view ContactLinks::nameOf(HostField field) {
    return field == HostField::companyNum ? "CompanyNum" : "ContactNum";
}

std::string ContactLinks::linksOf(std::string_view storeID) const {
    return "SELECT OutlookSync.* From OutlookSync WHERE DataFileID = '" + run_.options.dataFileUniqueID +
           "' AND FolderStoreID = '" + std::string{storeID} + "';";
}

bool ContactLinks::findOutlookID(HostField field, std::int32_t number, std::string_view storeID, std::string& entryID) const {
    const Recordset links{linksOf(storeID)};
    if (!links.findFirst(nameOf(field), number)) return false;
    entryID = links.text("OutlookID");
    return true;
}

std::string ContactLinks::getOutlookIDFromTallowbrookCompanyID(std::int32_t companyID, std::string_view storeID) const {
    std::string entryID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getOutlookIDFromTallowbrookCompanyID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen() || findOutlookID(HostField::companyNum, companyID, storeID, entryID)) return;
        const outlook::Items contacts = defaultContacts(run_);
        entryID = entryIDFiledUnder(contacts, modDatabaseFunctions::getCompanyNameFromCompanyID(companyID));
    });
    return entryID;
}

std::string ContactLinks::getOutlookIDFromTallowbrookContactID(std::int32_t contactID, std::string_view storeID) const {
    std::string entryID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getOutlookIDFromTallowbrookContactID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen() || findOutlookID(HostField::contactNum, contactID, storeID, entryID)) return;
        const outlook::Items contacts = defaultContacts(run_);
        entryID = entryIDFiledUnder(contacts, modDatabaseFunctions::getContactNameFromContactID(contactID));
        if (!entryID.empty()) return;
        const std::string displayed = modDatabaseFunctions::getContactNameDisplayed(contactID, kTrueAsNumber, false);
        entryID = entryIDFiledUnder(contacts, displayed);
    });
    return entryID;
}

std::optional<std::int32_t> ContactLinks::findHostNumber(HostField field, std::string_view entryID,
                                                         std::string_view storeID) const {
    const Recordset links{linksOf(storeID)};
    if (!links.findFirst("OutlookID", entryID)) return std::nullopt;
    const Variant number = links.field(nameOf(field));
    if (ValueHelper::isNullOrEmpty(number)) return std::nullopt;
    return statement([&]() -> std::optional<std::int32_t> { return number.toInteger(); });
}

template <class Search>
std::optional<std::int32_t> ContactLinks::findHostRecord(HostField field, std::string_view entryID, std::string_view storeID,
                                                         bool useDuplicateFinder, Search search) const {
    if (!isDatabaseOpen()) return std::nullopt;
    if (const auto number = findHostNumber(field, entryID, storeID)) return number;
    const outlook::Item item = run_.outlook.nameSpace.findItemFromID(entryID, storeID);
    if (!useDuplicateFinder || item.isNothing()) return std::nullopt;
    return statement([&] { return search(item); });
}

std::int32_t ContactLinks::getTallowbrookCompanyIDFromOutlookID(std::string_view entryID, std::string_view storeID,
                                                                bool useDuplicateFinder, bool& isNew) const {
    std::optional<std::int32_t> companyID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getTallowbrookCompanyIDFromOutlookID", &run_.ExitProgram};
    routine.run([&] {
        companyID = findHostRecord(HostField::companyNum, entryID, storeID, useDuplicateFinder, [&](const outlook::Item& item) {
            return searchCompany(required(run_.companyDuplicateFinder), item);
        });
    });
    isNew = !companyID;
    return companyID.value_or(kNoRecord);
}

std::int32_t ContactLinks::getTallowbrookContactIDFromOutlookID(std::string_view entryID, std::string_view storeID,
                                                                bool useDuplicateFinder, bool& isNew) const {
    std::optional<std::int32_t> contactID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getTallowbrookContactIDFromOutlookID", &run_.ExitProgram};
    routine.run([&] {
        contactID = findHostRecord(HostField::contactNum, entryID, storeID, useDuplicateFinder, [&](const outlook::Item& item) {
            return searchContact(required(run_.contactDuplicateFinder), item);
        });
    });
    isNew = !contactID;
    return contactID.value_or(kNoRecord);
}

void ContactLinks::addLink(const Recordset& links, HostField field, std::int32_t number, std::string_view entryID,
                           std::string_view storeID) const {
    links.addNew();
    links.set("DataFileID", run_.options.dataFileUniqueID);
    links.set(nameOf(field), toText(number));
    links.set("OutlookID", entryID);
    links.set("FolderStoreID", storeID);
    links.set("DateLastSync", todayAsText());
    links.save();
}

void ContactLinks::saveByHostNumber(HostField field, std::int32_t number, std::string_view entryID,
                                    std::string_view storeID) const {
    if (!isDatabaseOpen()) return;
    const Recordset links{linksOf(storeID), LockCode::updatable};
    if (!links.findFirst(nameOf(field), number)) {
        if (links.noMatch()) addLink(links, field, number, entryID, storeID);
        return;
    }
    links.update("DataFileID", run_.options.dataFileUniqueID);
    links.update("OutlookID", entryID);
    links.update("FolderStoreID", storeID);
    links.update("DateLastSync", todayAsText());
}

void ContactLinks::saveByEntryID(HostField field, std::string_view entryID, std::string_view storeID, std::int32_t number) const {
    if (!isDatabaseOpen()) return;
    const Recordset links{linksOf(storeID), LockCode::updatable};
    if (!links.findFirst("OutlookID", entryID)) {
        if (links.noMatch()) addLink(links, field, number, entryID, storeID);
        return;
    }
    links.update("DataFileID", run_.options.dataFileUniqueID);
    links.update(nameOf(field), toText(number));
    links.update("DateLastSync", todayAsText());
}

void ContactLinks::saveCompanyOutlookID(std::int32_t companyID, std::string_view entryID, std::string_view storeID) const {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-saveCompanyOutlookID", &run_.ExitProgram};
    routine.run([&] { saveByHostNumber(HostField::companyNum, companyID, entryID, storeID); });
}

void ContactLinks::saveContactOutlookID(std::int32_t contactID, std::string_view entryID, std::string_view storeID) const {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-saveContactOutlookID", &run_.ExitProgram};
    routine.run([&] { saveByHostNumber(HostField::contactNum, contactID, entryID, storeID); });
}

void ContactLinks::saveOutlookCompanyID(std::string_view entryID, std::string_view storeID, std::int32_t companyID) const {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-saveOutlookCompanyID", &run_.ExitProgram};
    routine.run([&] { saveByEntryID(HostField::companyNum, entryID, storeID, companyID); });
}

void ContactLinks::saveOutlookContactID(std::string_view entryID, std::string_view storeID, std::int32_t contactID) const {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-saveOutlookContactID", &run_.ExitProgram};
    routine.run([&] { saveByEntryID(HostField::contactNum, entryID, storeID, contactID); });
}

}  // namespace wmoutlook

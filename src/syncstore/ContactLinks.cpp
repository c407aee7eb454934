#include "syncstore/ContactLinks.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "platform/outlook/PropertyNames.h"
#include "syncstore/LinkQuery.h"

namespace wmoutlook {

namespace property = outlook::property;

namespace {

/// The finders' kinds of search, from the strictest to the most tolerant.
constexpr std::int32_t kSameName = 1;
constexpr std::int32_t kNormalisedName = 2;
constexpr std::int32_t kTolerant = 3;

/// A host number; nothing when none was found.
using Number = std::optional<std::int32_t>;

std::string todayAsText() {
    return toIsoText(today());
}

/// Whether the search by name is over: an item of the folder is filed under the name, or the name could not be told, and then an empty
/// one would meet an item of anybody. The identifier has no value when it could not be read either.
bool findFiledUnder(const outlook::Items& items, const std::optional<std::string>& name, std::optional<std::string>& entryID) {
    if (!name) {
        entryID.reset();
        return true;
    }
    const outlook::Item item = items.find("[FileAs] = \"" + *name + "\"");
    if (item.isNothing()) return false;
    entryID.reset();
    entryID = item.textIfRead(property::EntryID);
    return true;
}

outlook::Items defaultContacts(const SyncRun& run) {
    return run.outlook.nameSpace.getDefaultFolder(outlook::DefaultFolder::contacts).items();
}

Number searchCompany(CompanyDuplicateFinder& finder, const outlook::Item& item) {
    statement([&] { finder.clear(); });
    const std::string name = item.text(property::CompanyName);
    if (!ValueHelper::isNullOrEmpty(name)) statement([&] { finder.setCompanyName(name); });

    statement([&] { finder.setLookAtInactiveClients(false); });
    for (const std::int32_t kind : {kSameName, kNormalisedName}) {  // a blank name does not stop the passes
        statement([&] { finder.setSearchKind(kind); });
        statement([&] { finder.search(); });
        if (statement([&] { return finder.isFound(); })) return statement([&] { return Number{finder.foundNumber()}; });
    }
    statement([&] { finder.setLookAtInactiveClients(true); });
    statement([&] { finder.setSearchKind(kTolerant); });
    statement([&] { finder.search(); });
    if (!statement([&] { return finder.isFoundTolerantly(); })) return std::nullopt;
    return statement([&] { return Number{finder.tolerantlyFoundNumber()}; });
}

Number searchContact(ContactDuplicateFinder& finder, const outlook::Item& item) {
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
    if (!statement([&] { return finder.isFound(); })) return std::nullopt;
    return statement([&] { return Number{finder.foundNumber()}; });
}

}  // namespace

std::string_view ContactLinks::nameOf(HostField field) {
    return field == HostField::companyNum ? "CompanyNum" : "ContactNum";
}

/// Whether there is a link, nothing when it could not be told.
std::optional<bool> ContactLinks::findOutlookID(HostField field, std::int32_t number, std::string_view storeID,
                                                std::optional<std::string>& entryID) const {
    const Recordset links{linksOfStore(run_, storeID) + ";"};
    const auto isLinked = links.findFirstIfTold(nameOf(field), number);
    if (isLinked.value_or(false)) entryID = links.textIfRead("OutlookID");
    return isLinked;
}

std::optional<std::string> ContactLinks::getOutlookIDFromTallowbrookCompanyID(std::int32_t companyID,
                                                                              std::string_view storeID) const {
    std::optional<std::string> entryID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getOutlookIDFromTallowbrookCompanyID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen() || findOutlookID(HostField::companyNum, companyID, storeID, entryID).value_or(true)) return;
        entryID.emplace();  // no link; from here on a search that fails has found nothing
        const outlook::Items contacts = defaultContacts(run_);
        findFiledUnder(contacts, modDatabaseFunctions::getCompanyNameFromCompanyIDIfTold(companyID), entryID);
    });
    return entryID;
}

std::optional<std::string> ContactLinks::getOutlookIDFromTallowbrookContactID(std::int32_t contactID,
                                                                              std::string_view storeID) const {
    std::optional<std::string> entryID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getOutlookIDFromTallowbrookContactID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen() || findOutlookID(HostField::contactNum, contactID, storeID, entryID).value_or(true)) return;
        entryID.emplace();  // as above
        const outlook::Items contacts = defaultContacts(run_);
        if (!findFiledUnder(contacts, modDatabaseFunctions::getContactNameFromContactIDIfTold(contactID), entryID))
            findFiledUnder(contacts, modDatabaseFunctions::getContactNameDisplayedIfTold(contactID, kTrueAsNumber, false),
                           entryID);
    });
    return entryID;
}

/// The number is given by reference, so that it is kept when the close of the set leaves the routine.
void ContactLinks::findHostNumber(HostField field, std::string_view entryID, std::string_view storeID,
                                  std::optional<std::int32_t>& number) const {
    const Recordset links{linksOfStore(run_, storeID) + ";"};
    if (!links.findFirst("OutlookID", entryID)) return;
    const Variant value = links.field(nameOf(field));
    if (!ValueHelper::isNullOrEmpty(value)) number = statement([&] { return Number{value.toInteger()}; });
}

template <class Finder>
void ContactLinks::findHostRecord(const LinkSearch& wanted, const std::shared_ptr<Finder>& finder,
                                  std::optional<std::int32_t> (*search)(Finder&, const outlook::Item&),
                                  std::optional<std::int32_t>& number) const {
    if (!isDatabaseOpen()) return;
    findHostNumber(wanted.field, wanted.entryID, wanted.storeID, number);
    if (number) return;
    const outlook::Item item = run_.outlook.nameSpace.findItemFromID(wanted.entryID, wanted.storeID);
    if (!wanted.useDuplicateFinder || item.isNothing()) return;
    number = statement([&] {
        const auto held = finder;  // the host may put another one into the public field meanwhile
        if (!held) throw ObjectNotSet{"duplicate finder"};
        return search(*held, item);
    });
}

std::int32_t ContactLinks::getTallowbrookCompanyIDFromOutlookID(std::string_view entryID, std::string_view storeID,
                                                                bool useDuplicateFinder, bool& isNew) const {
    std::optional<std::int32_t> companyID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getTallowbrookCompanyIDFromOutlookID", &run_.ExitProgram};
    routine.run([&] {
        findHostRecord({HostField::companyNum, entryID, storeID, useDuplicateFinder}, run_.companyDuplicateFinder, searchCompany,
                       companyID);
    });
    isNew = !companyID;
    return companyID.value_or(kNoRecord);
}

std::int32_t ContactLinks::getTallowbrookContactIDFromOutlookID(std::string_view entryID, std::string_view storeID,
                                                                bool useDuplicateFinder, bool& isNew) const {
    std::optional<std::int32_t> contactID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getTallowbrookContactIDFromOutlookID", &run_.ExitProgram};
    routine.run([&] {
        findHostRecord({HostField::contactNum, entryID, storeID, useDuplicateFinder}, run_.contactDuplicateFinder, searchContact,
                       contactID);
    });
    isNew = !contactID;
    return contactID.value_or(kNoRecord);
}

void ContactLinks::addLink(const Recordset& links, HostField field, std::int32_t number, std::string_view entryID,
                           std::string_view storeID) const {
    if (!links.addNew()) return;
    bool hasKeys = true;
    const auto setKey = [&](std::string_view name, std::string_view value) {
        if (!links.set(name, value)) hasKeys = false;
    };
    setKey("DataFileID", run_.options.dataFileUniqueID);
    setKey(nameOf(field), toText(number));
    setKey("OutlookID", entryID);
    setKey("FolderStoreID", storeID);
    links.set("DateLastSync", todayAsText());
    if (hasKeys) links.save();  // a link without one of them would never be found again
}

void ContactLinks::saveByHostNumber(HostField field, std::int32_t number, std::string_view entryID,
                                    std::string_view storeID) const {
    if (!isDatabaseOpen()) return;
    const Recordset links{linksOfStore(run_, storeID) + ";", LockCode::updatable};
    const auto isLinked = links.findFirstIfTold(nameOf(field), number);
    if (!isLinked) return;
    if (!*isLinked) return addLink(links, field, number, entryID, storeID);
    links.update("DataFileID", run_.options.dataFileUniqueID);
    links.update("OutlookID", entryID);
    links.update("FolderStoreID", storeID);
    links.update("DateLastSync", todayAsText());
}

void ContactLinks::saveByEntryID(HostField field, std::string_view entryID, std::string_view storeID, std::int32_t number) const {
    if (!isDatabaseOpen()) return;
    const Recordset links{linksOfStore(run_, storeID) + ";", LockCode::updatable};
    const auto isLinked = links.findFirstIfTold("OutlookID", entryID);
    if (!isLinked) return;
    if (!*isLinked) return addLink(links, field, number, entryID, storeID);
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

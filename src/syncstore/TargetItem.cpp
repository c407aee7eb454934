#include "syncstore/TargetItem.h"

#include "platform/ValueHelper.h"

namespace wmoutlook {

using ValueHelper::isNullOrEmpty;

std::string targetStore(SyncRun& run, outlook::DefaultFolder folder) {
    SyncOptions& options = run.options;
    if (!isNullOrEmpty(options.outlookImportFolderStoreID)) return options.outlookImportFolderStoreID;
    const outlook::MAPIFolder chosen = run.outlook.nameSpace.getDefaultFolder(folder);
    std::string storeID = chosen.storeID();
    const std::string entryID = chosen.entryID();
    if (!entryID.empty()) options.outlookImportFolderEntryID = entryID;
    return storeID;
}

outlook::Item itemToWrite(const SyncRun& run, outlook::ItemType type, std::string_view entryID, std::string_view storeID) {
    const OutlookSession& session = run.outlook;
    if (!isNullOrEmpty(entryID)) {
        const outlook::Item linked = session.nameSpace.findItemFromID(entryID, storeID);
        if (!linked.isNothing()) return linked;
    }
    const std::string& folderID = run.options.outlookImportFolderEntryID;
    if (isNullOrEmpty(folderID) || isNullOrEmpty(storeID)) return session.application.createItem(type);
    return session.nameSpace.getFolderFromID(folderID, storeID).items().add();
}

void stamp(const outlook::Item& item, Date dateLastSynched) {
    const outlook::UserProperties properties = item.userProperties();
    properties.add("TallowbrookID", outlook::UserPropertyType::number);
    properties.add("EntryID", outlook::UserPropertyType::text);
    properties.add("DateLastSynched", outlook::UserPropertyType::dateTime).setValue(dateLastSynched);
}

}  // namespace wmoutlook

#include "syncstore/TargetItem.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "platform/outlook/PropertyNames.h"

namespace wmoutlook {

using ValueHelper::isNullOrEmpty;

std::string targetStore(SyncRun& run, outlook::DefaultFolder folder) {
    SyncOptions& options = run.options;
    if (!isNullOrEmpty(options.outlookImportFolderStoreID)) return options.outlookImportFolderStoreID;
    const outlook::MAPIFolder chosen = run.outlook.nameSpace.getDefaultFolder(folder);
    // Empty when it could not be told: the folder of an earlier run holds items of another type.
    options.outlookImportFolderEntryID = chosen.entryID();
    return chosen.storeID();
}

std::optional<bool> isOfTypeIfTold(const outlook::Item& item, outlook::ItemType type) {
    if (item.isNothing()) return false;
    const Variant told = item.get(outlook::property::Class);
    const auto itemClass = quietly([&] { return std::optional{told.toInteger()}; });
    if (!itemClass) return std::nullopt;
    return *itemClass == static_cast<std::int32_t>(outlook::classOf(type));
}

bool isOfType(const outlook::Item& item, outlook::ItemType type) {
    return isOfTypeIfTold(item, type).value_or(true);
}

outlook::Item itemToWrite(const SyncRun& run, outlook::ItemType type, std::string_view entryID, std::string_view storeID) {
    const OutlookSession& session = run.outlook;
    if (!isNullOrEmpty(entryID)) {
        outlook::Item linked = session.nameSpace.findItemFromID(entryID, storeID);
        if (isOfType(linked, type)) return linked;
    }
    const std::string folderID = run.options.outlookImportFolderEntryID;  // the host may put another one while a call is retried
    if (isNullOrEmpty(folderID) || isNullOrEmpty(storeID)) return session.application.createItem(type);
    return session.nameSpace.getFolderFromID(folderID, storeID).items().add();
}

void stamp(const outlook::Item& item, Date dateLastSynched) {
    const outlook::UserProperties properties = item.userProperties();
    properties.add("TallowbrookID", outlook::UserPropertyType::number);
    properties.add("EntryID", outlook::UserPropertyType::text);
    properties.add("DateLastSynched", outlook::UserPropertyType::dateTime).setValue(dateLastSynched);
}

void writeRow(const RowToWrite& row, const outlook::Item& item, const WriteFields& writeFields,
              std::optional<std::string>& written) {
    if (!isDatabaseOpen() || row.number < 0) return;
    const std::string table{row.table};
    Recordset rows{"SELECT " + table + ".* FROM " + table + ";", row.lock};
    rows.nameRecord(table + " " + toText(row.number));
    const auto isThere = rows.findFirstIfTold(row.key, row.number);
    if (!isThere) return;
    if (!*isThere) {
        written = kNothingWritten;
        return;
    }
    writeFields(item, rows);
    if (item.save()) written = item.textIfRead(outlook::property::EntryID);
}

}  // namespace wmoutlook

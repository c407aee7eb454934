#include "syncstore/LinkQuery.h"

namespace wmoutlook {

std::string linksOfStore(const SyncRun& run, std::string_view storeID) {
    return "SELECT OutlookSync.* From OutlookSync WHERE DataFileID = '" + run.options.dataFileUniqueID +
           "' AND FolderStoreID = '" + std::string{storeID} + "'";
}

}  // namespace wmoutlook

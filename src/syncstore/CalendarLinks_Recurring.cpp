#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions_Calendar.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "syncstore/CalendarLinks.h"
#include "syncstore/LinkQuery.h"

#include <optional>

namespace wmoutlook {

namespace {

/// The number of the first link that has one. It ends without a number only when every link was read: a number that could not
/// be read is not replaced by a new one.
struct SeriesNumber {
    std::optional<std::int32_t> number;
    bool isRead = true;
};

SeriesNumber findSeriesNumber(Recordset& links) {
    const auto hasRows = links.hasRowsIfTold();
    if (hasRows == false) return {};
    std::int32_t readCount = 0;
    for (links.moveFirst(); !links.isAtEnd(); links.moveNext()) {
        const auto number = links.numberIfRead("RepeatNum", kNoRecord);
        if (number && *number >= 0) return {number, true};
        if (number) ++readCount;
    }
    return {std::nullopt, hasRows.value_or(false) && readCount > 0 && readCount == links.recordCount()};
}

}  // namespace

std::int32_t CalendarLinks::getTallowbrookRepeatNumFromOutlookRecurringItemID(std::string_view entryID, std::int32_t,
                                                                              std::string_view storeID, bool isRecurring) const {
    std::int32_t repeatNum = kNoRecord;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getTallowbrookRepeatNumFromOutlookRecurringItemID",
                    &run_.ExitProgram};
    routine.run([&] {
        if (!isRecurring || !isDatabaseOpen()) return;
        Recordset links{linksOfStore(run_, storeID) + " AND OutlookID='" + std::string{entryID} +
                            "' AND IsRecurringItem=True ORDER BY RecurringItemDate;",
                        LockCode::updatable};
        const SeriesNumber found = findSeriesNumber(links);
        if (!found.number) {
            using modDatabaseFunctions::CalendarType;
            const bool isTask = table_.objects == outlookSyncObjectsEnum::syncTasks;
            if (found.isRead)
                repeatNum =
                    modDatabaseFunctions::getAppointmentRepeatUniqueID(isTask ? CalendarType::tasks : CalendarType::appointments);
            return;
        }
        repeatNum = *found.number;
        const std::string text = toText(repeatNum);
        for (links.moveFirst(); !links.isAtEnd(); links.moveNext())
            if (links.textIfRead("RepeatNum") != text) links.update("RepeatNum", text);
    });
    return repeatNum;
}

void CalendarLinks::saveOutlookAppointmentID(std::string_view entryID, std::int32_t hostID, std::string_view storeID,
                                             const Occurrence& occurrence, std::int32_t repeatNum) const {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-saveOutlookAppointmentID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        std::string query = linksOfStore(run_, storeID);
        if (occurrence.isRecurring)
            query = "SELECT OutlookSync.* From OutlookSync WHERE IsRecurringItem=True AND RecurringItemDate=#" +
                    formatDateForSql(occurrence.day) + "# AND DataFileID = '" + run_.options.dataFileUniqueID +
                    "' AND FolderStoreID = '" + std::string{storeID} + "'";
        const Recordset links{query + ";", LockCode::updatable};
        const auto isLinked = links.findFirstIfTold("OutlookID", entryID);
        if (!isLinked || (!*isLinked && !links.addNew())) return;
        const bool isKnown = *isLinked;
        bool hasKeys = true;
        const auto put = [&](std::string_view field, std::string_view value) {
            return isKnown ? links.update(field, value) : links.set(field, value);
        };
        const auto putKey = [&](std::string_view field, std::string_view value) { hasKeys = put(field, value) && hasKeys; };
        putKey("DataFileID", run_.options.dataFileUniqueID);
        putKey(table_.linkField, toText(hostID));
        putKey("FolderStoreID", storeID);
        put("DateLastSync", toIsoText(now()));
        // An ordinary link is found without it.
        hasKeys = (put("IsRecurringItem", toText(occurrence.isRecurring)) || !occurrence.isRecurring) && hasKeys;
        if (occurrence.isRecurring) putKey("RecurringItemDate", toIsoText(occurrence.day));
        put("RepeatNum", occurrence.isRecurring && repeatNum >= 0 ? toText(repeatNum) : std::string{});
        if (isKnown) return;
        putKey("OutlookID", entryID);
        if (hasKeys) links.save();
    });
}

}  // namespace wmoutlook

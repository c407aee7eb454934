#include "syncstore/CalendarLinks.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "platform/DateHelper.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/ValueHelper.h"
#include "platform/outlook/PropertyNames.h"
#include "syncstore/LinkQuery.h"

#include <optional>

namespace wmoutlook {

namespace property = outlook::property;

namespace {

constexpr std::size_t kSubjectLength = 255;  ///< what the host's subject holds

std::optional<Date> dateIfRead(const outlook::Item& item, std::string_view name) {
    return statement([&]() -> std::optional<Date> { return item.get(name).toDate(); });
}

std::string timeLiteral(Date time) {
    return "#" + DateHelper::format(time, "h:nn:ss ampm") + "#";
}

}  // namespace

std::optional<std::string> CalendarLinks::getOutlookIDFromTallowbrookAppointmentID(std::int32_t hostID,
                                                                                   std::string_view storeID) const {
    std::optional<std::string> entryID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getOutlookIDFromTallowbrookAppointmentID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset links{linksOfStore(run_, storeID) + ";"};
        const auto isLinked = links.findFirstIfTold(table_.linkField, hostID);
        if (isLinked) entryID = *isLinked ? links.textIfRead("OutlookID") : std::string{};
    });
    return entryID;
}

std::optional<std::int32_t> CalendarLinks::getTallowbrookAppointmentIDFromOutlookID(std::string_view entryID, std::int32_t userID,
                                                                                    std::string_view storeID,
                                                                                    const Occurrence& occurrence) const {
    std::optional<std::int32_t> hostID;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-getTallowbrookAppointmentIDFromOutlookID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        std::string query = linksOfStore(run_, storeID);
        if (occurrence.isRecurring)
            query += " AND IsRecurringItem=True AND RecurringItemDate=#" + formatDateForSql(occurrence.day) + "#";
        {
            const Recordset links{query + ";"};
            const auto isLinked = links.findFirstIfTold("OutlookID", entryID);
            if (isLinked) hostID = *isLinked ? links.numberIfRead(table_.linkField, kNoRecord) : kNoRecord;
        }
        if (hostID == kNoRecord && table_.objects == outlookSyncObjectsEnum::syncAppointments)
            hostID = lookForSameAppointmentInTallowbrook(entryID, userID, storeID, occurrence.day);
    });
    return hostID;
}

std::optional<std::int32_t> CalendarLinks::lookForSameAppointmentInTallowbrook(std::string_view entryID, std::int32_t userID,
                                                                               std::string_view storeID, Date day) const {
    std::optional<std::int32_t> hostID = kNoRecord;
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-lookForSameAppointmentInTallowbrook", &run_.ExitProgram};
    routine.run([&] {
        if (entryID.empty()) return;
        const outlook::Item item = run_.outlook.nameSpace.findItemFromID(entryID, storeID);
        if (item.isNothing()) return;
        hostID.reset();
        if (!isDatabaseOpen()) return;
        const std::string query = queryOfSame(item, userID, day);
        if (query.empty()) return;
        const Recordset rows{query};
        const auto isThere = rows.hasRowsIfTold();  // the first row is current then
        if (isThere) hostID = *isThere ? rows.numberIfRead(table_.key, kNoRecord) : kNoRecord;
    });
    return hostID;
}

/// Empty when the item could not be read: another item must not be taken for it.
std::string CalendarLinks::queryOfSame(const outlook::Item& item, std::int32_t userID, Date day) const {
    const auto start = dateIfRead(item, property::Start);
    const auto end = dateIfRead(item, property::End);
    const auto isAllDayEvent = statement([&]() -> std::optional<bool> { return item.get(property::AllDayEvent).toBoolean(); });
    const auto subject = item.textIfRead(property::Subject);
    if (!start || !end || !isAllDayEvent || !subject) return {};

    const Date timeFrom = minuteOf(*start);  // the host keeps times to the minute
    const Date timeTo = minuteOf(*end);
    const bool isAllDay = *isAllDayEvent || (timeFrom == Date{} && timeTo == Date{});
    const std::string table{table_.name};
    std::string query = "SELECT " + table + ".* FROM " + table + " WHERE " + table + ".UserIDNum = " + toText(userID) + " AND " +
                        table + ".DateFrom = #" + formatDateForSql(day) + "# AND " + table +
                        ".Subject = " + quoteTextForSql(firstCharacters(*subject, kSubjectLength));
    if (!isAllDay)
        query += " AND " + table + ".TimeFrom = " + timeLiteral(timeFrom) + " AND " + table + ".TimeTo = " + timeLiteral(timeTo);
    return query + ";";
}

void CalendarLinks::saveAppointmentOutlookID(std::int32_t hostID, std::string_view entryID, std::string_view storeID) const {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-saveAppointmentOutlookID", &run_.ExitProgram};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset links{linksOfStore(run_, storeID) + ";", LockCode::updatable};
        const auto isLinked = links.findFirstIfTold(table_.linkField, hostID);
        if (!isLinked || (!*isLinked && !links.addNew())) return;
        const bool isKnown = *isLinked;
        bool hasKeys = true;
        const auto put = [&](std::string_view field, std::string_view value) {
            return isKnown ? links.update(field, value) : links.set(field, value);
        };
        const auto putKey = [&](std::string_view field, std::string_view value) { hasKeys = put(field, value) && hasKeys; };
        putKey("DataFileID", run_.options.dataFileUniqueID);
        if (!isKnown) putKey(table_.linkField, toText(hostID));
        putKey("OutlookID", entryID);
        putKey("FolderStoreID", storeID);
        put("DateLastSync", toIsoText(now()));
        if (!isKnown && hasKeys) links.save();  // a link without one of them would never be found again
    });
}

}  // namespace wmoutlook

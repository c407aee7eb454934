#include "calendar/DeletionReconciliation.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions.h"
#include "hostdata/modDatabaseFunctions_Calendar.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "syncstore/LinkQuery.h"

#include <optional>
#include <string>

namespace wmoutlook {

using ValueHelper::isNullOrEmpty;

namespace {

bool isTasks(const CalendarTable& table) {
    return table.objects == outlookSyncObjectsEnum::syncTasks;
}

/// Nothing when it could not be told.
std::optional<bool> isInHost(const CalendarTable& table, std::int32_t hostID) {
    return isTasks(table) ? modDatabaseFunctions::validTaskIDIfTold(hostID)
                          : modDatabaseFunctions::validAppointmentIDIfTold(hostID);
}

void deleteInHost(const CalendarTable& table, std::int32_t hostID) {
    if (isTasks(table))
        modDatabaseFunctions::deleteTask(hostID, true, true, true);
    else
        modDatabaseFunctions::deleteAppointment(hostID, true);
}

/// The link of a contact has neither number; a link that could not be read passes for one.
bool isOfContact(const Recordset& link) {
    const auto appointmentNum = link.textIfRead(kAppointmentsTable.linkField);
    const auto taskNum = link.textIfRead(kTasksTable.linkField);
    return !appointmentNum || !taskNum || (isNullOrEmpty(*appointmentNum) && isNullOrEmpty(*taskNum));
}

}  // namespace

template <class Carry>
void DeletionReconciliation::walkLinks(std::string_view errorTag, std::string_view storeID, Carry carry) const {
    Routine routine{errorTag, &run_.ExitProgram};
    routine.run([&] {
        if (!run_.outlook.isConnected || !isDatabaseOpen()) return;
        Recordset links{linksOfStore(run_, storeID) + ";", LockCode::updatable};
        for (links.moveFirst(); !links.isAtEnd(); links.moveNext(), yieldTwice()) carry(links);
    });
}

void DeletionReconciliation::deleteMissingTallowbrookApptsInOutlook(std::string_view storeID) const {
    walkLinks("wmoutlooktb.dll-clsOutlookSynchronization-deleteMissingTallowbrookApptsInOutlook", storeID,
              [&](const Recordset& link) {
                  const std::int32_t hostID = link.number(table_.linkField, kNoRecord);
                  if (hostID == kNoRecord || isInHost(table_, hostID).value_or(true)) return;
                  const auto entryID = link.textIfRead("OutlookID");
                  if (!entryID) return;
                  // Errors are not ignored here: an item that Outlook does not give is a failure, and so is deleting nothing.
                  run_.outlook.nameSpace.getItemFromID(*entryID, storeID).remove();
                  yieldTwice();
                  link.deleteRecord();
              });
}

void DeletionReconciliation::deleteMissingOutlookApptsInTallowbrook(std::string_view storeID) const {
    walkLinks("wmoutlooktb.dll-clsOutlookSynchronization-deleteMissingOutlookApptsInTallowbrook", storeID,
              [&](const Recordset& link) {
                  const std::string entryID = link.text("OutlookID");
                  if (isNullOrEmpty(entryID) || isOfContact(link)) return;
                  if (run_.outlook.nameSpace.findItemFromID(entryID, storeID).isNothing()) return;
                  const auto number = link.textIfRead(kAppointmentsTable.linkField);
                  if (!number) return;
                  const std::int32_t hostID = statement([&] { return Variant{*number}.toInteger(); }, kNoRecord);
                  const auto isThere = isInHost(table_, hostID);
                  if (!isThere) return;
                  if (*isThere) {
                      const KeptPosition position{link};
                      deleteInHost(table_, hostID);
                  }
                  link.deleteRecord();
              });
}

}  // namespace wmoutlook

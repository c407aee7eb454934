#include "calendar/DeletionReconciliation.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions.h"
#include "hostdata/modDatabaseFunctions_Calendar.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "syncstore/LinkQuery.h"
#include "syncstore/TargetItem.h"

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

/// The AppointmentNum of a link that is to be followed. Nothing for the link of a contact, which has neither number, in a run of
/// appointments for that of a task too, and for one that could not be read.
std::optional<std::string> numberToFollow(const CalendarTable& table, const Recordset& link) {
    auto appointmentNum = link.textIfRead(kAppointmentsTable.linkField);
    if (!appointmentNum || !isNullOrEmpty(*appointmentNum)) return appointmentNum;
    if (!isTasks(table)) return std::nullopt;
    const auto taskNum = link.textIfRead(kTasksTable.linkField);
    return taskNum && !isNullOrEmpty(*taskNum) ? appointmentNum : std::nullopt;
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
                  const outlook::Item item = run_.outlook.nameSpace.getItemFromID(*entryID, storeID);
                  std::optional<bool> isOwn = true;
                  if (!item.isNothing())
                      statement([&] {
                          isOwn = isOfTypeIfTold(item, table_.itemType);
                          if (isOwn == false) throw OutlookError{-1, "A link leads to an item of another type, which stays"};
                      });
                  if (!isOwn) return;
                  // What could not be deleted is still there, and its link with it.
                  if (*isOwn && !item.remove() && !item.isNothing()) return;
                  yieldTwice();
                  link.deleteRecord();
              });
}

void DeletionReconciliation::deleteMissingOutlookApptsInTallowbrook(std::string_view storeID) const {
    walkLinks("wmoutlooktb.dll-clsOutlookSynchronization-deleteMissingOutlookApptsInTallowbrook", storeID,
              [&](const Recordset& link) {
                  const std::string entryID = link.text("OutlookID");
                  const auto number = numberToFollow(table_, link);
                  if (isNullOrEmpty(entryID) || !number) return;
                  if (run_.outlook.nameSpace.findItemFromID(entryID, storeID).isNothing()) return;
                  const std::int32_t hostID = statement([&] { return Variant{*number}.toInteger(); }, kNoRecord);
                  if (isInHost(table_, hostID).value_or(false)) {
                      const KeptPosition position{link};
                      deleteInHost(table_, hostID);
                  }
                  // Not while the row is, or may be, there, nor when the position could not be kept.
                  if (isInHost(table_, hostID) == false && !link.isAtEnd()) link.deleteRecord();
              });
}

}  // namespace wmoutlook

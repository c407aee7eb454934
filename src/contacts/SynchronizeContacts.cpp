#include "contacts/SynchronizeContacts.h"

#include "contacts/ContactWriter.h"
#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"
#include "syncstore/ContactLinks.h"
#include "syncstore/TargetItem.h"

#include <string>

namespace wmoutlook {

namespace {

/// The walk over the host's tables. The order of work is the tables', not the selection's, and a selected number that has no
/// row is dropped without a word.
class HostToOutlookWalk {
public:
    explicit HostToOutlookWalk(SyncRun& run) : run_(run), links_(run), writer_(run) {}

    void walk() {
        storeID_ = targetStore(run_, outlook::DefaultFolder::contacts);
        // Without a store there is no target: links would belong to none, and every item would be created once more.
        if (ValueHelper::isNullOrEmpty(storeID_)) return;
        walkCompanies();
        walkContacts();
    }

private:
    void walkCompanies() {
        walkRows(run_.companyCollection, "SELECT Companies.* FROM Companies;", "CompanyID", selection::kCompanyNum,
                 [&](std::int32_t companyID, const RecordList&) {
                     const auto linked = links_.getOutlookIDFromTallowbrookCompanyID(companyID, storeID_);
                     if (!linked) return;  // it could not be told: the next run makes up for it
                     const auto written = writer_.createNewTallowbrookCompanyInOutlook(companyID, *linked, storeID_);
                     if (written) links_.saveCompanyOutlookID(companyID, *written, storeID_);
                 });
    }

    void walkContacts() {
        walkRows(run_.contactCollection, "SELECT Contacts.* FROM Contacts;", "ContactID", selection::kContactNum,
                 [&](std::int32_t contactID, const RecordList& selected) {
                     const auto linked = links_.getOutlookIDFromTallowbrookContactID(contactID, storeID_);
                     if (!linked) return;
                     const std::int32_t companyID = companyOf(selected);
                     const auto written = writer_.createNewTallowbrookContactInOutlook(contactID, companyID, *linked, storeID_);
                     if (written) links_.saveContactOutlookID(contactID, *written, storeID_);
                 });
    }

    static std::int32_t companyOf(const RecordList& selected) {
        const Variant companyNum = selected.value(selection::kCompanyNum);
        if (ValueHelper::isNullOrEmpty(companyNum)) return kNoRecord;
        return statement([&] { return companyNum.toInteger(); }, kNoRecord);
    }

    /// The host may put another list into the public field, or none, whenever it gets a turn: each row asks the field.
    static std::shared_ptr<RecordList> present(const std::shared_ptr<RecordList>& list) {
        return statement([&] {
            if (!list) throw ObjectNotSet{"selection list"};
            return list;
        });
    }

    template <class Write>
    void walkRows(const std::shared_ptr<RecordList>& list, std::string_view query, std::string_view key, std::size_t column,
                  Write write) {
        const auto chosen = present(list);
        if (!chosen || chosen->isEmpty() || !isDatabaseOpen()) return;
        Recordset rows{query};
        if (!rows.hasRows()) return;
        for (rows.moveFirst(); !rows.isAtEnd(); rows.moveNext()) {
            const std::int32_t number = rows.number(key, kNoRecord);
            const auto selected = present(list);
            const bool isToWrite =
                number != kNoRecord && selected && selected->find(toText(number), column) != RecordList::kNotFound;
            if (isToWrite) write(number, *selected);
            if (run_.options.showProgress) stepProgress(run_.contactsProgress);  // the row counts, selected or not
            yieldTwice();
        }
    }

    SyncRun& run_;
    ContactLinks links_;
    ContactWriter writer_;
    std::string storeID_;
};

}  // namespace

void SynchronizeContacts(SyncRun& run) {
    Routine routine{"wmoutlooktb.dll-clsOutlookSynchronization-SynchronizeContacts", &run.ExitProgram};
    routine.run([&] {
        if (!run.outlook.isConnected) return;
        switch (run.options.syncDirectionType) {
            case outlookSyncTypeEnum::syncFromTallowbrookToOutlook: HostToOutlookWalk{run}.walk(); break;
            case outlookSyncTypeEnum::syncFromOutlookToTallowbrook:  // has no pass for contacts yet
            case outlookSyncTypeEnum::syncBothsWays: break;          // no direction wins, so neither side is touched
        }
    });
}

}  // namespace wmoutlook

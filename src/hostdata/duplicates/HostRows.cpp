#include "hostdata/duplicates/HostRows.h"

#include "platform/Routine.h"
#include "platform/ValueHelper.h"

namespace wmoutlook {

bool HostRow::truth(std::string_view field) const {
    const Variant value = database_.getField(handle_, field);
    return !ValueHelper::isNullOrEmpty(value) && value.toBoolean();
}

void forEachHostRow(HostDatabase& database, std::string_view sql, const std::function<void(const HostRow&)>& visit) {
    const RecordsetHandle rows = database.openRecordset(sql, LockCode::readOnly);
    try {
        for (; !database.isEndOfRecordset(rows); database.moveNext(rows)) visit(HostRow{database, rows});
    } catch (...) {
        quietly([&] { database.closeRecordset(rows); });  // the failure on its way is what matters
        throw;
    }
    statement([&] { database.closeRecordset(rows); });  // what was read stands, also when it cannot be closed
}

}  // namespace wmoutlook

#pragma once

#include "platform/Errors.h"
#include "platform/HostDatabase.h"

#include <string_view>

namespace wmoutlook {

/// A host's own look into its database, from the first row to the last: for (HostRows rows{...}; !rows.isAtEnd(); rows.next()).
/// Every operation throws DatabaseError when it fails.
class HostRows {
public:
    HostRows(HostDatabase& database, std::string_view sql)
        : database_(database), handle_(database.openRecordset(sql, LockCode::readOnly)) {
        database_.moveFirst(handle_);
    }
    ~HostRows() {
        try {
            database_.closeRecordset(handle_);
        } catch (const Failure&) {  // reading is over: nothing is lost
        }
    }
    HostRows(const HostRows&) = delete;
    HostRows& operator=(const HostRows&) = delete;

    [[nodiscard]] bool isAtEnd() const { return database_.isEndOfRecordset(handle_); }
    void next() { database_.moveNext(handle_); }
    [[nodiscard]] Variant field(std::string_view name) const { return database_.getField(handle_, name); }

private:
    HostDatabase& database_;
    RecordsetHandle handle_;
};

}  // namespace wmoutlook

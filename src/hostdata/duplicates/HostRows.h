#pragma once

#include "platform/HostDatabase.h"

#include <functional>
#include <string_view>

namespace wmoutlook {

/// One row of a walk.
class HostRow {
public:
    HostRow(HostDatabase& database, RecordsetHandle handle) : database_(database), handle_(handle) {}

    [[nodiscard]] std::int32_t number(std::string_view field) const { return database_.getField(handle_, field).toInteger(); }
    [[nodiscard]] std::string text(std::string_view field) const { return database_.getField(handle_, field).toText(); }
    [[nodiscard]] bool truth(std::string_view field) const;  ///< false for a blank value

private:
    HostDatabase& database_;
    RecordsetHandle handle_;
};

/// Walks all rows of a query. Throws when any row cannot be read, so that a part is never taken for the whole: the walk is one
/// statement for whoever calls it, unlike that of a Recordset, which passes over what it cannot read. The rows are closed
/// whatever happens.
void forEachHostRow(HostDatabase& database, std::string_view sql, const std::function<void(const HostRow&)>& visit);

}  // namespace wmoutlook

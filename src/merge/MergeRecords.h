#pragma once

#include "hostdata/Recordset.h"
#include "merge/FieldList.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook::merge {

/// The records of a merge by their numbers in the host, -1 for none.
struct MergeRecordIDs {
    std::int32_t companyID = kNoRecord;
    std::int32_t contactID = kNoRecord;
    std::int32_t firmID = kNoRecord;
    std::int32_t userID = kNoRecord;
    std::int32_t AppointmentID = kNoRecord;
    std::int32_t docketId = kNoRecord;
    std::int32_t taskID = kNoRecord;
};

/// The recordsets of one merge, one for each source of fields. Works within the routine that is running.
class MergeRecords {
public:
    enum class Extent { oneRecord, wholeTable };

    /// Opens those that a merge of single records needs, from the numbers that are set. All were closed before.
    void openForMerge(const MergeRecordIDs& ids, LockCode lock);
    /// Opens one, unless it is open already.
    void openIfClosed(SourceKind source, std::int32_t id, Extent extent, LockCode lock);
    void open(SourceKind source, std::string_view sql, LockCode lock);
    void close(SourceKind source);
    void closeAll();

    /// Null when it is not open.
    [[nodiscard]] const Recordset* of(SourceKind source) const;
    /// Makes the record with this number current, by the column that identifies records of this source.
    [[nodiscard]] bool locate(SourceKind source, std::int32_t id) const;

    [[nodiscard]] static std::int32_t idOf(SourceKind source, const MergeRecordIDs& ids);

private:
    static constexpr std::size_t kSources = static_cast<std::size_t>(SourceKind::docket) + 1;

    void openTask(std::int32_t taskID, LockCode lock);
    void close(std::optional<Recordset>& recordset);

    std::array<std::optional<Recordset>, kSources> recordsets_;
    std::optional<Recordset> employee_;
};

}  // namespace wmoutlook::merge

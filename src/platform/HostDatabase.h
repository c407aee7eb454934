#pragma once

#include "platform/Date.h"
#include "platform/Variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

using RecordsetHandle = std::int32_t;
using RecordMarker = std::int32_t;

inline constexpr RecordsetHandle kNoRecordset = -1;

/// The lock codes of the host's database library; its cursor code is always 1.
enum class LockCode : std::int32_t { readOnly = 1, updatable = 3 };

/// The host's database. A *recordset* is an opened SQL text, known by its handle; one of its rows is *current*. The
/// operations stand in the order of the host's library; what every caller passes empty or as -1 there is left out here.
///
/// A recordset is a stable set of rows in a stable order: rows that others add later are not in it; a deleted row is
/// passed over. After opening, the first row is current. One thread. Every operation throws DatabaseError when it fails, a
/// handle that is not open included; the rows are then as they were.
class HostDatabase {
public:
    virtual ~HostDatabase() = default;

    [[nodiscard]] virtual std::int32_t recordCount(RecordsetHandle handle) = 0;
    [[nodiscard]] virtual bool hasRows(RecordsetHandle handle) = 0;
    [[nodiscard]] virtual bool isRecordsetOpen(RecordsetHandle handle) = 0;  ///< false for a handle that never was
    [[nodiscard]] virtual bool isEndOfRecordset(RecordsetHandle handle) = 0;
    [[nodiscard]] virtual bool isDatabaseOpen() = 0;
    virtual void closeDatabase() = 0;  ///< closes its recordsets too

    /// One SELECT; anything else, and anything behind its semicolon, is refused. Opening reads no row.
    [[nodiscard]] virtual RecordsetHandle openRecordset(std::string_view sql, LockCode lock) = 0;
    virtual void closeRecordset(RecordsetHandle handle) = 0;

    [[nodiscard]] virtual RecordMarker saveRecordPosition(RecordsetHandle handle) = 0;
    virtual void restoreRecordPosition(RecordsetHandle handle, RecordMarker marker) = 0;
    virtual bool moveFirst(RecordsetHandle handle) = 0;  ///< true when a row exists
    virtual void moveNext(RecordsetHandle handle) = 0;   ///< at the end it stays there

    /// The current row's value, in the kind of the column's declared type. While a row is being added: of that row, its
    /// auto-number included.
    [[nodiscard]] virtual Variant getField(RecordsetHandle handle, std::string_view field) = 0;
    /// Changes one field of the current row and stores it at once. The text is converted to the column's type; an empty
    /// text clears a number or date. A text that does not convert or fit is an error, and the row keeps its value.
    virtual void updateField(RecordsetHandle handle, std::string_view field, std::string_view value) = 0;
    virtual void deleteRecord(RecordsetHandle handle) = 0;  ///< moveNext then goes on behind the deleted row

    virtual void addNewRecord(RecordsetHandle handle) = 0;
    virtual void setNewField(RecordsetHandle handle, std::string_view field, std::string_view value) = 0;
    virtual void saveNewRecord(RecordsetHandle handle) = 0;  ///< the new row is in the set and current

    /// From the start of the set: the first row whose field has this value, both in the field's type. Texts compare as their
    /// column is declared: names without regard to case, identifiers to the letter. False, and noMatch true, when there is
    /// none; the current row then stays.
    virtual bool findFirst(RecordsetHandle handle, std::string_view field, std::string_view value) = 0;
    virtual bool findNext(RecordsetHandle handle) = 0;  ///< the next match of the same search, behind the current row
    [[nodiscard]] virtual bool noMatch(RecordsetHandle handle) = 0;  ///< the last search found nothing; false before any search
    /// Field tests (=, <>, <, <=, >, >=, with a literal) joined by AND; the first row for which all hold.
    virtual bool findByCriteria(RecordsetHandle handle, std::string_view criteria) = 0;

    [[nodiscard]] virtual std::string formatDateForSql(Date date) const = 0;             ///< to be put between # marks
    [[nodiscard]] virtual std::string quoteTextForSql(std::string_view text) const = 0;  ///< a complete quoted literal

    /// A second object of the same type on a local file, as the retirement of a legacy store needs it. The access text is
    /// what LocaleService::localStoreAccessText gives. The object is not open when the file cannot be opened.
    [[nodiscard]] virtual std::shared_ptr<HostDatabase> openLocalStore(const std::string& path, std::string_view accessText) = 0;
};

}  // namespace wmoutlook

#pragma once

#include "adapters/sql/Criteria.h"
#include "adapters/sql/MemoryIndex.h"
#include "adapters/sql/Plan.h"
#include "adapters/sql/RowBuffer.h"
#include "adapters/sql/Shape.h"

#include "platform/HostDatabase.h"

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::sql {

class RowSet;

/// Stands for the key of a row that an outer join has left out; below all keys, as null is.
inline constexpr std::int64_t kNoKey = std::numeric_limits<std::int64_t>::min();

/// What recordsets of one database have in common; it tells them of what one of them has written.
class RowSetObserver {
public:
    virtual ~RowSetObserver() = default;
    [[nodiscard]] virtual std::uint64_t operation() const = 0;  ///< the number of the operation that is going on
    virtual void beforeChange(const Table& table) = 0;
    virtual void rowAdded(const RowSet& by, const Table& table, std::int64_t key) = 0;
    virtual void fieldChanged(const Field& field, std::int64_t key, const Cell& value) = 0;
};

/// One open recordset.
///
/// It reads as little as its caller needs: opening nothing, a single look the first row, a search the row that the engine finds
/// by a key. Only a walk *fixes* the set, which reads the keys of all its rows in order (not the rows: memory does not grow
/// with their width); from then on it is a list of keys, and each row is read when it becomes current. Until then the set keeps
/// in mind which rows came later, so that they stay out of it.
class RowSet {
public:
    void open(std::string_view sql, LockCode lock);  ///< reads the text; the plan for shape() has to follow
    void use(std::shared_ptr<Plan> plan, Driver& driver, RowSetObserver& observer);
    void close();
    [[nodiscard]] const Shape& shape() const { return shape_; }

    [[nodiscard]] std::int32_t count();
    [[nodiscard]] bool hasRows();
    [[nodiscard]] bool isAtEnd();
    [[nodiscard]] RecordMarker savePosition();
    void restorePosition(RecordMarker marker);
    bool moveFirst();
    void moveNext();

    [[nodiscard]] Variant field(std::string_view name);
    void update(std::string_view name, std::string_view value);
    void remove();
    void beginNew();
    void setNew(std::string_view name, std::string_view value);
    void saveNew();

    bool findFirst(std::string_view name, std::string_view value);
    bool findByCriteria(std::string_view criteria);
    bool findNext();
    [[nodiscard]] bool noMatch() const { return noMatch_; }

    void noteComingChange(const Table& table);
    void noteAdded(const Table& table, std::int64_t key);
    void noteChanged(const Field& field, std::int64_t key, const Cell& value);

private:
    using Key = std::span<const std::int64_t>;

    enum class State : std::uint8_t {
        unread,   ///< the first row is current, but nobody has looked at it
        onRow,    ///< on a row that was there when it was read
        deleted,  ///< on a row that has gone
        atEnd
    };

    struct Position {
        State state = State::unread;
        std::size_t index = kNone;  ///< where in the fixed set; kNone while it is not fixed
        std::size_t next = kNone;   ///< where moveNext goes on
    };

    struct Marker {
        Position position;
        std::vector<std::int64_t> key;
    };

    struct NewValue {
        std::size_t field;
        Cell cell;
        std::string text;  ///< of a text cell

        [[nodiscard]] Cell bound() const { return cell.kind == Cell::Kind::text ? Cell::of(std::string_view{text}) : cell; }
    };

    // RowSet.cpp: position and rows
    void readFirst();
    void settle();  ///< after it there is a position, not merely the promise of one
    void seek(std::size_t index);
    [[nodiscard]] bool load(std::size_t index);
    [[nodiscard]] bool loadCurrent();
    [[nodiscard]] bool readRow(Key key);
    void takeRow(const Statement& statement);
    void readKey(const Statement& statement, std::vector<std::int64_t>& key) const;
    void requirePosition(std::string_view operation, std::string_view name);
    void requireRow(std::string_view operation, std::string_view name);

    // RowSetKeys.cpp: the fixed set
    void fix();
    void fixKeys();
    void fixRows();
    void locate();
    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] Key keyAt(std::size_t index) const;
    [[nodiscard]] std::size_t lowerBound(Key key) const;
    [[nodiscard]] std::size_t indexOf(Key key);
    void insertOwn(std::int64_t key);

    // RowSetSearch.cpp
    bool search(bool isNext);
    bool searchEngine(bool isNext);
    void bindSearch(Statement& statement) const;
    [[nodiscard]] bool isInSet(std::size_t& index);
    template <class NextPlace>
    bool tryPlaces(NextPlace nextPlace);
    [[nodiscard]] bool standsOnMatch(std::size_t index);
    void goBack(const Marker& former);
    bool searchIndex(bool isNext);
    bool searchRows(bool isNext);
    [[nodiscard]] bool currentPasses() const;
    MemoryIndex& indexOn(std::size_t field);

    // RowSetEdit.cpp
    void requireUpdatable(std::string_view operation, std::string_view name) const;
    [[nodiscard]] std::size_t requireStored(std::string_view operation, std::string_view name) const;
    void requireSingleTable(std::string_view operation) const;
    [[nodiscard]] bool isStoredAlready(std::size_t field, const Cell& value);
    [[noreturn]] void failAsVanished(std::string_view operation, std::string_view table);
    [[nodiscard]] Variant newField(std::size_t index);
    [[nodiscard]] NewValue& newValue(std::size_t field);

    Shape shape_;
    LockCode lock_ = LockCode::readOnly;
    std::shared_ptr<Plan> plan_;
    Driver* driver_ = nullptr;
    RowSetObserver* observer_ = nullptr;

    Position position_;
    std::vector<std::int64_t> key_;  ///< of the current row; one per source
    std::vector<std::int64_t> candidate_;
    RowBuffer row_;
    std::uint64_t rowVersion_ = 0;
    std::uint64_t readAt_ = 0;  ///< the operation that read the row, or left it alone since
    bool isRowRead_ = false;

    bool isFixed_ = false;
    std::uint64_t fixedVersion_ = 0;
    std::vector<std::int64_t> keys_;      ///< of all rows, in order, keyCount() each
    std::vector<std::uint32_t> byKey_;    ///< indexes in the order of keys, for sets that are in another
    std::vector<RowBuffer> wholeRows_;    ///< of a plan without keys
    std::vector<std::int64_t> excluded_;  ///< rows that came later, while the set is not fixed
    std::vector<std::int64_t> own_;       ///< rows added here meanwhile: they are in the set, at its end
    std::vector<Marker> markers_;

    Criteria criteria_;
    bool noMatch_ = false;
    std::size_t scannedField_ = kNone;  ///< a field without a key that was searched before
    std::map<std::size_t, MemoryIndex> indexes_;

    bool isAdding_ = false;
    std::vector<NewValue> newValues_;
    std::vector<std::size_t> newFields_;
};

}  // namespace wmoutlook::sql

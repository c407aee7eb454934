#include "adapters/sql/RowSet.h"

#include "adapters/sql/Faults.h"

#include <algorithm>

namespace wmoutlook::sql {

void RowSet::open(std::string_view sql, LockCode lock) {
    shape_.read(sql);
    lock_ = lock;
}

void RowSet::use(std::shared_ptr<Plan> plan, Driver& driver, RowSetObserver& observer) {
    plan_ = std::move(plan);
    driver_ = &driver;
    observer_ = &observer;
}

/// Memory that a small set has taken is kept for the next one.
void RowSet::close() {
    constexpr std::size_t kMuch = 4096;
    if (keys_.capacity() > kMuch) keys_ = {};
    if (byKey_.capacity() > kMuch) byKey_ = {};
    if (wholeRows_.capacity() > 0) wholeRows_ = {};
    keys_.clear();
    byKey_.clear();
    excluded_.clear();
    own_.clear();
    markers_.clear();
    indexes_.clear();
    newValues_.clear();
    criteria_.clear();
    plan_.reset();
    position_ = {};
    isFixed_ = isRowRead_ = noMatch_ = isAdding_ = false;
    scannedField_ = kNone;
}

std::int32_t RowSet::count() {
    settle();
    fix();
    if (!plan_->isKeyed() || fixedVersion_ == plan_->version()) return static_cast<std::int32_t>(size());
    std::int32_t count = 0;
    for (std::size_t i = 0; i < size(); ++i) {
        Run exists{plan_->exists(0)};
        exists->bind(1, Cell::of(keyAt(i)[0]));
        count += exists->step() ? 1 : 0;
    }
    return count;
}

bool RowSet::hasRows() {
    settle();
    if (position_.state == State::onRow) return true;
    fix();
    if (!plan_->isKeyed()) return !wholeRows_.empty();
    for (std::size_t i = 0; i < size(); ++i) {
        Run exists{plan_->exists(0)};
        exists->bind(1, Cell::of(keyAt(i)[0]));
        if (exists->step()) return true;
    }
    return false;
}

bool RowSet::isAtEnd() {
    settle();
    return position_.state == State::atEnd;
}

RecordMarker RowSet::savePosition() {
    settle();
    const bool isSame = !markers_.empty() && markers_.back().position.state == position_.state &&
                        markers_.back().position.index == position_.index && markers_.back().key == key_;
    if (!isSame) markers_.push_back({position_, key_});
    return static_cast<RecordMarker>(markers_.size());
}

/// The remembered row may have been deleted meanwhile; the set then stands where it was, and moveNext goes on behind it.
void RowSet::restorePosition(RecordMarker marker) {
    if (marker < 1 || static_cast<std::size_t>(marker) > markers_.size())
        fail(Fault::notFound, "The record marker is not of this recordset");
    const Marker& saved = markers_[static_cast<std::size_t>(marker) - 1];
    isAdding_ = false;
    position_ = saved.position;
    key_ = saved.key;
    isRowRead_ = false;
    if (isFixed_ && position_.index == kNone && position_.state != State::atEnd) locate();
    if (position_.state == State::onRow && !loadCurrent()) position_.state = State::deleted;
}

bool RowSet::moveFirst() {
    isAdding_ = false;
    if (isFixed_)
        seek(0);
    else
        readFirst();
    return position_.state == State::onRow;
}

void RowSet::moveNext() {
    settle();
    isAdding_ = false;
    if (position_.state == State::atEnd) return;
    fix();
    seek(position_.next);
}

void RowSet::settle() {
    if (position_.state == State::unread) readFirst();
}

/// A set of one row, which is what most look-ups open, is known whole after this one reading.
void RowSet::readFirst() {
    const bool isSingleLook = plan_->isInKeyOrder() && own_.empty();
    if (!isSingleLook) {
        fix();
        seek(0);
        return;
    }
    position_ = {};  // until the reading has gone through nobody has looked
    isRowRead_ = false;
    bool isFound = false;
    bool hasMore = false;
    {
        Run rows{plan_->rows()};
        plan_->bind(*rows, shape_.literals());
        while (rows->step()) {
            const std::int64_t key = rows->cell(static_cast<int>(plan_->fields().size())).integer;
            if (plan_->keyCount() == 1 && std::binary_search(excluded_.begin(), excluded_.end(), key)) continue;
            hasMore = isFound;
            if (hasMore) break;
            takeRow(*rows);
            isFound = true;
        }
    }
    position_ = {isFound ? State::onRow : State::atEnd, kNone, kNone};
    if (hasMore) return;
    isFixed_ = true;
    fixedVersion_ = plan_->version();
    if (position_.state == State::onRow) {
        keys_ = key_;
        position_ = {State::onRow, 0, 1};
    }
}

/// The first row at or behind the index that is still there.
void RowSet::seek(std::size_t index) {
    for (; index < size(); ++index) {
        if (!load(index)) continue;
        position_ = {State::onRow, index, index + 1};
        return;
    }
    position_ = {State::atEnd, kNone, kNone};
}

bool RowSet::load(std::size_t index) {
    if (!plan_->isKeyed()) {
        row_ = wholeRows_[index];
        isRowRead_ = true;
        return true;
    }
    const Key key = keyAt(index);
    if (!readRow(key)) return false;
    key_.assign(key.begin(), key.end());
    return true;
}

/// Reads the row with the current key; false when it has gone.
bool RowSet::loadCurrent() {
    return plan_->isKeyed() ? readRow(key_) : load(position_.index);
}

/// The row with this key. One that cannot be read, or has gone, leaves the set where it was, to be read again when it is wanted.
bool RowSet::readRow(Key key) {
    isRowRead_ = false;
    const std::uint64_t version = plan_->version();
    Run row{plan_->rowByKeys()};
    plan_->bind(*row, shape_.literals());
    for (std::size_t i = 0; i < key.size(); ++i)
        row->bind(static_cast<int>(plan_->literalCount() + i + 1), key[i] == kNoKey ? Cell{} : Cell::of(key[i]));
    if (!row->step()) return false;
    row_.read(*row, plan_->fields().size());
    rowVersion_ = version;
    readAt_ = observer_->operation();
    isRowRead_ = true;
    return true;
}

/// Takes the row of a statement that gives the fields and the keys behind them.
void RowSet::takeRow(const Statement& statement) {
    row_.read(statement, plan_->fields().size());
    readKey(statement, key_);
    rowVersion_ = plan_->version();
    readAt_ = observer_->operation();
    isRowRead_ = true;
}

void RowSet::readKey(const Statement& statement, std::vector<std::int64_t>& key) const {
    key.clear();
    for (std::size_t i = 0; i < plan_->keyCount(); ++i) {
        const Cell cell = statement.cell(static_cast<int>(plan_->fields().size() + i));
        key.push_back(cell.isNull() ? kNoKey : cell.integer);
    }
}

void RowSet::requirePosition(std::string_view operation, std::string_view name) {
    settle();
    if (position_.state == State::onRow) return;
    const bool isDeleted = position_.state == State::deleted;
    const std::string what = std::string{operation} + (name.empty() ? "" : " \"" + std::string{name} + "\"");
    fail(Fault::notFound, what + (isDeleted ? ": the current row has been deleted" : ": there is no current row"));
}

/// Values that were read before a table was written to are read anew: a nested call may have changed them.
void RowSet::requireRow(std::string_view operation, std::string_view name) {
    requirePosition(operation, name);
    const bool isOld = plan_->isKeyed() && (!isRowRead_ || rowVersion_ != plan_->version());
    if (!isOld || loadCurrent()) return;
    position_.state = State::deleted;
    requirePosition(operation, name);
}

Variant RowSet::field(std::string_view name) {
    const std::size_t index = requireField(*plan_, name);
    if (isAdding_) return newField(index);
    requireRow("getField", name);
    const Field& field = plan_->fields()[index];
    return toVariant(row_.cell(index), field.type, field.label());
}

}  // namespace wmoutlook::sql

#include "adapters/sql/RowSet.h"

#include <algorithm>
#include <numeric>

namespace wmoutlook::sql {

void RowSet::fix() {
    if (isFixed_) return;
    if (plan_->isKeyed())
        fixKeys();
    else
        fixRows();
    isFixed_ = true;
    fixedVersion_ = plan_->version();
    if (position_.state == State::onRow || position_.state == State::deleted) locate();
}

void RowSet::fixKeys() {
    keys_.clear();
    const std::size_t count = plan_->keyCount();
    Run keys{plan_->keys()};
    plan_->bind(*keys, shape_.literals());
    while (keys->step()) {
        if (count == 1 && std::binary_search(excluded_.begin(), excluded_.end(), keys->cell(0).integer)) continue;
        for (std::size_t i = 0; i < count; ++i) {
            const Cell key = keys->cell(static_cast<int>(i));
            keys_.push_back(key.isNull() ? kNoKey : key.integer);
        }
    }
    keys_.insert(keys_.end(), own_.begin(), own_.end());
    if (!own_.empty() && plan_->isInKeyOrder()) std::sort(keys_.begin(), keys_.end());
    own_.clear();
    excluded_.clear();
}

void RowSet::fixRows() {
    wholeRows_.clear();
    Run rows{plan_->rows()};
    plan_->bind(*rows, shape_.literals());
    while (rows->step()) wholeRows_.emplace_back().read(*rows, plan_->fields().size());
}

/// Finds the current key's place. A row that has gone has none: then only the place behind it is known.
void RowSet::locate() {
    position_.index = indexOf(key_);
    if (position_.index != kNone)
        position_.next = position_.index + 1;
    else
        position_.next = plan_->isInKeyOrder() ? lowerBound(key_) : size();
}

std::size_t RowSet::size() const {
    return plan_->isKeyed() ? keys_.size() / plan_->keyCount() : wholeRows_.size();
}

RowSet::Key RowSet::keyAt(std::size_t index) const {
    const std::size_t count = plan_->keyCount();
    return Key{keys_}.subspan(index * count, count);
}

/// The first index whose key is not below this one, in a set in the order of its keys.
std::size_t RowSet::lowerBound(Key key) const {
    std::size_t low = 0;
    std::size_t high = size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        const Key there = keyAt(middle);
        if (std::lexicographical_compare(there.begin(), there.end(), key.begin(), key.end()))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::size_t RowSet::indexOf(Key key) {
    const auto isBelow = [](Key left, Key right) {
        return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
    };
    std::size_t index = size();
    if (plan_->isInKeyOrder()) {
        index = lowerBound(key);
    } else {
        if (byKey_.size() != size()) {
            byKey_.resize(size());
            std::iota(byKey_.begin(), byKey_.end(), 0U);
            std::sort(byKey_.begin(), byKey_.end(), [&](auto left, auto right) { return isBelow(keyAt(left), keyAt(right)); });
        }
        const auto place = std::lower_bound(byKey_.begin(), byKey_.end(), key,
                                            [&](std::uint32_t known, Key sought) { return isBelow(keyAt(known), sought); });
        if (place != byKey_.end()) index = *place;
    }
    if (index >= size() || !std::equal(key.begin(), key.end(), keyAt(index).begin())) return kNone;
    return index;
}

/// A row that was added here is in the set, at its end; numbers are given out in rising order, so that is its place by key, too.
void RowSet::insertOwn(std::int64_t key) {
    key_.assign(1, key);
    isRowRead_ = false;
    if (isFixed_) {
        const bool isLast = !plan_->isInKeyOrder() || keys_.empty() || keys_.back() < key;
        const std::size_t index = isLast ? keys_.size() : lowerBound(key_);
        keys_.insert(keys_.begin() + static_cast<std::ptrdiff_t>(index), key);
        if (!isLast) indexes_.clear();  // what stood behind has moved
        position_ = {State::onRow, index, index + 1};
        return;
    }
    position_ = {State::onRow, kNone, kNone};
    if (plan_->isWholeTable()) return;  // the engine finds it where it belongs
    own_.push_back(key);
    noteAdded(*plan_->sources()[0].table, key);
}

/// In an order of its own, nothing tells afterwards where a row stood that is deleted or sorted anew.
void RowSet::noteComingChange(const Table& table) {
    if (isFixed_ || position_.state == State::unread || !plan_->isKeyed() || plan_->isInKeyOrder()) return;
    const auto& sources = plan_->sources();
    if (std::any_of(sources.begin(), sources.end(), [&](const Plan::Source& source) { return source.table == &table; })) fix();
}

/// Rows that come later are not in the set. Once it is fixed they cannot slip in.
void RowSet::noteAdded(const Table& table, std::int64_t key) {
    if (isFixed_ || !plan_->isKeyed() || plan_->keyCount() != 1 || plan_->sources()[0].table != &table) return;
    excluded_.insert(std::upper_bound(excluded_.begin(), excluded_.end(), key), key);
}

}  // namespace wmoutlook::sql

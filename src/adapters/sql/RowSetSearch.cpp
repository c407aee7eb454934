#include "adapters/sql/RowSet.h"

#include "adapters/sql/Faults.h"

#include <algorithm>

namespace wmoutlook::sql {

bool RowSet::findFirst(std::string_view name, std::string_view value) {
    isAdding_ = false;
    criteria_.clear();
    criteria_.add(*plan_, {requireField(*plan_, name), "="}, value);
    return search(false);
}

bool RowSet::findByCriteria(std::string_view criteria) {
    isAdding_ = false;
    readCriteria(criteria, *plan_, criteria_);
    return search(false);
}

bool RowSet::findNext() {
    if (criteria_.conditions.empty()) fail(Fault::notFound, "findNext: there is no search to go on with");
    isAdding_ = false;
    settle();
    if (position_.state == State::atEnd) return !(noMatch_ = true);
    return search(true);
}

/// Where the engine has no key to go by, a single search may look at each row; from the second one on an index pays.
bool RowSet::search(bool isNext) {
    noMatch_ = false;  // a search that fails has not shown that there is nothing
    if (criteria_.isImpossible) return !(noMatch_ = true);
    const auto isOfTable = [&](const Condition& condition) { return plan_->fields()[condition.field].source != kNone; };
    const bool canEngine = plan_->isKeyed() && std::all_of(criteria_.conditions.begin(), criteria_.conditions.end(), isOfTable);
    const std::size_t field = criteria_.conditions.front().field;
    const bool isIndexed = criteria_.conditions.size() == 1 && criteria_.conditions.front().comparison == "=" &&
                           (scannedField_ == field || indexes_.contains(field));
    bool isFound = false;
    if (!canEngine)
        isFound = searchRows(isNext);
    else
        isFound = isIndexed ? searchIndex(isNext) : searchEngine(isNext);
    noMatch_ = !isFound;
    return isFound;
}

void RowSet::bindSearch(Statement& statement) const {
    plan_->bind(statement, shape_.literals());
    for (std::size_t i = 0; i < criteria_.values.size(); ++i)
        statement.bind(static_cast<int>(plan_->literalCount() + i + 1), criteria_.values[i]);
}

bool RowSet::searchEngine(bool isNext) {
    const bool isBehindKey = isNext && plan_->isInKeyOrder() && plan_->keyCount() == 1;
    if (!own_.empty() || (isNext && !isBehindKey)) fix();
    Search& search = plan_->search(criteria_.conditions, isBehindKey);
    if (!search.isByKey && !isNext) scannedField_ = criteria_.conditions.front().field;

    std::size_t best = kNone;
    {
        Run rows{*search.statement};
        bindSearch(*rows);
        if (isBehindKey) rows->bind(static_cast<int>(plan_->literalCount() + criteria_.values.size() + 1), Cell::of(key_[0]));
        while (rows->step()) {
            readKey(*rows, candidate_);
            std::size_t index = kNone;
            if (!isInSet(index) || (isNext && isFixed_ && index < position_.next)) continue;
            if (!isFixed_ || plan_->isInKeyOrder()) {
                takeRow(*rows);
                position_ = {State::onRow, index, isFixed_ ? index + 1 : kNone};
                return true;
            }
            best = std::min(best, index);  // the engine's order may have changed since the set was fixed
        }
    }
    if (best == kNone || !load(best)) return false;
    position_ = {State::onRow, best, best + 1};
    return true;
}

/// Whether the row with the candidate's key belongs to the set; in a fixed one, where.
bool RowSet::isInSet(std::size_t& index) {
    if (!isFixed_) return plan_->keyCount() != 1 || !std::binary_search(excluded_.begin(), excluded_.end(), candidate_[0]);
    index = indexOf(candidate_);
    return index != kNone;
}

bool RowSet::currentPasses() const {
    for (std::size_t i = 0; i < criteria_.conditions.size(); ++i) {
        const Condition& condition = criteria_.conditions[i];
        if (!passes(plan_->fields()[condition.field], row_.cell(condition.field), condition.comparison, criteria_.values[i]))
            return false;
    }
    return true;
}

/// Stands on the first of the places that holds a match. Without one, or when a row cannot be read, the set stands where it was.
template <class NextPlace>
bool RowSet::tryPlaces(NextPlace nextPlace) {
    const Marker former{position_, key_};
    try {
        for (std::size_t place = nextPlace(); place != kNone; place = nextPlace())
            if (standsOnMatch(place)) return true;
    } catch (...) {
        goBack(former);
        throw;
    }
    goBack(former);
    return false;
}

bool RowSet::searchIndex(bool isNext) {
    fix();
    const MemoryIndex& index = indexOn(criteria_.conditions.front().field);
    return tryPlaces([&, place = std::size_t{0}, from = isNext ? position_.next : 0]() mutable {
        const bool isCandidate = index.next(criteria_.values.front(), from, place);
        from = place + 1;
        return isCandidate ? place : kNone;
    });
}

/// For results that the engine cannot search again: grouped ones, and computed fields.
bool RowSet::searchRows(bool isNext) {
    fix();
    return tryPlaces([&, place = isNext ? position_.next : 0]() mutable { return place < size() ? place++ : kNone; });
}

bool RowSet::standsOnMatch(std::size_t index) {
    if (!load(index) || !currentPasses()) return false;
    position_ = {State::onRow, index, index + 1};
    return true;
}

void RowSet::goBack(const Marker& former) {
    position_ = former.position;
    key_ = former.key;
    isRowRead_ = false;
    if (!plan_->isKeyed() && position_.state == State::onRow) isRowRead_ = load(position_.index);
}

MemoryIndex& RowSet::indexOn(std::size_t field) {
    const auto known = indexes_.find(field);
    if (known != indexes_.end()) return known->second;
    MemoryIndex index;  // kept when it is whole: half of one would miss rows
    Run rows{plan_->rows()};
    plan_->bind(*rows, shape_.literals());
    while (rows->step()) {
        readKey(*rows, candidate_);
        const std::size_t place = indexOf(candidate_);
        if (place != kNone) index.add(rows->cell(static_cast<int>(field)), place);
    }
    return indexes_[field] = std::move(index);
}

void RowSet::noteChanged(const Field& field, std::int64_t key, const Cell& value) {
    for (auto& [indexed, index] : indexes_) {
        const Field& own = plan_->fields()[indexed];
        if (own.table != field.table || own.column != field.column) continue;
        if (plan_->keyCount() > 1) {
            indexes_.clear();  // one row of a table may stand in many rows of a join
            return;
        }
        candidate_.assign(1, key);
        const std::size_t place = indexOf(candidate_);
        if (place != kNone) index.add(value, place);
    }
}

}  // namespace wmoutlook::sql

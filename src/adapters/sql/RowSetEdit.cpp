#include "adapters/sql/RowSet.h"

#include "adapters/sql/Faults.h"

#include <algorithm>

namespace wmoutlook::sql {

namespace {

std::string about(std::string_view operation, std::string_view name) {
    return std::string{operation} + (name.empty() ? "" : " \"" + std::string{name} + "\"") + ": ";
}

}  // namespace

void RowSet::requireUpdatable(std::string_view operation, std::string_view name) const {
    if (lock_ == LockCode::readOnly) fail(Fault::readOnly, about(operation, name) + "the recordset was opened for reading only");
    if (!plan_->isKeyed())
        fail(Fault::readOnly, about(operation, name) + "rows of a grouped or computed result cannot be changed");
}

std::size_t RowSet::requireStored(std::string_view operation, std::string_view name) const {
    const std::size_t index = requireField(*plan_, name);
    const Field& field = plan_->fields()[index];
    if (field.source == kNone)
        fail(Fault::readOnly, about(operation, name) + "the field is computed, or its table stands in the text twice");
    if (field.isAutoNumber) fail(Fault::readOnly, about(operation, name) + "the number is given by the database");
    return index;
}

void RowSet::requireSingleTable(std::string_view operation) const {
    if (plan_->keyCount() != 1) fail(Fault::readOnly, about(operation, {}) + "the rows are joined from several tables");
}

void RowSet::failAsVanished(std::string_view operation, std::string_view table) {
    position_.state = State::deleted;
    fail(Fault::notFound, about(operation, {}) + "the row of the table \"" + std::string{table} + "\" has been deleted");
}

void RowSet::update(std::string_view name, std::string_view value) {
    requireUpdatable("updateField", name);
    const std::size_t index = requireStored("updateField", name);
    const Field& field = plan_->fields()[index];
    if (isAdding_) fail(Fault::notOpen, about("updateField", name) + "a new row is being added");
    requirePosition("updateField", name);
    const std::int64_t key = key_[field.source];
    if (key == kNoKey) fail(Fault::notFound, about("updateField", name) + "the joined row has no part in this table");

    const Cell cell = toStored(value, field.type, field.label());
    if (isStoredAlready(index, cell)) return;
    observer_->beforeChange(*plan_->sources()[field.source].table);
    {
        Run change{plan_->update(index)};
        change->bind(1, cell);
        change->bind(2, Cell::of(key));
        change->step();
    }
    if (driver_->changedRows() > 0) {
        ++plan_->sources()[field.source].table->version;
        observer_->fieldChanged(field, key, cell);
        return;
    }
    Run exists{plan_->exists(field.source)};  // a row that has gone is not passed over
    exists->bind(1, Cell::of(key));
    if (!exists->step()) failAsVanished("updateField", field.table);
}

/// Callers write whole rows, most of whose values are there already; even a write that changes nothing costs as much as several
/// reads. What the operation just before has read counts as stored, anything older is read again.
bool RowSet::isStoredAlready(std::size_t field, const Cell& value) {
    const auto isEqual = [&] {
        const Cell stored = row_.cell(field);
        if (stored.isNull() || value.isNull()) return stored.isNull() && value.isNull();
        const bool isText = stored.kind == Cell::Kind::text;
        if (isText != (value.kind == Cell::Kind::text)) return false;
        return isText ? stored.text == value.text : stored.number() == value.number();
    };
    if (!isRowRead_ || !isEqual()) return false;
    const bool isFresh = rowVersion_ == plan_->version() && readAt_ + 1 >= observer_->operation() && !driver_->isViewOld();
    if (!isFresh) driver_->endSharedReads();
    if (!isFresh && !loadCurrent()) failAsVanished("updateField", plan_->fields()[field].table);
    readAt_ = observer_->operation();
    return isFresh || isEqual();
}

void RowSet::remove() {
    requireUpdatable("deleteRecord", {});
    requireSingleTable("deleteRecord");
    requirePosition("deleteRecord", {});
    Table& table = *plan_->sources()[0].table;
    observer_->beforeChange(table);
    {
        Run removal{plan_->remove()};
        removal->bind(1, Cell::of(key_[0]));
        removal->step();
    }
    if (driver_->changedRows() == 0) failAsVanished("deleteRecord", table.name);
    ++table.version;
    position_.state = State::deleted;
}

void RowSet::beginNew() {
    requireUpdatable("addNewRecord", {});
    requireSingleTable("addNewRecord");
    isAdding_ = true;
    newValues_.clear();
}

void RowSet::setNew(std::string_view name, std::string_view value) {
    requireUpdatable("setNewField", name);
    const std::size_t index = requireStored("setNewField", name);
    if (!isAdding_) fail(Fault::notOpen, about("setNewField", name) + "no row is being added");
    const Field& field = plan_->fields()[index];
    const Cell cell = toStored(value, field.type, field.label());
    NewValue& kept = newValue(index);
    kept.cell = cell;
    kept.text = cell.text;
}

RowSet::NewValue& RowSet::newValue(std::size_t field) {
    const auto known =
        std::find_if(newValues_.begin(), newValues_.end(), [&](const NewValue& value) { return value.field == field; });
    if (known != newValues_.end()) return *known;
    return newValues_.emplace_back(NewValue{field, {}, {}});
}

/// A number is only taken when somebody wants to know it; otherwise the engine gives one with the row, which is one write less.
Variant RowSet::newField(std::size_t index) {
    const Field& field = plan_->fields()[index];
    const auto known =
        std::find_if(newValues_.begin(), newValues_.end(), [&](const NewValue& value) { return value.field == index; });
    if (known != newValues_.end()) return toVariant(known->bound(), field.type, field.label());
    if (!field.isAutoNumber) return {};
    const Cell number = Cell::of(driver_->reserveAutoNumber(field.table, field.column));
    newValue(index).cell = number;
    return toVariant(number, field.type, field.label());
}

void RowSet::saveNew() {
    requireUpdatable("saveNewRecord", {});
    if (!isAdding_) fail(Fault::notOpen, "saveNewRecord: no row is being added");
    newFields_.clear();
    for (const NewValue& value : newValues_) newFields_.push_back(value.field);
    {
        Run row{plan_->insert(newFields_)};
        for (std::size_t i = 0; i < newValues_.size(); ++i) row->bind(static_cast<int>(i + 1), newValues_[i].bound());
        row->step();
    }
    isAdding_ = false;
    const std::int64_t key = driver_->lastKey();
    Table& table = *plan_->sources()[0].table;
    ++table.version;
    observer_->rowAdded(*this, table, key);
    insertOwn(key);
    for (const NewValue& value : newValues_) noteChanged(plan_->fields()[value.field], key, value.bound());
}

}  // namespace wmoutlook::sql

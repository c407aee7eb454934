#include "platform/RecordList.h"

namespace wmoutlook {

namespace {

std::string textIn(const RecordList::Row& row, std::size_t column) {
    return column >= 1 && column <= row.size() ? row[column - 1].toText() : std::string{};
}

}  // namespace

void RecordList::clear() {
    rows_.clear();
    indexes_.clear();
    current_ = 0;
}

void RecordList::add(Row columns) {
    rows_.push_back(std::move(columns));
    for (auto& [column, index] : indexes_) index.try_emplace(textIn(rows_.back(), column), count());
}

RecordList::Index& RecordList::indexOf(std::size_t column) {
    const auto [entry, isNew] = indexes_.try_emplace(column);
    if (isNew)
        for (std::size_t i = 0; i < rows_.size(); ++i)
            entry->second.try_emplace(textIn(rows_[i], column), static_cast<std::int32_t>(i) + 1);
    return entry->second;
}

std::int32_t RecordList::find(std::string_view value, std::size_t column) {
    const Index& index = indexOf(column);
    const auto hit = index.find(std::string{value});
    if (hit == index.end()) return kNotFound;
    current_ = hit->second;
    return current_;
}

bool RecordList::moveFirst() {
    current_ = rows_.empty() ? 0 : 1;
    return !rows_.empty();
}

void RecordList::moveNext() {
    if (!isAtEnd()) current_ = current_ < count() ? current_ + 1 : 0;  // at the end also when a row is added behind it
}

bool RecordList::moveTo(std::int32_t index) {
    if (index < 1 || index > count()) return false;
    current_ = index;
    return true;
}

const Variant& RecordList::value(std::size_t column) const {
    static const Variant kNull;
    if (isAtEnd()) return kNull;
    const Row& row = rows_[static_cast<std::size_t>(current_) - 1];
    return column >= 1 && column <= row.size() ? row[column - 1] : kNull;
}

bool RecordList::isAtEnd() const {
    return current_ < 1 || current_ > count();
}

}  // namespace wmoutlook

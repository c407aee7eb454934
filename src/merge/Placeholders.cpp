#include "merge/Placeholders.h"

#include "merge/FoldedName.h"
#include "platform/Text.h"

#include <algorithm>
#include <optional>

namespace wmoutlook::merge {

namespace {

bool holdsMark(std::string_view name) {
    return name.find('\\') != std::string_view::npos || std::any_of(kAllMarks.begin(), kAllMarks.end(), [&](const Marks& marks) {
               return name.find(marks.open) != std::string_view::npos || name.find(marks.close) != std::string_view::npos;
           });
}

/// Whether the text ends in ", ", the format and ")"; then its length without them.
std::optional<std::size_t> lengthBeforeFormat(std::string_view text, std::string_view format) {
    constexpr std::string_view kComma = ", ";
    if (text.size() < kComma.size() + format.size() + 1) return std::nullopt;
    const std::size_t start = text.size() - 1 - format.size();
    if (text.substr(start - kComma.size(), kComma.size()) != kComma) return std::nullopt;
    if (!equalsTextually(text.substr(start, format.size()), format)) return std::nullopt;
    return start - kComma.size();
}

}  // namespace

Placeholders::Placeholders() {
    add(kTodaysDate, true);
}

void Placeholders::add(std::string_view name, bool isDate) {
    const auto row = static_cast<std::int32_t>(rows_.size());
    rows_.push_back({std::string{name}, isDate, kNoRow});
    if (holdsMark(name))
        for (std::int32_t format = 0; format < (isDate ? PlaceholderRank::kFormats : 1); ++format)
            withMarks_.push_back(PlaceholderRank::of(row, format));
    const auto [known, isNew] = firstOfName_.try_emplace(lowerCase(name), row);
    if (isNew) return;
    Row* last = &rows_[static_cast<std::size_t>(known->second)];
    while (last->nextOfName != kNoRow) last = &rows_[static_cast<std::size_t>(last->nextOfName)];
    last->nextOfName = row;
}

bool Placeholders::isRow(std::int32_t row, std::string_view name, bool isDate) const {
    const Row& there = rows_[static_cast<std::size_t>(row)];
    return there.isDate == isDate && there.name == name;
}

std::int32_t Placeholders::findRow(std::string_view name, bool isDate, std::int32_t fromRow) const {
    const FoldedName folded{name};
    const auto known = firstOfName_.find(folded.text());
    if (known == firstOfName_.end()) return PlaceholderRank::kNone;
    for (std::int32_t row = known->second;;) {
        const Row& candidate = rows_[static_cast<std::size_t>(row)];
        if (row >= fromRow && candidate.isDate == isDate) return row;
        if (candidate.nextOfName == kNoRow) return PlaceholderRank::kNone;
        row = candidate.nextOfName;
    }
}

/// "(Task Due Date, mmmm d yyyy)". More than one format can end the text: "mmmm d yyyy" ends "dddd, mmmm d yyyy" too.
std::int32_t Placeholders::findDate(std::string_view between, std::int32_t from) const {
    std::int32_t lowest = PlaceholderRank::kNone;
    for (std::int32_t format = 0; format < PlaceholderRank::kFormats; ++format) {
        const auto length = lengthBeforeFormat(between, kDateFormats[static_cast<std::size_t>(format)].written);
        if (!length || *length == 0) continue;
        const std::int32_t fromRow = (from - format + PlaceholderRank::kFormats - 1) / PlaceholderRank::kFormats;
        const std::int32_t row = findRow(between.substr(1, *length - 1), true, std::max(fromRow, 0));
        if (row == PlaceholderRank::kNone) continue;
        const std::int32_t rank = PlaceholderRank::of(row, format);
        if (lowest == PlaceholderRank::kNone || rank < lowest) lowest = rank;
    }
    return lowest;
}

std::int32_t Placeholders::find(std::string_view between, std::int32_t from) const {
    const std::int32_t fromRow = (from + PlaceholderRank::kFormats - 1) / PlaceholderRank::kFormats;
    const std::int32_t row = findRow(between, false, fromRow);
    const std::int32_t plain = row == PlaceholderRank::kNone ? row : PlaceholderRank::of(row, 0);
    if (!between.starts_with('(') || !between.ends_with(')')) return plain;
    const std::int32_t date = findDate(between, from);
    if (plain == PlaceholderRank::kNone || date == PlaceholderRank::kNone) return std::max(plain, date);
    return std::min(plain, date);
}

std::string Placeholders::textBetween(std::int32_t rank, const Marks& marks) const {
    const Row& row = rows_[static_cast<std::size_t>(PlaceholderRank::row(rank))];
    const auto format = static_cast<std::size_t>(PlaceholderRank::format(rank));
    std::string text{marks.open};
    if (row.isDate)
        text.append("(").append(row.name).append(", ").append(kDateFormats[format].written).append(")");
    else
        text.append(row.name);
    return text.append(marks.close);
}

}  // namespace wmoutlook::merge

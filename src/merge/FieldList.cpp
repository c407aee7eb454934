#include "merge/FieldList.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace wmoutlook::merge {

namespace {

constexpr std::array<std::string_view, 10> kSourceNames{"ContactInfo", "contactNotes", "CompanyInfo", "CompanyNotes",
                                                        "ClientInfo",  "SoftwareInfo", "FirmInfo",    "AppointInfo",
                                                        "TaskInfo",    "DocketInfo"};
static_assert(kSourceNames.size() == static_cast<std::size_t>(SourceKind::docket) + 1);

Variant valueOf(const Field& field, std::size_t column) {
    switch (column) {
        case fieldColumn::kDatabaseField: return field.databaseField;
        case fieldColumn::kDisplayName: return field.displayName;
        case fieldColumn::kSourceKind: return nameOf(field.source);
        case fieldColumn::kDataType: return static_cast<std::int32_t>(field.type);
        case fieldColumn::kSampleValue: return field.sample;
        case fieldColumn::kLength: return static_cast<std::int32_t>(field.length);
        default: return {};
    }
}

}  // namespace

std::string_view nameOf(SourceKind kind) {
    return kSourceNames[static_cast<std::size_t>(kind)];
}

void FieldList::clear() {
    fields_.clear();
    current_ = 0;
}

const Field& FieldList::addField(Field field) {
    constexpr std::size_t kUsualRows = 256;
    if (fields_.empty()) fields_.reserve(kUsualRows);
    return fields_.emplace_back(std::move(field));
}

bool FieldList::moveTo(std::int32_t index) {
    if (index < 1 || index > count()) return false;
    current_ = index;
    return true;
}

std::int32_t FieldList::find(std::string_view value, std::size_t column) {
    for (std::int32_t index = 1; index <= count(); ++index) {
        const Field& field = fields_[static_cast<std::size_t>(index) - 1];
        const bool isIt = column == fieldColumn::kDisplayName     ? equalsTextually(field.displayName, value)
                          : column == fieldColumn::kDatabaseField ? equalsTextually(field.databaseField, value)
                                                                  : equalsTextually(valueOf(field, column).toText(), value);
        if (!isIt) continue;
        current_ = index;
        return index;
    }
    return kNotFound;
}

Variant FieldList::value(std::size_t column) const {
    const Field* const field = current();
    return field != nullptr ? valueOf(*field, column) : Variant{};
}

const Field* FieldList::current() const {
    return current_ >= 1 && current_ <= count() ? &fields_[static_cast<std::size_t>(current_) - 1] : nullptr;
}

Placeholders FieldList::placeholders() const {
    Placeholders placeholders;
    for (const Field& field : fields_) placeholders.add(field.displayName, field.type == DataType::date);
    return placeholders;
}

bool FieldList::has(const Placeholders& placeholders) const {
    if (placeholders.rows() != count()) return false;
    std::int32_t row = 0;
    return std::all_of(fields_.begin(), fields_.end(), [&](const Field& field) {
        return placeholders.isRow(++row, field.displayName, field.type == DataType::date);
    });
}

}  // namespace wmoutlook::merge

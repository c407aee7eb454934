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
    *this = {};
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
    std::int32_t found = kNotFound;
    if (column == fieldColumn::kDisplayName) {
        found = indexOfName(value);
    } else {
        const auto field = std::find_if(fields_.begin(), fields_.end(), [&](const Field& one) {
            return column == fieldColumn::kDatabaseField ? equalsTextually(one.databaseField, value)
                                                         : equalsTextually(valueOf(one, column).toText(), value);
        });
        if (field != fields_.end()) found = static_cast<std::int32_t>(field - fields_.begin()) + 1;
    }
    if (found != kNotFound) current_ = found;
    return found;
}

/// A template can hold any number of names, and each is looked for.
std::int32_t FieldList::indexOfName(std::string_view displayName) {
    while (named_ < count()) {
        const Field& field = fields_[static_cast<std::size_t>(named_++)];
        firstOfName_.try_emplace(lowerCase(field.displayName), named_);
    }
    const auto known = firstOfName_.find(FoldedName{displayName}.text());
    return known == firstOfName_.end() ? kNotFound : known->second;
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

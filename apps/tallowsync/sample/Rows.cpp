#include "apps/tallowsync/sample/Rows.h"

namespace wmoutlook::sample {

std::int32_t Rows::add(std::string_view table, std::span<const Field> fields) {
    passCheckpoint();
    columns_.clear();
    values_.clear();
    for (const Field& field : fields) {
        columns_.push_back(field.column);
        values_.push_back(field.value);
    }
    bulk_.into(table, columns_);
    return static_cast<std::int32_t>(bulk_.insert(values_));
}

std::int32_t Rows::add(std::string_view table, std::initializer_list<Field> fields) {
    return add(table, std::span<const Field>{fields.begin(), fields.size()});
}

}  // namespace wmoutlook::sample

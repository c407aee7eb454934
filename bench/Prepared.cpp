#include "bench/Prepared.h"

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace wmoutlook::bench {

Prepared::Prepared(sqlite3* database, std::string_view text) {
    if (sqlite3_prepare_v3(database, text.data(), static_cast<int>(text.size()), SQLITE_PREPARE_PERSISTENT, &statement_,
                           nullptr) != SQLITE_OK)
        throw std::runtime_error{std::string{"A statement of the hand-written loop is wrong: "} + sqlite3_errmsg(database)};
}

Prepared::~Prepared() {
    sqlite3_finalize(statement_);
}

Prepared& Prepared::bind(int parameter, std::int64_t number) {
    sqlite3_bind_int64(statement_, parameter, number);
    return *this;
}

Prepared& Prepared::bind(int parameter, double number) {
    sqlite3_bind_double(statement_, parameter, number);
    return *this;
}

Prepared& Prepared::bind(int parameter, std::string_view text) {
    if (text.empty())
        sqlite3_bind_null(statement_, parameter);
    else
        sqlite3_bind_text(statement_, parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    return *this;
}

Prepared& Prepared::bindBlob(int parameter, std::string_view bytes) {
    sqlite3_bind_blob(statement_, parameter, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
    return *this;
}

bool Prepared::step() {
    const int result = sqlite3_step(statement_);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        throw std::runtime_error{std::string{"The hand-written loop failed: "} + sqlite3_errstr(result)};
    return result == SQLITE_ROW;
}

void Prepared::run() {
    step();
    reset();
}

void Prepared::reset() {
    sqlite3_reset(statement_);
}

std::int64_t Prepared::integer(int column) const {
    return sqlite3_column_int64(statement_, column);
}

double Prepared::real(int column) const {
    return sqlite3_column_double(statement_, column);
}

bool Prepared::isNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

std::string_view Prepared::text(int column) const {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return text == nullptr ? std::string_view{}
                           : std::string_view{text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::string_view Prepared::blob(int column) const {
    const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

}  // namespace wmoutlook::bench

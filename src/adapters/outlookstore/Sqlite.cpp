#include "adapters/outlookstore/Sqlite.h"

#include <sqlite3.h>

namespace wmoutlook::outlookstore {

namespace {

constexpr std::string_view kWayOut = "; restore a backup of it, or make a new one with \"tallowsync new-outlook FILE\"";

std::string named(const std::string& path) {
    return "The Outlook store \"" + path + "\"";
}

/// What the engine's code means for whoever owns the file. `detail` is shown only where it speaks of the store's own tables.
std::string faultOf(int code, const std::string& failed, const char* detail) {
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED: return " is locked by another process; try again when that has finished";
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: return " is damaged: " + failed + std::string{kWayOut};
        case SQLITE_PERM:
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
            return " cannot be written to: " + failed + "; give this user the right to write the file and its folder";
        case SQLITE_ERROR: return " cannot be used: " + failed + " (" + detail + ")" + std::string{kWayOut};
        default: return ": " + failed + ": " + sqlite3_errstr(code);
    }
}

}  // namespace

Connection::Connection(const std::string& path, int busyTimeoutMilliseconds) : path_(path) {
    const int code =
        sqlite3_open_v2(path.c_str(), &handle_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    if (code != SQLITE_OK) {
        sqlite3_close_v2(handle_);
        throw OutlookError{code, named(path) + " cannot be opened (" + sqlite3_errstr(code) +
                                     "); check the permissions of the file and of its folder"};
    }
    sqlite3_busy_timeout(handle_, busyTimeoutMilliseconds);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
}

Connection::~Connection() {
    sqlite3_close_v2(handle_);
}

void Connection::refuse(std::string_view fault) const {
    throw OutlookError{-1, named(path_).append(" ").append(fault).append(kWayOut)};
}

void Connection::fail(int code, std::string_view attempt) const {
    throw OutlookError{code, named(path_) + faultOf(code, std::string{attempt} + " failed", sqlite3_errmsg(handle_))};
}

void Connection::execute(const std::string& sql, std::string_view attempt) {
    const int code = sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) fail(code, attempt);
}

void Connection::beginTrial(std::string_view attempt) {
    execute("BEGIN IMMEDIATE", attempt);
    isTrial_ = true;
}

void Connection::requireTrial(std::string_view attempt) const {
    if (!isTrial_ || sqlite3_get_autocommit(handle_) == 0) return;
    throw OutlookError{-1, "An earlier failure has ended the dry run; nothing more is done in the Outlook store \"" + path_ +
                               "\": " + std::string{attempt}};
}

std::int64_t Connection::lastKey() const {
    return sqlite3_last_insert_rowid(handle_);
}

std::int64_t Connection::changedRows() const {
    return sqlite3_changes64(handle_);
}

bool Connection::isReadOnly() const {
    return sqlite3_db_readonly(handle_, "main") == 1;
}

std::string Connection::firstBytes(std::size_t count) const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(handle_, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::string bytes(count, '\0');
    if (file == nullptr || file->pMethods == nullptr) return {};
    const int code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(count), 0);
    return code == SQLITE_OK ? bytes : std::string{};
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(Connection& connection, std::string_view sql, std::string_view attempt)
    : connection_(connection), attempt_(attempt) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(connection.handle(), sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                                        &statement, nullptr);
    handle_.reset(statement);
    if (code != SQLITE_OK) connection.fail(code, attempt);
}

Statement::Run::~Run() {
    sqlite3_reset(statement_.handle());
}

void Statement::Run::check(int code) const {
    if (code != SQLITE_OK) statement_.connection_.fail(code, statement_.attempt_);
}

Statement::Run& Statement::Run::bind(int parameter, std::int64_t value) {
    check(sqlite3_bind_int64(statement_.handle(), parameter, value));
    return *this;
}

Statement::Run& Statement::Run::bind(int parameter, double value) {
    check(sqlite3_bind_double(statement_.handle(), parameter, value));
    return *this;
}

Statement::Run& Statement::Run::bind(int parameter, std::string_view text) {
    check(sqlite3_bind_text64(statement_.handle(), parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

Statement::Run& Statement::Run::bindNull(int parameter) {
    check(sqlite3_bind_null(statement_.handle(), parameter));
    return *this;
}

Statement::Run& Statement::Run::bindBlob(int parameter, std::string_view bytes) {
    check(sqlite3_bind_blob64(statement_.handle(), parameter, bytes.data(), bytes.size(), SQLITE_STATIC));
    return *this;
}

bool Statement::Run::next() {
    const int code = sqlite3_step(statement_.handle());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) statement_.connection_.fail(code, statement_.attempt_);
    return false;
}

std::int64_t Statement::Run::integer(int column) const {
    return sqlite3_column_int64(statement_.handle(), column);
}

double Statement::Run::number(int column) const {
    return sqlite3_column_double(statement_.handle(), column);
}

std::string Statement::Run::text(int column) const {
    return std::string{bytes(column)};
}

std::string_view Statement::Run::bytes(int column) const {
    const void* const start = sqlite3_column_blob(statement_.handle(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.handle(), column));
    return start == nullptr ? std::string_view{} : std::string_view{static_cast<const char*>(start), size};
}

bool Statement::Run::isNull(int column) const {
    return sqlite3_column_type(statement_.handle(), column) == SQLITE_NULL;
}

// A transaction that reads before it writes is refused when another process has written in between; one that is meant to
// write from the start waits for its turn instead.
Savepoint::Savepoint(Connection& connection, std::string_view attempt)
    : connection_(connection),
      attempt_(attempt),
      isOutermost_(!connection.isTrial() && sqlite3_get_autocommit(connection.handle()) != 0) {
    connection_.requireTrial(attempt_);
    connection_.execute(isOutermost_ ? "BEGIN IMMEDIATE" : "SAVEPOINT store", attempt_);
}

Savepoint::~Savepoint() {
    if (!isOpen_) return;
    // An error that already rolled everything back leaves nothing to undo; the answer does not matter then.
    const char* const undo = isOutermost_ ? "ROLLBACK" : "ROLLBACK TO store; RELEASE store";
    sqlite3_exec(connection_.handle(), undo, nullptr, nullptr, nullptr);
}

void Savepoint::release() {
    connection_.execute(isOutermost_ ? "COMMIT" : "RELEASE store", attempt_);
    isOpen_ = false;
}

}  // namespace wmoutlook::outlookstore

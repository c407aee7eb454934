#include "adapters/sql/SqliteConnection.h"

#include "adapters/sql/Tokenizer.h"
#include "platform/Errors.h"
#include "platform/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace wmoutlook::sql {

namespace {

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// Most names differ within their plain letters, which decides as the whole comparison would.
int compareWithShortcut(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto l = static_cast<unsigned char>(asciiLower(left[i]));
        const auto r = static_cast<unsigned char>(asciiLower(right[i]));
        if (l >= 0x80 || r >= 0x80) {
            const auto order = compareTextually(left, right);
            return order < 0 ? -1 : (order > 0 ? 1 : 0);
        }
        if (l != r) return l < r ? -1 : 1;
    }
    if (left.size() == right.size()) return 0;
    return left.size() < right.size() ? -1 : 1;
}

int collateTextually(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return compareWithShortcut({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                               {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

/// Functions that a text from outside may call: none that reads files, takes memory without bound or knows of the engine.
constexpr std::array<std::string_view, 22> kFunctions{
    "count", "sum",   "min",   "max",    "avg",   "total",   "abs",      "round",  "length", "lower", "upper",
    "trim",  "ltrim", "rtrim", "substr", "instr", "replace", "coalesce", "ifnull", "nullif", "like",  "iif"};

bool isHostTable(const char* name) {
    const std::string_view table{name == nullptr ? "" : name};
    return !equalsAscii(table.substr(0, 7), "sqlite_") && !equalsAscii(table.substr(0, 7), "pragma_");
}

class SqliteStatement final : public Statement {
public:
    SqliteStatement(SqliteConnection& connection, sqlite3_stmt* statement)
        : connection_(connection), statement_(statement), isReading_(sqlite3_stmt_readonly(statement) != 0) {}
    ~SqliteStatement() override { sqlite3_finalize(statement_); }

    int parameterCount() const override { return sqlite3_bind_parameter_count(statement_); }

    void bind(int parameter, const Cell& value) override {
        int result = SQLITE_OK;
        switch (value.kind) {
            case Cell::Kind::null: result = sqlite3_bind_null(statement_, parameter); break;
            case Cell::Kind::integer: result = sqlite3_bind_int64(statement_, parameter, value.integer); break;
            case Cell::Kind::real: result = sqlite3_bind_double(statement_, parameter, value.real); break;
            case Cell::Kind::text: {
                const char* const text = value.text.data() == nullptr ? "" : value.text.data();
                result = sqlite3_bind_text64(statement_, parameter, text, value.text.size(), SQLITE_STATIC, SQLITE_UTF8);
                break;
            }
        }
        if (result != SQLITE_OK) connection_.fail("A value could not be handed to the database");
    }

    bool step() override {
        const bool isFirst = !isRunning_;
        if (isFirst) connection_.beforeStatement(isReading_);
        isRunning_ = true;
        const int result = sqlite3_step(statement_);
        if (isFirst) requireSameColumns();
        if (result == SQLITE_ROW) return true;
        if (result != SQLITE_DONE) connection_.fail("A statement could not be run");
        return false;
    }

    void reset() noexcept override {
        isRunning_ = false;
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }

    int columnCount() const override { return sqlite3_column_count(statement_); }

    ColumnOrigin origin(int column) const override {
        const auto text = [](const char* name) { return name == nullptr ? std::string{} : std::string{name}; };
        return {text(sqlite3_column_name(statement_, column)), text(sqlite3_column_table_name(statement_, column)),
                text(sqlite3_column_origin_name(statement_, column))};
    }

    Cell cell(int column) const override {
        switch (sqlite3_column_type(statement_, column)) {
            case SQLITE_NULL: return {};
            case SQLITE_INTEGER: return Cell::of(std::int64_t{sqlite3_column_int64(statement_, column)});
            case SQLITE_FLOAT: return Cell::of(sqlite3_column_double(statement_, column));
            default: break;
        }
        const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
        return Cell::of(
            std::string_view{bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))});
    }

private:
    /// When another program has changed a table, the engine prepares the text anew on its own, and a star gives other columns
    /// than those that were asked for: the row's key would be read from a column of the host.
    void requireSameColumns() {
        const int prepared = sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_REPREPARE, 0);
        if (prepared == preparedAgain_) return;
        if (columns() != columns_)
            throw DatabaseError{SQLITE_SCHEMA, "Another program has changed the tables of the file; open it again"};
        preparedAgain_ = prepared;
    }

    [[nodiscard]] std::string columns() const {
        std::string names;
        for (int i = 0; i < columnCount(); ++i) {
            const ColumnOrigin column = origin(i);
            names.append(column.name).append(1, '\0').append(column.table).append(1, '\0').append(column.column).append(1, '\0');
        }
        return names;
    }

    SqliteConnection& connection_;
    sqlite3_stmt* statement_;
    bool isReading_;
    bool isRunning_ = false;
    std::string columns_ = columns();
    int preparedAgain_ = 0;
};

/// Runs a statement that gives no rows.
void runOnce(sqlite3_stmt* statement) noexcept {
    sqlite3_step(statement);
    sqlite3_reset(statement);
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path, Mode mode, int busyTimeoutMilliseconds) : path_(path) {
    std::string name = path;
    int flags = SQLITE_OPEN_NOMUTEX | (mode == Mode::readWrite ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY);
    if (mode == Mode::immutable) {
        flags |= SQLITE_OPEN_URI;
        name = "file:";
        constexpr std::string_view kHex = "0123456789abcdef";
        for (const char c : path) {
            const auto byte = static_cast<unsigned char>(c);
            name += {'%', kHex[byte >> 4], kHex[byte & 0xF]};
        }
        name += "?immutable=1";
    }
    const int result = sqlite3_open_v2(name.c_str(), &database_, flags, nullptr);
    try {
        if (result != SQLITE_OK) fail("The file could not be opened");
        configure(busyTimeoutMilliseconds);
    } catch (...) {
        sqlite3_close_v2(database_);
        throw;
    }
}

SqliteConnection::~SqliteConnection() {
    endSharedRead();
    sqlite3_finalize(begin_);
    sqlite3_finalize(commit_);
    sqlite3_close_v2(database_);
}

/// What a foreign file holds is data: neither its views and triggers nor a misspelled name may make the engine do other work.
void SqliteConnection::configure(int busyTimeoutMilliseconds) {
    sqlite3_extended_result_codes(database_, 1);
    sqlite3_busy_timeout(database_, busyTimeoutMilliseconds);
    for (const auto& [setting, value] :
         {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1}, std::pair{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
          std::pair{SQLITE_DBCONFIG_DQS_DML, 0}, std::pair{SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0}})
        sqlite3_db_config(database_, setting, value, nullptr);
    sqlite3_limit(database_, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_create_collation_v2(database_, "TEXTUAL", SQLITE_UTF8, nullptr, collateTextually, nullptr);
    sqlite3_set_authorizer(database_, authorize, this);
}

int SqliteConnection::authorize(void* self, int action, const char* first, const char* second, const char*, const char*) {
    if (!static_cast<const SqliteConnection*>(self)->isHostText_) return SQLITE_OK;
    bool isAllowed = false;
    if (action == SQLITE_SELECT) isAllowed = true;
    if (action == SQLITE_READ) isAllowed = isHostTable(first);
    if (action == SQLITE_FUNCTION)
        isAllowed =
            std::any_of(kFunctions.begin(), kFunctions.end(), [&](std::string_view name) { return equalsAscii(name, second); });
    return isAllowed ? SQLITE_OK : SQLITE_DENY;
}

std::unique_ptr<Statement> SqliteConnection::prepare(const std::string& text, TextOrigin origin) {
    ++preparedStatements_;
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    isHostText_ = origin == TextOrigin::host;
    const int result = sqlite3_prepare_v3(database_, text.c_str(), static_cast<int>(text.size() + 1), SQLITE_PREPARE_PERSISTENT,
                                          &statement, &tail);
    isHostText_ = false;
    if (result != SQLITE_OK) fail("The text cannot be run: " + text);
    auto prepared = std::make_unique<SqliteStatement>(*this, statement);
    if (statement == nullptr || *tail != '\0') throw DatabaseError{SQLITE_MISUSE, "More than one statement in a text"};
    return prepared;
}

void SqliteConnection::execute(const std::string& text) {
    const auto statement = prepare(text, TextOrigin::adapter);
    while (statement->step()) {}
}

void SqliteConnection::shareReads() {
    for (const auto& [text, statement] : {std::pair{"BEGIN", &begin_}, std::pair{"COMMIT", &commit_}})
        if (sqlite3_prepare_v3(database_, text, -1, SQLITE_PREPARE_PERSISTENT, statement, nullptr) != SQLITE_OK)
            fail("Reads cannot be shared");
}

void SqliteConnection::endSharedRead() noexcept {
    if (sharedReads_ > 0) runOnce(commit_);
    // A commit that failed would leave the next write in a transaction that nobody ends.
    if (sharedReads_ > 0 && sqlite3_get_autocommit(database_) == 0)
        sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
    sharedReads_ = 0;
}

void SqliteConnection::beginTrial() {
    execute("BEGIN IMMEDIATE");
    isTrial_ = true;
}

void SqliteConnection::startLog() {
    bool isLog = false;
    const auto read = [](void* result, int, char** values, char**) {
        *static_cast<bool*>(result) = std::string_view{values[0]} == "wal";
        return 0;
    };
    const int result = sqlite3_exec(database_, "PRAGMA journal_mode = WAL", read, &isLog, nullptr);
    if (result == SQLITE_ERROR) return;  // a statement of ours is running: with a later write
    if (result == SQLITE_BUSY) fail("The write-ahead log cannot be started");
    isLogWanted_ = false;
    if (result == SQLITE_OK && isLog) shareReads();  // a switch that failed has told "wal" too
}

void SqliteConnection::beforeStatement(bool isReading) {
    if (isTrial_ && sqlite3_get_autocommit(database_) != 0)
        throw DatabaseError{SQLITE_ABORT, "An earlier failure has ended the dry run; nothing more is done in " + path_};
    if (isLogWanted_ && !isReading) startLog();
    if (begin_ == nullptr) return;
    if (!isReading || sharedReads_ == kSharedReads) endSharedRead();
    if (!isReading) return;
    if (sharedReads_ == 0) runOnce(begin_);
    ++sharedReads_;
}

void SqliteConnection::fail(std::string_view attempted) const {
    const int code = sqlite3_extended_errcode(database_);
    if ((code & 0xFF) == SQLITE_CORRUPT)
        throw DatabaseError{code, "The database file \"" + path_ + "\" is damaged: " + sqlite3_errmsg(database_) +
                                      "; choose another file or restore a backup"};
    const bool isBusy = (code & 0xFF) == SQLITE_BUSY || (code & 0xFF) == SQLITE_LOCKED;
    throw DatabaseError{
        code, std::string{attempted} + ": " + (isBusy ? "the file is locked by another program" : sqlite3_errmsg(database_))};
}

}  // namespace wmoutlook::sql

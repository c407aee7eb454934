#include "adapters/sql/SqliteDriver.h"

#include "adapters/sql/SqliteOpening.h"
#include "adapters/sql/Tokenizer.h"
#include "platform/Errors.h"

#include <sqlite3.h>

namespace wmoutlook::sql {

namespace {

std::optional<std::int64_t> firstNumber(Statement& statement, std::string_view table) {
    const Run run{statement};
    run->bind(1, Cell::of(table));
    std::optional<std::int64_t> number;
    while (run->step()) number = run->cell(0).integer;
    return number;
}

/// Without a write-ahead log a view that is held keeps every other program from writing.
bool hasLog(SqliteConnection& connection) {
    const auto statement = connection.prepare("PRAGMA journal_mode", TextOrigin::adapter);
    const Run run{*statement};
    return run->step() && run->cell(0).text == "wal";
}

}  // namespace

SqliteDriver::SqliteDriver(std::unique_ptr<SqliteConnection> connection, const SqliteOptions& options, Journal journal)
    : connection_(std::move(connection)), options_(options) {
    if (options_.dryRun)
        connection_->beginTrial();
    else if (hasLog(*connection_))
        connection_->shareReads();
    else if (journal == Journal::log && !options_.readOnly)
        connection_->startLogAtFirstWrite();
}

SqliteDriver::~SqliteDriver() {
    numberings_.clear();
    if (options_.dryRun) sqlite3_exec(connection_->get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteDriver::endSharedReads() {
    connection_->endSharedRead();
}

std::unique_ptr<Statement> SqliteDriver::prepare(const std::string& text, TextOrigin origin) {
    return connection_->prepare(text, origin);
}

std::int64_t SqliteDriver::changedRows() const {
    return sqlite3_changes64(connection_->get());
}

std::int64_t SqliteDriver::lastKey() const {
    return sqlite3_last_insert_rowid(connection_->get());
}

bool SqliteDriver::hasRowKeys(const std::string& table) {
    return sqlite3_table_column_metadata(connection_->get(), "main", table.c_str(), "_rowid_", nullptr, nullptr, nullptr, nullptr,
                                         nullptr) == SQLITE_OK;
}

std::optional<TableColumn> SqliteDriver::column(const std::string& table, const std::string& column) {
    const char* type = nullptr;
    const char* collation = nullptr;
    int isNotNull = 0;
    int isKey = 0;
    int isAutoNumber = 0;
    if (sqlite3_table_column_metadata(connection_->get(), "main", table.c_str(), column.c_str(), &type, &collation, &isNotNull,
                                      &isKey, &isAutoNumber) != SQLITE_OK)
        return std::nullopt;
    TableColumn result{type == nullptr ? "" : type, isAutoNumber != 0, collation != nullptr && equalsAscii(collation, "TEXTUAL")};
    // A key of this type is the row's key, as wide as any number, not the desktop engine's 16-bit Integer.
    if (isKey != 0 && result.declaredType == "INTEGER") result.declaredType = "Long";
    return result;
}

/// The engine's own sequence is moved forward, so that neither this process nor another one is given the number again, whether a
/// row is saved under it or not.
std::int64_t SqliteDriver::reserveAutoNumber(const std::string& table, const std::string&) {
    Numbering& numbering = numberings_[table];
    const std::string greatest = "coalesce((SELECT max(_rowid_) FROM " + quoted(table) + "), 0)";
    if (!numbering.next) {
        numbering.next = prepare(
            "UPDATE sqlite_sequence SET seq = max(seq, " + greatest + ") + 1 WHERE name = ?1 COLLATE NOCASE RETURNING seq",
            TextOrigin::adapter);
        numbering.first = prepare("INSERT INTO sqlite_sequence (name, seq) SELECT name, " + greatest +
                                      " + 1 FROM sqlite_schema WHERE type = 'table' AND name = ?1 COLLATE NOCASE AND NOT EXISTS "
                                      "(SELECT 1 FROM sqlite_sequence WHERE name = ?1 COLLATE NOCASE) RETURNING seq",
                                  TextOrigin::adapter);
    }
    if (const auto number = firstNumber(*numbering.next, table)) return *number;
    if (const auto number = firstNumber(*numbering.first, table)) return *number;
    if (const auto number = firstNumber(*numbering.next, table)) return *number;  // another process was first
    throw DatabaseError{SQLITE_ERROR, "The table \"" + table + "\" gives no automatic numbers"};
}

bool SqliteDriver::answersByKey(const std::string& text, const std::string& column) {
    const auto plan = prepare("EXPLAIN QUERY PLAN " + text, TextOrigin::adapter);
    while (plan->step()) {
        const std::string_view detail = plan->cell(3).text;
        if (detail.find("rowid=?") != std::string_view::npos) return true;
        // "SEARCH T USING INDEX name (First=? AND Second=?)": the column is one of those that the index is entered by.
        std::size_t at = detail.find('(');
        while (at != std::string_view::npos) {
            const std::string_view rest = detail.substr(at + 1);
            if (equalsAscii(rest.substr(0, column.size()), column) && rest.substr(column.size(), 2) == "=?") return true;
            at = detail.find(' ', at + 1);
        }
    }
    return false;
}

std::string SqliteDriver::quoted(std::string_view name) const {
    std::string result{"\""};
    for (const char c : name) result.append(c == '"' ? 2 : 1, c);
    return result + "\"";
}

std::string SqliteDriver::parameter(std::size_t number) const {
    return "?" + std::to_string(number);
}

std::string SqliteDriver::rowKey(const std::string& quotedSource) const {
    return quotedSource + "._rowid_";
}

std::string SqliteDriver::textually(const std::string& expression) const {
    return expression + " COLLATE TEXTUAL";
}

std::string SqliteDriver::differs(const std::string& left, const std::string& right) const {
    return left + " IS NOT " + right + " COLLATE BINARY";
}

/// This engine's files have no password, so the access text opens nothing here.
std::unique_ptr<Driver> SqliteDriver::openLocalStore(const std::string& path, std::string_view) {
    try {
        return std::make_unique<SqliteDriver>(connectToStore(path, options_), options_, Journal::asItIs);
    } catch (const DatabaseError&) {
        return nullptr;
    }
}

SqlStatistics SqliteDriver::statistics() const {
    SqlStatistics result;
    result.preparedStatements = connection_->preparedStatements();
    for (sqlite3_stmt* statement = sqlite3_next_stmt(connection_->get(), nullptr); statement != nullptr;
         statement = sqlite3_next_stmt(connection_->get(), statement)) {
        result.engineSteps += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_VM_STEP, 0);
        result.scannedRows += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_FULLSCAN_STEP, 0);
    }
    return result;
}

}  // namespace wmoutlook::sql

#pragma once

#include "adapters/sql/SqliteDatabase.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook::sql {

// What differs between database engines. Everything above a driver is the same for all of them.

/// A value on its way to or from the engine. A text is borrowed: see where it comes from how long it lives.
struct Cell {
    enum class Kind : std::uint8_t { null, integer, real, text };

    Kind kind = Kind::null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text;

    static Cell of(std::int64_t number) { return {Kind::integer, number, 0, {}}; }
    static Cell of(double number) { return {Kind::real, 0, number, {}}; }
    static Cell of(std::string_view text) { return {Kind::text, 0, 0, text}; }
    [[nodiscard]] bool isNull() const { return kind == Kind::null; }
    [[nodiscard]] double number() const { return kind == Kind::integer ? static_cast<double>(integer) : real; }
};

/// Where a column of a result comes from; table and column are empty for a computed one.
struct ColumnOrigin {
    std::string name;
    std::string table;
    std::string column;
};

class Statement {
public:
    virtual ~Statement() = default;

    [[nodiscard]] virtual int parameterCount() const = 0;
    virtual void bind(int parameter, const Cell& value) = 0;  ///< counts from 1; a text has to live until the reset
    virtual bool step() = 0;                                  ///< false when there is no further row
    virtual void reset() noexcept = 0;                        ///< frees locks and forgets what was bound

    [[nodiscard]] virtual int columnCount() const = 0;
    [[nodiscard]] virtual ColumnOrigin origin(int column) const = 0;
    [[nodiscard]] virtual Cell cell(int column) const = 0;  ///< counts from 0; lives until the next step or reset
};

/// One use of a prepared statement. It is reset at the end, so that no read lock outlives an operation: an open cursor would
/// keep the log from being reused and could not be upgraded once another process has written.
class Run {
public:
    explicit Run(Statement& statement) : statement_(statement) {}
    ~Run() { statement_.reset(); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    Statement* operator->() const { return &statement_; }
    Statement& operator*() const { return statement_; }

private:
    Statement& statement_;
};

/// A column as its table declares it.
struct TableColumn {
    std::string declaredType;
    bool isAutoNumber = false;
    bool isTextual = false;  ///< its texts compare without regard to case; those of any other column compare to the bit
};

/// Whose text a statement is: one that came from outside may read the host's tables and do nothing else.
enum class TextOrigin { host, adapter };

class Driver {
public:
    virtual ~Driver() = default;

    [[nodiscard]] virtual std::unique_ptr<Statement> prepare(const std::string& text, TextOrigin origin) = 0;
    /// A driver may let a few reads share one view of the file. From here on reads see it as it is, and nothing of it stays held.
    virtual void endSharedReads() = 0;
    /// Whether what was read last may be older than the reading, since the view was shared by several.
    [[nodiscard]] virtual bool isViewOld() const = 0;
    [[nodiscard]] virtual std::int64_t changedRows() const = 0;  ///< by the last writing statement
    [[nodiscard]] virtual std::int64_t lastKey() const = 0;      ///< of the last row that was added

    [[nodiscard]] virtual bool hasRowKeys(const std::string& table) = 0;  ///< false for views and what is not there
    [[nodiscard]] virtual std::optional<TableColumn> column(const std::string& table, const std::string& column) = 0;
    /// A number for a row that is yet to be added, never given out before nor again, by no process.
    [[nodiscard]] virtual std::int64_t reserveAutoNumber(const std::string& table, const std::string& column) = 0;
    /// Whether the engine finds the rows of this text by the value of the column instead of looking at each.
    [[nodiscard]] virtual bool answersByKey(const std::string& text, const std::string& column) = 0;

    // How things are spelled.
    [[nodiscard]] virtual std::string quoted(std::string_view name) const = 0;
    [[nodiscard]] virtual std::string parameter(std::size_t number) const = 0;
    [[nodiscard]] virtual std::string rowKey(const std::string& quotedSource) const = 0;
    /// An expression that is compared without regard to case, and one that is compared to the bit.
    [[nodiscard]] virtual std::string textually(const std::string& expression) const = 0;
    [[nodiscard]] virtual std::string differs(const std::string& left, const std::string& right) const = 0;

    /// The same engine on another file, without a test of its tables. Null when it cannot be opened.
    [[nodiscard]] virtual std::unique_ptr<Driver> openLocalStore(const std::string& path, std::string_view accessText) = 0;
    [[nodiscard]] virtual SqlStatistics statistics() const = 0;
};

}  // namespace wmoutlook::sql

#pragma once

#include "platform/Errors.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

/// The little of SQLite that the store needs. Every failure is an OutlookError that names the file, what was attempted and
/// SQLite's own code.
namespace wmoutlook::outlookstore {

class Connection {
public:
    /// Opens an existing file; nothing is read yet.
    Connection(const std::string& path, int busyTimeoutMilliseconds);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    void execute(const std::string& sql, std::string_view attempt);
    /// Begins the transaction in which everything is done from now on. Some failures of the file make SQLite undo it by itself;
    /// from then on every statement fails, since it would be stored for good.
    void beginTrial(std::string_view attempt);
    [[nodiscard]] bool isTrial() const { return isTrial_; }
    void requireTrial(std::string_view attempt) const;
    [[nodiscard]] std::int64_t lastKey() const;
    [[nodiscard]] std::int64_t changedRows() const;
    [[nodiscard]] bool isReadOnly() const;
    /// The file's first bytes as they lie there, without a transaction: changes nothing, whatever the file is.
    [[nodiscard]] std::string firstBytes(std::size_t count) const;
    [[nodiscard]] sqlite3* handle() const { return handle_; }
    [[noreturn]] void fail(int code, std::string_view attempt) const;
    /// Throws OutlookError for a store that cannot be used as it lies there ("lacks ...", "is damaged: ..."), with the way out.
    [[noreturn]] void refuse(std::string_view fault) const;

private:
    std::string path_;
    sqlite3* handle_ = nullptr;
    bool isTrial_ = false;
};

/// One text, prepared once and kept.
class Statement {
public:
    Statement(Connection& connection, std::string_view sql, std::string_view attempt);

    /// One execution; ends, whatever way it is left, with the statement ready for the next. Texts and blobs that are bound
    /// are not copied and outlive the execution.
    class Run {
    public:
        explicit Run(Statement& statement) : statement_(statement) { statement.connection_.requireTrial(statement.attempt_); }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        ~Run();

        Run& bind(int parameter, std::int64_t value);
        Run& bind(int parameter, double value);
        Run& bind(int parameter, std::string_view text);
        Run& bindNull(int parameter);
        Run& bindBlob(int parameter, std::string_view bytes);
        bool next();  ///< false at the end
        void finish() {
            while (next()) {}
        }

        [[nodiscard]] std::int64_t integer(int column) const;
        [[nodiscard]] double number(int column) const;
        [[nodiscard]] std::string text(int column) const;
        [[nodiscard]] std::string_view bytes(int column) const;  ///< until the next row
        [[nodiscard]] bool isNull(int column) const;

    private:
        void check(int code) const;
        Statement& statement_;
    };

    [[nodiscard]] Run run() { return Run{*this}; }
    [[nodiscard]] sqlite3_stmt* handle() const { return handle_.get(); }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    Connection& connection_;
    std::string_view attempt_;
    std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

/// Several statements that happen together or not at all, also inside the outer transaction of a dry run.
class Savepoint {
public:
    Savepoint(Connection& connection, std::string_view attempt);
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;
    ~Savepoint();
    void release();

private:
    Connection& connection_;
    std::string_view attempt_;
    bool isOutermost_;
    bool isOpen_ = true;
};

}  // namespace wmoutlook::outlookstore

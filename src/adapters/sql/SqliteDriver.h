#pragma once

#include "adapters/sql/Driver.h"
#include "adapters/sql/SqliteConnection.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace wmoutlook::sql {

class SqliteDriver final : public Driver {
public:
    /// Takes a connection that is ready for work. In a dry run it is undone when the driver goes.
    /// What becomes of a file without a write-ahead log: it gets one with the first write, or goes back to its own program as it came.
    enum class Journal { log, asItIs };

    SqliteDriver(std::unique_ptr<SqliteConnection> connection, const SqliteOptions& options, Journal journal);
    ~SqliteDriver() override;

    std::unique_ptr<Statement> prepare(const std::string& text, TextOrigin origin) override;
    void endSharedReads() override;
    bool isViewOld() const override { return connection_->isViewOld(); }
    std::int64_t changedRows() const override;
    std::int64_t lastKey() const override;
    bool hasRowKeys(const std::string& table) override;
    std::optional<TableColumn> column(const std::string& table, const std::string& column) override;
    std::int64_t reserveAutoNumber(const std::string& table, const std::string& column) override;
    bool answersByKey(const std::string& text, const std::string& column) override;

    std::string quoted(std::string_view name) const override;
    std::string parameter(std::size_t number) const override;
    std::string rowKey(const std::string& quotedSource) const override;
    std::string textually(const std::string& expression) const override;
    std::string differs(const std::string& left, const std::string& right) const override;

    std::unique_ptr<Driver> openLocalStore(const std::string& path, std::string_view accessText) override;
    SqlStatistics statistics() const override;

private:
    struct Numbering {
        std::unique_ptr<Statement> next;   ///< for a table that has given out a number before
        std::unique_ptr<Statement> first;  ///< for one that has not
    };

    std::unique_ptr<SqliteConnection> connection_;
    SqliteOptions options_;
    std::unordered_map<std::string, Numbering> numberings_;
};

}  // namespace wmoutlook::sql

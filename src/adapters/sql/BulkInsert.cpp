#include "adapters/sql/BulkInsert.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/SqliteConnection.h"
#include "adapters/sql/Values.h"

#include <sqlite3.h>

#include <string>
#include <unordered_map>

namespace wmoutlook {

class BulkInsert::Work {
public:
    explicit Work(const std::string& path) : connection_(path, sql::SqliteConnection::Mode::readWrite, 2000) {
        connection_.execute("PRAGMA cache_size = -65536");
        connection_.execute("BEGIN IMMEDIATE");
    }

    ~Work() {
        statements_.clear();
        if (!isCommitted_) sqlite3_exec(connection_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }

    void into(std::string_view table, std::span<const std::string_view> columns) {
        std::string text = "INSERT INTO " + quoted(table) + " (";
        std::string marks;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            text += (i == 0 ? "" : ", ") + quoted(columns[i]);
            marks += i == 0 ? "?" : ", ?";
        }
        text += ") VALUES (" + marks + ")";
        current_ = nullptr;
        auto& statement = statements_[text];
        if (!statement) statement = connection_.prepare(text, sql::TextOrigin::adapter);
        current_ = statement.get();
    }

    std::int64_t insert(std::span<const Variant> values) {
        if (current_ == nullptr || static_cast<std::size_t>(current_->parameterCount()) != values.size())
            sql::fail(sql::Fault::notOpen, "A row in bulk does not have one value for each of its columns");
        requireWhole();
        isWhole_ = false;
        const sql::Run run{*current_};
        for (std::size_t i = 0; i < values.size(); ++i) run->bind(static_cast<int>(i + 1), sql::toCell(values[i]));
        run->step();
        isWhole_ = true;
        return sqlite3_last_insert_rowid(connection_.get());
    }

    void commit() {
        requireWhole();
        connection_.execute("COMMIT");
        isCommitted_ = true;
    }

private:
    /// After a row that could not be written, and after the commit, a further one would break "all of them or none".
    void requireWhole() const {
        if (isWhole_ && !isCommitted_ && sqlite3_get_autocommit(connection_.get()) == 0) return;
        sql::fail(sql::Fault::notOpen, "The rows in bulk for " + connection_.path() + " have ended already");
    }

    static std::string quoted(std::string_view name) {
        std::string result{"\""};
        for (const char c : name) result.append(c == '"' ? 2 : 1, c);
        return result + "\"";
    }

    sql::SqliteConnection connection_;
    std::unordered_map<std::string, std::unique_ptr<sql::Statement>> statements_;
    sql::Statement* current_ = nullptr;
    bool isWhole_ = true;  ///< every row so far has been written
    bool isCommitted_ = false;
};

BulkInsert::BulkInsert(const std::string& path) : work_(std::make_unique<Work>(path)) {}
BulkInsert::~BulkInsert() = default;

void BulkInsert::into(std::string_view table, std::span<const std::string_view> columns) {
    work_->into(table, columns);
}

void BulkInsert::into(std::string_view table, std::initializer_list<std::string_view> columns) {
    work_->into(table, {columns.begin(), columns.size()});
}

std::int64_t BulkInsert::insert(std::span<const Variant> values) {
    return work_->insert(values);
}

std::int64_t BulkInsert::insert(std::initializer_list<Variant> values) {
    return work_->insert({values.begin(), values.size()});
}

void BulkInsert::commit() {
    work_->commit();
}

}  // namespace wmoutlook

#pragma once

#include "adapters/sql/Driver.h"
#include "adapters/sql/SelectParser.h"
#include "adapters/sql/Shape.h"
#include "adapters/sql/Values.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook::sql {

/// A table of the file, known to all plans that read it.
struct Table {
    std::string name;
    bool hasRowKeys = false;
    std::uint64_t version = 0;  ///< goes up with each write, so that rows read earlier are known to be old
};

/// The tables that texts have named so far.
class Tables {
public:
    explicit Tables(Driver& driver) : driver_(driver) {}
    Table& find(const std::string& name);

private:
    Driver& driver_;
    std::unordered_map<std::string, std::unique_ptr<Table>> tables_;  ///< by the name in lower case
};

inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// A column of a result.
struct Field {
    std::string name;
    std::string table;   ///< empty for a computed one
    std::string column;  ///< its name in the table, whatever the text calls it
    std::size_t source = kNone;
    ColumnType type;
    bool isAutoNumber = false;
    bool isTextual = true;
    std::string expression;  ///< as it stands in a condition

    [[nodiscard]] FieldName label() const { return {table, column.empty() ? std::string_view{name} : std::string_view{column}}; }
};

/// A test of one field, its value bound behind the literals of the text.
struct Condition {
    std::size_t field = 0;
    std::string_view comparison;  ///< one of = <> < <= > >=
};

/// A prepared search.
struct Search {
    std::unique_ptr<Statement> statement;
    bool isByKey = false;  ///< the engine needs no look at each row
};

/// All that is known of one shape of text: its columns, and the statements that its recordsets need, each prepared when it is
/// first needed and shared from then on. A result is *keyed* when each of its rows can be read again by the keys of the rows
/// that it is made of; the rows of any other are kept whole, and cannot be edited.
class Plan {
public:
    struct Source {
        Table* table = nullptr;
        std::string alias;
        std::string rowKey;  ///< as it stands in a condition
    };

    Plan(std::string_view key, Driver& driver, Tables& tables);

    [[nodiscard]] const std::vector<Field>& fields() const { return fields_; }
    /// By its name, or by table and name with a dot; of two with one name the first. kNone when there is none.
    [[nodiscard]] std::size_t find(std::string_view name) const;
    [[nodiscard]] const std::vector<Source>& sources() const { return sources_; }
    [[nodiscard]] std::size_t keyCount() const { return sources_.size(); }
    [[nodiscard]] bool isKeyed() const { return isKeyed_; }
    [[nodiscard]] bool isInKeyOrder() const { return isKeyed_ && select_.order.empty(); }
    [[nodiscard]] bool isWholeTable() const { return isInKeyOrder() && sources_.size() == 1 && select_.where.empty(); }
    /// Differs from an earlier answer when one of the tables was written to in between.
    [[nodiscard]] std::uint64_t version() const;

    /// Binds what the text holds. Statements of the plan have room for it in front.
    void bind(Statement& statement, const std::vector<Literal>& literals) const;
    [[nodiscard]] std::size_t literalCount() const { return truthValues_.size(); }

    Statement& rows() { return *rows_; }  ///< the fields and, behind them, the keys; in order
    Statement& keys();                    ///< the keys alone, in order
    Statement& rowByKeys();               ///< the fields; the keys are bound behind the literals
    /// As rows(), of those that pass all conditions; with `isBehindKey` of those with a greater key, bound last.
    Search& search(const std::vector<Condition>& conditions, bool isBehindKey);

    Statement& update(std::size_t index);   ///< binds the value and the row's key; leaves an equal value alone
    Statement& remove();                    ///< binds the row's key
    Statement& exists(std::size_t source);  ///< binds the row's key
    Statement& insert(const std::vector<std::size_t>& fields);

private:
    void readColumns(std::size_t count);
    void nameColumns();
    void readTruthValues();
    [[nodiscard]] TypeKind typeOfCompared(const ComparedColumn& compared) const;
    [[nodiscard]] std::string keyList() const;
    [[nodiscard]] std::string text(const std::string& list, const std::string& condition) const;
    [[nodiscard]] std::string conditionText(const std::vector<Condition>& conditions, bool isBehindKey) const;
    Statement& prepared(const std::string& sql, TextOrigin origin = TextOrigin::adapter);

    Driver& driver_;
    Select select_;
    bool isKeyed_ = false;
    std::vector<Field> fields_;
    std::unordered_map<std::string, std::size_t> fieldsByName_;  ///< names in lower case
    std::vector<Source> sources_;
    std::vector<std::int64_t> truthValues_;  ///< per literal: what True is there
    std::unique_ptr<Statement> rows_;
    Statement* keys_ = nullptr;
    Statement* rowByKeys_ = nullptr;
    Statement* remove_ = nullptr;
    std::vector<Statement*> updates_;
    std::vector<Statement*> exists_;
    std::unordered_map<std::string, std::unique_ptr<Statement>> statements_;  ///< by their text
    std::unordered_map<std::string, Search> searches_;                        ///< by their condition
    std::string scratch_;
};

}  // namespace wmoutlook::sql

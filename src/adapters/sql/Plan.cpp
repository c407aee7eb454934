#include "adapters/sql/Plan.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/Tokenizer.h"

#include <algorithm>

namespace wmoutlook::sql {

namespace {

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

void assignLower(std::string& target, std::string_view name) {
    target.assign(name);
    std::transform(target.begin(), target.end(), target.begin(), asciiLower);
}

std::string lower(std::string_view name) {
    std::string result;
    assignLower(result, name);
    return result;
}

std::string parenthesized(const std::string& condition) {
    return "(" + condition + ")";
}

}  // namespace

Table& Tables::find(const std::string& name) {
    auto& table = tables_[lower(name)];
    if (!table) table = std::make_unique<Table>(Table{name, driver_.hasRowKeys(name), 0});
    return *table;
}

Plan::Plan(std::string_view key, Driver& driver, Tables& tables) : driver_(driver), select_(parseSelect(key, driver)) {
    isKeyed_ = select_.isPlain;
    for (const SelectSource& source : select_.sources) {
        Table& table = tables.find(source.table);
        isKeyed_ = isKeyed_ && table.hasRowKeys;
        sources_.push_back({&table, source.alias, driver.rowKey(driver.quoted(source.alias))});
    }
    rows_ = driver.prepare(isKeyed_ ? text(select_.list + ", " + keyList(), {}) : select_.whole, TextOrigin::host);
    const auto columns = static_cast<std::size_t>(rows_->columnCount());
    readColumns(isKeyed_ ? columns - sources_.size() : columns);
    nameColumns();
    readTruthValues();
    updates_.resize(fields_.size());
    exists_.resize(sources_.size());
}

void Plan::readColumns(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        ColumnOrigin origin = rows_->origin(static_cast<int>(i));
        Field field{std::move(origin.name), std::move(origin.table), std::move(origin.column), kNone, {}, false, true, {}};
        const auto declared = field.table.empty() ? std::nullopt : driver_.column(field.table, field.column);
        if (declared) {
            field.type = typeOf(*declared);
            field.isAutoNumber = declared->isAutoNumber;
            field.isTextual = declared->isTextual;
        }
        // Of a table that stands there twice the engine does not say which one a column is of.
        const auto isOfTable = [&](const Source& source) { return equalsAscii(source.table->name, field.table); };
        if (isKeyed_ && std::count_if(sources_.begin(), sources_.end(), isOfTable) == 1) {
            const auto source = std::find_if(sources_.begin(), sources_.end(), isOfTable);
            field.source = static_cast<std::size_t>(source - sources_.begin());
            field.expression = driver_.quoted(source->alias) + "." + driver_.quoted(field.column);
        }
        fieldsByName_.emplace(lower(field.name), i);
        fieldsByName_.emplace(lower(field.table + "." + field.name), i);
        fields_.push_back(std::move(field));
    }
}

/// Another program may add columns while the file is open. A star would then give more than was planned for, and the keys behind
/// it would be read from the wrong place; a column that is named and gone is an error of the engine.
void Plan::nameColumns() {
    const bool hasStar = select_.list.find('*') != std::string::npos;
    const auto isNamed = [](const Field& field) { return field.source != kNone; };
    if (!isKeyed_ || !hasStar || !std::all_of(fields_.begin(), fields_.end(), isNamed)) return;
    select_.list.clear();
    for (const Field& field : fields_) select_.list += (select_.list.empty() ? "" : ", ") + field.expression;
    rows_ = driver_.prepare(text(select_.list + ", " + keyList(), {}), TextOrigin::host);
}

/// True is 1 in a Boolean column and counts as -1 where it stands in the place of a number.
void Plan::readTruthValues() {
    for (const ComparedColumn& compared : select_.comparedTo) {
        const TypeKind kind = compared.column.empty() ? TypeKind::none : typeOfCompared(compared);
        const bool isNumber = kind != TypeKind::none && kind != TypeKind::boolean && kind != TypeKind::text;
        truthValues_.push_back(isNumber ? kTrueAsNumber : 1);
    }
}

TypeKind Plan::typeOfCompared(const ComparedColumn& compared) const {
    for (const SelectSource& source : select_.sources) {
        if (!compared.qualifier.empty() && !equalsAscii(source.alias, compared.qualifier)) continue;
        if (const auto column = driver_.column(source.table, compared.column)) return typeOf(*column).kind;
    }
    return TypeKind::none;
}

std::size_t Plan::find(std::string_view name) const {
    thread_local std::string lowered;
    assignLower(lowered, name);
    const auto hit = fieldsByName_.find(lowered);
    return hit == fieldsByName_.end() ? kNone : hit->second;
}

std::uint64_t Plan::version() const {
    std::uint64_t sum = 0;
    for (const Source& source : sources_) sum += source.table->version;
    return sum;
}

void Plan::bind(Statement& statement, const std::vector<Literal>& literals) const {
    const auto count = std::min(literals.size(), static_cast<std::size_t>(statement.parameterCount()));
    for (std::size_t i = 0; i < count; ++i) {
        const Literal& literal = literals[i];
        const bool isTrue = literal.isTruth && literal.cell.integer != 0;
        statement.bind(static_cast<int>(i + 1), isTrue ? Cell::of(truthValues_[i]) : literal.cell);
    }
}

std::string Plan::keyList() const {
    std::string list;
    for (const Source& source : sources_) list += (list.empty() ? "" : ", ") + source.rowKey;
    return list;
}

/// The keys are the last word of the order, so that rows which it leaves equal never change places.
std::string Plan::text(const std::string& list, const std::string& condition) const {
    std::string where = select_.where;
    if (!condition.empty()) where = where.empty() ? condition : parenthesized(where) + " AND " + condition;
    return "SELECT " + list + " FROM " + select_.from + (where.empty() ? "" : " WHERE " + where) + " ORDER BY " +
           (select_.order.empty() ? "" : select_.order + ", ") + keyList();
}

Statement& Plan::prepared(const std::string& sql, TextOrigin origin) {
    auto& statement = statements_[sql];
    if (!statement) statement = driver_.prepare(sql, origin);
    return *statement;
}

Statement& Plan::keys() {
    if (keys_ == nullptr) keys_ = &prepared(text(keyList(), {}), TextOrigin::host);
    return *keys_;
}

/// Each source is found by its own key; one that an outer join has left empty comes back empty.
Statement& Plan::rowByKeys() {
    if (rowByKeys_ != nullptr) return *rowByKeys_;
    std::string sql = "SELECT " + select_.list + " FROM ";
    for (std::size_t i = 0; i < sources_.size(); ++i) {
        const std::string source = driver_.quoted(sources_[i].table->name) + " AS " + driver_.quoted(sources_[i].alias);
        const std::string condition = sources_[i].rowKey + " = " + driver_.parameter(literalCount() + i + 1);
        sql += i == 0 ? source : " LEFT JOIN " + source + " ON " + condition;
    }
    sql += " WHERE " + sources_[0].rowKey + " = " + driver_.parameter(literalCount() + 1);
    rowByKeys_ = &prepared(sql, TextOrigin::host);
    return *rowByKeys_;
}

std::string Plan::conditionText(const std::vector<Condition>& conditions, bool isBehindKey) const {
    std::string sql;
    std::size_t number = literalCount();
    for (const Condition& condition : conditions) {
        const Field& field = fields_[condition.field];
        const bool isTextual = field.type.kind == TypeKind::text && field.isTextual;
        sql += (sql.empty() ? "" : " AND ") + (isTextual ? driver_.textually(field.expression) : field.expression) + " " +
               std::string{condition.comparison} + " " + driver_.parameter(++number);
    }
    if (isBehindKey) sql += " AND " + sources_[0].rowKey + " > " + driver_.parameter(++number);
    return sql;
}

Search& Plan::search(const std::vector<Condition>& conditions, bool isBehindKey) {
    scratch_.assign(isBehindKey ? ">" : "");
    for (const Condition& condition : conditions) {
        scratch_ += std::to_string(condition.field);
        scratch_ += condition.comparison;
    }
    Search& search = searches_[scratch_];
    if (search.statement) return search;
    const std::string sql = text(select_.list + ", " + keyList(), conditionText(conditions, isBehindKey));
    search.isByKey = driver_.answersByKey(sql, fields_[conditions.front().field].column);
    search.statement = driver_.prepare(sql, TextOrigin::host);
    return search;
}

Statement& Plan::update(std::size_t index) {
    if (updates_[index] != nullptr) return *updates_[index];
    const Field& field = fields_[index];
    const std::string table = driver_.quoted(field.table);
    const std::string column = driver_.quoted(field.column);
    updates_[index] =
        &prepared("UPDATE " + table + " SET " + column + " = " + driver_.parameter(1) + " WHERE " + driver_.rowKey(table) +
                  " = " + driver_.parameter(2) + " AND " + driver_.differs(column, driver_.parameter(1)));
    return *updates_[index];
}

Statement& Plan::remove() {
    const std::string table = driver_.quoted(sources_[0].table->name);
    if (remove_ == nullptr)
        remove_ = &prepared("DELETE FROM " + table + " WHERE " + driver_.rowKey(table) + " = " + driver_.parameter(1));
    return *remove_;
}

Statement& Plan::exists(std::size_t source) {
    const std::string table = driver_.quoted(sources_[source].table->name);
    if (exists_[source] == nullptr)
        exists_[source] = &prepared("SELECT 1 FROM " + table + " WHERE " + driver_.rowKey(table) + " = " + driver_.parameter(1));
    return *exists_[source];
}

Statement& Plan::insert(const std::vector<std::size_t>& fields) {
    scratch_ = "INSERT INTO " + driver_.quoted(sources_[0].table->name);
    if (fields.empty()) return prepared(scratch_ += " DEFAULT VALUES");
    std::string values;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        scratch_ += (i == 0 ? " (" : ", ") + driver_.quoted(fields_[fields[i]].column);
        values += (i == 0 ? "" : ", ") + driver_.parameter(i + 1);
    }
    return prepared(scratch_ += ") VALUES (" + values + ")");
}

}  // namespace wmoutlook::sql

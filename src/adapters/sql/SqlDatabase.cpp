#include "adapters/sql/SqlDatabase.h"

#include "adapters/sql/Faults.h"
#include "adapters/sql/RowSet.h"

#include <algorithm>

namespace wmoutlook {

namespace sql {

namespace {

/// Far more shapes than the component has texts: only a caller that makes up texts can reach it.
constexpr std::size_t kMostPlans = 512;

class SqlDatabase final : public HostDatabase, private RowSetObserver {
public:
    explicit SqlDatabase(std::unique_ptr<Driver> driver) : driver_(std::move(driver)) {
        if (driver_) tables_ = std::make_unique<Tables>(*driver_);
    }
    ~SqlDatabase() override { SqlDatabase::closeDatabase(); }

    std::int32_t recordCount(RecordsetHandle handle) override { return set(handle, "recordCount").count(); }
    bool hasRows(RecordsetHandle handle) override { return set(handle, "hasRows").hasRows(); }
    bool isRecordsetOpen(RecordsetHandle handle) override { return find(handle) != nullptr; }
    bool isEndOfRecordset(RecordsetHandle handle) override { return set(handle, "isEndOfRecordset").isAtEnd(); }
    bool isDatabaseOpen() override { return driver_ != nullptr; }

    void closeDatabase() override {
        open_.clear();
        free_.clear();
        plans_.clear();
        tables_.reset();
        driver_.reset();
    }

    RecordsetHandle openRecordset(std::string_view sql, LockCode lock) override {
        if (!driver_) fail(Fault::notOpen, "openRecordset: the database is not open");
        if (lock == LockCode::updatable) driver_->endSharedReads();  // what is to be written to is seen as it is
        std::unique_ptr<RowSet> set = takeFree();
        set->open(sql, lock);
        set->use(planFor(set->shape().key()), *driver_, *this);
        open_.push_back({++lastHandle_, std::move(set)});
        return lastHandle_;
    }

    void closeRecordset(RecordsetHandle handle) override {
        const auto entry = std::find_if(open_.begin(), open_.end(), [&](const Open& open) { return open.handle == handle; });
        if (entry == open_.end()) failAsClosed("closeRecordset", {});
        entry->set->close();
        free_.push_back(std::move(entry->set));
        open_.erase(entry);
        if (open_.empty()) driver_->endSharedReads();
    }

    RecordMarker saveRecordPosition(RecordsetHandle handle) override { return set(handle, "saveRecordPosition").savePosition(); }
    void restoreRecordPosition(RecordsetHandle handle, RecordMarker marker) override {
        set(handle, "restoreRecordPosition").restorePosition(marker);
    }
    bool moveFirst(RecordsetHandle handle) override { return set(handle, "moveFirst").moveFirst(); }
    void moveNext(RecordsetHandle handle) override { set(handle, "moveNext").moveNext(); }

    Variant getField(RecordsetHandle handle, std::string_view field) override {
        return set(handle, "getField", field).field(field);
    }
    void updateField(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        set(handle, "updateField", field).update(field, value);
    }
    void deleteRecord(RecordsetHandle handle) override { set(handle, "deleteRecord").remove(); }

    void addNewRecord(RecordsetHandle handle) override { set(handle, "addNewRecord").beginNew(); }
    void setNewField(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        set(handle, "setNewField", field).setNew(field, value);
    }
    void saveNewRecord(RecordsetHandle handle) override { set(handle, "saveNewRecord").saveNew(); }

    bool findFirst(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        return set(handle, "findFirst", field).findFirst(field, value);
    }
    bool findNext(RecordsetHandle handle) override { return set(handle, "findNext").findNext(); }
    bool noMatch(RecordsetHandle handle) override { return set(handle, "noMatch").noMatch(); }
    bool findByCriteria(RecordsetHandle handle, std::string_view criteria) override {
        return set(handle, "findByCriteria").findByCriteria(criteria);
    }

    std::string formatDateForSql(Date date) const override { return toIsoText(date); }

    std::string quoteTextForSql(std::string_view text) const override {
        std::string quoted{"'"};
        for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
        return quoted + "'";
    }

    std::shared_ptr<HostDatabase> openLocalStore(const std::string& path, std::string_view accessText) override {
        return makeDatabase(driver_ ? driver_->openLocalStore(path, accessText) : nullptr);
    }

    [[nodiscard]] SqlStatistics statistics() const { return driver_ ? driver_->statistics() : SqlStatistics{}; }

private:
    struct Open {
        RecordsetHandle handle;
        std::unique_ptr<RowSet> set;
    };

    [[noreturn]] static void failAsClosed(std::string_view operation, std::string_view field) {
        fail(Fault::notOpen,
             std::string{operation} + (field.empty() ? "" : " \"" + std::string{field} + "\"") + ": the recordset is not open");
    }

    /// Few are open at a time, and the one opened last is asked most.
    RowSet* find(RecordsetHandle handle) {
        for (auto open = open_.rbegin(); open != open_.rend(); ++open)
            if (open->handle == handle) return open->set.get();
        return nullptr;
    }

    RowSet& set(RecordsetHandle handle, std::string_view operation, std::string_view field = {}) {
        RowSet* const found = find(handle);
        if (found == nullptr) failAsClosed(operation, field);
        ++operation_;
        return *found;
    }

    std::unique_ptr<RowSet> takeFree() {
        if (free_.empty()) return std::make_unique<RowSet>();
        std::unique_ptr<RowSet> set = std::move(free_.back());
        free_.pop_back();
        return set;
    }

    std::shared_ptr<Plan> planFor(const std::string& key) {
        const auto known = plans_.find(key);
        if (known != plans_.end()) return known->second;
        if (plans_.size() >= kMostPlans) plans_.clear();  // open recordsets keep theirs
        auto plan = std::make_shared<Plan>(key, *driver_, *tables_);
        plans_.emplace(key, plan);
        return plan;
    }

    std::uint64_t operation() const override { return operation_; }

    void beforeChange(const Table& table) override {
        for (const Open& open : open_) open.set->noteComingChange(table);
    }

    void rowAdded(const RowSet& by, const Table& table, std::int64_t key) override {
        for (const Open& open : open_)
            if (open.set.get() != &by) open.set->noteAdded(table, key);
    }

    void fieldChanged(const Field& field, std::int64_t key, const Cell& value) override {
        for (const Open& open : open_) open.set->noteChanged(field, key, value);
    }

    std::unique_ptr<Driver> driver_;
    std::unique_ptr<Tables> tables_;
    std::unordered_map<std::string, std::shared_ptr<Plan>> plans_;
    std::vector<Open> open_;
    std::vector<std::unique_ptr<RowSet>> free_;
    RecordsetHandle lastHandle_ = 0;
    std::uint64_t operation_ = 0;
};

}  // namespace

std::shared_ptr<HostDatabase> makeDatabase(std::unique_ptr<Driver> driver) {
    return std::make_shared<SqlDatabase>(std::move(driver));
}

}  // namespace sql

SqlStatistics sqlStatistics(HostDatabase& database) {
    const auto* const own = dynamic_cast<sql::SqlDatabase*>(&database);
    return own == nullptr ? SqlStatistics{} : own->statistics();
}

}  // namespace wmoutlook

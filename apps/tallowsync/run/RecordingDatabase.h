#pragma once

#include "apps/tallowsync/run/RunEnd.h"
#include "apps/tallowsync/run/WrittenRecords.h"
#include "platform/HostDatabase.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace wmoutlook {

/// A host database that passes every call on and keeps which records were written: rows of the tables that have an identity of
/// their own (clients, categories, calendar, schemes) and links. Rows that hang on those (notes, options) are not listed. Once the
/// run is to end, the next call but a closing one unwinds it.
class RecordingDatabase : public HostDatabase {
public:
    RecordingDatabase(std::shared_ptr<HostDatabase> inner, std::shared_ptr<RunEnd> end)
        : inner_(std::move(inner)), end_(std::move(end)) {}

    /// Each an object such as {"table": "Companies", "CompanyID": 12}.
    [[nodiscard]] const WrittenRecords& rows() const { return rows_; }

    [[nodiscard]] std::int32_t recordCount(RecordsetHandle handle) override { return pass().recordCount(handle); }
    [[nodiscard]] bool hasRows(RecordsetHandle handle) override { return pass().hasRows(handle); }
    [[nodiscard]] bool isRecordsetOpen(RecordsetHandle handle) override { return inner_->isRecordsetOpen(handle); }
    [[nodiscard]] bool isEndOfRecordset(RecordsetHandle handle) override { return pass().isEndOfRecordset(handle); }
    [[nodiscard]] bool isDatabaseOpen() override { return pass().isDatabaseOpen(); }
    void closeDatabase() override { inner_->closeDatabase(); }

    [[nodiscard]] RecordsetHandle openRecordset(std::string_view sql, LockCode lock) override;
    void closeRecordset(RecordsetHandle handle) override;

    [[nodiscard]] RecordMarker saveRecordPosition(RecordsetHandle handle) override { return pass().saveRecordPosition(handle); }
    void restoreRecordPosition(RecordsetHandle handle, RecordMarker marker) override {
        moving(handle).restoreRecordPosition(handle, marker);
    }
    bool moveFirst(RecordsetHandle handle) override { return moving(handle).moveFirst(handle); }
    void moveNext(RecordsetHandle handle) override { moving(handle).moveNext(handle); }
    [[nodiscard]] Variant getField(RecordsetHandle handle, std::string_view field) override {
        return pass().getField(handle, field);
    }

    void updateField(RecordsetHandle handle, std::string_view field, std::string_view value) override;
    void deleteRecord(RecordsetHandle handle) override;
    void addNewRecord(RecordsetHandle handle) override { moving(handle).addNewRecord(handle); }
    void setNewField(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        pass().setNewField(handle, field, value);
    }
    void saveNewRecord(RecordsetHandle handle) override;

    bool findFirst(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        return moving(handle).findFirst(handle, field, value);
    }
    bool findNext(RecordsetHandle handle) override { return moving(handle).findNext(handle); }
    [[nodiscard]] bool noMatch(RecordsetHandle handle) override { return pass().noMatch(handle); }
    bool findByCriteria(RecordsetHandle handle, std::string_view criteria) override {
        return moving(handle).findByCriteria(handle, criteria);
    }

    [[nodiscard]] std::string formatDateForSql(Date date) const override { return inner_->formatDateForSql(date); }
    [[nodiscard]] std::string quoteTextForSql(std::string_view text) const override { return inner_->quoteTextForSql(text); }
    [[nodiscard]] std::shared_ptr<HostDatabase> openLocalStore(const std::string& path, std::string_view accessText) override {
        return pass().openLocalStore(path, accessText);
    }

private:
    /// An updatable set of a table that is listed, and the record that was written last, as long as it is the current one.
    struct OpenSet {
        std::size_t table = 0;
        bool isCurrentNoted = false;
    };

    [[nodiscard]] HostDatabase& pass() const {
        end_->atCall();
        return *inner_;
    }
    [[nodiscard]] HostDatabase& moving(RecordsetHandle handle);
    [[nodiscard]] OpenSet* listedSet(RecordsetHandle handle);
    [[nodiscard]] Json currentRecord(RecordsetHandle handle, std::size_t table);

    std::shared_ptr<HostDatabase> inner_;
    std::shared_ptr<RunEnd> end_;
    std::unordered_map<RecordsetHandle, OpenSet> sets_;
    WrittenRecords rows_;
};

}  // namespace wmoutlook

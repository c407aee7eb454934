#pragma once

#include "platform/HostDatabase.h"
#include "tests/support/Faults.h"

#include <memory>
#include <set>

namespace wmoutlook::testing {

/// A database whose calls can be made to fail, and which knows the handles that were not closed.
class FaultyDatabase : public HostDatabase {
public:
    FaultyDatabase(std::shared_ptr<HostDatabase> inner, Faults& faults) : inner_(std::move(inner)), faults_(faults) {}

    std::set<RecordsetHandle> openHandles;

    std::int32_t recordCount(RecordsetHandle handle) override { return pass("recordCount").recordCount(handle); }
    bool hasRows(RecordsetHandle handle) override { return pass("hasRows").hasRows(handle); }
    bool isRecordsetOpen(RecordsetHandle handle) override { return pass("isRecordsetOpen").isRecordsetOpen(handle); }
    bool isEndOfRecordset(RecordsetHandle handle) override { return pass("isEndOfRecordset").isEndOfRecordset(handle); }
    bool isDatabaseOpen() override { return pass("isDatabaseOpen").isDatabaseOpen(); }
    void closeDatabase() override { pass("closeDatabase").closeDatabase(); }
    RecordsetHandle openRecordset(std::string_view sql, LockCode lock) override {
        const RecordsetHandle handle = pass("openRecordset").openRecordset(sql, lock);
        openHandles.insert(handle);
        return handle;
    }
    void closeRecordset(RecordsetHandle handle) override {
        openHandles.erase(handle);  // asked to close: a close that fails is no leak of the caller's
        pass("closeRecordset").closeRecordset(handle);
    }
    RecordMarker saveRecordPosition(RecordsetHandle handle) override {
        return pass("saveRecordPosition").saveRecordPosition(handle);
    }
    void restoreRecordPosition(RecordsetHandle handle, RecordMarker marker) override {
        pass("restoreRecordPosition").restoreRecordPosition(handle, marker);
    }
    bool moveFirst(RecordsetHandle handle) override { return pass("moveFirst").moveFirst(handle); }
    void moveNext(RecordsetHandle handle) override { pass("moveNext").moveNext(handle); }
    Variant getField(RecordsetHandle handle, std::string_view field) override {
        return pass("getField", field).getField(handle, field);
    }
    void updateField(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        pass("updateField", field).updateField(handle, field, value);
    }
    void deleteRecord(RecordsetHandle handle) override { pass("deleteRecord").deleteRecord(handle); }
    void addNewRecord(RecordsetHandle handle) override { pass("addNewRecord").addNewRecord(handle); }
    void setNewField(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        pass("setNewField", field).setNewField(handle, field, value);
    }
    void saveNewRecord(RecordsetHandle handle) override { pass("saveNewRecord").saveNewRecord(handle); }
    bool findFirst(RecordsetHandle handle, std::string_view field, std::string_view value) override {
        return pass("findFirst").findFirst(handle, field, value);
    }
    bool findNext(RecordsetHandle handle) override { return pass("findNext").findNext(handle); }
    bool noMatch(RecordsetHandle handle) override { return pass("noMatch").noMatch(handle); }
    bool findByCriteria(RecordsetHandle handle, std::string_view criteria) override {
        return pass("findByCriteria").findByCriteria(handle, criteria);
    }
    std::string formatDateForSql(Date date) const override { return pass("formatDateForSql").formatDateForSql(date); }
    std::string quoteTextForSql(std::string_view text) const override { return pass("quoteTextForSql").quoteTextForSql(text); }
    std::shared_ptr<HostDatabase> openLocalStore(const std::string& path, std::string_view accessText) override {
        return pass("openLocalStore").openLocalStore(path, accessText);
    }

private:
    HostDatabase& pass(const char* operation, std::string_view field = {}) const {
        faults_.hit(operation, field);
        return *inner_;
    }

    std::shared_ptr<HostDatabase> inner_;
    Faults& faults_;
};

}  // namespace wmoutlook::testing

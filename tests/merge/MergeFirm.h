#pragma once

#include "component/clsOutlookSynchronization.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace wmoutlook::testing {

/// A list box as its user sees it.
class RecordedList : public PickList {
public:
    std::vector<std::pair<std::string, std::int32_t>> items;
    int refreshed = 0;

    void Clear() override { items.clear(); }
    void AddItem(std::string_view text) override { items.emplace_back(text, 0); }
    std::int32_t NewIndex() override { return static_cast<std::int32_t>(items.size()) - 1; }
    std::int32_t ItemData(std::int32_t index) override { return items.at(static_cast<std::size_t>(index)).second; }
    void ItemData(std::int32_t index, std::int32_t data) override { items.at(static_cast<std::size_t>(index)).second = data; }
    void Refresh() override { ++refreshed; }

    [[nodiscard]] std::vector<std::string> texts() const {
        std::vector<std::string> texts;
        for (const auto& [text, data] : items) texts.push_back(text);
        return texts;
    }
};

/// A firm of one company and two contacts, on 22 November 2026, and a merge in it.
class MergeFirm : public ::testing::Test {
protected:
    MergeFirm() {
        host.errors->answer = [](const ErrorReport&) { return ErrorAnswer::goOn; };
    }

    std::int32_t add(const std::string& table, const std::string& key, const Fields& fields) {
        return addRow(*host.database, table, key, fields);
    }
    /// The text that a template becomes for the records that are set.
    std::string merged(const std::string& templateText) {
        merge.initializeDataRecordsetsForSingleDocMerge();
        merge.TemplateText = templateText;
        return merge.parseRTBComment();
    }
    /// "display name=database field" of each row from one to another.
    [[nodiscard]] std::vector<std::string> rows() {
        merge::FieldList list = merge.fieldList();
        std::vector<std::string> rows;
        for (std::int32_t i = 1; list.moveTo(i); ++i)
            rows.push_back(list.current()->displayName + "=" + list.current()->databaseField);
        return rows;
    }
    void build(std::int32_t listType) {
        merge.ListType = listType;
        bool skipList = false, clearList = true;
        merge.createDefaultFieldListStructure(skipList, clearList);
    }

    TestHost host;
    std::unique_ptr<clsOutlookSynchronization> component = host.component();  // hands the services over
    clsInsertFieldsInRTB merge;
};

}  // namespace wmoutlook::testing

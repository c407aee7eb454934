#include "merge/FieldListBuilder.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"

#include <array>
#include <optional>

namespace wmoutlook::merge {

namespace {

constexpr std::int32_t kNowhere = -1;
constexpr std::size_t kCustomRows = 5;

using Labels = std::array<std::optional<std::string>, kCustomRows>;

/// Nothing where there is no label of the firm's own.
Labels labelsOf(const CustomRows& rows) {
    Labels labels;
    if (!isDatabaseOpen()) return labels;
    const std::string table{rows.table};
    const Recordset fields{"SELECT " + table + ".* FROM " + table + ";"};
    if (!fields.hasRows()) return labels;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        labels[i] = fields.textIfRead(std::string{rows.labelStem} + number);
        if (labels[i] && labels[i]->ends_with(':')) labels[i]->pop_back();
        if (labels[i] && (ValueHelper::isNullOrEmpty(*labels[i]) || *labels[i] == "Custom " + number)) labels[i].reset();
    }
    return labels;
}

}  // namespace

void FieldListBuilder::addItem(std::string_view text, std::int32_t data) {
    if (!box_) return;
    statement([&] { box_->AddItem(text); });
    statement([&] { box_->ItemData(box_->NewIndex(), data); });
}

void FieldListBuilder::show(std::string_view text) {
    addItem(text, kNowhere);
}

void FieldListBuilder::header(std::string_view text, Blank blank) {
    if (!showHeaders_) return;
    if (hasHeader_ && blank == Blank::before) show({});
    show(text);
    hasHeader_ = true;
}

void FieldListBuilder::add(Field field, std::string_view listText) {
    const Field& added = list_.addField(std::move(field));
    addItem(listText.empty() ? added.displayName : listText, list_.count());
}

void FieldListBuilder::rows(std::span<const FieldRow> rows, SourceKind source) {
    for (const FieldRow& row : rows)
        if (standsIn(row, terms_)) add(fieldOf(row, source, terms_), row.listText);
}

void FieldListBuilder::customRows(const CustomRows& rows, SourceKind source) {
    constexpr std::int16_t kLength = 255;
    const Labels labels = labelsOf(rows);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        const std::string usualName = std::string{rows.nameStem} + number;
        const bool isOddFifth = i + 1 == labels.size() && !rows.fifthName.empty();
        const std::string name = labels[i].value_or(isOddFifth ? std::string{rows.fifthName} : usualName);
        add({std::string{rows.fieldStem} + number, name, source, DataType::text, "Custom Info " + number, kLength},
            labels[i] ? std::string_view{} : usualName);
    }
}

void FieldListBuilder::notes(std::string_view displayName, SourceKind source) {
    add({"Notes", std::string{displayName}, source, DataType::text, "Notes", -1}, displayName);
}

}  // namespace wmoutlook::merge

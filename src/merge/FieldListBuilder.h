#pragma once

#include "merge/FieldTables.h"
#include "merge/PickList.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace wmoutlook::merge {

/// Appends groups of rows to a field list and shows them in a pick list, where one is filled: a click on an item leads back to its row
/// by the item's data, -1 for a header or a blank. Works within the routine that is running.
class FieldListBuilder {
public:
    /// Without a pick list nothing is shown.
    FieldListBuilder(FieldList& list, std::shared_ptr<PickList> box, const ListTerms& terms, bool showHeaders)
        : list_(list), box_(std::move(box)), terms_(terms), showHeaders_(showHeaders) {}

    /// An item that leads nowhere.
    void show(std::string_view text);
    enum class Blank { before, none };
    /// The first header of a list never has a blank in front.
    void header(std::string_view text, Blank blank = Blank::before);
    void rows(std::span<const FieldRow> rows, SourceKind source);
    /// By the firm's own labels, or by the default names when there are none.
    void customRows(const CustomRows& rows, SourceKind source);
    void notes(std::string_view displayName, SourceKind source);

private:
    void add(Field field, std::string_view listText);  ///< empty: listed by its name
    void addItem(std::string_view text, std::int32_t data);

    FieldList& list_;
    std::shared_ptr<PickList> box_;
    const ListTerms& terms_;
    bool showHeaders_;
    bool hasHeader_ = false;
};

}  // namespace wmoutlook::merge

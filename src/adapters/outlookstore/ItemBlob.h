#pragma once

#include "adapters/outlookstore/ItemData.h"
#include "adapters/outlookstore/Recurrence.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The form in which an item lies in its row: one byte for the format, then one entry per property that differs from its
/// default (code, kind, value; numbers as variable-length integers), then the user properties under code 0. What cannot have been
/// written by encodeItem is an OutlookError, never a crash.
namespace wmoutlook::outlookstore {

enum class StoredKind : std::uint8_t { null = 0, text = 1, integer = 2, boolean = 3, date = 4, number = 5 };

/// One entry as it lies in the bytes.
struct StoredEntry {
    std::uint64_t code = 0;  ///< 0: a user property
    std::string_view name;   ///< of a user property
    std::uint8_t userType = 0;
    StoredKind kind = StoredKind::null;
    std::string_view text;
    std::int64_t integer = 0;  ///< of an integer or a boolean
    double number = 0;         ///< of a date or a number

    [[nodiscard]] Variant value() const;
};

/// Walks the entries without building anything.
class ItemBlobReader {
public:
    explicit ItemBlobReader(std::string_view bytes);
    bool next(StoredEntry& entry);  ///< false at the end

private:
    std::uint64_t takeNumber();
    std::uint8_t takeByte();
    double takeDouble();
    std::string_view takeText();
    void takeValue(StoredEntry& entry);
    [[noreturn]] void fail() const;

    std::string_view bytes_;
    std::size_t at_ = 0;
};

/// Writes over `bytes`, whose memory is used again.
void encodeItem(const ItemData& item, std::string& bytes);
[[nodiscard]] ItemData decodeItem(outlook::ItemType type, std::string_view bytes);

/// What an exception has other than its series, in the same form; kind 0 stands for the default. The names are those of the table.
void encodeChanges(const PropertyTable& table, const std::vector<ChangedProperty>& changes, std::string& bytes);
[[nodiscard]] std::vector<ChangedProperty> decodeChanges(const PropertyTable& table, std::string_view bytes);

/// Whether an entry of this kind can be the value of such a property.
[[nodiscard]] bool holds(PropertyKind property, StoredKind stored);

}  // namespace wmoutlook::outlookstore

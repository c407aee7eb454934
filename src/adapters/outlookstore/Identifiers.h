#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Identifiers as texts of upper-case hexadecimal digits, like Outlook's: 8 zeros, the 32 digits that a store drew when it
/// was made, and for an entry two digits for its kind and 14 digits for its number.
namespace wmoutlook::outlookstore {

enum class EntryKind : std::uint8_t { folder = 1, item = 2 };

struct EntryNumber {
    std::string_view storeKey;  ///< a view of the text that was read
    EntryKind kind = EntryKind::item;
    std::int64_t number = 0;
};

[[nodiscard]] std::string storeIDOf(std::string_view storeKey);
[[nodiscard]] std::string entryIDOf(std::string_view storeKey, EntryKind kind, std::int64_t number);
/// Nothing for a text that entryIDOf cannot have written.
[[nodiscard]] std::optional<EntryNumber> readEntryID(std::string_view entryID);

}  // namespace wmoutlook::outlookstore

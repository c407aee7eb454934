#include "adapters/outlookstore/Identifiers.h"

namespace wmoutlook::outlookstore {

namespace {

constexpr std::string_view kFlags = "00000000";
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::size_t kStoreKeyLength = 32;
constexpr std::size_t kKindAt = kFlags.size() + kStoreKeyLength;
constexpr std::size_t kNumberAt = kKindAt + 2;
constexpr std::size_t kNumberLength = 14;  // 56 bits

}  // namespace

std::string storeIDOf(std::string_view storeKey) {
    return std::string{kFlags}.append(storeKey);
}

std::string entryIDOf(std::string_view storeKey, EntryKind kind, std::int64_t number) {
    std::string id;
    id.reserve(kNumberAt + kNumberLength);
    id.append(kFlags).append(storeKey).append(1, '0').append(1, kDigits[static_cast<std::size_t>(kind)]);
    const auto bits = static_cast<std::uint64_t>(number);
    for (std::size_t i = kNumberLength; i-- > 0;) id += kDigits[static_cast<std::size_t>(bits >> (4 * i) & 0xF)];
    return id;
}

std::optional<EntryNumber> readEntryID(std::string_view entryID) {
    const bool isOurs = entryID.size() == kNumberAt + kNumberLength && entryID.starts_with(kFlags) &&
                        entryID.find_first_not_of(kDigits) == std::string_view::npos && entryID[kKindAt] == '0';
    if (!isOurs || (entryID[kKindAt + 1] != '1' && entryID[kKindAt + 1] != '2')) return std::nullopt;
    EntryNumber entry{entryID.substr(kFlags.size(), kStoreKeyLength),
                      entryID[kKindAt + 1] == '1' ? EntryKind::folder : EntryKind::item, 0};
    for (const char c : entryID.substr(kNumberAt)) entry.number = entry.number * 16 + static_cast<std::int64_t>(kDigits.find(c));
    return entry;
}

}  // namespace wmoutlook::outlookstore

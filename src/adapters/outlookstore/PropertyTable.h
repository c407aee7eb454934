#pragma once

#include "platform/Variant.h"
#include "platform/outlook/ObjectModel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// The properties that each type of item has, as tables. Adding a property is adding a row with a code of its own; a code
/// that was ever used keeps its meaning, since the files hold codes and not names.
namespace wmoutlook::outlookstore {

enum class PropertyKind : std::uint8_t {
    text,
    integer,
    boolean,
    day,    ///< a date whose time of day is dropped
    moment  ///< a date with its time of day
};

enum class PropertyAccess : std::uint8_t { readWrite, readOnly };

struct PropertyRow {
    std::uint16_t code = 0;
    std::string_view name;
    PropertyKind kind = PropertyKind::text;
    PropertyAccess access = PropertyAccess::readWrite;
    std::int32_t defaultNumber = 0;  ///< of an integer; of a boolean 0 or 1; a date's default is always the absent date

    [[nodiscard]] Variant defaultValue() const;
};

/// All properties of one type of item. Positions are those of `rows()` and hold within one run only.
class PropertyTable {
public:
    [[nodiscard]] static const PropertyTable& of(outlook::ItemType type);

    [[nodiscard]] std::span<const PropertyRow> rows() const { return rows_; }
    /// By name without regard to the case of ASCII letters; nothing for a name that the type does not have.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view name) const;
    [[nodiscard]] std::optional<std::size_t> findCode(std::uint64_t code) const;

private:
    explicit PropertyTable(std::span<const std::span<const PropertyRow>> blocks);

    std::vector<PropertyRow> rows_;
    std::vector<std::uint16_t> slots_;        ///< open hash table of positions + 1, a power of two wide
    std::vector<std::uint16_t> codeToIndex_;  ///< position + 1 by code
};

/// "ContactItem", "AppointmentItem", "TaskItem", "MailItem".
[[nodiscard]] std::string_view typeName(outlook::ItemType type);

/// Properties that an index answers for equality, in the order of their columns in the file.
inline constexpr std::array<std::string_view, 4> kIndexedProperties{"FileAs", "FullName", "Subject", "Email1Address"};
/// Dates by which an index sorts, in the order of their columns in the file; each is of one type of item alone.
inline constexpr std::array<std::string_view, 2> kSortedProperties{"Start", "DueDate"};

}  // namespace wmoutlook::outlookstore

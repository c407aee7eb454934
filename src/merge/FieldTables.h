#pragma once

#include "merge/FieldList.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The rows of the field list: which placeholders there are, in the order in which they are listed and replaced.
namespace wmoutlook::merge {

/// What decides which rows stand in a list and what they are called.
struct ListTerms {
    std::int32_t country = 0;    ///< see namespace country
    std::int32_t province = 0;   ///< see namespace province
    bool isHarmonized = false;   ///< see isHarmonizedOn
    bool hasWholeLines = false;  ///< for address lists: lines of addresses as rows of their own
};

/// What a row holds: it decides the data type, the length and the sample.
enum class Shape {
    name,
    namePart,
    address,
    webAddress,
    email,
    phone,
    city,
    province,
    country,
    postalCode,
    number,
    text,
    date,
    time,
    money,
    truth,
    minutes,
    duration,
    notes,
};

enum class Where { everywhere, canada, elsewhere };
enum class Lines { either, whole, single };  ///< in lists with whole address lines only, or in others only

struct FieldRow {
    std::string_view databaseField;
    std::string_view displayName;
    Shape shape = Shape::text;
    Where where = Where::everywhere;
    Lines lines = Lines::either;
    /// Put in front of the name and a blank; nothing for most.
    std::string_view (*prefix)(const ListTerms& terms) = nullptr;
    bool (*stands)(const ListTerms& terms) = nullptr;  ///< a further condition
    std::string_view listText{};                       ///< in the pick list, where it is another one than the name
};

// One after the other, custom rows and rows of notes aside.

[[nodiscard]] std::span<const FieldRow> appointmentRows();
[[nodiscard]] std::span<const FieldRow> taskScheduleRows();
[[nodiscard]] std::span<const FieldRow> taskCalendarRows();
[[nodiscard]] std::span<const FieldRow> docketRows();
[[nodiscard]] std::span<const FieldRow> companyRows();
[[nodiscard]] std::span<const FieldRow> contactNameRows();
[[nodiscard]] std::span<const FieldRow> clientRows();
[[nodiscard]] std::span<const FieldRow> softwareRows();
[[nodiscard]] std::span<const FieldRow> moreContactRows();
[[nodiscard]] std::span<const FieldRow> firmRows();

/// Five fields that a firm names itself.
struct CustomRows {
    std::string_view table;        ///< where the labels are
    std::string_view labelStem;    ///< of the columns that hold them, numbered 1 to 5
    std::string_view nameStem;     ///< of the names without labels
    std::string_view fieldStem;    ///< of the database fields
    std::string_view fifthName{};  ///< the fifth is called otherwise, misspelled as templates have it
};

inline constexpr std::string_view kFifthCustomName = "Custom Remmit Field 5";
inline constexpr CustomRows kCustomClientRows{"CustomFields", "CustomName", "Custom Field ", "ClientCustom"};
inline constexpr CustomRows kCustomCompanyRows{"CustomAddressFields", "CompanyLabel", "Company Custom Field ", "CompanyCustom"};
inline constexpr CustomRows kCustomContactRows{"CustomAddressFields", "ContactLabel", "Contact Custom Field ", "ContactCustom"};
inline constexpr CustomRows kCustomAppointmentRows{"CustomFields", "ApptCustomName", "Custom Appt Field ", "ApptCustom",
                                                   kFifthCustomName};
inline constexpr CustomRows kCustomScheduleRows{"CustomFields", "RemittanceLabel", "Custom Task Field ", "ScheduleCustom",
                                                kFifthCustomName};
inline constexpr CustomRows kCustomTaskRows{"CustomFields", "TaskCustomName", "Custom Task Field ", "TaskCustom",
                                            kFifthCustomName};
inline constexpr CustomRows kCustomDocketRows{"CustomFields", "DocketCustomName", "Custom Time Entry Field ", "DocketCustom",
                                              kFifthCustomName};
inline constexpr CustomRows kCustomFirmRows{"CustomAddressFields", "CompanyLabel", "Your Company Custom Field ", "FirmCustom"};

/// Whether the row stands in a list with these terms.
[[nodiscard]] bool standsIn(const FieldRow& row, const ListTerms& terms);
/// The row as a field of such a list.
[[nodiscard]] Field fieldOf(const FieldRow& row, SourceKind source, const ListTerms& terms);

}  // namespace wmoutlook::merge

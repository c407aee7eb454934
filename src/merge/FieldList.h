#pragma once

#include "merge/FoldedName.h"
#include "merge/Placeholders.h"
#include "platform/Variant.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The catalogue of every placeholder that a template may use.
namespace wmoutlook::merge {

/// Which record of a merge holds the value.
enum class SourceKind { contact, contactNotes, company, companyNotes, client, software, firm, appointment, task, docket };

/// The name of a source kind as the list shows it: "ContactInfo".
[[nodiscard]] std::string_view nameOf(SourceKind kind);

/// How a value is shown. A date is used through a date expression only.
enum class DataType : std::int16_t { text = 1, date = 2, time = 3, money = 4, boolean = 5, minutes = 6 };

struct Field {
    std::string databaseField;
    std::string displayName;  ///< what stands between the marks
    SourceKind source = SourceKind::contact;
    DataType type = DataType::text;
    std::string sample;        ///< the shape of a value, for previews
    std::int16_t length = -1;  ///< in characters at most; -1 for no limit
};

/// Columns of the list, as look-ups number them.
namespace fieldColumn {
inline constexpr std::size_t kDatabaseField = 1;
inline constexpr std::size_t kDisplayName = 2;
inline constexpr std::size_t kSourceKind = 3;
inline constexpr std::size_t kDataType = 4;
inline constexpr std::size_t kSampleValue = 5;
inline constexpr std::size_t kLength = 6;
}  // namespace fieldColumn

/// Rows are numbered from 1 in the order of adding; one of them is current.
class FieldList {
public:
    static constexpr std::int32_t kNotFound = -1;

    void clear();
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(fields_.size()); }
    const Field& addField(Field field);
    bool moveTo(std::int32_t index);  ///< false, and the current row stays, when there is no such row

    /// The first row whose column has this value, compared textually, becomes current. Its index, or kNotFound.
    std::int32_t find(std::string_view value, std::size_t column);
    [[nodiscard]] Variant value(std::size_t column) const;  ///< of the current row; null without one
    [[nodiscard]] std::int32_t currentIndex() const { return current_; }
    /// The current row, null without one.
    [[nodiscard]] const Field* current() const;

    /// The placeholders of all rows, ranked by their order.
    [[nodiscard]] Placeholders placeholders() const;
    /// Whether they are these.
    [[nodiscard]] bool has(const Placeholders& placeholders) const;

private:
    [[nodiscard]] std::int32_t indexOfName(std::string_view displayName);

    std::vector<Field> fields_;
    std::unordered_map<std::string, std::int32_t, HashOfName, std::equal_to<>> firstOfName_;  ///< in lower case
    std::int32_t named_ = 0;  ///< so many rows have their names in there
    std::int32_t current_ = 0;
};

}  // namespace wmoutlook::merge

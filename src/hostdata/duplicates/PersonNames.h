#pragma once

#include "hostdata/duplicates/NumbersByKey.h"

#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {

/// A person's name taken apart, its words as wordsOfName gives them. Titles ("Dr.", "Mme") and professional letters ("CPA")
/// are left out; what tells father and son apart ("Jr.") belongs to the last name.
struct PersonName {
    std::vector<std::string> given;  ///< the first name, then middle names or initials
    std::string last;                ///< its words joined

    [[nodiscard]] bool isBlank() const { return given.empty() && last.empty(); }
    [[nodiscard]] bool hasMiddle() const { return given.size() > 1; }
    friend bool operator==(const PersonName&, const PersonName&) = default;
};

/// From the fields of a record.
[[nodiscard]] PersonName personName(std::string_view first, std::string_view middle, std::string_view last,
                                    std::string_view suffix = {});

/// The ways in which a full name can be read, since nothing tells where the last name begins: "Jean Van Horne" is Jean with
/// the last name Van Horne or, were it no name with a "Van", with the middle name Van. The longest last name comes first.
/// "Last, First" has one reading. Empty for a blank text.
[[nodiscard]] std::vector<PersonName> readingsOfFullName(std::string_view fullName);

/// Records by the names of persons. The same full name is the best match; next comes a name of the same first and last name
/// whose middle name is missing, or is an initial of the other's. Within each the lowest number wins.
class PersonNames {
public:
    void add(const PersonName& name, const HostRecord& record);
    /// One name in all its readings.
    [[nodiscard]] std::int32_t find(const std::vector<PersonName>& readings, LookAt lookAt) const;

private:
    [[nodiscard]] std::int32_t findTolerantly(const PersonName& reading, LookAt lookAt) const;

    NumbersByKey byWholeName_;       ///< all words joined
    NumbersByKey byFirstAndLast_;    ///< whatever the middle names
    NumbersByKey byMiddleInitials_;  ///< of names with middle names
};

}  // namespace wmoutlook

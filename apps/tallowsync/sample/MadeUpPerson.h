#pragma once

#include "apps/tallowsync/sample/Dice.h"
#include "apps/tallowsync/sample/Places.h"
#include "apps/tallowsync/sample/Rows.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wmoutlook::sample {

/// Where someone lives or works. A blank street means that the address was never asked for.
struct Address {
    std::string street;
    std::string city;
    std::string province;
    std::string postalCode;
    std::string country;
};

[[nodiscard]] Address makeAddress(Dice& dice, const Place& place, std::int32_t country);
/// Some day of that year.
[[nodiscard]] Date makeDayOf(Dice& dice, std::int32_t year);
/// One of the numbers that are set aside for fiction.
[[nodiscard]] std::string makePhone(Dice& dice, const Place& place);

/// A made-up person. Any part of the name may be blank, but not the display name.
struct Person {
    std::string prefix;
    std::string first;
    std::string middle;
    std::string last;
    std::string suffix;
    std::string display;
    bool isMale = false;
    std::string gender;  ///< as the host keeps it; blank for a few
    Date birthday;
};

/// A grown-up on the given day; with a family name, of that family.
[[nodiscard]] Person makePerson(Dice& dice, bool isFrench, Date today, const std::string& familyName = {});
/// A child of that family.
[[nodiscard]] Person makeChild(Dice& dice, bool isFrench, Date today, const std::string& familyName);

/// The fields of a row of Contacts or AccountantEmployeeInfo. What is blank is left out and stays null.
using Fields = std::vector<Field>;
void append(Fields& fields, std::string_view column, std::string text);
void appendName(Fields& fields, const Person& person);
void appendSpouse(Fields& fields, const Person& spouse);
void appendHomeAddress(Fields& fields, const Address& address);
void appendBusinessAddress(Fields& fields, const Address& address);

}  // namespace wmoutlook::sample

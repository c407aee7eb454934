#include "apps/tallowsync/sample/MadeUpPerson.h"

#include "apps/tallowsync/sample/Names.h"
#include "platform/Services.h"

#include <array>
#include <cstdio>
#include <utility>

namespace wmoutlook::sample {

namespace {

constexpr std::string_view kPostalLetters = "ABCEGHJKLMNPRSTVWXYZ";  // D, F, I, O, Q and U are never used
constexpr std::array<std::string_view, 4> kSuffixes{"Jr.", "Sr.", "CPA", "III"};

std::string makePostalCode(Dice& dice, const Place& place, std::int32_t country) {
    std::string code{place.postalStart};
    const auto digit = [&] { return static_cast<char>('0' + dice.below(10)); };
    if (country != country::kUnitedStates) {
        code += ' ';
        code += digit();
        code += dice.pick(kPostalLetters);
        return code + digit();
    }
    code += digit();
    return code + digit();
}

std::string makePrefix(Dice& dice, bool isMale, bool isFrench) {
    if (dice.chance(55)) return {};
    if (dice.chance(8)) return "Dr.";
    if (isFrench) return isMale ? "M." : "Mme";
    if (isMale) return "Mr.";
    return dice.chance(50) ? "Mrs." : "Ms.";
}

/// Files are never complete: a few people are known by one name only.
void leaveGaps(Dice& dice, Person& person, bool isFrench) {
    const std::int32_t gap = dice.below(100);
    if (gap < 3) {
        person.last.clear();
        person.display = person.first;
    } else if (gap < 5) {
        person.first.clear();
        person.display = person.last;
    } else if (gap < 6) {
        person.display = (isFrench ? "Succession " : "Estate of ") + person.last;
        person.first.clear();
        person.middle.clear();
        person.last.clear();
    }
}

Person makeNamed(Dice& dice, bool isFrench, const std::string& familyName) {
    Person person;
    const FirstName& first = dice.pick(firstNames(isFrench));
    person.first = first.name;
    person.isMale = first.isMale;
    person.last = familyName.empty() ? std::string{dice.pick(lastNames(isFrench))} : familyName;
    const FirstName& middle = dice.pick(firstNames(isFrench));
    if (middle.isMale == first.isMale && dice.chance(30)) person.middle = middle.name;
    person.display = person.first + (person.middle.empty() ? "" : " " + person.middle) + " " + person.last;
    if (!dice.chance(3)) person.gender = person.isMale ? "Male" : "Female";
    return person;
}

}  // namespace

Address makeAddress(Dice& dice, const Place& place, std::int32_t country) {
    Address address;
    const std::string number = std::to_string(dice.between(1, 4999));
    const std::string street{dice.pick(streets(place.isFrench))};
    address.street = number + (place.isFrench ? ", " : " ") + street;
    if (dice.chance(20))
        address.street += (place.isFrench ? "\r\nbureau " : "\r\nSuite ") + std::to_string(dice.between(100, 1900));
    address.city = place.city;
    address.province = dice.chance(70) ? place.province : place.provinceCode;
    address.postalCode = makePostalCode(dice, place, country);
    address.country = country == country::kUnitedStates ? "United States" : "Canada";
    return address;
}

Date makeDayOf(Dice& dice, std::int32_t year) {
    const std::int32_t month = dice.between(1, 12);
    return makeDay(year, month, dice.between(1, 28));
}

std::string makePhone(Dice& dice, const Place& place) {
    std::array<char, 32> number{};
    std::snprintf(number.data(), number.size(), "(%.3s) 555-01%02d", place.areaCode.data(), dice.below(100));
    return number.data();
}

Person makePerson(Dice& dice, bool isFrench, Date today, const std::string& familyName) {
    Person person = makeNamed(dice, isFrench, familyName);
    person.prefix = makePrefix(dice, person.isMale, isFrench);
    if (dice.chance(4)) person.suffix = dice.pick(kSuffixes);
    person.birthday = makeDayOf(dice, civil(today).year - dice.between(22, 88));
    if (familyName.empty()) leaveGaps(dice, person, isFrench);
    return person;
}

Person makeChild(Dice& dice, bool isFrench, Date today, const std::string& familyName) {
    Person child = makeNamed(dice, isFrench, familyName);
    child.birthday = makeDayOf(dice, civil(today).year - dice.between(1, 19));
    return child;
}

void append(Fields& fields, std::string_view column, std::string text) {
    if (!text.empty()) fields.push_back({column, std::move(text)});
}

void appendName(Fields& fields, const Person& person) {
    append(fields, "DisplayName", person.display);
    append(fields, "NamePrefix", person.prefix);
    append(fields, "FirstName", person.first);
    append(fields, "MiddleName", person.middle);
    append(fields, "LastName", person.last);
    append(fields, "NameSuffix", person.suffix);
    append(fields, "Gender", person.gender);
}

void appendSpouse(Fields& fields, const Person& spouse) {
    append(fields, "SpouseName", spouse.display);
    append(fields, "SpouseNamePrefix", spouse.prefix);
    append(fields, "SpouseFirstName", spouse.first);
    append(fields, "SpouseMiddleName", spouse.middle);
    append(fields, "SpouseLastName", spouse.last);
    append(fields, "SpouseGender", spouse.gender);
    fields.push_back({"SpouseBirthday", spouse.birthday});
}

void appendHomeAddress(Fields& fields, const Address& address) {
    append(fields, "HomeAddress", address.street);
    append(fields, "HomeCity", address.city);
    append(fields, "HomeProvince", address.province);
    append(fields, "HomePostalCode", address.postalCode);
    append(fields, "HomeCountry", address.country);
}

void appendBusinessAddress(Fields& fields, const Address& address) {
    append(fields, "BusinessAddress", address.street);
    append(fields, "BusinessCity", address.city);
    append(fields, "BusinessProvince", address.province);
    append(fields, "BusinessPostalCode", address.postalCode);
    append(fields, "BusinessCountry", address.country);
}

}  // namespace wmoutlook::sample

#include "apps/tallowsync/sample/Sample.h"
#include "apps/tallowsync/sample/SampleText.h"

#include <string>
#include <vector>

namespace wmoutlook::sample {

namespace {

enum class Household { single, coupleInOneRow, coupleInTwoRows };

/// What the people of a household share.
struct Home {
    const Place* place = nullptr;
    bool isFrench = false;
    Address address;
    std::string phone;
};

Home makeHome(Sample& sample) {
    Home home;
    home.place = &sample.pickPlace();
    home.isFrench = sample.pickLanguage(*home.place);
    if (!sample.dice.chance(10)) home.address = makeAddress(sample.dice, *home.place, sample.options.country);
    if (!sample.dice.chance(12)) home.phone = makePhone(sample.dice, *home.place);
    return home;
}

/// The oldest days are those of founders whose trusts are still clients. Outlook knows no birthday before 1886.
Date birthdayOf(const Person& person, std::int32_t number) {
    constexpr std::int32_t kOldest[] = {1884, 1885, 1886};
    if (number < static_cast<std::int32_t>(std::size(kOldest))) return makeDay(kOldest[number], 5, 3);
    return person.birthday;
}

std::string socialNumber(Dice& dice, std::int32_t country) {
    const std::string end = std::to_string(dice.between(100, 999));
    return country == country::kUnitedStates ? "000-00-0" + end : "000 000 " + end;  // numbers that nobody has
}

void appendWaysToReach(Sample& sample, Fields& fields, const Home& home, const Person& person) {
    Dice& dice = sample.dice;
    if (dice.chance(50)) fields.push_back({"HomePhone_Cell", makePhone(dice, *home.place)});
    const std::string mailbox = addressPart(person.first + person.last);
    if (dice.chance(60) && !mailbox.empty()) fields.push_back({"PersonalEmail", mailbox + "@mail.example.com"});
}

void appendMarriage(Sample& sample, Fields& fields, const Person& spouse) {
    Dice& dice = sample.dice;
    appendSpouse(fields, spouse);
    fields.push_back({"ContactPersonalTaxDisplayType", dice.chance(80) ? 2 : 1});
    fields.push_back({"MaritialStatus", "Married"});
    const std::int32_t year = civil(sample.options.now).year - dice.between(1, 40);
    if (dice.chance(60)) fields.push_back({"Anniversary", makeDayOf(dice, year)});
}

std::int32_t addPerson(Sample& sample, const Home& home, const Person& person, const Date& birthday, const Person* spouse) {
    constexpr std::int32_t kGrownUp = 16;
    Dice& dice = sample.dice;
    Fields fields{{"SpokenLanguage", home.isFrench ? "Français" : "English"}};
    appendName(fields, person);
    appendHomeAddress(fields, home.address);
    append(fields, "HomePhone_Main", home.phone);
    const std::int32_t born = civil(birthday).year;
    if (civil(sample.options.now).year - born >= kGrownUp) appendWaysToReach(sample, fields, home, person);
    if (dice.chance(70)) fields.push_back({"SocialInsuranceNumber", socialNumber(dice, sample.options.country)});
    if (born < 1900 || dice.chance(85)) fields.push_back({"Birthday", birthday});
    if (spouse != nullptr) appendMarriage(sample, fields, *spouse);
    return sample.rows.add("Contacts", fields);
}

/// The link and its mirror from the other side.
void addFamilyLink(Sample& sample, std::int32_t contactID, std::string_view relationship, std::int32_t otherID,
                   std::string_view opposite) {
    sample.rows.add("ContactLinks", {{"ContactIDNum", contactID}, {"ContactNum", otherID}, {"FamilyRelationship", relationship}});
    sample.rows.add("ContactLinks", {{"ContactIDNum", otherID}, {"ContactNum", contactID}, {"FamilyRelationship", opposite}});
}

void fileAway(Sample& sample, std::int32_t contactID, const Person& person, const Home& home) {
    const std::string summary = richSummary({{"Name", person.display}, {"Main Phone", home.phone}});
    if (sample.dice.chance(70)) {
        addContactRows(sample, contactID, {}, summary);
        addTaxClient(sample, contactID, home.phone);
        return;
    }
    const std::int32_t categories[] = {sample.dice.chance(50) ? sample.friendCategory : sample.numbers.mainCategory};
    addContactRows(sample, contactID, categories, summary);
}

void addSpouseRow(Sample& sample, const Home& home, std::int32_t headID, const Person& head, const Person& spouse) {
    const std::int32_t id = addPerson(sample, home, spouse, spouse.birthday, nullptr);
    fileAway(sample, id, spouse, home);
    addFamilyLink(sample, id, spouse.isMale ? "Husband" : "Wife", headID, head.isMale ? "Husband" : "Wife");
}

void addChildren(Sample& sample, const Home& home, std::int32_t headID, const Person& head) {
    const std::int32_t count = sample.dice.between(1, 3);
    for (std::int32_t i = 0; i < count; ++i) {
        const Person child = makeChild(sample.dice, home.isFrench, sample.options.now, head.last);
        const std::int32_t id = addPerson(sample, home, child, child.birthday, nullptr);
        addContactRows(sample, id, {}, richSummary({{"Name", child.display}}));
        addFamilyLink(sample, id, child.isMale ? "Son" : "Daughter", headID, head.isMale ? "Father" : "Mother");
    }
}

void addHousehold(Sample& sample, std::int32_t number) {
    Dice& dice = sample.dice;
    const Home home = makeHome(sample);
    const Person head = makePerson(dice, home.isFrench, sample.options.now);
    // Every kind appears in the smallest firm.
    const auto kind = static_cast<Household>(number < 3 ? number : dice.below(3));
    const std::string familyName = dice.chance(70) ? head.last : "";
    const Person spouse = makePerson(dice, home.isFrench, sample.options.now, familyName);

    const bool isInOneRow = kind == Household::coupleInOneRow;
    const std::int32_t id = addPerson(sample, home, head, birthdayOf(head, number), isInOneRow ? &spouse : nullptr);
    fileAway(sample, id, head, home);
    if (kind == Household::coupleInTwoRows) addSpouseRow(sample, home, id, head, spouse);
    if (kind != Household::single && !head.last.empty() && (number < 3 || dice.chance(40))) addChildren(sample, home, id, head);
    sample.clients.push_back({kNoRecord, id, head.display});
}

}  // namespace

void addHouseholds(Sample& sample) {
    const std::int32_t count = 12 + sample.options.companies / 2;
    for (std::int32_t number = 0; number < count; ++number) addHousehold(sample, number);
}

}  // namespace wmoutlook::sample

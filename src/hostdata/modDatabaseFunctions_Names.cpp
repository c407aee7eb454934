#include "hostdata/modDatabaseFunctions.h"

#include "hostdata/HostServices.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/ValueHelper.h"

namespace wmoutlook::modDatabaseFunctions {

namespace {

using modSettings::CompanyNameDisplay;
using modSettings::ContactNameDisplay;

/// ContactPersonalTaxDisplayType of a contact that is shown together with the spouse.
constexpr std::int32_t kShowWithSpouse = 2;

/// A relationship that says nothing and is not shown.
constexpr std::string_view kNotSpecified = "Not Specified";

enum class SpouseShown { none, sameFamily, otherFamily };

struct Names {
    std::string first;
    std::string last;
    std::string display;
    std::string spouseFirst;
    std::string spouseLast;
    SpouseShown spouse = SpouseShown::none;
    bool isWhole = true;  ///< nothing of it was skipped
};

/// One way to put a name together. In the patterns F and L are the first and last name, D the display name, S and T the
/// spouse's first and last name; any other character stands for itself.
struct NamePattern {
    SpouseShown spouse;
    bool hasFirst;
    bool hasLast;
    std::string_view firstNameFirst;
    std::string_view lastNameFirst;
};

// A shared family name is never blank, so a row without a last name belongs to no couple of one family.
constexpr NamePattern kNamePatterns[] = {
    {SpouseShown::none, true, true, "F L", "L, F"},
    {SpouseShown::none, true, false, "F", "F"},
    {SpouseShown::none, false, true, "L", "L"},
    {SpouseShown::none, false, false, "D", "D"},
    {SpouseShown::sameFamily, true, true, "F & S L", "L, F & S"},
    {SpouseShown::sameFamily, false, true, "S L", "L, S"},
    {SpouseShown::otherFamily, true, true, "F L & S T", "L, F & T, S"},
    {SpouseShown::otherFamily, true, false, "F & S T", "F & T, S"},
    {SpouseShown::otherFamily, false, true, "L & S T", "L & T, S"},
    {SpouseShown::otherFamily, false, false, "D & S T", "D & T, S"},
};

std::string expand(std::string_view pattern, const Names& names) {
    std::string text;
    for (const char c : pattern) {
        switch (c) {
            case 'F': text += names.first; break;
            case 'L': text += names.last; break;
            case 'D': text += names.display; break;
            case 'S': text += names.spouseFirst; break;
            case 'T': text += names.spouseLast; break;
            default: text += c;
        }
    }
    return text;
}

std::string nameText(const Names& names, ContactNameDisplay type) {
    if (type != ContactNameDisplay::firstNameFirst && type != ContactNameDisplay::lastNameFirst) return names.display;
    for (const NamePattern& row : kNamePatterns)
        if (row.spouse == names.spouse && row.hasFirst == !names.first.empty() && row.hasLast == !names.last.empty())
            return expand(type == ContactNameDisplay::firstNameFirst ? row.firstNameFirst : row.lastNameFirst, names);
    return names.display;
}

void readText(const Recordset& row, std::string_view field, std::string Names::*name, Names& names) {
    const auto text = row.textIfRead(field);
    names.*name = trimmed(text.value_or(""));
    names.isWhole = names.isWhole && text;
}

Names readNamesOfOne(const Recordset& row) {
    Names names;
    readText(row, "FirstName", &Names::first, names);
    readText(row, "LastName", &Names::last, names);
    readText(row, "DisplayName", &Names::display, names);
    return names;
}

Names readNames(const Recordset& row) {
    Names names = readNamesOfOne(row);
    readText(row, "SpouseFirstName", &Names::spouseFirst, names);
    readText(row, "SpouseLastName", &Names::spouseLast, names);
    const auto type = row.numberIfRead("ContactPersonalTaxDisplayType", 0);
    names.isWhole = names.isWhole && type;
    if (type == kShowWithSpouse && !names.spouseFirst.empty()) {
        const bool isSameFamily = !names.spouseLast.empty() && upperCase(names.spouseLast) == upperCase(names.last);
        names.spouse = isSameFamily ? SpouseShown::sameFamily : SpouseShown::otherFamily;
    }
    return names;
}

bool isRelationshipWanted(std::int32_t parentContactID, bool forceRelationship) {
    const bool isChosen = modSettings::nameDisplay().family == modSettings::kShowFamilyRelationship;
    return parentContactID >= 0 && (forceRelationship || isChosen);
}

/// " (Daughter)" from a row of links, or nothing when it says no relationship.
std::string inBrackets(const Recordset& link) {
    const std::string relationship = link.text("FamilyRelationship");
    if (ValueHelper::isNullOrEmpty(relationship) || relationship == kNotSpecified) return {};
    return " (" + relationship + ")";
}

std::string relationshipTo(std::int32_t parentContactID, std::int32_t contactID) {
    const Recordset links{
        "SELECT ContactLinks.ContactIDNum, ContactLinks.ContactNum, ContactLinks.FamilyRelationship FROM ContactLinks "
        "WHERE ContactLinks.ContactNum = " +
        toText(parentContactID) + ";"};
    return links.findFirst("ContactIDNum", contactID) ? inBrackets(links) : std::string{};
}

struct ShownName {
    std::string text;
    bool isWhole = false;  ///< all that makes it up could be read
};

ShownName shownName(ContactNameDisplay type, std::int32_t contactID, std::int32_t parentContactID, bool forceRelationship) {
    ShownName name;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getContactNameDisplayedByType"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset contacts{
            "SELECT Contacts.ContactID, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName, "
            "Contacts.ContactPersonalTaxDisplayType, Contacts.SpouseFirstName, Contacts.SpouseLastName FROM Contacts WHERE "
            "ContactID=" +
            toText(contactID) + ";"};
        const auto isThere = contacts.hasRowsIfTold();
        bool isWhole = isThere.has_value();
        if (isThere.value_or(false)) {
            const Names names = readNames(contacts);
            name.text = nameText(names, type);
            isWhole = names.isWhole;
            if (isRelationshipWanted(parentContactID, forceRelationship)) name.text += relationshipTo(parentContactID, contactID);
        }
        name.isWhole = isWhole;
    });
    return name;
}

ShownName shownName(std::int32_t contactID, std::int32_t parentContactID, bool forceRelationship) {
    ShownName name;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getContactNameDisplayed"};
    routine.run([&] { name = shownName(modSettings::nameDisplay().contactName, contactID, parentContactID, forceRelationship); });
    return name;
}

}  // namespace

std::string getContactNameDisplayed(std::int32_t contactID, std::int32_t parentContactID, bool forceRelationship) {
    return shownName(contactID, parentContactID, forceRelationship).text;
}

std::optional<std::string> getContactNameDisplayedIfTold(std::int32_t contactID, std::int32_t parentContactID,
                                                         bool forceRelationship) {
    ShownName name = shownName(contactID, parentContactID, forceRelationship);
    return name.isWhole ? std::optional{std::move(name.text)} : std::nullopt;
}

std::string getContactNameDisplayedByType(ContactNameDisplay type, std::int32_t contactID, std::int32_t parentContactID,
                                          bool forceRelationship) {
    return shownName(type, contactID, parentContactID, forceRelationship).text;
}

std::string getNodeContactNameDisplayed(const Recordset& contacts, std::int32_t parentContactID, bool forceRelationship,
                                        ContactRow carries) {
    std::string name;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getNodeContactNameDisplayed"};
    routine.run([&] {
        const Names names = carries == ContactRow::whole ? readNames(contacts) : readNamesOfOne(contacts);
        name = nameText(names, modSettings::nameDisplay().contactName);
        if (isRelationshipWanted(parentContactID, forceRelationship)) name += inBrackets(contacts);
    });
    return name;
}

std::string getNodeCompanyNameDisplayed(const Recordset& companies) {
    std::string name;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getNodeCompanyNameDisplayed"};
    routine.run([&] {
        const std::string companyName = companies.text("CompanyName");
        const auto display = modSettings::nameDisplay().companyName;
        if (display == CompanyNameDisplay::corporateName) name = companies.text("CorporateName");
        if (display == CompanyNameDisplay::clientID || display == CompanyNameDisplay::clientIDAndCompanyName) {
            name = companies.text("ClientID");
            if (display == CompanyNameDisplay::clientIDAndCompanyName && !ValueHelper::isNullOrEmpty(name))
                name += " - " + companyName;
        }
        if (ValueHelper::isNullOrEmpty(name)) name = companyName;
    });
    return name;
}

}  // namespace wmoutlook::modDatabaseFunctions

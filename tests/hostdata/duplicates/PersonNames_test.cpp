#include "hostdata/duplicates/PersonNames.h"

#include <gtest/gtest.h>

namespace wmoutlook {
namespace {

constexpr std::int32_t kRecord = 7;

struct Case {
    PersonName host;
    std::string_view fullName;
};

std::int32_t findIn(const PersonName& host, std::string_view fullName) {
    PersonNames names;
    names.add(host, {kRecord, false});
    return names.find(readingsOfFullName(fullName), LookAt::all);
}

TEST(PersonNames, OnePersonHoweverWritten) {
    const PersonName johnASmith = personName("John", "A.", "Smith");
    const PersonName johnSmith = personName("John", "", "Smith");
    const PersonName johnAllanSmith = personName("John", "Allan", "Smith");
    const PersonName vanHorne = personName("Jean-Pierre", "", "Van Horne");
    for (const Case& c : {
             Case{johnASmith, "JOHN A. SMITH"},
             Case{johnASmith, "Smith, John A."},
             Case{johnASmith, "Mr. John A Smith, CPA"},
             Case{johnASmith, "John Smith"},  // the middle name is missing on either side
             Case{johnSmith, "John Allan Smith"},
             Case{johnSmith, "Smith, Dr. John A."},
             Case{johnAllanSmith, "John A. Smith"},  // or is an initial
             Case{johnASmith, "Smith, John Allan"},
             Case{vanHorne, "Jean-Pierre Van Horne"},
             Case{vanHorne, "Jean Pierre van Horne"},
             Case{vanHorne, "Van Horne, Jean-Pierre"},
             Case{vanHorne, "M. Jean-Pierre R. Van Horne"},
             Case{personName("Mary Ann", "", "Lee"), "Mary Lee"},
             Case{personName("Hélène", "", "L'Écuyer"),
                  "Helene L\xE2\x80\x99"
                  "Ecuyer"},
             Case{personName("John", "", "Smith", "Jr."), "John Smith Jr"},
             Case{personName("John", "", "Smith", "Jr."), "Smith Jr., John"},
             Case{personName("John", "", "Smith", "Jr."), "Smith, John, Jr."},
             Case{personName("John", "", "Smith", "CPA, CA"), "John Smith"},
             Case{personName("", "", "Jones"), "Dr. Jones"},
             Case{personName("Wei", "", "Eng"), "Wei Eng"},
         })
        EXPECT_EQ(findIn(c.host, c.fullName), kRecord) << c.fullName;
}

TEST(PersonNames, OtherPersonsAreNotTakenForOne) {
    const PersonName johnASmith = personName("John", "A.", "Smith");
    for (const Case& c : {
             Case{johnASmith, "John B. Smith"},
             Case{johnASmith, "Joan Smith"},
             Case{johnASmith, "J. Smith"},
             Case{johnASmith, "John Smythe"},
             Case{johnASmith, "Smith"},
             Case{johnASmith, "John"},
             Case{johnASmith, ""},
             Case{johnASmith, ", "},
             Case{johnASmith, "John, Smith A."},
             Case{personName("John", "Allan", "Smith"), "John Albert Smith"},
             Case{personName("John", "", "Smith"), "John Smith Jr."},  // father and son
             Case{personName("John", "", "Smith", "Sr."), "John Smith Jr."},
             Case{personName("Jean", "", "Tremblay"), "Jean-Paul Tremblay"},  // a double name is one name
             Case{personName("Jean", "", "Horne"), "Jean Van Horne"},         // "Van" is no middle name
             Case{personName("", "", "Eng"), "Wei Eng"},
         })
        EXPECT_EQ(findIn(c.host, c.fullName), kNoRecord) << c.fullName;
}

TEST(PersonNames, TheSameNameComesBeforeATolerantOne) {
    PersonNames names;
    names.add(personName("John", "Allan", "Smith"), {3, false});
    names.add(personName("John", "B.", "Smith"), {5, false});
    names.add(personName("John", "", "Smith"), {9, false});
    names.add(personName("John", "", "Smith"), {8, true});
    EXPECT_EQ(names.find(readingsOfFullName("John Smith"), LookAt::all), 8);
    EXPECT_EQ(names.find(readingsOfFullName("John Smith"), LookAt::activeOnly), 9);
    EXPECT_EQ(names.find(readingsOfFullName("John B. Smith"), LookAt::all), 5);
    EXPECT_EQ(names.find(readingsOfFullName("John A. Smith"), LookAt::all), 3);
    EXPECT_EQ(names.find(readingsOfFullName("John C. Smith"), LookAt::activeOnly), 9);
}

}  // namespace
}  // namespace wmoutlook

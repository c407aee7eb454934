#include "tests/hostdata/duplicates/FinderTest.h"

namespace wmoutlook::testing {
namespace {

class ContactFinderTest : public FinderTest {
protected:
    std::shared_ptr<ContactDuplicateFinder> finder = makeContactDuplicateFinder();

    void SetUp() override {
        FinderTest::SetUp();
        finder->setDatabase(database);
        finder->setLookAtInactiveClients(true);
        finder->setSearchKind(3);
    }

    std::int32_t contact(const Fields& fields) { return addContact(*host.database, fields); }
    void taxStatus(std::int32_t contactID, int year, const std::string& status) {
        addRow(*host.database, "PersonalTaxStatus", "",
               {{"ContactNum", toText(contactID)}, {"TaxYear", std::to_string(year)}, {"ActiveStatus", status}});
    }

    std::int32_t find(std::string_view full, std::string_view first = {}, std::string_view last = {}) {
        finder->clear();
        if (!full.empty()) finder->setFullName(full);
        if (!first.empty()) finder->setFirstName(first);
        if (!last.empty()) finder->setLastName(last);
        finder->search();
        EXPECT_EQ(finder->isFound(), finder->foundNumber() != kNoRecord);
        return finder->foundNumber();
    }
};

TEST_F(ContactFinderTest, TheFullNameCountsElseFirstAndLast) {
    const std::int32_t ann = contact({{"DisplayName", "Lee, Ann"}});
    const std::int32_t john =
        contact({{"DisplayName", "Jack Smith"}, {"FirstName", "John"}, {"MiddleName", "Allan"}, {"LastName", "Smith"}});
    EXPECT_EQ(find("Ann B. Lee"), ann);
    EXPECT_EQ(find("", "Ann", "Lee"), ann);
    EXPECT_EQ(find("Mr. John A. Smith"), john);
    EXPECT_EQ(find("Jack Smith"), john) << "by the name that is displayed";
    EXPECT_EQ(find("John Doe", "John", "Smith"), kNoRecord) << "the full name alone counts";
    EXPECT_EQ(find("", "", "Smith"), kNoRecord);
    EXPECT_EQ(find(""), kNoRecord);
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(ContactFinderTest, WhoWasInactiveInHisLastYearIsLookedAtOnlyWithTheOption) {
    const std::int32_t gone = contact({{"FirstName", "John"}, {"LastName", "Smith"}});
    const std::int32_t back = contact({{"FirstName", "John"}, {"LastName", "Smith"}});
    taxStatus(gone, 2024, "2");
    taxStatus(gone, 2023, "1");
    taxStatus(back, 2023, "2");
    taxStatus(back, 2024, "1");
    EXPECT_EQ(find("John Smith"), gone);
    finder->setLookAtInactiveClients(false);
    EXPECT_EQ(find("John Smith"), back);
}

TEST_F(ContactFinderTest, TheNumberOfTheCompanyIsNobodysOwn) {
    const std::int32_t colleague =
        contact({{"BusinessPhone_Main", "514-555-0100"}, {"InheritCompanyInfo", "True"}, {"HomePhone_Cell", "438-555-0101"}});
    const std::int32_t self = contact({{"BusinessPhone_Main", "514-555-0100"}, {"PersonalEmail", "self@home.example"}});
    finder->setMatchSettings({false, true, true});
    const auto byTelephone = [&](std::string_view number) {
        finder->clear();
        finder->setTelephone(number);
        finder->search();
        return finder->foundNumber();
    };
    EXPECT_EQ(byTelephone("(514) 555-0100"), self);
    EXPECT_EQ(byTelephone("(438) 555-0101"), colleague);
    finder->clear();
    finder->setEmailAddress("SELF@home.example");
    finder->search();
    EXPECT_EQ(finder->foundNumber(), self);
}

TEST_F(ContactFinderTest, ATableThatCannotBeReadIsNotTakenForAnEmptyOne) {
    const std::int32_t john = contact({{"FirstName", "John"}, {"LastName", "Smith"}});
    faults.failFromNowOn(1);
    EXPECT_EQ(find("John Smith"), kNoRecord);
    EXPECT_EQ(find("John Smith"), kNoRecord);
    ASSERT_EQ(host.errors->reports.size(), 2U);
    EXPECT_EQ(host.errors->reports[0].errorTag, "wmImportDup6.dll-ContactDuplicateFinder-search");
    faults.failTo = -1;
    EXPECT_EQ(find("John Smith"), john);
}

}  // namespace
}  // namespace wmoutlook::testing

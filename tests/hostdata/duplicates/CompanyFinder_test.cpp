#include "tests/hostdata/duplicates/FinderTest.h"

namespace wmoutlook::testing {
namespace {

class CompanyFinderTest : public FinderTest {
protected:
    std::shared_ptr<CompanyDuplicateFinder> finder = makeCompanyDuplicateFinder();

    void SetUp() override {
        FinderTest::SetUp();
        finder->setDatabase(database);
    }

    std::int32_t find(std::string_view name, std::int32_t kind) {
        finder->clear();
        finder->setCompanyName(name);
        return searchAgain(kind);
    }

    /// The found number, by the found-test that goes with the kind.
    std::int32_t searchAgain(std::int32_t kind) {
        finder->setSearchKind(kind);
        finder->search();
        const bool isTolerant = kind == 3;
        EXPECT_FALSE(isTolerant ? finder->isFound() : finder->isFoundTolerantly());
        EXPECT_EQ(finder->isFound(), finder->foundNumber() != kNoRecord);
        EXPECT_EQ(finder->isFoundTolerantly(), finder->tolerantlyFoundNumber() != kNoRecord);
        return isTolerant ? finder->tolerantlyFoundNumber() : finder->foundNumber();
    }

    void makeInactive(std::int32_t companyID) {
        addRow(*host.database, "ClientData", "ClientDataID", {{"CompanyIDNum", toText(companyID)}, {"ActiveStatus", "2"}});
    }
};

TEST_F(CompanyFinderTest, EachKindForgivesMore) {
    const std::int32_t dube = company("Dubé & Fils Ltée");
    company("DUBÉ & FILS LTÉE");
    struct Case {
        std::string_view name;
        std::vector<std::int32_t> foundByKind;
    };
    for (const Case& c : {
             Case{"  dubÉ & fils LTÉE ", {dube, dube, dube}},
             Case{"Dube et Fils inc.", {kNoRecord, dube, dube}},
             Case{"Dubé & Flis", {kNoRecord, kNoRecord, dube}},
             Case{"Dupuis & Filles", {kNoRecord, kNoRecord, kNoRecord}},
             Case{"  ", {kNoRecord, kNoRecord, kNoRecord}},
         })
        for (std::int32_t kind = 1; kind <= 3; ++kind)
            EXPECT_EQ(find(c.name, kind), c.foundByKind[static_cast<std::size_t>(kind - 1)]) << c.name << " " << kind;
    EXPECT_EQ(find("Dubé & Fils Ltée", 4), kNoRecord);
}

TEST_F(CompanyFinderTest, InactiveClientsAreLookedAtOnlyWithTheOption) {
    const std::int32_t inactive = company("Roy Transport");
    const std::int32_t noClient = company("Roy Transport");
    makeInactive(inactive);
    for (const std::int32_t kind : {1, 2, 3}) {
        finder->setLookAtInactiveClients(false);
        EXPECT_EQ(find("Roy Transport", kind), noClient) << kind;
        finder->setLookAtInactiveClients(true);
        EXPECT_EQ(find("Roy Transport", kind), inactive) << kind;
    }
    finder->startRun();  // who is inactive is read when it is asked for, also in the middle of a run
    EXPECT_EQ(find("Roy Transport", 1), inactive);
    finder->setLookAtInactiveClients(false);
    EXPECT_EQ(searchAgain(1), noClient);
}

TEST_F(CompanyFinderTest, OnlyWhatIsSetAndGivenIsCompared) {
    const std::int32_t byName = company("Alpha");
    const std::int32_t byTelephone = company("Beta", "(514) 555-0123");
    const std::int32_t byEmail = company("Gamma", "", "Info@Gamma.example");
    const auto search = [&](DuplicateMatchSettings settings, std::string_view name, std::string_view telephone,
                            std::string_view email) {
        finder->setMatchSettings(settings);
        finder->clear();
        if (!name.empty()) finder->setCompanyName(name);
        finder->setTelephone(telephone);
        finder->setEmailAddress(email);
        return searchAgain(1);
    };
    const DuplicateMatchSettings all{true, true, true};
    EXPECT_EQ(search(all, "Alpha", "+1 514-555-0123", "INFO@gamma.example"), byName);
    EXPECT_EQ(search(all, "Delta", "+1 514-555-0123", "INFO@gamma.example"), byEmail);
    EXPECT_EQ(search(all, "Delta", "514 555 0123", ""), byTelephone);
    EXPECT_EQ(search(all, "", "", ""), kNoRecord);
    EXPECT_EQ(search({true, false, false}, "Delta", "514 555 0123", "info@gamma.example"), kNoRecord);
    EXPECT_EQ(search({false, true, false}, "Alpha", "514 555 0123", "info@gamma.example"), byTelephone);
    EXPECT_EQ(search({false, false, true}, "Alpha", "514 555 0123", "info@gamma.example"), byEmail);
    finder->clear();
    EXPECT_EQ(searchAgain(1), kNoRecord) << "clear forgets the values";
}

TEST_F(CompanyFinderTest, TheTablesAreReadOncePerRunAndNewRowsInBetween) {
    company("Alpha");
    EXPECT_EQ(find("Beta", 1), kNoRecord);
    const int callsOfFirstReading = faults.calls;
    const std::int32_t beta = company("Beta");
    EXPECT_EQ(searchAgain(2), kNoRecord) << "the three passes of one item see the same rows";
    EXPECT_EQ(faults.calls, callsOfFirstReading);
    EXPECT_EQ(find("Beta", 1), beta) << "what this run has added is found by the next item";
    EXPECT_EQ(find("Betta", 3), beta);

    const RecordsetHandle rows = host.database->openRecordset("SELECT Companies.* FROM Companies;", LockCode::updatable);
    ASSERT_TRUE(host.database->findFirst(rows, "CompanyName", "Beta"));
    host.database->updateField(rows, "CompanyName", "Gamma");
    host.database->closeRecordset(rows);
    EXPECT_EQ(find("Gamma", 1), kNoRecord);
    finder->startRun();
    EXPECT_EQ(find("Gamma", 1), beta);
    EXPECT_EQ(find("Beta", 1), kNoRecord);
}

TEST_F(CompanyFinderTest, AnotherDatabaseIsReadAnew) {
    company("Alpha");
    EXPECT_NE(find("Alpha", 1), kNoRecord);
    const TestHost other;
    finder->setDatabase(other.database);
    EXPECT_EQ(find("Alpha", 1), kNoRecord);
    EXPECT_TRUE(host.errors->reports.empty());
    finder->setDatabase(nullptr);
    EXPECT_EQ(find("Alpha", 1), kNoRecord);
    ASSERT_EQ(host.errors->reports.size(), 1U);
    EXPECT_EQ(host.errors->reports[0].errorTag, "wmImportDup6.dll-CompanyDuplicateFinder-search");
    EXPECT_EQ(host.errors->reports[0].number, 91);
}

TEST_F(CompanyFinderTest, AReadingThatFailsAnywhereIsReportedAndMadeGoodByTheNextSearch) {
    company("Alpha");
    const std::int32_t beta = company("Beta");
    makeInactive(company("Gamma"));
    for (const ErrorAnswer answer : {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine, ErrorAnswer::tryAgain}) {
        host.errors->answer = [&](const ErrorReport&) { return answer; };
        for (int call = 1;; ++call) {
            SCOPED_TRACE(::testing::Message() << "answer " << static_cast<int>(answer) << ", call " << call);
            finder->startRun();
            host.errors->reports.clear();
            faults.failed = 0;
            faults.failOnce(faults.calls + call);
            const std::int32_t found = find("Beta", 1);
            if (faults.failed == 0) {
                EXPECT_GT(call, 10);
                break;
            }
            EXPECT_EQ(host.errors->reports.size(), 1U);
            const bool isWholeAllTheSame = answer == ErrorAnswer::goOn && faults.firstFailed == "closeRecordset";
            EXPECT_EQ(found, answer == ErrorAnswer::tryAgain || isWholeAllTheSame ? beta : kNoRecord) << faults.firstFailed;
            faults.firstFailed.clear();
            EXPECT_EQ(searchAgain(1), beta);
            EXPECT_TRUE(database->openHandles.empty());
        }
    }
}

}  // namespace
}  // namespace wmoutlook::testing

#include "tests/calendar/SmallCalendar.h"
#include "tests/support/FaultyRun.h"
#include "tests/support/KillSweep.h"

namespace wmoutlook::testing {
namespace {

using Faulty = FaultyRun<SmallCalendar>;

void selectAll(const SmallCalendar& calendar, clsOutlookSynchronization& component) {
    calendar.selectAll(component);
}

void selectNothing(const SmallCalendar&, clsOutlookSynchronization&) {}

/// Nothing in the host is lost, whatever fails.
void expectRowsKept(Faulty& faulty) {
    const RecordsetHandle rows =
        faulty.host.database->openRecordset("SELECT Appointments.* FROM Appointments;", LockCode::readOnly);
    EXPECT_EQ(faulty.host.database->recordCount(rows), 3);
    faulty.host.database->closeRecordset(rows);
}

class CalendarFaults : public ::testing::TestWithParam<ErrorAnswer> {};

TEST_P(CalendarFaults, AnyOneFailingCallLosesNothingAndTheNextRunIsComplete) {
    const int calls = sweepFaults<SmallCalendar>(GetParam(), selectNothing, [](Faulty& faulty) {
        expectRowsKept(faulty);
        if (isRepeated(GetParam())) SmallCalendar::expectComplete(faulty.host);
        faulty.runCleanly();
        SmallCalendar::expectComplete(faulty.host);
        // One whose link could not be stored is written again, but none for what its link is found without.
        const bool isLinkWhole = GetParam() == ErrorAnswer::goOn && faulty.planned.firstField == "DateLastSync";
        EXPECT_LE(SmallCalendar::itemsOf(faulty.host).size(), isLinkWhole ? 3U : 4U);
    });
    EXPECT_GT(calls, 150);
}

TEST_P(CalendarFaults, NoFailingCallOfAnUpdateDoublesOrDeletesAnItem) {
    const int calls = sweepFaults<SmallCalendar>(GetParam(), selectAll, [](Faulty& faulty) {
        const std::size_t comesBack = faulty.planned.firstFailed == "NameSpace.getItemFromID" ? 1 : 0;
        EXPECT_GE(SmallCalendar::itemsOf(faulty.host).size(), 3U);
        if (comesBack == 0) SmallCalendar::expectWholeItems(faulty.host);
        faulty.runCleanly();
        SmallCalendar::expectComplete(faulty.host);
        EXPECT_EQ(SmallCalendar::itemsOf(faulty.host).size(), 3U + comesBack);
    });
    EXPECT_GT(calls, 150);
}

TEST_P(CalendarFaults, NoFailingCallKeepsTheItemOfAGoneRowForGoodOrTakesAnother) {
    const auto choose = [](const CalendarWithGoneRow& calendar, clsOutlookSynchronization& component) {
        calendar.selectAll(component);
    };
    const int calls = sweepFaults<CalendarWithGoneRow>(GetParam(), choose, [](FaultyRun<CalendarWithGoneRow>& faulty) {
        // An item that Outlook does not give counts as deleted there: it stays without a link, or comes back beside it.
        const std::size_t isLeft = faulty.planned.firstFailed == "NameSpace.getItemFromID" ? 1 : 0;
        faulty.runCleanly();
        EXPECT_EQ(SmallCalendar::linkedSubjects(faulty.host), (std::vector<std::string>{"1: A with Birch", "2: B with Bob"}));
        EXPECT_LE(SmallCalendar::itemsOf(faulty.host).size(), 2U + isLeft);
    });
    EXPECT_GT(calls, 150);
}

INSTANTIATE_TEST_SUITE_P(Answers, CalendarFaults,
                         ::testing::Values(ErrorAnswer::goOn, ErrorAnswer::leaveRoutine, ErrorAnswer::endProgram,
                                           ErrorAnswer::tryAgain));

TEST(LastingCalendarFaults, EndTheRun) {
    for (const ErrorAnswer answer : {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine})
        sweepLastingFaults<SmallCalendar>(answer, selectAll, expectRowsKept);
}

/// A process that dies between the save of an item and that of its link leaves the item behind without one: the calendar, unlike
/// the contacts, has no search by which the next run would know it again. That is one item at most.
TEST(CalendarKills, ProcessThatDiesInAnyWriteLeavesSoundStoresAndTheNextRunConverges) {
    const int runs = sweepKills<SmallCalendar>([](const SmallCalendar&, TestHost& host) {
        SmallCalendar::expectComplete(host);
        EXPECT_LE(SmallCalendar::itemsOf(host).size(), 4U);
    });
    EXPECT_GT(runs, 30);
}

}  // namespace
}  // namespace wmoutlook::testing

#include "adapters/outlookstore/Recurrence.h"

#include "platform/Errors.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace wmoutlook::testing {

namespace {

using namespace outlookstore;
using enum RecurrenceType;

constexpr std::int32_t kMonday = 2;
constexpr std::int32_t kThursday = 16;
constexpr std::int32_t kFriday = 32;
constexpr std::int32_t kSunday = 1;
constexpr std::int32_t kWorkDays = 62;
constexpr std::int32_t kWeekend = 65;
constexpr std::int32_t kAnyDay = 127;

std::string textOf(const std::vector<DayNumber>& days) {
    std::string text;
    for (const DayNumber day : days) text += toIsoText(Date{static_cast<double>(day)}) + " ";
    return text;
}

DayNumber dayOfText(std::string_view iso) {
    return dayNumberOf(fromIsoText(iso).value());
}

struct Case {
    Recurrence pattern;
    std::string_view start;
    std::string_view days;  ///< the first ones
};

// Counted in a calendar, by the rules that Outlook states for its patterns.
const std::array kCases{
    Case{{daily}, "2026-11-23", "2026-11-23 2026-11-24 2026-11-25 "},
    Case{{daily, 3}, "2024-02-27", "2024-02-27 2024-03-01 2024-03-04 "},
    Case{{weekly, 1, kMonday}, "2026-11-23", "2026-11-23 2026-11-30 2026-12-07 "},
    Case{{weekly, 1, kMonday}, "2026-11-25", "2026-11-30 2026-12-07 "},
    Case{{weekly, 1, kWorkDays}, "2026-11-26", "2026-11-26 2026-11-27 2026-11-30 2026-12-01 "},
    Case{{weekly, 2, kMonday + kFriday}, "2026-11-25", "2026-11-27 2026-12-07 2026-12-11 2026-12-21 "},
    // A week begins with its Sunday.
    Case{{weekly, 2, kSunday + kMonday}, "2026-11-23", "2026-11-23 2026-12-06 2026-12-07 2026-12-20 "},
    Case{{monthly, 1, 0, 15}, "2026-11-23", "2026-12-15 2027-01-15 "},
    Case{{monthly, 1, 0, 31}, "2026-11-01", "2026-11-30 2026-12-31 2027-01-31 2027-02-28 2027-03-31 2027-04-30 "},
    Case{{monthly, 1, 0, 30}, "2028-01-30", "2028-01-30 2028-02-29 2028-03-30 "},
    Case{{monthly, 1, 0, 29}, "2027-01-29", "2027-01-29 2027-02-28 2027-03-29 "},
    Case{{monthly, 3, 0, 31}, "2023-11-30", "2023-11-30 2024-02-29 2024-05-31 2024-08-31 "},
    Case{{monthNth, 1, kThursday, 0, 0, 2}, "2026-11-01", "2026-11-12 2026-12-10 2027-01-14 "},
    Case{{monthNth, 1, kFriday, 0, 0, 5}, "2026-11-23", "2026-11-27 2026-12-25 2027-01-29 "},
    Case{{monthNth, 2, kWorkDays, 0, 0, 5}, "2026-01-01", "2026-01-30 2026-03-31 2026-05-29 "},
    Case{{monthNth, 1, kWeekend, 0, 0, 1}, "2026-11-01", "2026-11-01 2026-12-05 2027-01-02 "},
    Case{{monthNth, 1, kAnyDay, 0, 0, 5}, "2027-01-31", "2027-01-31 2027-02-28 2027-03-31 "},
    Case{{yearly, 1, 0, 29, 2}, "2024-02-29", "2024-02-29 2025-02-28 2026-02-28 2027-02-28 2028-02-29 "},
    Case{{yearly, 2, 0, 1, 7}, "2026-08-01", "2028-07-01 2030-07-01 "},
    Case{{yearNth, 1, kThursday, 0, 11, 4}, "2024-01-01", "2024-11-28 2025-11-27 2026-11-26 "},
    Case{{yearNth, 1, kMonday, 0, 5, 5}, "2026-05-26", "2027-05-31 2028-05-29 "},
};

TEST(RecurrencePatterns, FallOnTheDaysThatOutlookGivesThem) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.days);
        const std::size_t count = c.days.size() / 11;
        const DayNumber start = dayOfText(c.start);
        EXPECT_EQ(textOf(patternDays(c.pattern, start, start, lastDayOfAll(), count)), c.days);
        EXPECT_NO_THROW(checkPattern(c.pattern, *fromIsoText(c.start)));
        Recurrence counted = c.pattern;
        counted.occurrences = static_cast<std::int32_t>(count);
        EXPECT_EQ(textOf({*endOf(counted, start)}), c.days.substr(c.days.size() - 11));
    }
}

TEST(RecurrencePatterns, EnteredInTheMiddleGoOnAsFromTheStart) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.days);
        const DayNumber start = dayOfText(c.start);
        const DayNumber last = start + 4000;
        std::vector<DayNumber> days = patternDays(c.pattern, start, start, last, 4001);
        for (DayNumber from = start; !days.empty(); from += 17) {
            while (!days.empty() && days.front() < from) days.erase(days.begin());
            const auto entered = patternDays(c.pattern, start, from, last, 3);
            ASSERT_EQ(textOf(entered), textOf({days.begin(), days.begin() + std::min<std::ptrdiff_t>(3, std::ssize(days))}));
        }
    }
}

TEST(RecurrencePatterns, WhatCannotBeIsRefusedInOneSentence) {
    const auto most = std::numeric_limits<std::int32_t>::max();
    const auto least = std::numeric_limits<std::int32_t>::min();
    const auto withEnd = [](Recurrence pattern, std::string_view end) {
        pattern.patternEndDate = fromIsoText(end);
        return pattern;
    };
    struct Refused {
        Recurrence pattern;
        std::string_view said;
        std::string_view start = "2026-11-23";
    };
    for (const Refused& c : {Refused{{static_cast<RecurrenceType>(4)}, "RecurrenceType is none of"},
                             Refused{{daily, 0}, "Interval is not from 1 to 999"},
                             Refused{{daily, -3}, "Interval"},
                             Refused{{daily, 1000}, "Interval"},
                             Refused{{daily, most}, "Interval"},
                             Refused{{daily, 1, kMonday}, "DayOfWeekMask is not used"},
                             Refused{{weekly, 1, 0}, "DayOfWeekMask is not from 1 to 127"},
                             Refused{{weekly, 1, 128}, "DayOfWeekMask"},
                             Refused{{monthly, 1, 0, 40}, "DayOfMonth is not from 1 to 31"},
                             Refused{{monthly, 1, 0, least}, "DayOfMonth"},
                             Refused{{yearly, 1, 0, 30, 2}, "DayOfMonth is not from 1 to 29"},
                             Refused{{yearly, 1, 0, 1, 13}, "MonthOfYear"},
                             Refused{{yearly, 1, 0, 1, most}, "MonthOfYear"},
                             Refused{{monthNth, 1, kMonday, 0, 0, 6}, "Instance"},
                             Refused{{monthNth, 1, kMonday, 0, 0, 0}, "Instance"},
                             Refused{{daily, 1, 0, 0, 0, 0, 1000000000}, "Occurrences"},
                             Refused{{daily, 1, 0, 0, 0, 0, -1}, "Occurrences"},
                             Refused{withEnd({daily}, "2026-11-22"), "PatternEndDate is earlier than the start"},
                             Refused{withEnd({weekly, 1, kSunday}, "2026-11-28"), "no day from its start to its end"},
                             Refused{withEnd({daily, 1, 0, 0, 0, 0, 5}, "2026-11-30"), "do not agree"},
                             Refused{{daily}, "no date", "4501-01-01"},
                             Refused{{daily}, "no date", "1600-12-31"}}) {
        SCOPED_TRACE(c.said);
        try {
            checkPattern(c.pattern, *fromIsoText(c.start));
            ADD_FAILURE() << "it was taken";
        } catch (const OutlookError& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.rfind("The recurrence cannot be: ", 0), 0u) << message;
            EXPECT_NE(message.find(c.said), std::string::npos) << message;
        }
    }
}

TEST(RecurrencePatterns, WithoutAnEndStopInTheYear2500) {
    const DayNumber start = dayOfText("1601-01-01");
    const auto last = patternDays({yearly, 1, 0, 31, 12}, start, dayOfText("2499-01-01"), lastDayOfAll() + 100000, 100);
    EXPECT_EQ(textOf(last), "2499-12-31 2500-12-31 ");
    EXPECT_TRUE(patternDays({yearly, 999, 0, 1, 1}, dayOfText("2000-01-01"), dayOfText("2000-01-02"), lastDayOfAll(), 9).empty());
}

}  // namespace

}  // namespace wmoutlook::testing

#include "platform/Date.h"

#include <gtest/gtest.h>

#include <bit>
#include <string>
#include <vector>

namespace wmoutlook {
namespace {

std::uint64_t bits(Date date) {
    return std::bit_cast<std::uint64_t>(date.days);
}

TEST(Dates, AreDayNumbersWhoseFractionCountsForwardFromMidnight) {
    struct Case {
        double days;
        CivilDate parts;
    };
    for (const Case& c :
         {Case{0, {1899, 12, 30, 0, 0, 0}}, Case{0.75, {1899, 12, 30, 18, 0, 0}}, Case{1.5, {1899, 12, 31, 12, 0, 0}},
          Case{-1, {1899, 12, 29, 0, 0, 0}}, Case{-1.25, {1899, 12, 29, 6, 0, 0}}, Case{-2.75, {1899, 12, 28, 18, 0, 0}},
          Case{60, {1900, 2, 28, 0, 0, 0}}, Case{61, {1900, 3, 1, 0, 0, 0}}, Case{25569, {1970, 1, 1, 0, 0, 0}},
          Case{36526, {2000, 1, 1, 0, 0, 0}}, Case{46348.375, {2026, 11, 22, 9, 0, 0}}, Case{-657434, {100, 1, 1, 0, 0, 0}},
          Case{-657434.5, {100, 1, 1, 12, 0, 0}}, Case{2958465.75, {9999, 12, 31, 18, 0, 0}}}) {
        SCOPED_TRACE(c.days);
        EXPECT_EQ(civil(Date{c.days}), c.parts);
        EXPECT_EQ(makeDate(c.parts), Date{c.days});
    }
    EXPECT_EQ(civil(Date{-0.5}), (CivilDate{1899, 12, 30, 12, 0, 0}));  // no day of its own before day 0
    EXPECT_EQ(absentDate(), Date{949998});
    EXPECT_EQ(toIsoText(absentDate()), "4501-01-01");
}

TEST(Dates, SurviveEveryRoundTripToTheSecond) {
    std::vector<std::int64_t> days{-657434, -2, -1, 0, 1, 2, 2958465};
    for (std::int64_t day = -657000; day < 2958465; day += 9973) days.push_back(day);
    for (const std::int64_t day : days) {
        std::int64_t before = day * 86400 - 1;
        for (const std::int64_t second : {0, 1, 59, 60, 3599, 28799, 32400, 43200, 61234, 86398, 86399}) {
            const std::int64_t moment = day * 86400 + second;
            const Date date = fromSecondsSinceDayZero(moment);
            SCOPED_TRACE(moment);
            ASSERT_EQ(secondsSinceDayZero(date), moment);
            ASSERT_EQ(makeDate(civil(date)), date);
            ASSERT_EQ(fromIsoText(toIsoText(date)), date);
            ASSERT_EQ(secondsSinceDayZero(dayOf(date)), day * 86400);
            ASSERT_EQ(secondsSinceDayZero(timeOf(date)), second);
            ASSERT_TRUE(isEarlier(fromSecondsSinceDayZero(before), date) && !isEarlier(date, date));
            before = moment;
        }
    }
}

TEST(Dates, ATimeReadFromTextIsTheSameDoubleAsOneComputed) {
    for (int minute = 0; minute < 1440; ++minute) {
        const std::string digits = std::to_string(10000 + minute / 60 * 100 + minute % 60);
        const auto read = fromIsoText(digits.substr(1, 2) + ':' + digits.substr(3) + ":00");
        ASSERT_TRUE(read) << minute;
        const double fraction = minute / 1440.0;
        for (const double day : {0.0, 1.0, 46348.0, 2958465.0})
            ASSERT_EQ(bits(timeOf(Date{day + fraction})), bits(*read)) << minute;
        ASSERT_EQ(bits(timeOf(Date{-5 - fraction})), bits(*read)) << minute;
        ASSERT_EQ(bits(fromSecondsSinceDayZero(minute * 60)), bits(*read)) << minute;
    }
}

TEST(Dates, ThatAreNoneAreRefused) {
    for (const CivilDate& parts :
         {CivilDate{2026, 2, 30, 0, 0, 0}, CivilDate{2025, 2, 29, 0, 0, 0}, CivilDate{1900, 2, 29, 0, 0, 0},
          CivilDate{2026, 0, 1, 0, 0, 0}, CivilDate{2026, 13, 1, 0, 0, 0}, CivilDate{2026, 257, 1, 0, 0, 0},
          CivilDate{2026, -255, 1, 0, 0, 0}, CivilDate{2026, 4, 31, 0, 0, 0}, CivilDate{2026, 1, 0, 0, 0, 0},
          CivilDate{2026, 1, 257, 0, 0, 0}, CivilDate{99, 12, 31, 0, 0, 0}, CivilDate{10000, 1, 1, 0, 0, 0},
          CivilDate{67562, 1, 1, 0, 0, 0}, CivilDate{2026, 1, 1, 24, 0, 0}, CivilDate{2026, 1, 1, -1, 0, 0},
          CivilDate{2026, 1, 1, 0, 60, 0}, CivilDate{2026, 1, 1, 0, 0, 60}})
        EXPECT_EQ(makeDate(parts), std::nullopt) << parts.year << '-' << parts.month << '-' << parts.day << ' ' << parts.hour;
    EXPECT_TRUE(makeDate({2000, 2, 29, 23, 59, 59}));
}

TEST(Dates, AreReckonedWithAcrossDayZero) {
    EXPECT_EQ(addDays(Date{-1.25}, 1), Date{0.25});
    EXPECT_EQ(addDays(Date{0.25}, -2), Date{-2.25});
    EXPECT_EQ(dayOf(Date{-1.25}), Date{-1});
    EXPECT_EQ(timeOf(Date{-1.25}), Date{0.25});
    EXPECT_TRUE(isEarlier(Date{-1.25}, Date{-1.5}));  // 06:00 and 12:00 of the same day
    EXPECT_TRUE(isEarlier(Date{-1.5}, Date{-0.0}));
    EXPECT_EQ(civil(Date{-1.999999}), (CivilDate{1899, 12, 30, 0, 0, 0}));  // rounds up into the next day
    EXPECT_EQ(civil(Date{1.999999}), (CivilDate{1900, 1, 1, 0, 0, 0}));
}

TEST(Dates, TravelAsIsoText) {
    struct Case {
        std::string text;
        double days;
    };
    for (const Case& c : {Case{"2026-11-22", 46348}, Case{"2026-11-22 09:00:00", 46348.375}, Case{"09:00:00", 0.375},
                          Case{"1899-12-30", 0}, Case{"1899-12-29 06:00:00", -1.25}, Case{"0100-01-01", -657434}}) {
        EXPECT_EQ(toIsoText(Date{c.days}), c.text);
        EXPECT_EQ(fromIsoText(c.text), Date{c.days}) << c.text;
    }
    EXPECT_EQ(fromIsoText("2026-11-22T09:00:00"), Date{46348.375});
    for (const std::string text : {"",
                                   " ",
                                   "2026",
                                   "2026-11",
                                   "2026-11-2",
                                   "2026-11-22 ",
                                   " 2026-11-22",
                                   "2026/11/22",
                                   "2026-1-22",
                                   "2026-02-30",
                                   "0099-01-01",
                                   "2026-11-22x09:00:00",
                                   "2026-11-22 09:00",
                                   "2026-11-22 9:00:00",
                                   "2026-11-22 09:00:000",
                                   "2026-11-22 24:00:00",
                                   "09:60:00",
                                   "09-00-00",
                                   "9:00:00",
                                   "+9:00:00",
                                   "20x6-11-22",
                                   "2026-11-22 09:00:00Z",
                                   "-026-11-22",
                                   "20261122",
                                   "2026-13-01"})
        EXPECT_EQ(fromIsoText(text), std::nullopt) << text;
}

}  // namespace
}  // namespace wmoutlook

#include "platform/DateHelper.h"

#include <gtest/gtest.h>

#include <limits>

namespace wmoutlook::DateHelper {
namespace {

constexpr auto kMonthFirst = DateOrder::monthFirst;
constexpr auto kDayFirst = DateOrder::dayFirst;

TEST(Durations, AreWrittenInHoursAndMinutes) {
    struct Case {
        std::int32_t minutes;
        std::string_view text;
    };
    for (const Case& c : {Case{0, "0 min"}, Case{1, "1 min"}, Case{45, "45 min"}, Case{60, "1 hr"}, Case{90, "1 hr 30 min"},
                          Case{120, "2 hr"}, Case{-90, "1 hr 30 min"}, Case{1501, "25 hr 1 min"},
                          Case{std::numeric_limits<std::int32_t>::min(), "35791394 hr 8 min"}})
        EXPECT_EQ(formatDuration(c.minutes), c.text);
}

TEST(Durations, AreAddedAndMeasuredAlsoAcrossMidnightAndDayZero) {
    EXPECT_EQ(addHoursToTime(Date{0.375}, 1.5F), Date{0.4375});
    EXPECT_EQ(addHoursToTime(Date{0.375}, 0.7F), fromIsoText("09:42:00"));  // single precision leaves no trace
    EXPECT_EQ(addHoursToTime(Date{0.375}, 1.0F / 3), fromIsoText("09:20:00"));
    EXPECT_EQ(addHoursToTime(Date{0.75}, 12), Date{1.25});
    EXPECT_EQ(addHoursToTime(Date{-1.75}, 12), Date{0.25});
    EXPECT_EQ(addHoursToTime(Date{0.25}, -12), Date{-1.75});
    EXPECT_EQ(minutesBetween(Date{0.375}, Date{0.4375}), 90);
    EXPECT_EQ(minutesBetween(Date{0.4375}, Date{0.375}), -90);
    EXPECT_EQ(minutesBetween(Date{-1.75}, Date{0.25}), 720);
    EXPECT_EQ(minutesBetween(Date{0}, Date{30.0 / 86400}), 0.5);
}

TEST(UserDates, AreReadInTheListedFormsOnly) {
    for (const std::string_view text :
         {"November 22, 2026", "Nov 22 2026", "2026-11-22", "11/22/2026", "  november 22, 2026 ", "NOV 22 2026"})
        EXPECT_EQ(parseUserDate(text, kMonthFirst), makeDay(2026, 11, 22)) << text;
    for (const std::string_view text : {"",
                                        " ",
                                        "22",
                                        "2026",
                                        "22 November 2026",
                                        "November 2026",
                                        "November 22",
                                        "November 31, 2026",
                                        "November 22 2026",
                                        "Nov 22, 2026",
                                        "November 0, 2026",
                                        "Novem 22, 2026",
                                        "No 22 2026",
                                        "Nov. 22 2026",
                                        "November 22, 26",
                                        "November22, 2026",
                                        "November 22, 2026 9:00",
                                        "11/22/26",
                                        "11-22-2026",
                                        "11.22.2026",
                                        "11/22",
                                        "11/22/2026/",
                                        "/11/2026",
                                        "11//2026",
                                        "011/22/2026",
                                        "2/30/2026",
                                        "13/13/2026",
                                        "2026/11/22",
                                        "2026-11-22 09:00:00",
                                        "2026-13-01",
                                        "09:00:00",
                                        "today",
                                        "November 22, 99999",
                                        "Août 1, 2026",
                                        "1/1/0099"})
        EXPECT_EQ(parseUserDate(text, kMonthFirst), std::nullopt) << text;
}

TEST(Moments, AreReadAsOtherProgramsWriteThem) {
    struct Case {
        std::string_view text, iso;  // empty: refused
    };
    for (const Case& c : {Case{"Jan 5, 2015 12:00 am", "2015-01-05"}, Case{"January 5 2015 11:59 PM", "2015-01-05 23:59:00"},
                          Case{"1/5/2015", "2015-01-05"}, Case{"2015-01-05T09:00:30", "2015-01-05 09:00:30"},
                          Case{" 9:05 AM ", "09:05:00"}, Case{"12:00 pm", "12:00:00"}, Case{"21:30:15", "21:30:15"}, Case{"", ""},
                          Case{":", ""}, Case{"13:00 PM", ""}, Case{"0:30 AM", ""}, Case{"24:00", ""}, Case{"9 AM", ""},
                          Case{"9:60", ""}, Case{"Jan 5, 2015 9:", ""}, Case{"noon 9:00", ""}, Case{"2015-01-05 9:00 XM", ""}}) {
        SCOPED_TRACE(c.text);
        const auto moment = parseMoment(c.text);
        EXPECT_EQ(moment ? toIsoText(*moment) : "", c.iso);
    }
}

TEST(UserDates, WithSlashesGoByTheLocale) {
    EXPECT_EQ(parseUserDate("3/4/2026", kMonthFirst), makeDay(2026, 3, 4));
    EXPECT_EQ(parseUserDate("3/4/2026", kDayFirst), makeDay(2026, 4, 3));
    EXPECT_EQ(parseUserDate("22/11/2026", kDayFirst), makeDay(2026, 11, 22));
    EXPECT_EQ(parseUserDate("22/11/2026", kMonthFirst), std::nullopt);
    EXPECT_EQ(parseUserDate("11/22/2026", kDayFirst), std::nullopt);
}

TEST(UserDates, ReadWhatTheLongFormatPrintsForEveryDayOfAYear) {
    for (int day = 0; day < 366; ++day) {
        const Date date = addDays(makeDay(2024, 1, 1), day);
        EXPECT_EQ(parseUserDate(format(date, "mmmm d, yyyy"), kDayFirst), date);
        EXPECT_EQ(parseUserDate(format(date, "mmm d yyyy"), kDayFirst), date);
    }
}

TEST(Formats, WriteEachLetter) {
    struct Case {
        std::string_view time, pattern, text;
    };
    constexpr std::string_view kMorning = "2026-03-05 09:04:07";
    for (const Case& c : {
             Case{kMorning, "d|dd|ddd|dddd", "5|05|Thu|Thursday"},
             Case{kMorning, "m|mm|mmm|mmmm", "3|03|Mar|March"},
             Case{kMorning, "yy|yyyy", "26|2026"},
             Case{kMorning, "h|hh|n|nn|s|ss", "9|09|4|04|7|07"},
             Case{kMorning, "h:Nn am/pm", "9:04 am"},
             Case{kMorning, "HH:NN AM/PM", "09:04 AM"},
             Case{kMorning, "hh:nn AMPM", "09:04 AM"},
             Case{kMorning, "h:mm:ss ampm", "9:03:07 am"},
             Case{kMorning, "DDDD, MMMM D YYYY", "Thursday, March 5 2026"},
             Case{kMorning, "", ""},
             Case{kMorning, "«é» İİİ yyyy", "«é» İİİ 2026"},  // a letter whose lower case is shorter shifts nothing
             Case{"00:00:00", "h:nn am/pm|h", "12:00 am|12"},
             Case{"00:30:00", "h:nn", "0:30"},
             Case{"11:59:00", "hh:nn AMPM", "11:59 AM"},
             Case{"12:00:00", "h:nn am/pm AMPM", "12:00 pm PM"},
             Case{"12:00:00", "h:nn", "12:00"},
             Case{"13:05:00", "hh:nn am/pm", "01:05 pm"},
             Case{"23:59:00", "h:nn AM/PM", "11:59 PM"},
             Case{"1899-12-30", "dddd d mmm yyyy", "Saturday 30 Dec 1899"},
             Case{"1899-12-29", "dddd", "Friday"},
             Case{"1899-12-29 18:00:00", "dddd hh", "Friday 18"},
             Case{"1899-12-24", "dddd", "Sunday"},
             Case{"1899-12-31", "dddd", "Sunday"},
             Case{"0100-01-01", "dddd yyyy yy", "Friday 0100 00"},
         }) {
        const auto date = fromIsoText(c.time);
        ASSERT_TRUE(date) << c.time;
        EXPECT_EQ(format(*date, c.pattern), c.text) << c.time;
    }
}

}  // namespace
}  // namespace wmoutlook::DateHelper

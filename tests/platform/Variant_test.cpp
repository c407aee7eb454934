#include "platform/Variant.h"

#include "platform/Errors.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace wmoutlook {
namespace {

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

/// Nothing when the conversion fails as such.
template <class Conversion>
auto converted(Conversion conversion) -> std::optional<decltype(conversion())> {
    try {
        return conversion();
    } catch (const ConversionError&) {
        return std::nullopt;
    }
}

TEST(Variants, BecomeWholeNumbersByRoundingHalvesToEven) {
    struct Case {
        Variant value;
        std::optional<std::int32_t> number;
    };
    for (const Case& c : {Case{0.5, 0},
                          Case{1.5, 2},
                          Case{2.5, 2},
                          Case{-0.5, 0},
                          Case{-1.5, -2},
                          Case{-2.5, -2},
                          Case{2.51, 3},
                          Case{"2.5", 2},
                          Case{"3.5", 4},
                          Case{true, -1},
                          Case{false, 0},
                          Case{Date{46348.375}, 46348},
                          Case{2147483647.4, kMost},
                          Case{2147483647.5, {}},
                          Case{-2147483648.5, kLeast},
                          Case{-2147483648.6, {}},
                          Case{"2147483647", kMost},
                          Case{"2147483648", {}},
                          Case{"-2147483648", kLeast},
                          Case{1e300, {}},
                          Case{kInfinity, {}},
                          Case{-kInfinity, {}},
                          Case{kNotANumber, {}},
                          Case{Variant{}, {}}})
        EXPECT_EQ(converted([&] { return c.value.toInteger(); }), c.number) << c.value.toText();
}

TEST(Variants, ReadNumbersFromPlainTextOnly) {
    struct Case {
        std::string_view text;
        std::optional<double> number;
    };
    for (const Case& c :
         {Case{"12", 12},       Case{" 12 ", 12}, Case{"\t7\r\n", 7}, Case{"+3", 3},         Case{"-3", -3},    Case{".5", 0.5},
          Case{"-0.25", -0.25}, Case{"007", 7},   Case{"", {}},       Case{" ", {}},         Case{"-", {}},     Case{"+", {}},
          Case{".", {}},        Case{"+-5", {}},  Case{"--5", {}},    Case{"++5", {}},       Case{"- 5", {}},   Case{"1e3", {}},
          Case{"1E3", {}},      Case{"0x10", {}}, Case{"12a", {}},    Case{"1 2", {}},       Case{"1,000", {}}, Case{"1,5", {}},
          Case{"$5", {}},       Case{"nan", {}},  Case{"inf", {}},    Case{"-infinity", {}}, Case{"True", {}}})
        EXPECT_EQ(converted([&] { return Variant{c.text}.toDouble(); }), c.number) << c.text;
    EXPECT_EQ(converted([] { return Variant{std::string(400, '9')}.toDouble(); }), std::nullopt);
}

TEST(Variants, BecomeTruthValues) {
    struct Case {
        Variant value;
        std::optional<bool> truth;
    };
    for (const Case& c : {Case{"True", true}, Case{"FALSE", false}, Case{"-1", true}, Case{"0", false}, Case{"0.4", true},
                          Case{2, true}, Case{0.0, false}, Case{"yes", {}}, Case{"", {}}, Case{Variant{}, {}}})
        EXPECT_EQ(converted([&] { return c.value.toBoolean(); }), c.truth) << c.value.toText();
}

TEST(Variants, BecomeDatesWithinTheYearsOfADate) {
    struct Case {
        Variant value;
        std::optional<Date> date;
    };
    for (const Case& c :
         {Case{"2026-11-22", Date{46348}}, Case{"09:00:00", Date{0.375}}, Case{46348, Date{46348}}, Case{-1.25, Date{-1.25}},
          Case{-657434.75, Date{-657434.75}}, Case{-657435.0, {}}, Case{2958465.75, Date{2958465.75}}, Case{2958466, {}},
          Case{kNotANumber, {}}, Case{Date{kNotANumber}, {}}, Case{"46348", {}}, Case{"November 22, 2026", {}}, Case{"", {}},
          Case{Variant{}, {}}})
        EXPECT_EQ(converted([&] { return c.value.toDate(); }), c.date) << c.value.toText();
}

TEST(Variants, AreWrittenWithoutExponentAndReadBackAsTheSameNumber) {
    struct Case {
        Variant value;
        std::string_view text;
    };
    for (const Case& c : {Case{0.1, "0.1"}, Case{100.0, "100"}, Case{1e21, "1000000000000000000000"}, Case{1e-7, "0.0000001"},
                          Case{-2.25, "-2.25"}, Case{1.0 / 3, "0.3333333333333333"}, Case{0.0, "0"}, Case{-0.0, "0"},
                          Case{kLeast, "-2147483648"}, Case{Variant{}, ""}, Case{true, "True"}, Case{false, "False"},
                          Case{Date{46348.375}, "2026-11-22 09:00:00"}, Case{" as it is ", " as it is "}})
        EXPECT_EQ(c.value.toText(), c.text);
    for (const double number :
         {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(), 1e-300, 0.1F + 0.2, -1e100})
        EXPECT_EQ(Variant{Variant{number}.toText()}.toDouble(), number);
}

TEST(Variants, DoNotTellTheirValueInAnError) {
    for (const auto& conversion :
         {+[](const Variant& value) { (void)value.toInteger(); }, +[](const Variant& value) { (void)value.toDate(); },
          +[](const Variant& value) { (void)value.toBoolean(); }}) {
        try {
            conversion(Variant{"046 454 286 Jones"});
            ADD_FAILURE() << "converted";
        } catch (const ConversionError& error) {
            EXPECT_EQ(std::string{error.what()}.find_first_of("0123456789J"), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace wmoutlook

#include "merge/MergeText.h"
#include "tests/merge/WordForWord.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <functional>
#include <random>

namespace wmoutlook::testing {
namespace {

std::string withoutUnfound(std::string text) {
    merge::replaceUnfoundMergeFieldsWithBlanks(text);
    return text;
}

/// What is left of one removal becomes a mark, or a part of what an earlier or a later one takes.
TEST(UnfoundFields, GoInTheirTurns) {
    using Pieces = std::array<std::string, 6>;
    const std::vector<Pieces> all{
        Pieces{"«", "»", "a", "b", "«a»", "«a"},
        Pieces{R"(\'ab)", R"(\'bb)", "a", "\\", R"(\'aba\'bb)", R"(\b)"},
        Pieces{R"(\'ab)", R"(\'bb)", "'bb", "\\", R"(\'aba)", "'ab"},
        Pieces{R"(\'ab)", R"(\'b)", R"(\b )", R"(\'aba\)", R"(\'bb)", R"(\a)"},
        Pieces{R"(\'ab)", R"(\a)", R"(\'aba\)", R"(\'bb)", R"(\'aba\'bb)", R"(\\'aba\'bb)"},
    };
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random{seed};
    for (int i = 0; i < 20000; ++i) {
        const Pieces& pieces = all[random() % all.size()];
        std::string text;
        for (std::size_t count = random() % 40; count > 0; --count) text += pieces[random() % pieces.size()];
        std::string wordForWord = text;
        removeUnfoundWordForWord(wordForWord);
        ASSERT_EQ(withoutUnfound(text), wordForWord) << text;
    }
}

TEST(UnfoundFields, GoInTimeProportionalToTheText) {
    const auto times = [](std::size_t count, const std::function<std::string(std::size_t)>& part) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text += part(i);
        return text;
    };
    const auto always = [](std::string part) { return [part = std::move(part)](std::size_t) { return part; }; };
    const auto numbered = [](std::string front, std::string behind) {
        return
            [front = std::move(front), behind = std::move(behind)](std::size_t i) { return front + std::to_string(i) + behind; };
    };
    constexpr std::size_t kMany = 50000;
    for (const std::string& text : {
             "«a»" + times(kMany, always("«")) + times(kMany, always("«a»")) + "x»",
             times(kMany, numbered("«a", "")) + times(kMany, numbered("", "»")) + std::string(kMany, 'x'),
             times(kMany, numbered("«", "«x»")),
             times(kMany, numbered("«x«", "»")),
             times(kMany, numbered("\xC2«", "»\xAB")),
             R"(\'aba\'bb)" + times(kMany, always(R"(\'ab)")) + times(kMany, always(R"(\'aba\'bb)")) + R"(x\'bb)",
             R"(\'abY\'bb)" + times(kMany / 2, numbered(R"(\'abX)", R"(\'abY\'bb z\'bb)")),
             R"(\'abX\'bb\'abZ )" + times(kMany, always(R"(\'abX\'bb\b )")) + R"(\'bb)",
             R"(\'abX\'bb)" + times(kMany / 2, numbered(R"(\'abZ)", R"( \'b\'abX\b )")) + R"(\'bb)",
             times(kMany / 4, always(R"(\b \'abX\b )")) + R"(\'b'bb\'abX\b \'abX\)" +
                 times(kMany / 4, always(R"(\'abX\'bb\'abY\'bb)")) + times(kMany / 4, numbered(R"(\'abX\\'ab)", "\\")),
             times(kMany, always(R"(\'ab)")) + R"(x\'bb)" + times(kMany, always(R"(\'ab)")) + R"(y\'bb)",
             times(kMany, numbered(R"(\'abName\b0 )", R"(\'bb)")),
             R"(\'abQ\'bb\'abW\'abQ\'bb\'bb)" + times(kMany, numbered(R"(\\'abN)", R"(\'bb'abQ\'bb)")),
         }) {
        SCOPED_TRACE(text.substr(0, 20) + " and so on, " + std::to_string(text.size()) + " bytes");
        const auto start = std::chrono::steady_clock::now();
        EXPECT_LT(withoutUnfound(text).size(), text.size());
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{4});  // the square of it takes a minute
    }
}

/// A mark is a character: bytes that a removal brings together are none.
TEST(UnfoundFields, LeaveBytesThatAreNoText) {
    EXPECT_EQ(withoutUnfound("a\xC2«x»\xAB"
                             "City» b"),
              "a\xC2\xAB"
              "City» b");
}

}  // namespace
}  // namespace wmoutlook::testing

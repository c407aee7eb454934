#include "merge/MergeText.h"
#include "tests/merge/WordForWord.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <random>

namespace wmoutlook::testing {
namespace {

std::string withoutUnfound(std::string text) {
    merge::replaceUnfoundMergeFieldsWithBlanks(text);
    return text;
}

using Pieces = std::vector<std::string>;

const std::string& oneOf(const Pieces& pieces, std::mt19937& random) {
    return pieces[random() % pieces.size()];
}

/// Of words that are made of pieces and of one another, so that the same stretch stands in other surroundings.
std::string textOf(const Pieces& pieces, std::mt19937& random) {
    Pieces words;
    for (auto left = 1 + random() % 5; left > 0; --left) {
        std::string word;
        for (auto parts = 1 + random() % 5; parts > 0; --parts)
            word += !words.empty() && random() % 3 == 0 ? oneOf(words, random) : oneOf(pieces, random);
        words.push_back(word);
    }
    std::string text;
    for (auto left = random() % 30; left > 0; --left) {
        const std::string& word = oneOf(random() % 4 == 0 ? pieces : words, random);
        for (auto times = random() % 12 == 0 ? random() % 8 : 1; times > 0; --times) text += word;
    }
    return text;
}

/// What is left of one removal becomes a mark, or a part of what an earlier or a later one takes.
TEST(UnfoundFields, GoInTheirTurns) {
    const std::vector<Pieces> all{
        {"«", "»", "a", "b", "«a»", "«a"},
        {R"(\'ab)", R"(\'bb)", "\\", R"(\')", R"(\'a)", R"(\'b)", "'ab", "'bb", "ab", "bb", "b", R"(\b )"},
        {R"(\'ab)", R"(\'bb)", "X", R"(\'abX\'bb)", R"(\'abX\)", "\\", R"(\a)", R"(\'abX\'abX\'bb)"},
    };
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random{seed};
    for (int i = 0; i < 50000; ++i) {
        const std::string text = textOf(all[random() % all.size()], random);
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

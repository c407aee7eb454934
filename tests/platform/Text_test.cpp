#include "platform/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace wmoutlook {
namespace {

TEST(Text, CountsCharactersAndNeverCutsOneInTwo) {
    struct Case {
        std::string_view text;
        std::size_t count;
        std::string_view firstTwo;
    };
    for (const Case& c : {Case{"", 0, ""}, Case{"abc", 3, "ab"}, Case{"É", 1, "É"}, Case{"Évén", 4, "Év"}, Case{"a😀b", 3, "a😀"},
                          Case{"€€€", 3, "€€"}, Case{"e\u0301x", 3, "e\u0301"},
                          // a byte that is no valid UTF-8 is one character: cut short, stray, overlong, surrogate, too high
                          Case{"\xC3", 1, "\xC3"}, Case{"\xE2\x82", 2, "\xE2\x82"}, Case{"\xF0\x9F\x98", 3, "\xF0\x9F"},
                          Case{"\x80É", 2, "\x80É"}, Case{"\xC0\x80", 2, "\xC0\x80"}, Case{"\xE0\x80\x80", 3, "\xE0\x80"},
                          Case{"\xED\xA0\x80", 3, "\xED\xA0"}, Case{"\xF0\x80\x80\x80", 4, "\xF0\x80"},
                          Case{"\xF4\x90\x80\x80", 4, "\xF4\x90"}, Case{"\xFF\xFE", 2, "\xFF\xFE"}, Case{"\xC3 É", 3, "\xC3 "}}) {
        EXPECT_EQ(characterCount(c.text), c.count) << c.text;
        EXPECT_EQ(firstCharacters(c.text, 2), c.firstTwo);
        EXPECT_EQ(firstCharacters(c.text, 0), "");
        EXPECT_EQ(firstCharacters(c.text, 99), c.text);
    }
}

TEST(Text, ChangesTheCaseOfLatinLettersWithAccents) {
    struct Case {
        std::string_view lower, upper;
    };
    for (const Case& c : {Case{"abcz019-_", "ABCZ019-_"}, Case{"éèêëàâäçîïôöùûüœæ", "ÉÈÊËÀÂÄÇÎÏÔÖÙÛÜŒÆ"}, Case{"ÿ", "Ÿ"},
                          Case{"ğłšžőű", "ĞŁŠŽŐŰ"}, Case{"× ÷ ß 中 😀 \xC3\xE9", "× ÷ ß 中 😀 \xC3\xE9"}}) {
        EXPECT_EQ(upperCase(c.lower), c.upper);
        EXPECT_EQ(lowerCase(c.upper), c.lower);
    }
    EXPECT_EQ(lowerCase("İ"), "i");  // shorter than its capital
    EXPECT_EQ(upperCase("ıſ"), "IS");
}

TEST(Text, KnowsEveryLetterOfLatinOneAndLatinExtendedA) {
    for (unsigned c = 0xC0; c <= 0x17F; ++c) {
        const std::string letter{static_cast<char>(0xC0U | (c >> 6)), static_cast<char>(0x80U | (c & 0x3FU))};
        SCOPED_TRACE(letter);
        const bool isSign = c == 0xD7 || c == 0xF7;
        const bool isOwnLower = c == 0x131 || c == 0x17F;  // dotless i and long s share their capital with i and s
        const std::string folded = foldedForMatching(letter);
        EXPECT_EQ(isSign, !std::all_of(folded.begin(), folded.end(), [](char f) { return f >= 'a' && f <= 'z'; }));
        EXPECT_TRUE(equalsTextually(letter, lowerCase(letter)));
        EXPECT_EQ(equalsTextually(letter, upperCase(letter)), !isOwnLower);
        EXPECT_EQ(foldedForMatching(upperCase(letter)), folded);
    }
}

TEST(Text, EqualsWithoutRegardToCaseButNotToAccents) {
    struct Case {
        std::string_view left, right;
        bool isEqual;
    };
    for (const Case& c : {Case{"Émile CÔTÉ", "éMILE côté", true}, Case{"e", "é", false}, Case{"Émile", "Emile", false},
                          Case{"ŒUVRE", "œuvre", true}, Case{"œuvre", "oeuvre", false}, Case{"", "", true}, Case{"", " ", false},
                          Case{"a", "ab", false}, Case{"\xC3", "\xE3", false}, Case{"ß", "ss", false}}) {
        EXPECT_EQ(equalsTextually(c.left, c.right), c.isEqual) << c.left << ' ' << c.right;
        EXPECT_EQ(compareTextually(c.left, c.right) == 0, c.isEqual) << c.left << ' ' << c.right;
    }
    EXPECT_EQ(foldedForMatching("Œuvre Ltée, ÆGIR ß"), "oeuvre ltee, aegir ss");
}

TEST(Text, SortsNamesAsADirectoryDoes) {
    const std::vector<std::string> sorted{"",       "Abel",   "Cote",  "coté",    "Côte",    "CÔTÉ",
                                          "Côteau", "Edward", "Éric",  "Ernest",  "Étienne", "Evans",
                                          "Odette", "Oeuvre", "Œuvre", "Olivier", "Zoé",     "zoé b"};
    std::vector<std::string> names{sorted.rbegin(), sorted.rend()};
    std::sort(names.begin(), names.end(), [](const auto& left, const auto& right) { return compareTextually(left, right) < 0; });
    EXPECT_EQ(names, sorted);
}

TEST(Text, HoldsItsRulesForAnyBytes) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random{seed};
    const std::vector<std::string> pieces{
        "a",    "B",    " ",    "É",    "é",    "œ",    "İ",    "ı",    "ſ",    "Ÿ", "😀",
        "\xC3", "\xE2", "\x82", "\xF0", "\x9F", "\xC5", "\xED", "\xA0", "\xFF", "×", std::string(1, '\0')};
    const auto anyText = [&] {
        std::string text;
        for (auto left = random() % 9; left > 0; --left) text += pieces[random() % pieces.size()];
        return text;
    };
    std::string former;
    std::string middle;
    for (int round = 0; round < 20000; ++round) {
        const std::string text = anyText();
        const std::size_t count = characterCount(text);
        const std::size_t cut = random() % 9;
        const std::string_view head = firstCharacters(text, cut);
        ASSERT_EQ(characterCount(head), std::min(cut, count));
        ASSERT_EQ(characterCount(head) + characterCount(std::string_view{text}.substr(head.size())), count);
        ASSERT_EQ(characterCount(lowerCase(text)), count);
        ASSERT_EQ(lowerCase(lowerCase(text)), lowerCase(text));
        ASSERT_EQ(upperCase(upperCase(text)), upperCase(text));
        const auto order = compareTextually(middle, text);
        ASSERT_EQ(order == 0, equalsTextually(middle, text));
        ASSERT_EQ(order<0, compareTextually(text, middle)> 0);
        const bool isChain = order < 0 && compareTextually(former, middle) < 0;
        ASSERT_TRUE(!isChain || compareTextually(former, text) < 0);
        former = std::exchange(middle, text);
    }
}

TEST(Text, IsTrimmedOfBlanksOrOfAllWhiteSpace) {
    struct Case {
        std::string_view text, trimmed, withoutWhiteSpace;
    };
    for (const Case& c : {Case{"", "", ""}, Case{"   ", "", ""}, Case{" a b ", "a b", "a b"}, Case{"\t a \r\n", "\t a \r\n", "a"},
                          Case{" \t ", "\t", ""}, Case{"\u00A0a", "\u00A0a", "\u00A0a"}}) {
        EXPECT_EQ(trimmed(c.text), c.trimmed);
        EXPECT_EQ(withoutWhiteSpaceAround(c.text), c.withoutWhiteSpace);
    }
}

TEST(Text, IsReplacedOnceFromLeftToRight) {
    EXPECT_EQ(replaceAll("O'Neil's", "'", "''"), "O''Neil''s");
    EXPECT_EQ(replaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(replaceAll("aXbX", "X", ""), "ab");
    EXPECT_EQ(replaceAll("ab", "", "x"), "ab");
}

}  // namespace
}  // namespace wmoutlook

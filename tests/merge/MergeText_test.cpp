#include "merge/MergeTemplate.h"

#include "platform/TextSearch.h"
#include "tests/merge/WordForWord.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace wmoutlook::testing {
namespace {

using namespace merge;

const std::vector<NamedField> kFields{{"Task Name"}, {"Due", true}, {"City"}, {"Client"}, {"City"}, {"A"}, {"B"}, {""}};

std::shared_ptr<const Placeholders> placeholdersOf(const std::vector<NamedField>& fields) {
    Placeholders placeholders;
    for (const NamedField& field : fields) placeholders.add(field.name, field.isDate);
    return std::make_shared<const Placeholders>(std::move(placeholders));
}

/// Values as a firm has them, and what they should never hold.
std::string valueOf(std::int32_t rank) {
    static const std::vector<std::string> values{"today", "Prepare T2", "Nov 30", "Québec", "",    "Laval",
                                                 " x ",   "«B»",        "\\",     "«",      "'ab", "\\'abA\\'bb"};
    return values[static_cast<std::size_t>(PlaceholderRank::row(rank)) % values.size()] +
           (PlaceholderRank::format(rank) > 0 ? std::to_string(PlaceholderRank::format(rank)) : "");
}

std::string merged(const std::string& text, TextKind kind) {
    return MergeTemplate{text, placeholdersOf(kFields)}.merged(kind, valueOf);
}

TEST(MergeText, PutsValuesIn) {
    struct Case {
        std::string text, plain, rich;
    };
    for (const Case& c : {
             Case{"", "", ""},
             Case{"no marks « at all", "no marks « at all", "no marks « at all"},
             Case{"«Task Name»", "Prepare T2", "Prepare T2"},
             Case{"«TASK name»!", "Prepare T2!", "Prepare T2!"},
             Case{"\\par«Task Name»", "\\parPrepare T2", "\\par Prepare T2"},
             Case{"to «Task Name»«Task Name»", "to Prepare T2Prepare T2", "to Prepare T2Prepare T2"},
             Case{"x«Task Name» «Task Name»", "xPrepare T2 Prepare T2", "x Prepare T2  Prepare T2"},
             Case{"«City»«Task Name»", "QuébecPrepare T2", "Québec Prepare T2"},  // Task Name stands behind a mark at its turn
             Case{"«Task Name»«City»", "Prepare T2Québec", "Prepare T2 Québec"},
             Case{"«Client»«A»", " x ", " x "},
             Case{"«(Due, d)» «(Due, dd/mm/yy)» «(due, DDDD, MMMM D YYYY)»", "Nov 307 Nov 305 Nov 30", "Nov 307 Nov 305 Nov 30"},
             Case{"«Due»", "", ""},
             Case{"«(Todays Date, d)»«(Todays Date,d)»", "today7", "today7"},
             Case{"«City«Task Name»» x", " x", " x"},
             Case{"«Cl«(Todays Date, dddd, mmmm d yyyy)»ient» x", " x", " x"},
             Case{"\\'abTask Name\\'bb«City»", "Prepare T2Québec", "Prepare T2 Québec"},
             Case{"«City»\\'abTask Name\\'bb", "QuébecPrepare T2", "Québec Prepare T2"},
             Case{"«None» \\'abNone\\'bb", " \\'abNone\\'bb", " \\'abNone\\'bb"},
             Case{"«City» \\'abNone\\'bb\\'abCity\\'bb", "Québec 'bbQuébec", "Québec 'bb Québec"},
         }) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(merged(c.text, TextKind::plain), c.plain);
        EXPECT_EQ(merged(c.text, TextKind::rich), c.rich);
    }
}

TEST(MergeText, AsksForEachValueOnceAndInOrder) {
    std::string asked;
    const MergeTemplate letter{"«City» «Task Name» «City» «Unknown» «(Todays Date, d)» \\'abCity\\'bb", placeholdersOf(kFields)};
    for (const std::string value : {"value", "«Client»"}) {
        asked.clear();
        static_cast<void>(letter.merged(TextKind::plain, [&](std::int32_t rank) {
            asked += std::to_string(PlaceholderRank::row(rank)) + " ";
            return value;
        }));
        EXPECT_EQ(asked, value == "value" ? "0 1 3 3 " : "0 1 3 4 3 ");
    }
}

TEST(MergeText, BlanksWhatIsLeft) {
    struct Case {
        std::string text, left;
    };
    for (const Case& c : {
             Case{"a «x» b «y»«x» c", "a  b  c"},
             Case{"«x» \\'aby\\'bb", " \\'aby\\'bb"},  // escaped ones are looked at only when no plain one was removed
             Case{"a \\'aby\\'bb b \\'aby\\'bb", "a 'bb b 'bb"},
             Case{"a » b", "a » b"},
             Case{"« lone", "« lone"},
             Case{"a «x« b» c» d", "a  c» d"},
             Case{"«a» ««a» b»", " "},
             Case{"a \\'abx\\b0 y\\'bb \\'abx\\i z\\'bb", "a 'bb 'bb"},
         }) {
        std::string text = c.text;
        replaceUnfoundMergeFieldsWithBlanks(text);
        std::string wordForWord = c.text;
        removeUnfoundWordForWord(wordForWord);
        EXPECT_EQ(text, c.left) << c.text;
        EXPECT_EQ(wordForWord, c.left) << c.text;
    }
}

/// Text of pieces that meet in every way.
std::string randomTemplate(std::mt19937& random) {
    static const std::vector<std::string> pieces{"«",
                                                 "»",
                                                 "«Task Name»",
                                                 "«City»",
                                                 "«client»",
                                                 "«A»",
                                                 "«B»",
                                                 "City",
                                                 " ",
                                                 "text",
                                                 "\\'ab",
                                                 "\\'bb",
                                                 "\\",
                                                 "'ab",
                                                 "'bb",
                                                 "b",
                                                 "a",
                                                 "\\'abCity\\'bb",
                                                 "\\'ABclient\\'bb",
                                                 "\\'abUnknown\\'bb",
                                                 "«Unknown»",
                                                 "(Due, d)",
                                                 "«(Due, d)»",
                                                 "«(Todays Date, dddd, mmmm d yyyy)»",
                                                 "é",
                                                 "\\par ",
                                                 "\\b0 ",
                                                 "«x»",
                                                 "\\'abx\\",
                                                 "«»"};
    std::string text;
    for (std::size_t count = random() % 12; count > 0; --count) text += pieces[random() % pieces.size()];
    return text;
}

TEST(MergeText, IsTheSameAsWordForWordInRandomTemplates) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random{seed};
    const auto placeholders = placeholdersOf(kFields);
    for (int i = 0; i < 5000; ++i) {
        const std::string text = randomTemplate(random);
        SCOPED_TRACE(text);
        const auto shift = static_cast<std::int32_t>(random() % 12);
        const ValueOf value = [&](std::int32_t rank) { return valueOf(rank + shift * PlaceholderRank::kFormats); };
        for (const TextKind kind : {TextKind::plain, TextKind::rich})
            ASSERT_EQ((MergeTemplate{text, placeholders}.merged(kind, value)), mergedWordForWord(text, kFields, kind, value));
        std::string left = text, leftWordForWord = text;
        replaceUnfoundMergeFieldsWithBlanks(left);
        removeUnfoundWordForWord(leftWordForWord);
        ASSERT_EQ(left, leftWordForWord);
    }
}

TEST(MergeText, NamesThatHoldMarksAreFoundToo) {
    const std::vector<NamedField> fields{{"A«B"}, {"C"}, {"\\'abX"}};
    const auto value = [](std::int32_t rank) { return rank == PlaceholderRank::of(1, 0) ? "«C»" : "value"; };
    EXPECT_EQ((MergeTemplate{"«A«B»", placeholdersOf(fields)}.merged(TextKind::plain, value)), "value");
}

TEST(TextSearch, ComparesLettersWithoutCase) {
    EXPECT_EQ(replaceTextually("Été été ÉTÉ ete", "éTé", "x"), "x x x ete");
    EXPECT_EQ(replaceTextually("aAa", "aa", "b"), "ba");
    EXPECT_EQ(replaceTextually("İi", "I", "x"), "xx");
    EXPECT_EQ(replaceTextually("abc", "", "x"), "abc");
    EXPECT_FALSE(findTextually("Ét", "Été"));
    EXPECT_EQ(findTextually("«a»«A»", "«a»", 1)->position, 5U);
    EXPECT_FALSE(findTextually("\xC3", "é"));
}

}  // namespace
}  // namespace wmoutlook::testing

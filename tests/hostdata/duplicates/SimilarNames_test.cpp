#include "hostdata/duplicates/SimilarNames.h"

#include "hostdata/duplicates/NameSimilarity.h"
#include "hostdata/duplicates/NormalisedNames.h"

#include <gtest/gtest.h>

#include <random>

namespace wmoutlook {
namespace {

TEST(NameSimilarity, HasThePublishedValues) {
    struct Case {
        std::string_view left, right;
        double jaro, jaroWinkler;
    };
    for (const Case& c : {Case{"martha", "marhta", 0.944, 0.961}, Case{"dwayne", "duane", 0.822, 0.840},
                          Case{"dixon", "dicksonx", 0.767, 0.813}, Case{"jellyfish", "smellyfish", 0.896, 0.896},
                          Case{"abc", "abc", 1, 1}, Case{"abc", "xyz", 0, 0}, Case{"", "a", 0, 0}}) {
        EXPECT_NEAR(SimilarityTo{c.left}.jaro(c.right), c.jaro, 0.0005) << c.left;
        EXPECT_NEAR(SimilarityTo{c.right}.jaro(c.left), c.jaro, 0.0005) << c.left;
        EXPECT_NEAR(nameSimilarity(c.left, c.right), c.jaroWinkler, 0.0005) << c.left;
    }
}

TEST(SimilarNames, ForgiveASlipAndNotAnotherName) {
    struct Case {
        std::string_view host, searched;
        bool isMatch;
    };
    for (const Case& c : {
             Case{"Johnson Plumbing", "Jonhson Plumbing", true},  // changed places
             Case{"Tremblay", "Trembley", true},                  // wrong
             Case{"Tremblay", "Trembaly", true},                  //
             Case{"Tremblay", "Tremblays", true},                 // too much
             Case{"Tremblay", "Trembay", true},                   // missing
             Case{"Smith's Dental Office", "Smith Dentl Office", true},
             Case{"Smith Dental", "Smith Rental", true},  // the price
             Case{"Roy", "Ray", false},
             Case{"Gates Plumbing Supplies", "Bates Plumbing Supplies", false},
             Case{"9123-4567 Québec inc.", "9123-4568 Québec inc.", false},
             Case{"9123-4567 Québec inc.", "9123-4567 Qubec", true},
             Case{"Studio 54 Montréal", "Studio 45 Montréal", false},
             Case{"東京商事株式会社", "東京商亊株式会社", false},
         }) {
        SimilarNames names;
        names.add(normalisedCompanyName(c.host), {4, false});
        const std::int32_t found = names.find(normalisedCompanyName(c.searched), LookAt::all);
        EXPECT_EQ(found, c.isMatch ? 4 : kNoRecord)
            << c.searched << " " << nameSimilarity(normalisedCompanyName(c.host), normalisedCompanyName(c.searched));
    }
}

TEST(SimilarNames, TheMostSimilarWinsThenTheLowestNumber) {
    SimilarNames names;
    names.add("tremblayconsulting", {9, false});
    names.add("tremblayconsultimg", {5, false});
    names.add("tremblayconsulfing", {4, false});
    names.add("tremblayconsulting", {6, true});
    EXPECT_EQ(names.find("tremblayconsulting", LookAt::activeOnly), 9);
    EXPECT_EQ(names.find("tremblayconsulting", LookAt::all), 6);
    EXPECT_EQ(names.find("tremblayconsultinng", LookAt::activeOnly), 9);
    EXPECT_EQ(names.find("tremblayconsulxing", LookAt::all), 4);  // as near to 4 as to the equal names 6 and 9
    EXPECT_EQ(names.find("tremblayconsulxing", LookAt::activeOnly), 4);
    EXPECT_EQ(SimilarNames{}.find("tremblay", LookAt::all), kNoRecord);
}

/// Names of a few syllables with slips, so that many are near each other.
class SlippedNames {
public:
    explicit SlippedNames(unsigned seed) : random_(seed) {}

    std::string next() {
        constexpr std::string_view kSyllables[] = {"trem", "blay", "gest", "ion", "con", "sul", "ting", "mar", "tin", "a", "ee"};
        std::string name;
        for (std::size_t count = pick(1, 6); count > 0; --count) name += kSyllables[pick(0, std::size(kSyllables) - 1)];
        for (std::size_t slips = pick(0, 3); slips > 0; --slips) name[pick(0, name.size() - 1)] = letter();
        if (pick(0, 4) == 0) name.insert(pick(0, name.size()), 1, letter());
        return name;
    }

private:
    std::size_t pick(std::size_t from, std::size_t to) { return std::uniform_int_distribution<std::size_t>{from, to}(random_); }
    char letter() { return static_cast<char>('a' + pick(0, 25)); }
    std::mt19937 random_;
};

TEST(SimilarNames, TheIndexLosesNoMatchOfAFullComparison) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    SlippedNames source{seed};
    std::vector<std::string> hosts;
    SimilarNames names;
    for (std::int32_t number = 0; number < 1500; ++number) {
        hosts.push_back(source.next());
        names.add(hosts.back(), {number, false});
    }
    int matches = 0;
    for (int i = 0; i < 500; ++i) {
        const std::string searched = source.next();
        std::int32_t expected = kNoRecord;
        double best = kSameNameSimilarity;
        for (std::size_t host = 0; host < hosts.size(); ++host) {
            if (hosts[host].front() != searched.front()) continue;
            const double similarity = nameSimilarity(searched, hosts[host]);
            if (similarity < best || (similarity == best && expected != kNoRecord)) continue;
            expected = static_cast<std::int32_t>(host);
            best = similarity;
        }
        EXPECT_EQ(names.find(searched, LookAt::all), expected) << searched;
        matches += expected == kNoRecord ? 0 : 1;
    }
    EXPECT_GT(matches, 50);
}

}  // namespace
}  // namespace wmoutlook

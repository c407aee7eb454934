#include "hostdata/duplicates/PersonNames.h"

#include "hostdata/duplicates/NormalisedNames.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <span>

namespace wmoutlook {

namespace {

using Words = std::vector<std::string>;

/// In front of a name, in both languages. A lone "M." is a title only where a first and a last name follow.
constexpr std::string_view kTitles[] = {"mr",        "mrs", "ms",       "miss",    "mx",           "dr",  "prof",
                                        "professor", "m",   "monsieur", "madame",  "mademoiselle", "mm",  "mme",
                                        "mlle",      "me",  "dre",      "docteur", "maitre",       "rev", "hon"};

/// Behind a name.
constexpr std::string_view kProfessionalLetters[] = {"cpa", "ca", "cga", "cma", "fcpa", "fca", "ea",  "esq", "phd",
                                                     "md",  "jd", "llb", "llm", "mba",  "ing", "eng", "peng"};

/// Behind a name, and part of it.
constexpr std::string_view kGenerations[] = {"jr", "sr", "ii", "iii", "iv"};

/// A last name goes on behind these, so none is the last of the middle names.
constexpr std::string_view kParticles[] = {"van", "von", "vander", "vanden", "der",    "den", "de", "del", "della",
                                           "di",  "da",  "du",     "des",    "dos",    "la",  "le", "el",  "al",
                                           "bin", "st",  "ste",    "saint",  "sainte", "mac", "mc", "san"};

bool isIn(std::span<const std::string_view> table, std::string_view word) {
    return std::ranges::find(table, word) != table.end();
}

void dropTitles(Words& words) {
    const auto isTitle = [&] { return isIn(kTitles, words.front()) && (words.front().size() > 1 || words.size() > 2); };
    while (words.size() > 1 && isTitle()) words.erase(words.begin());
}

void dropProfessionalLetters(Words& words, std::size_t atLeast = 1) {
    while (words.size() > atLeast && isIn(kProfessionalLetters, words.back())) words.pop_back();
}

/// Takes the generation off the end.
std::string takeGeneration(Words& words, std::size_t atLeast = 1) {
    if (words.size() <= atLeast || !isIn(kGenerations, words.back())) return {};
    std::string generation = std::move(words.back());
    words.pop_back();
    return generation;
}

std::string joinedFrom(const Words& words, std::size_t first) {
    return joined({words.begin() + static_cast<std::ptrdiff_t>(first), words.end()});
}

Words firstWords(const Words& words, std::size_t count) {
    return {words.begin(), words.begin() + static_cast<std::ptrdiff_t>(count)};
}

std::string initialsOf(const PersonName& name) {
    std::string initials;
    for (std::size_t i = 1; i < name.given.size(); ++i) initials += name.given[i].front();
    return initials;
}

bool hasOnlyInitials(const PersonName& name) {
    return std::all_of(name.given.begin() + 1, name.given.end(), [](const std::string& word) { return word.size() == 1; });
}

std::string wholeName(const PersonName& name) {
    return joined(name.given) + name.last;
}

/// A key of parts that stay apart.
std::string keyOf(std::initializer_list<std::string_view> parts) {
    std::string key;
    for (const std::string_view part : parts) key.append(part).append(1, ' ');
    return key;
}

/// "Last, First Middle", unless nothing but letters of a profession or a generation stands behind the comma.
std::vector<PersonName> readingOfLastFirst(Words lastWords, Words given) {
    dropProfessionalLetters(given, 0);
    std::string generation = takeGeneration(given, 0);
    if (given.empty() || lastWords.empty()) return {};
    dropTitles(given);
    if (generation.empty()) generation = takeGeneration(lastWords);
    return {PersonName{std::move(given), joined(lastWords) + generation}};
}

}  // namespace

PersonName personName(std::string_view first, std::string_view middle, std::string_view last, std::string_view suffix) {
    PersonName name{wordsOfName(first), {}};
    dropTitles(name.given);
    std::ranges::move(wordsOfName(middle), std::back_inserter(name.given));
    Words lastWords = wordsOfName(last);
    std::ranges::move(wordsOfName(suffix), std::back_inserter(lastWords));
    dropProfessionalLetters(lastWords);
    name.last = joined(lastWords);
    return name;
}

std::vector<PersonName> readingsOfFullName(std::string_view fullName) {
    const std::size_t comma = fullName.find(',');
    if (comma != std::string_view::npos) {
        auto reading = readingOfLastFirst(wordsOfName(fullName.substr(0, comma)), wordsOfName(fullName.substr(comma + 1)));
        if (!reading.empty()) return reading;
    }
    Words words = wordsOfName(fullName);
    dropTitles(words);
    dropProfessionalLetters(words, 2);  // "Wei Eng" is a first and a last name
    const std::string generation = takeGeneration(words);
    if (words.empty()) return {};
    if (words.size() == 1) return {PersonName{{}, words.front() + generation}};

    std::vector<PersonName> readings;
    for (std::size_t given = 1; given < words.size(); ++given)
        if (given == 1 || !isIn(kParticles, words[given - 1]))
            readings.push_back({firstWords(words, given), joinedFrom(words, given) + generation});
    return readings;
}

void PersonNames::add(const PersonName& name, const HostRecord& record) {
    if (name.isBlank()) return;
    byWholeName_.add(wholeName(name), record);
    if (name.given.empty() || name.last.empty()) return;
    byFirstAndLast_.add(keyOf({name.given.front(), name.last}), record);
    if (name.hasMiddle()) byMiddleInitials_.add(keyOf({name.given.front(), initialsOf(name), name.last}), record);
}

std::int32_t PersonNames::find(const std::vector<PersonName>& readings, LookAt lookAt) const {
    if (readings.empty()) return kNoRecord;
    const std::int32_t same = byWholeName_.find(wholeName(readings.front()), lookAt);
    if (same != kNoRecord) return same;
    std::int32_t found = kNoRecord;
    for (const PersonName& reading : readings) found = lowerNumber(found, findTolerantly(reading, lookAt));
    return found;
}

std::int32_t PersonNames::findTolerantly(const PersonName& reading, LookAt lookAt) const {
    if (reading.given.empty() || reading.last.empty()) return kNoRecord;
    const std::string& first = reading.given.front();
    if (!reading.hasMiddle()) return byFirstAndLast_.find(keyOf({first, reading.last}), lookAt);
    const std::int32_t withoutMiddle = byWholeName_.find(first + reading.last, lookAt);
    const std::string initials = initialsOf(reading);
    const std::int32_t byInitials = hasOnlyInitials(reading)
                                        ? byMiddleInitials_.find(keyOf({first, initials, reading.last}), lookAt)
                                        : byWholeName_.find(first + initials + reading.last, lookAt);
    return lowerNumber(withoutMiddle, byInitials);
}

}  // namespace wmoutlook

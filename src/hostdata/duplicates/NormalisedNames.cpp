#include "hostdata/duplicates/NormalisedNames.h"

#include "platform/Text.h"

#include <algorithm>
#include <iterator>

namespace wmoutlook {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

enum class Role { letter, joins, parts, isAnd };

struct Character {
    Role role = Role::letter;
    std::size_t length = 1;
};

Role roleOfAscii(char c) {
    if ((c >= 'a' && c <= 'z') || isDigit(c)) return Role::letter;
    if (c == '.' || c == '\'' || c == '-' || c == '`') return Role::joins;
    return c == '&' || c == '+' ? Role::isAnd : Role::parts;
}

/// Signs beyond ASCII, by the range of their bytes, of which the first that fits counts; what stands in no row is a letter.
struct Signs {
    std::string_view first;
    std::string_view last;
    Role role;
};

constexpr Signs kSigns[] = {
    {"\xC2\xB4", "\xC2\xB4", Role::joins},          // acute accent, typed for an apostrophe
    {"\xC2\x80", "\xC2\xBF", Role::parts},          // no-break space, French quotes, registered sign, ...
    {"\xC3\x97", "\xC3\x97", Role::parts},          // multiplication sign
    {"\xC3\xB7", "\xC3\xB7", Role::parts},          // division sign
    {"\xCA\xBC", "\xCA\xBC", Role::joins},          // modifier apostrophe
    {"\xCC\x80", "\xCD\xAF", Role::joins},          // accents that follow their letter as characters of their own
    {"\xE2\x80\x8B", "\xE2\x80\x95", Role::joins},  // spaces without width, dashes
    {"\xE2\x80\x98", "\xE2\x80\x9B", Role::joins},  // typographic apostrophes
    {"\xE2\x80\x80", "\xE2\x81\xAF", Role::parts},  // the other punctuation
    {"\xE2\x84\xA2", "\xE2\x84\xA2", Role::parts},  // trade mark
};

Character characterAtFront(std::string_view text) {
    if (static_cast<unsigned char>(text[0]) < 0x80) return {roleOfAscii(text[0]), 1};
    for (const Signs& signs : kSigns) {
        const std::string_view sign = text.substr(0, signs.first.size());
        if (sign >= signs.first && sign <= signs.last) return {signs.role, signs.first.size()};
    }
    return {Role::letter, 1};
}

class WordBuilder {
public:
    void append(std::string_view letters) { word_ += letters; }
    void part() {
        if (!word_.empty()) words_.push_back(word_ == "et" ? "and" : std::move(word_));
        word_.clear();
    }
    [[nodiscard]] std::vector<std::string> words() && {
        part();
        return std::move(words_);
    }

private:
    std::vector<std::string> words_;
    std::string word_;
};

/// What says in which form a firm is incorporated or registered, as words without accents and dots, in French and English.
/// A form of several words stands whole; its parts alone ("partnership") are part of a name.
constexpr std::string_view kLegalForms[] = {
    // corporations
    "inc",
    "incorporated",
    "incorporee",
    "corp",
    "corporation",
    "ltd",
    "limited",
    "ltee",
    "limitee",
    "plc",
    "ulc",
    "unlimited liability company",
    "sa",
    "sarl",
    "sas",
    "gmbh",
    "societe par actions",
    // professional corporations
    "pc",
    "professional corporation",
    "prof corp",
    "societe professionnelle",
    // limited liability companies and partnerships
    "llc",
    "limited liability company",
    "pllc",
    "llp",
    "limited liability partnership",
    "lllp",
    "lp",
    "limited partnership",
    "general partnership",
    "senc",
    "sencrl",
    "senc rl",
    "srl",
    "sec",
    "societe en nom collectif",
    "societe en nom collectif a responsabilite limitee",
    "societe en commandite",
    "societe a responsabilite limitee",
    // registered trade names
    "enr",
    "enrg",
    "enregistree",
    "regd",
    "registered",
};

/// Words that are written in several ways and tell firms apart all the same: they stay, in one form.
struct Spelling {
    std::string_view written;
    std::string_view kept;
};

constexpr Spelling kSpellings[] = {{"company", "co"}, {"compagnie", "co"}, {"cie", "co"}, {"brothers", "bros"}};

/// How many words at the end are a legal form: the longest that fits; 0 for none.
std::size_t legalFormAtEnd(const std::vector<std::string>& words) {
    std::string end;
    std::size_t longest = 0;
    constexpr std::size_t kMostWords = 8;
    for (std::size_t count = 1; count <= std::min(words.size(), kMostWords); ++count) {
        const std::string& word = words[words.size() - count];
        end = count == 1 ? word : word + " " + end;
        if (std::ranges::find(kLegalForms, end) != std::end(kLegalForms)) longest = count;
    }
    return longest;
}

void dropLegalForms(std::vector<std::string>& words) {
    for (std::size_t count = legalFormAtEnd(words); count > 0 && count < words.size(); count = legalFormAtEnd(words))
        words.resize(words.size() - count);
}

}  // namespace

std::vector<std::string> wordsOfName(std::string_view name) {
    const std::string folded = foldedForMatching(name);
    WordBuilder builder;
    for (std::string_view rest = folded; !rest.empty();) {
        const Character character = characterAtFront(rest);
        if (character.role == Role::letter) builder.append(rest.substr(0, character.length));
        if (character.role == Role::parts || character.role == Role::isAnd) builder.part();
        if (character.role == Role::isAnd) {
            builder.append("and");
            builder.part();
        }
        rest.remove_prefix(character.length);
    }
    return std::move(builder).words();
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += word;
    return text;
}

std::string sameNameKey(std::string_view name) {
    return lowerCase(withoutWhiteSpaceAround(name));
}

std::string normalisedCompanyName(std::string_view name) {
    std::vector<std::string> words = wordsOfName(name);
    dropLegalForms(words);
    for (std::string& word : words)
        for (const Spelling& spelling : kSpellings)
            if (word == spelling.written) word = spelling.kept;
    return joined(words);
}

std::string digitsOf(std::string_view text) {
    std::string digits;
    std::ranges::copy_if(text, std::back_inserter(digits), isDigit);
    return digits;
}

std::string telephoneKey(std::string_view number) {
    std::string digits = digitsOf(number);
    constexpr std::size_t kWithCountryCode = 11;
    if (digits.size() == kWithCountryCode && digits.front() == '1') digits.erase(0, 1);
    return digits;
}

}  // namespace wmoutlook

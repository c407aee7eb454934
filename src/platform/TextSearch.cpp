#include "platform/TextSearch.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace wmoutlook {

namespace {

constexpr std::size_t kNoMatch = std::string_view::npos;

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// How many bytes at the front of the text are what is looked for.
std::size_t matchAtFront(std::string_view text, std::string_view what) {
    std::size_t length = 0;
    while (!what.empty()) {
        if (length == text.size()) return kNoMatch;
        if (isAscii(text[length]) && isAscii(what[0])) {
            if (lower(text[length]) != lower(what[0])) return kNoMatch;
            ++length;
            what.remove_prefix(1);
            continue;
        }
        const std::string_view character = firstCharacters(text.substr(length), 1);
        const std::string_view wanted = firstCharacters(what, 1);
        if (!equalsTextually(character, wanted)) return kNoMatch;
        length += character.size();
        what.remove_prefix(wanted.size());
    }
    return length;
}

/// The bytes with which a match of a text can begin. Two letters beyond ASCII have an ASCII letter as their other case.
class FirstBytes {
public:
    explicit FirstBytes(std::string_view what) {
        const std::string_view first = firstCharacters(what, 1);
        add(first);
        add(lowerCase(first));
        add(upperCase(first));
        if (lower(first[0]) == 'i') add("\xC4\xB0");
    }
    [[nodiscard]] std::size_t next(std::string_view text, std::size_t from) const {
        if (count_ == 1) return text.find(bytes_[0], from);
        return text.find_first_of(std::string_view{bytes_.data(), count_}, from);
    }

private:
    void add(std::string_view character) {
        char* const end = bytes_.data() + count_;
        if (std::find(bytes_.data(), end, character[0]) == end) bytes_[count_++] = character[0];
    }

    std::array<char, 4> bytes_{};
    std::size_t count_ = 0;
};

std::optional<TextMatch> find(std::string_view text, std::string_view what, const FirstBytes& first, std::size_t from) {
    for (std::size_t at = first.next(text, from); at != std::string_view::npos; at = first.next(text, at + 1)) {
        const std::size_t length = matchAtFront(text.substr(at), what);
        if (length != kNoMatch) return TextMatch{at, length};
    }
    return std::nullopt;
}

}  // namespace

std::optional<TextMatch> findTextually(std::string_view text, std::string_view what, std::size_t from) {
    if (what.empty() || from >= text.size()) return std::nullopt;
    return find(text, what, FirstBytes{what}, from);
}

bool startsTextually(std::string_view text, std::string_view what) {
    return !what.empty() && matchAtFront(text, what) != kNoMatch;
}

std::string replaceTextually(std::string_view text, std::string_view what, std::string_view by) {
    if (what.empty()) return std::string{text};
    const FirstBytes first{what};
    std::string replaced;
    std::size_t done = 0;
    while (const auto match = find(text, what, first, done)) {
        replaced.append(text.substr(done, match->position - done)).append(by);
        done = match->position + match->length;
    }
    return replaced.append(text.substr(done));
}

}  // namespace wmoutlook

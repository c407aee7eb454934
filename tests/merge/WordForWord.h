#pragma once

#include "merge/Marks.h"
#include "merge/MergeText.h"
#include "merge/Placeholders.h"

#include <string>
#include <string_view>
#include <vector>

/// A merge as its rules tell it: one search and replacement after the other, over all placeholders that there are.
namespace wmoutlook::testing {

struct NamedField {
    std::string name;
    bool isDate = false;
};

[[nodiscard]] inline std::string asciiLower(std::string_view text) {
    std::string lower{text};
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return lower;
}

/// Of texts whose letters are ASCII.
[[nodiscard]] inline std::string replacedWordForWord(std::string text, std::string_view what, std::string_view by) {
    const std::string wanted = asciiLower(what);
    std::size_t at = 0;
    while ((at = asciiLower(text).find(wanted, at)) != std::string::npos) {
        text.replace(at, what.size(), by);
        at += by.size();
    }
    return text;
}

inline void putInWordForWord(std::string& text, const std::string& placeholder, std::int32_t rank, merge::TextKind kind,
                             const merge::ValueOf& valueOf) {
    const std::size_t first = asciiLower(text).find(asciiLower(placeholder));
    if (first == std::string::npos) return;
    std::string value = valueOf(rank);
    if (kind == merge::TextKind::rich && first > 0 && text[first - 1] != ' ') value.insert(0, " ");
    text = replacedWordForWord(std::move(text), placeholder, value);
}

[[nodiscard]] inline std::string expandedWordForWord(std::string text, const merge::Marks& marks,
                                                     const std::vector<NamedField>& fields, merge::TextKind kind,
                                                     const merge::ValueOf& valueOf) {
    std::vector<NamedField> all{{"Todays Date", true}};
    all.insert(all.end(), fields.begin(), fields.end());
    for (std::size_t row = 0; row < all.size(); ++row)
        for (std::size_t format = 0; format < (all[row].isDate ? merge::kDateFormats.size() : 1); ++format) {
            std::string between = all[row].name;
            if (all[row].isDate) between = "(" + between + ", " + std::string{merge::kDateFormats[format].written} + ")";
            const std::string placeholder = std::string{marks.open} + between + std::string{marks.close};
            const auto rank = merge::PlaceholderRank::of(static_cast<std::int32_t>(row), static_cast<std::int32_t>(format));
            putInWordForWord(text, placeholder, rank, kind, valueOf);
        }
    return text;
}

inline void removeUnfoundWordForWord(std::string& text) {
    for (const merge::Marks& marks : merge::kAllMarks) {
        bool isAnyRemoved = false;
        for (;;) {
            const std::size_t open = text.find(marks.open);
            if (open == std::string::npos) break;
            const std::size_t close = text.find(marks.close, open + marks.open.size());
            if (close == std::string::npos) break;
            const std::size_t length = close - open + (marks.close == "»" ? marks.close.size() : 1);
            const std::string gone = text.substr(open, length);
            for (std::size_t at = 0; (at = text.find(gone, at)) != std::string::npos;) text.erase(at, gone.size());
            isAnyRemoved = true;
        }
        if (isAnyRemoved) return;
    }
}

[[nodiscard]] inline std::string mergedWordForWord(std::string text, const std::vector<NamedField>& fields, merge::TextKind kind,
                                                   const merge::ValueOf& valueOf) {
    for (const merge::Marks& marks : merge::kAllMarks) text = expandedWordForWord(std::move(text), marks, fields, kind, valueOf);
    removeUnfoundWordForWord(text);
    return text;
}

}  // namespace wmoutlook::testing

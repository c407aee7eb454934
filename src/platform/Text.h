#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {

// Text is UTF-8. Lengths count characters (code points), never bytes. A byte that is no valid UTF-8 counts as one character.

[[nodiscard]] std::size_t characterCount(std::string_view text);
/// The first `count` characters, never half a character.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Both cases change Latin letters with accents too (Latin-1 and Latin Extended-A); anything else stays.
[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] std::string lowerCase(std::string_view text);

/// Textual comparison: without regard to the case of Latin letters, accented ones included ("É" equals "é", not "e").
[[nodiscard]] bool equalsTextually(std::string_view left, std::string_view right);
/// The order that goes with equalsTextually: by accent-free letters first, then by accents, as a directory sorts.
[[nodiscard]] std::weak_ordering compareTextually(std::string_view left, std::string_view right);

/// Without leading and trailing blanks (space only) or white space of any kind.
[[nodiscard]] std::string_view trimmed(std::string_view text);
[[nodiscard]] std::string_view withoutWhiteSpaceAround(std::string_view text);

/// Lower case without accents and ligatures ("Œuvre" gives "oeuvre"), for matching.
[[nodiscard]] std::string foldedForMatching(std::string_view text);

[[nodiscard]] std::string replaceAll(std::string text, std::string_view what, std::string_view by);

}  // namespace wmoutlook

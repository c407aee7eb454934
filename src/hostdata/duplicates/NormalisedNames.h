#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {

// Names brought into the form in which they are compared. Pure functions; a text without a letter or digit gives nothing.

/// The words of a name in lower case without accents. Dots, apostrophes and hyphens join ("S.E.N.C.", "Jean-Paul" and
/// "D'Amour" are one word each), any other punctuation parts words, and "&", "+" and "et" are the word "and".
[[nodiscard]] std::vector<std::string> wordsOfName(std::string_view name);

[[nodiscard]] std::string joined(const std::vector<std::string>& words);  ///< without anything between them

/// Without regard to case and surrounding white space.
[[nodiscard]] std::string sameNameKey(std::string_view name);

/// A company's words without the legal forms at its end and without spaces: "Dubé & Fils Ltée" gives "dubeandfils". A name
/// that is nothing but legal forms keeps one.
[[nodiscard]] std::string normalisedCompanyName(std::string_view name);

/// The digits of a telephone number, without the 1 in front of a North American number of ten.
[[nodiscard]] std::string telephoneKey(std::string_view number);

/// The digits of a text, in their order.
[[nodiscard]] std::string digitsOf(std::string_view text);

}  // namespace wmoutlook

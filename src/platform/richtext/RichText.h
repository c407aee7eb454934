#pragma once

#include <string>
#include <string_view>

/// Notes and templates of the host are rich text (RTF) or plain text in the same column. Rich text is what begins with {\rtf, blanks
/// and line ends before it aside. Any bytes will do: of a damaged document the text is what stands before the damage.
namespace wmoutlook::RichText {

[[nodiscard]] bool isRichText(std::string_view text);

/// The text as a rich-text control shows it: UTF-8, lines end with "\r\n", the last paragraph without. Not shown are hidden text,
/// pictures, headers, notes at the foot, numbers and bullets of lists. Plain text comes back as it is.
/// docs/decisions/rich-text.md has the choices.
[[nodiscard]] std::string plainText(std::string_view text);

/// Whether plainText(text) has nothing to see: white space, characters without width and control characters do not count, so a
/// picture alone is empty. Stops reading at the first character that shows.
[[nodiscard]] bool isEmpty(std::string_view text);

}  // namespace wmoutlook::RichText

#pragma once

#include <string>
#include <string_view>

/// Texts in the head of a message, which is ASCII in short lines (RFC 5322, RFC 2047). The text is UTF-8 on one line.
namespace wmoutlook::exchange {

/// A text such as the subject: as it is, or as encoded words, one to a line, when it could not be read back otherwise.
[[nodiscard]] std::string encodedText(std::string_view text);

/// A name in front of an address: in quotes where it needs them.
[[nodiscard]] std::string encodedPhrase(std::string_view name);

}  // namespace wmoutlook::exchange

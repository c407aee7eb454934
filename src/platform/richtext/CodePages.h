#pragma once

#include <cstdint>

namespace wmoutlook::RichText {

/// A code page by its place in the table of those that are known.
enum class CodePage : std::uint8_t { ofDocument = 0, western = 1 };  // 0: what the head of the document says

/// 437, 850, 874, 1250 to 1258, 10000 (Macintosh) and as one the multi-byte pages of East Asia; `western` (1252) for any other number.
[[nodiscard]] CodePage codePageOf(std::int32_t number);
/// The code page that goes with a font's \fcharset; `ofDocument` where the character set says nothing (0 ANSI, 1 default, 2 symbols).
[[nodiscard]] CodePage codePageOfCharset(std::int32_t charset);

/// The character of a byte. What a page leaves open is as in Windows: the control character of that number below 0xA0, else
/// U+FFFD. In a multi-byte page each byte from 0x80 on is U+FFFD.
[[nodiscard]] char32_t characterOf(CodePage page, std::uint8_t byte);

}  // namespace wmoutlook::RichText

#pragma once

#include "merge/Marks.h"
#include "merge/Placeholders.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// What a merge does with a text, step by step. MergeTemplate does the same in one reading where it can.
namespace wmoutlook::merge {

/// Rich: a value that follows anything but a blank gets a blank in front, so that it does not run into a control word.
enum class TextKind { plain, rich };

/// Replaces every occurrence of one text, textually. In rich text the character in front of the first occurrence decides for all of
/// them whether the value gets a blank in front; at the very start it gets none.
[[nodiscard]] std::string replaceText(std::string_view text, std::string_view placeholder, std::string_view value, TextKind kind);

/// The value of a placeholder; asked once for each that the text holds when its turn has come, in the order of ranks.
using ValueOf = std::function<std::string(std::int32_t rank)>;

/// One pass of a merge, over the placeholders between these marks: one value after the other.
[[nodiscard]] std::string expandOneByOne(std::string text, const Marks& marks, const Placeholders& placeholders, TextKind kind,
                                         const ValueOf& valueOf);

/// Takes away what is left of placeholders: those between plain marks, and only when there was none those between escaped ones, of which
/// the last three characters of the closing mark stay. An opening mark that is never closed ends it.
void replaceUnfoundMergeFieldsWithBlanks(std::string& text);

/// The marks in the spelling that they have inside of rich text.
[[nodiscard]] std::string convertFieldName(std::string_view text);

}  // namespace wmoutlook::merge

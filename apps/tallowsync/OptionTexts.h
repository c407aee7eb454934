#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {

// What is written behind an option. Each throws UsageError with a sentence that names the option and the text.

[[nodiscard]] std::int32_t wholeNumber(std::string_view option, std::string_view text);
[[nodiscard]] std::uint64_t seedNumber(std::string_view option, std::string_view text);
/// What can be a name, see faultOfName.
[[nodiscard]] std::string nameText(std::string_view option, std::string_view text);
/// "2026-11-22T09:00:00", or a day alone, which is its midnight.
[[nodiscard]] Date moment(std::string_view option, std::string_view text);
/// The parts of "1,2,3" without the blanks around them; an empty part is an error.
[[nodiscard]] std::vector<std::string> listParts(std::string_view option, std::string_view text);

}  // namespace wmoutlook

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace wmoutlook::sample {

/// A small rich text document, as the host keeps notes.
[[nodiscard]] std::string richText(std::string_view plain);
/// A ready-made summary: a bold label and a value per line; a blank value is left out.
[[nodiscard]] std::string richSummary(std::initializer_list<std::pair<std::string_view, std::string_view>> lines);

/// As part of an internet address: lower case letters and digits without accents.
[[nodiscard]] std::string addressPart(std::string_view name);

}  // namespace wmoutlook::sample

#pragma once

#include "platform/Variant.h"

namespace wmoutlook::ValueHelper {

/// True for null, an empty text and a text of nothing but white space: the test in front of every nullable value.
[[nodiscard]] bool isNullOrEmpty(const Variant& value);
[[nodiscard]] bool isNullOrEmpty(const std::string& text);
[[nodiscard]] bool isNullOrEmpty(std::string_view text);

}  // namespace wmoutlook::ValueHelper

#pragma once

#include "platform/Date.h"

#include <optional>
#include <string_view>

namespace wmoutlook::outlookstore {

/// A date as filters and people write it: "Jan 5, 2015", "January 5, 2015", "1/5/2015" (month first), "2015-01-05", each alone
/// or followed by a time: "9:00 AM", "9:00:30 pm", "21:00". ISO moments may have a "T". Nothing for any other text.
[[nodiscard]] std::optional<Date> readDateText(std::string_view text);

}  // namespace wmoutlook::outlookstore

#pragma once

#include "platform/Date.h"

#include <optional>
#include <string_view>

namespace wmoutlook::sql {

/// A date, a time of day, or both, as they travel to a desktop engine: "2026-11-22", "2026-11-22 09:00:00", "11/22/2026" with
/// the month first, "November 22, 2026"; "9:00:00 AM", "09:05 am", "21:30". The same time always gives the same double.
[[nodiscard]] std::optional<Date> readDate(std::string_view text);

}  // namespace wmoutlook::sql

#pragma once

#include <cstdint>

namespace wmoutlook::modDatabaseFunctions {

/// Gives a tax year the steps of the year before, or the default ones, but those that it has. False when one is wanting or the steps
/// cannot be told.
[[nodiscard]] bool completeTaxSteps(std::int32_t year);

}  // namespace wmoutlook::modDatabaseFunctions

#pragma once

#include "bench/BenchFirm.h"

#include <cstdint>

namespace wmoutlook::bench {

/// Goes through the items and links that both sides have left behind, row by row and column by column. Throws
/// std::runtime_error naming the first difference, or when there is not one item and one link for each company.
void requireSameResults(const Files& ofPass, const Files& ofLoop, std::int32_t companies);

}  // namespace wmoutlook::bench

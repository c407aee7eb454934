#pragma once

#include "syncstore/SyncRun.h"

#include <string>
#include <string_view>

namespace wmoutlook {

/// The links of the run's data file in one store, up to but not including the semicolon.
[[nodiscard]] std::string linksOfStore(const SyncRun& run, std::string_view storeID);

}  // namespace wmoutlook

#pragma once

#include "adapters/sql/Driver.h"

#include "platform/HostDatabase.h"

#include <memory>

namespace wmoutlook::sql {

/// The host's database over any engine. Without a driver it is not open.
[[nodiscard]] std::shared_ptr<HostDatabase> makeDatabase(std::unique_ptr<Driver> driver);

}  // namespace wmoutlook::sql

#pragma once

#include "adapters/outlookstore/ItemData.h"
#include "platform/Date.h"

#include <string_view>

namespace wmoutlook::outlookstore {

/// What Outlook itself changes when a property of an appointment or a task is given another value: an appointment that is moved
/// keeps its duration, and one that lasts all day goes from midnight to midnight; a task is complete by its flag, its percentage
/// and its status at once.
void followUp(ItemData& item, std::string_view changedProperty, Date now);

}  // namespace wmoutlook::outlookstore

#pragma once

#include "apps/tallowsync/Json.h"

#include <istream>

namespace wmoutlook {

/// Items as JSON from a stream. Throws InputError with one sentence, which shows no value: for what is no JSON, and for a key that
/// stands twice in one object, in whatever case, since only one of its values could be stored.
[[nodiscard]] Json readItemText(std::istream& in);

}  // namespace wmoutlook

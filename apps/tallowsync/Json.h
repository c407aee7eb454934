#pragma once

#include "platform/Date.h"

#include <nlohmann/json.hpp>

#include <string>

namespace wmoutlook {

/// Keys in the order in which they were put.
using Json = nlohmann::ordered_json;

/// "2026-11-22"; an absent date is null.
[[nodiscard]] Json jsonDay(Date date);
/// "2026-11-22T09:00:00"; an absent date is null.
[[nodiscard]] Json jsonMoment(Date date);

/// Bytes that are no UTF-8 (a damaged file holds some) become replacement characters; no control character stands in it as it is.
[[nodiscard]] std::string jsonText(const Json& document, int indent = -1);

}  // namespace wmoutlook

#pragma once

#include "platform/Date.h"
#include "platform/Services.h"

#include <cstdint>
#include <functional>
#include <string>

namespace wmoutlook {

/// With more, the file would grow beyond what anybody tries things out on.
inline constexpr std::int32_t kMostSampleCompanies = 1'000'000;

struct SampleOptions {
    std::int32_t companies = 60;
    std::uint64_t seed = 1;
    std::int32_t country = country::kCanada;   ///< see namespace country
    std::string province;                      ///< code of the firm's province or state; blank: Ontario or New York
    Date now;                                  ///< the calendar lies around this day; has to be set
    std::function<void()> checkpoint = [] {};  ///< called before each row and item; what it throws ends the making
};

/// Makes up a firm in DIRECTORY/firm.db and an Outlook store in DIRECTORY/outlook.db, the same for the same options. The
/// directory is created; existing files are an error and stay as they are. Throws DatabaseError or OutlookError, and
/// std::invalid_argument with one sentence for a province that the country does not have or for a number of companies outside of
/// 0 to kMostSampleCompanies. When it throws, nothing is left of what it made.
void createSample(const std::string& directory, const SampleOptions& options);

}  // namespace wmoutlook

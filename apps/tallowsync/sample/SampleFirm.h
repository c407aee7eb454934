#pragma once

#include "platform/Date.h"
#include "platform/Services.h"

#include <cstdint>
#include <string>

namespace wmoutlook {

struct SampleOptions {
    std::int32_t companies = 60;
    std::uint64_t seed = 1;
    std::int32_t country = country::kCanada;  ///< see namespace country
    std::string province;                     ///< code of the firm's province or state; blank: Ontario or New York
    Date now;                                 ///< the calendar lies around this day; has to be set
};

/// Makes up a firm in DIRECTORY/firm.db and an Outlook store in DIRECTORY/outlook.db, the same for the same options. The
/// directory is created; existing files are an error and stay as they are. Throws DatabaseError or OutlookError, and
/// std::invalid_argument with one sentence for a province that the country does not have or for less than no companies.
void createSample(const std::string& directory, const SampleOptions& options);

}  // namespace wmoutlook

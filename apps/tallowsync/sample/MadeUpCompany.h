#pragma once

#include "apps/tallowsync/sample/MadeUpPerson.h"
#include "apps/tallowsync/sample/Names.h"

#include <cstdint>
#include <string>

namespace wmoutlook::sample {

/// A made-up company. Blank is what the firm never asked for.
struct Company {
    std::string name;
    std::string corporateName;
    std::int32_t type = 0;  ///< as Companies.CompanyType counts it
    const Industry* industry = nullptr;
    bool isFrench = false;
    Address address;
    std::string office;
    std::string fax;
    std::string domain;  ///< its internet address; never blank
    std::string email;
    std::string webSite;
};

/// The first companies have names that software stumbles over; `number` counts from 0.
[[nodiscard]] Company makeCompany(Dice& dice, const Place& place, std::int32_t country, bool isFrench, std::int32_t number);

}  // namespace wmoutlook::sample

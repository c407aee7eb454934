#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Values of the host that are shown as something else than their column holds.
namespace wmoutlook::merge {

// What the numbers of a client's columns stand for; any other number, and a blank, has a text of its own.

[[nodiscard]] std::string_view getRC59PermissionStringFromRC59PermissionNum(std::int32_t number);
[[nodiscard]] std::string_view getRC59FormStatusStringFromRC59FormStatusNum(std::int32_t number);
[[nodiscard]] std::string_view getGSTFilingMethodStringFromGSTFilingMethodNum(std::int32_t number);
[[nodiscard]] std::string_view getFinancialStatementsStringFromFinancialStatementsNum(std::int32_t number);
[[nodiscard]] std::string_view getCorporationTypeStringFromCorporationTypeNum(std::int32_t number);
[[nodiscard]] std::string_view getCorporationLevelStringFromCorporationLevelNum(std::int32_t number);
[[nodiscard]] std::string_view getCompanyTypeStringFromCompanyTypeNum(std::int32_t number, bool isUnitedStates);

/// The routine for one of the numeric columns of a client; null for any other column.
using TextOfNumber = std::string_view (*)(std::int32_t number);
[[nodiscard]] TextOfNumber textOfClientColumn(std::string_view column);

/// The two-letter code (PEI has three), or the full name; the text itself when it is no known spelling.
[[nodiscard]] std::string getAbbreviatedProvince(std::string_view province);
[[nodiscard]] std::string getFullProvinceString(std::string_view province);

/// "$1,234.50", "$-1,234.50".
[[nodiscard]] std::string moneyText(double amount);

struct CoupleNames {
    std::string firstName, lastName, displayName, spouseFirstName, spouseLastName;
};

/// A contact with its spouse in one text: the last name once when they share it.
[[nodiscard]] std::string contactAndSpouseName(const CoupleNames& names, bool lastNameFirst);

}  // namespace wmoutlook::merge

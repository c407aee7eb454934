#pragma once

#include <cstdint>

/// How the user at work wants names to be shown. The choices are read once and kept module-wide.
namespace wmoutlook::modSettings {

enum class ContactNameDisplay : std::int32_t { firstNameFirst = 2, lastNameFirst = 3 };  ///< any other: DisplayName
enum class CompanyNameDisplay : std::int32_t { companyName = 1, corporateName = 2, clientID = 3, clientIDAndCompanyName = 4 };

/// The family display option that shows the family relationship behind a name.
inline constexpr std::int32_t kShowFamilyRelationship = 2;

struct NameDisplay {
    ContactNameDisplay contactName{};
    CompanyNameDisplay companyName{};
    std::int32_t family = 0;
};

/// Reads the three choices of a user and keeps them until the next call.
void initializeNameDisplayType(std::int32_t userID);
[[nodiscard]] const NameDisplay& nameDisplay();

// Each reads one choice from UserGeneralSettings, where a user without a row gets one. 0 when there is no choice.

[[nodiscard]] std::int32_t getInitialContactNameDisplayTypeSetting(std::int32_t userID);
[[nodiscard]] std::int32_t getFamilyDisplayOption(std::int32_t userID);
[[nodiscard]] std::int32_t getCompanyNameDisplayOption(std::int32_t userID);

}  // namespace wmoutlook::modSettings

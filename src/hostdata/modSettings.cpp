#include "hostdata/modSettings.h"

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "platform/Routine.h"

#include <string>

namespace wmoutlook::modSettings {

namespace {

NameDisplay& keptNameDisplay() {
    static NameDisplay kept;
    return kept;
}

std::int32_t userSetting(std::string_view errorTag, std::string_view field, std::int32_t userID) {
    std::int32_t setting = 0;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::string query = "SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings." + std::string{field} +
                                  " FROM UserGeneralSettings WHERE UserIDNum=" + toText(userID) + ";";
        {
            const Recordset settings{query, LockCode::updatable};
            const bool isMissing = settings.hasRowsIfTold() == false;
            // A row without its user would be nobody's, and another one would be added each time.
            if (isMissing && settings.addNew() && settings.set("UserIDNum", toText(userID))) settings.save();
        }
        const Recordset settings{query};
        if (settings.hasRows()) setting = settings.number(field, 0);
    });
    return setting;
}

}  // namespace

void initializeNameDisplayType(std::int32_t userID) {
    Routine routine{"Tallowbrook.exe-modSettings-initializeNameDisplayType"};
    routine.run([&] {
        NameDisplay& kept = keptNameDisplay();
        kept.contactName = static_cast<ContactNameDisplay>(getInitialContactNameDisplayTypeSetting(userID));
        kept.family = getFamilyDisplayOption(userID);
        kept.companyName = static_cast<CompanyNameDisplay>(getCompanyNameDisplayOption(userID));
    });
}

const NameDisplay& nameDisplay() {
    return keptNameDisplay();
}

std::int32_t getInitialContactNameDisplayTypeSetting(std::int32_t userID) {
    return userSetting("Tallowbrook.exe-modSettings-getInitialContactNameDisplayTypeSetting", "OptionsContactNameDisplayType",
                       userID);
}

std::int32_t getFamilyDisplayOption(std::int32_t userID) {
    return userSetting("Tallowbrook.exe-modSettings-getFamilyDisplayOption", "OptionsFamilyDisplayOption", userID);
}

std::int32_t getCompanyNameDisplayOption(std::int32_t userID) {
    return userSetting("Tallowbrook.exe-modSettings-getCompanyNameDisplayOption", "OptionsCompanyNameDisplayType", userID);
}

}  // namespace wmoutlook::modSettings

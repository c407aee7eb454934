#pragma once

#include <cstdint>

/// The public enumerations of the component. Their values are part of the interface and are stored in the sync store.
namespace wmoutlook {

enum class outlookSyncObjectsEnum : std::int32_t { syncContacts = 1, syncAppointments = 2, syncTasks = 3 };

enum class outlookSyncTypeEnum : std::int32_t {
    syncBothsWays = 1,
    syncFromTallowbrookToOutlook = 2,
    syncFromOutlookToTallowbrook = 3
};

enum class enumOutlookSyncBothsWaysPriority : std::int32_t {
    syncPriorityTallowbrook = 1,
    syncPriorityOutlook = 2,
    syncPriorityMostRecentChange = 3
};

enum class syncCompanyInformationEnum : std::int32_t { companyOnly = 0, companyWithDefaultContact = 1 };
enum class syncCompanyDisplayEnum : std::int32_t { companyShowContactName = 0, companyShowCompanyName = 1 };
enum class syncContactInformationEnum : std::int32_t { contactOnly = 0, contactWithCompanyInfo = 1 };
enum class syncContactDisplayEnum : std::int32_t { contactShowContactName = 0, contactShowCompanyName = 1 };

enum class importTallowbrookLocationEnum : std::int32_t {
    importAllSelectedOutlookContactsIntoBusinessSection = 0,
    importOnlySelectedOutlookContactsIntoBusinessSectioncompanyWithValueBusinessName = 1,
    importAllSelectedOutlookContactsIntoPersonalTaxSection = 2,
    importOnlySelectedOutlookContactsIntoPersonalTaxSectioncompanyWithValueIndividualName = 3,
    importAllSelectedOutlookContactsIntoSpecifiedCategory = 4
};

enum class companyListType : std::int32_t { Tallowbrook = 1, AddressBook = 2 };

}  // namespace wmoutlook

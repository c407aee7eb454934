#pragma once

#include "hostdata/Recordset.h"
#include "hostdata/modSettings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Look-ups that every part of the system uses: names, numbers and categories of the host's records. A routine that finds
/// the database closed or the row missing answers -1, an empty text or false.
namespace wmoutlook::modDatabaseFunctions {

// Names of records (modDatabaseFunctions_LookUps.cpp)

/// What stands for the name of a company or contact whose row is gone.
inline constexpr std::string_view kClientNoLongerExists = "<Client no longer exists>";

[[nodiscard]] std::string getCompanyNameFromCompanyID(std::int32_t companyID);  ///< or kClientNoLongerExists
[[nodiscard]] std::string getContactNameFromContactID(std::int32_t contactID);  ///< DisplayName, or kClientNoLongerExists
[[nodiscard]] std::string getDisplayNameFromContactID(std::int32_t contactID);

// The same; nothing when it could not be told, so that a failing service leaves a name in Outlook as it is.

[[nodiscard]] std::optional<std::string> getCompanyNameFromCompanyIDIfTold(std::int32_t companyID);
[[nodiscard]] std::optional<std::string> getContactNameFromContactIDIfTold(std::int32_t contactID);
[[nodiscard]] std::optional<std::string> getDisplayNameFromContactIDIfTold(std::int32_t contactID);

[[nodiscard]] std::string getCategoryNameFromCategoryID(std::int32_t categoryID);

// One number from another (modDatabaseFunctions_LookUps.cpp)

[[nodiscard]] std::int32_t getClientDataIDFromCompanyID(std::int32_t companyID);
[[nodiscard]] std::int32_t getCompanyIDFromClientDataID(std::int32_t clientDataID);
[[nodiscard]] std::int32_t getBusinessClientActiveStatusFromClientID(std::int32_t clientDataID);  ///< 2 is inactive
[[nodiscard]] std::int32_t getPersonalClientActiveStatus(std::int32_t contactID, std::int32_t year);
[[nodiscard]] std::int32_t getDefaultContactIDFromCompanyID(std::int32_t companyID);
[[nodiscard]] bool isContactDefaultContact(std::int32_t contactID, std::int32_t companyID);

// The client of a calendar record, -1 for none; the schedule entry on which a task hangs.

[[nodiscard]] std::int32_t getCompanyIDFromAppointmentID(std::int32_t appointmentID);
[[nodiscard]] std::int32_t getContactIDFromAppointmentID(std::int32_t appointmentID);
[[nodiscard]] std::int32_t getCompanyIDFromTaskID(std::int32_t taskID);
[[nodiscard]] std::int32_t getContactIDFromTaskID(std::int32_t taskID);
[[nodiscard]] std::int32_t getCompanyIDFromDocketID(std::int32_t docketID);
[[nodiscard]] std::int32_t getContactIDFromDocketID(std::int32_t docketID);
[[nodiscard]] std::int32_t getScheduleIDFromTaskID(std::int32_t taskID);
[[nodiscard]] std::int32_t getTaskIDFromScheduleIDNum(std::int32_t scheduleID);  ///< the first task of a schedule entry

// Whether a number names a row (modDatabaseFunctions_LookUps.cpp)

[[nodiscard]] bool validCompanyID(std::int32_t companyID);
[[nodiscard]] bool validContactID(std::int32_t contactID);
[[nodiscard]] bool validCategoryID(std::int32_t categoryID);
[[nodiscard]] bool validAppointmentID(std::int32_t appointmentID);
[[nodiscard]] bool validDocketID(std::int32_t docketID);
[[nodiscard]] bool validTaskID(std::int32_t taskID);
[[nodiscard]] bool validFirmID(std::int32_t companyID);
[[nodiscard]] bool validEmployeeID(std::int32_t contactID);

// Nothing when it could not be told: what is deleted or written because a record is gone waits for a certain answer.

[[nodiscard]] std::optional<bool> validCompanyIDIfTold(std::int32_t companyID);
[[nodiscard]] std::optional<bool> validContactIDIfTold(std::int32_t contactID);
[[nodiscard]] std::optional<bool> validAppointmentIDIfTold(std::int32_t appointmentID);
[[nodiscard]] std::optional<bool> validTaskIDIfTold(std::int32_t taskID);

/// Which clients the query of all business clients lists, by their active status.
enum class ClientActivity : std::int32_t { any = 0, active = 1, inactive = 2 };

/// The query of business clients' whole records: one client's with a number of 0 or more. Otherwise all clients of that
/// activity, in the order of the company name display option. `filtered` leaves out those that are not shown, but only where
/// an activity is asked for: ClientActivity::any lists them all.
[[nodiscard]] std::string getMainBusinessSQLString(bool filtered, ClientActivity activity, std::int32_t clientDataID);

// Names as the user wants them shown (modDatabaseFunctions_Names.cpp)

/// A contact's name by the user's display type, with the spouse's where the contact's row asks for both. With a parent
/// contact of 0 or more, the family relationship follows in brackets when it is forced or the user wants it. The writers
/// pass True (-1) for the parent: no relationship is shown then.
[[nodiscard]] std::string getContactNameDisplayed(std::int32_t contactID, std::int32_t parentContactID, bool forceRelationship);
/// Nothing when a part of it could not be read.
[[nodiscard]] std::optional<std::string> getContactNameDisplayedIfTold(std::int32_t contactID, std::int32_t parentContactID,
                                                                       bool forceRelationship);
[[nodiscard]] std::string getContactNameDisplayedByType(modSettings::ContactNameDisplay type, std::int32_t contactID,
                                                        std::int32_t parentContactID, bool forceRelationship);
/// What a row of a tree's walk carries of a contact: the names alone, joined to a link, or the whole row of Contacts, as in the
/// walk over all contacts, and with it the spouse.
enum class ContactRow { namesOfLink, whole };

// The text of a tree node, from the current row of an open recordset: names from its fields, and for a contact below another
// one the relationship from the row's FamilyRelationship. No query of its own. A row without the spouse's fields shows one name.

[[nodiscard]] std::string getNodeContactNameDisplayed(const Recordset& contacts, std::int32_t parentContactID,
                                                      bool forceRelationship, ContactRow carries = ContactRow::namesOfLink);
[[nodiscard]] std::string getNodeCompanyNameDisplayed(const Recordset& companies);

// Categories (modDatabaseFunctions_Categories.cpp). The four with a fixed role are found by their code, never by name or
// number, since users rename them; one that is missing is created.

[[nodiscard]] std::string getMainCategoryName();  ///< "Address Book" when it could not be created
[[nodiscard]] std::int32_t getMainCategoryNum();
[[nodiscard]] std::string getBusinessCategoryName();
[[nodiscard]] std::int32_t getBusinessCategoryNum();
[[nodiscard]] std::string getFirmCategoryName();
[[nodiscard]] std::int32_t getFirmCategoryNum();
[[nodiscard]] std::string getPersonalTaxCategoryName();
[[nodiscard]] std::int32_t getPersonalTaxCategoryNum();
[[nodiscard]] std::string getDefaultBusinessCategoryName();
[[nodiscard]] std::string getDefaultPersonalTaxCategoryName();

// Each gives the number of the new category. The root brings its three children along where they are absent.

std::int32_t createNewDefaultMainCategory();
std::int32_t createNewDefaultBusinessCategory();
std::int32_t createNewFirmCategory();
std::int32_t createNewPersonalTaxCategory();

/// The category of a tax year. A new one gets the steps of the year before, or the twelve default ones; it is -1 as long as
/// one of them could not be added.
[[nodiscard]] std::int32_t getPersonalTaxYearCategory(std::int32_t year);
void createDefaultPersonalTaxSteps(std::int32_t year);

[[nodiscard]] bool isCategoryPersonalTaxYearCategory(std::int32_t categoryID);
[[nodiscard]] bool isCategoryMainCategory(std::int32_t categoryID);
/// The tax year of a category or of the nearest one above it that has a year; -1 when none has.
[[nodiscard]] std::int32_t getPersonalTaxYearFromCategoryID(std::int32_t categoryID);
/// Whether a category is the other one or lies below it.
[[nodiscard]] bool doesThisCategoryBelongToCategory(std::int32_t categoryID, std::int32_t otherID);

}  // namespace wmoutlook::modDatabaseFunctions

#pragma once

#include "apps/tallowsync/sample/Dice.h"
#include "apps/tallowsync/sample/MadeUpPerson.h"
#include "apps/tallowsync/sample/NewFirm.h"
#include "apps/tallowsync/sample/Places.h"
#include "apps/tallowsync/sample/Rows.h"
#include "apps/tallowsync/sample/SampleFirm.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace wmoutlook::sample {

struct StaffMember {
    std::int32_t id = kNoRecord;
    std::string name;
};

/// Who appears in the calendar: a company or a person.
struct Client {
    std::int32_t companyID = kNoRecord;
    std::int32_t contactID = kNoRecord;
    std::string name;
};

struct TaxYear {
    std::int32_t year = 0;
    std::int32_t category = kNoRecord;
};

/// A calendar record of the host that also lies in Outlook.
struct CalendarMatch {
    std::string subject;
    Date start;
    Date end;
};

/// The firm while it is being made up. Each step adds its rows and leaves behind what later steps refer to.
struct Sample {
    const SampleOptions& options;
    Dice& dice;
    Rows& rows;
    FirmNumbers numbers;
    std::span<const Place> homePlaces{};
    std::span<const Place> allPlaces{};
    std::vector<std::int32_t> industryCategories{};  ///< in the order of industries()
    std::int32_t supplierCategory = kNoRecord;
    std::int32_t friendCategory = kNoRecord;
    std::array<TaxYear, 2> taxYears{};  ///< the older one first
    std::vector<StaffMember> staff{};
    std::vector<Client> clients{};
    std::vector<CalendarMatch> appointments{};  ///< the first ones
    std::vector<CalendarMatch> tasks{};

    [[nodiscard]] const Place& pickPlace() { return dice.chance(75) ? dice.pick(homePlaces) : dice.pick(allPlaces); }
    [[nodiscard]] bool pickLanguage(const Place& place) { return dice.chance(place.isFrench ? 85 : 8); }
};

// The steps, in the order in which they have to run.

void addStaffAndSettings(Sample& sample);
void addCategoriesAndTaxYears(Sample& sample);
void addCompanies(Sample& sample);
void addHouseholds(Sample& sample);
void addCalendar(Sample& sample);

// Parts of steps.

/// The rows that belong to a business client beside the company itself.
void addClientData(Sample& sample, std::int32_t companyID, bool isActive);
/// Notes row, client row and links of a person who is in no company; `categories` may be empty.
void addContactRows(Sample& sample, std::int32_t contactID, std::span<const std::int32_t> categories, const std::string& summary);
/// Makes the person a personal tax client, of the newer year or of both.
void addTaxClient(Sample& sample, std::int32_t contactID, const std::string& homePhone);

}  // namespace wmoutlook::sample

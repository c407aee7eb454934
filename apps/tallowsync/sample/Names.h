#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The words of which the sample's people, companies and dates are made. All people and companies are made up.
namespace wmoutlook::sample {

struct FirstName {
    std::string_view name;
    bool isMale = false;
};

/// A line of business, which is also a category of the address book.
struct Industry {
    std::string_view name;
    std::string_view word;        ///< in the name of a company, "Harbour Bakery Ltd."
    std::string_view frenchWord;  ///< in front of a French name, "Boulangerie Gagné inc."
};

struct LegalForm {
    std::string_view text;         ///< behind the name, with what separates it
    std::int32_t companyType = 0;  ///< as Companies.CompanyType counts them
};

/// What happens in an accountant's calendar.
struct CalendarText {
    std::string_view subject;
    std::string_view notes;  ///< blank: none
};

[[nodiscard]] std::span<const FirstName> firstNames(bool isFrench);
[[nodiscard]] std::span<const std::string_view> lastNames(bool isFrench);
[[nodiscard]] std::span<const std::string_view> streets(bool isFrench);
[[nodiscard]] std::span<const Industry> industries();
[[nodiscard]] std::span<const LegalForm> legalForms(std::int32_t country, bool isFrench);
[[nodiscard]] std::span<const std::string_view> jobTitles();
[[nodiscard]] std::span<const std::string_view> companyNotes();
[[nodiscard]] std::span<const CalendarText> appointmentTexts();
[[nodiscard]] std::span<const std::string_view> allDayTexts();
[[nodiscard]] std::span<const CalendarText> taskTexts();
[[nodiscard]] std::span<const std::string_view> reminderPeriods();

}  // namespace wmoutlook::sample

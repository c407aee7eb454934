#pragma once

#include "platform/Services.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

/// The renames of placeholders, in the order in which they are done. Each acts on all occurrences, textually.
namespace wmoutlook::merge {

struct Rename {
    std::string_view from;
    std::string_view to;
};

/// As they stand, marks included.
inline constexpr std::array kGeneralRenames{
    Rename{"<<", "«"},
    Rename{">>", "»"},
    Rename{"«(Due Date", "«(Task Due Date"},
    Rename{"«(in-House Due Date", "«(Task in-House Due Date"},
    Rename{"«(Calendar Date", "«(Task Calendar Due Date"},  // a name that is in no list: such a date is blanked
    Rename{R"(\'ab(Due Date)", R"(\'ab(Task Due Date)"},
    Rename{R"(\'ab(in-House Due Date)", R"(\'ab(Task in-House Due Date)"},
    Rename{R"(\'ab(Calendar Date)", R"(\'ab(Task Calendar Due Date)"},
    Rename{"«Contact Full Name»", "«Contact Display Name»"},
    Rename{R"(\'abContact Full Name\'bb)", R"(\'abContact Display Name\'bb)"},
    Rename{"Contact Full Name", "Contact Display Name"},
    Rename{"Docket", "Time Entry"},
    Rename{"Long Date", "dddd, mmmm d yyyy"},
    Rename{"Medium Date", "mmm d yyyy"},
    Rename{"Short Date", "dd/mm/yy"},
    Rename{"«Notified Date»", "«Calendar Date»"},
    Rename{"«Weekday Date»", "«Calendar Date»"},
    Rename{R"(\'abNotified Date\'bb)", R"(\'abCalendar Date\'bb)"},
    Rename{R"(\'abWeekday Date\'bb)", R"(\'abCalendar Date\'bb)"},
};

/// Names of earlier versions, first all of them between plain marks, then all between escaped ones.
inline constexpr std::array kOldTaskNames{
    Rename{"Remittance Name", "Task Name"},
    Rename{"Remittance Due Date", "Task Due Date"},
    Rename{"Remittance in-House Due Date", "Task in-House Due Date"},
    Rename{"Remittance Weekday Due Date", "Task Calendar Date"},
    Rename{"Task Weekday Due Date", "Task Calendar Date"},
    Rename{"Remittance Year", "Task Year"},
    Rename{"Custom Remitt Field 1", "Custom Task Field 1"},
    Rename{"Custom Remitt Field 2", "Custom Task Field 2"},
    Rename{"Custom Remitt Field 3", "Custom Task Field 3"},
    Rename{"Custom Remitt Field 4", "Custom Task Field 4"},
    Rename{"Custom Remitt Field 5", "Custom Task Field 5"},
    Rename{"Contact Full Name", "Contact Display Name"},
};

// All that follows acts between plain marks alone.

/// From Canada's name to that of the United States; in Canada the other way round, behind the names of its province.
inline constexpr std::array kCountryNames{
    Rename{"Province", "State"},
    Rename{"Postal Code", "Zip Code"},
    Rename{"Contact Business Province", "Contact Business State"},
    Rename{"Contact Business Postal Code", "Contact Business Zip Code"},
    Rename{"Contact Home Province", "Contact Home State"},
    Rename{"Contact Home Postal Code", "Contact Home Zip Code"},
    Rename{"Spouse Home Province", "Spouse Home State"},
    Rename{"Spouse Home Postal Code", "Spouse Home Zip Code"},
    Rename{"Your Province", "Your State"},
    Rename{"Your Postal Code", "Your Zip Code"},
    Rename{"Contact SIN", "Contact SSN"},
    Rename{"Spouse SIN", "Spouse SSN"},
};

inline constexpr std::array kToWcb{
    Rename{"WSIB Number", "WCB Number"},
    Rename{"NEQ Number", "WCB Number"},
    Rename{"WHSCC Number", "WCB Number"},
    Rename{"WSIB Premium Rate", "WCB Premium Rate"},
};
inline constexpr std::array kToWcbOfNovaScotia{
    Rename{"WSIB Number", "WCB Number"},
    Rename{"WHSCC Number", "WCB Number"},
    Rename{"NEQ Number", "WCB Number"},
    Rename{"WSIB Premium Rate", "WCB Premium Rate"},
};
inline constexpr std::array kToQuebec{
    Rename{"WSIB Number", "NEQ Number"},
    Rename{"WSIB Premium Rate", "CSST Premium Rate"},
    Rename{"WHSCC Number", "WCB Number"},
    Rename{"ON Corp. MCBS Number", "Quebec ID Number"},
};
inline constexpr std::array kToWhscc{
    Rename{"WSIB Number", "WHSCC Number"},
    Rename{"WCB Number", "WHSCC Number"},
    Rename{"NEQ Number", "WHSCC Number"},
    Rename{"WSIB Premium Rate", "WHSCC Premium Rate"},
};
inline constexpr std::array kToWsib{
    Rename{"WCB Number", "WSIB Number"},
    Rename{"NEQ Number", "WSIB Number"},
    Rename{"WHSCC Number", "WSIB Number"},
    Rename{"WCB Firm Number", "WSIB Firm Number"},
    Rename{"WCB Premium Rate", "WSIB Premium Rate"},
    Rename{"Quebec ID Number", "ON Corp. MCBS Number"},
};

inline constexpr Rename kToHst{"GST Number", "HST Number"};
inline constexpr Rename kToGst{"HST Number", "GST Number"};

/// Which renames of the sales tax a province has.
enum class SalesTaxNames {
    toGst,
    toHst,
    toHstAndBack,  ///< once the HST is in force, to it and then to the GST again: such a placeholder is lost, and stays so
};

/// The names of one province. Those of the safety board come first, then those of the tax, then the corporate tax number of every
/// other province.
struct ProvinceNames {
    std::int32_t province;
    std::span<const Rename> safetyBoard;
    SalesTaxNames salesTax;
    std::string_view corporateTax;
};

inline constexpr std::string_view kCorporateTaxEnd = " Corp. Tax Number";
inline constexpr std::array<std::string_view, 10> kCorporateTaxes{"ON",   "BC",   "Alberta", "Manitoba", "Sask.",
                                                                  "Que.", "N.B.", "N.S.",    "Nfld.",    "P.E.I."};

inline constexpr std::array kProvinceNames{
    ProvinceNames{province::kAlberta, kToWcb, SalesTaxNames::toGst, "Alberta"},
    ProvinceNames{province::kBritishColumbia, kToWcb, SalesTaxNames::toHstAndBack, "BC"},
    ProvinceNames{province::kManitoba, kToWcb, SalesTaxNames::toGst, "Manitoba"},
    ProvinceNames{province::kSaskatchewan, kToWcb, SalesTaxNames::toGst, "Sask."},
    ProvinceNames{province::kQuebec, kToQuebec, SalesTaxNames::toGst, "Que."},
    ProvinceNames{province::kNovaScotia, kToWcbOfNovaScotia, SalesTaxNames::toHst, "N.S."},
    ProvinceNames{province::kNewBrunswick, kToWhscc, SalesTaxNames::toHst, "N.B."},
    ProvinceNames{province::kNewfoundland, kToWhscc, SalesTaxNames::toHst, "Nfld."},
    ProvinceNames{province::kPrinceEdwardIsland, kToWcb, SalesTaxNames::toGst, "P.E.I."},
};
/// For Ontario and any other number.
inline constexpr ProvinceNames kOntarioNames{province::kOntario, kToWsib, SalesTaxNames::toHstAndBack, "ON"};

}  // namespace wmoutlook::merge

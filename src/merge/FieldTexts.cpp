#include "merge/FieldTexts.h"

#include "platform/Text.h"
#include "platform/ValueHelper.h"

#include <array>
#include <charconv>
#include <cmath>
#include <span>
#include <system_error>

namespace wmoutlook::merge {

namespace {

struct NumberText {
    std::int32_t number;
    std::string_view text;
};

std::string_view textOf(std::span<const NumberText> rows, std::int32_t number, std::string_view otherwise) {
    for (const NumberText& row : rows)
        if (row.number == number) return row.text;
    return otherwise;
}

struct ClientColumn {
    std::string_view column;
    TextOfNumber textOfNumber;
};

constexpr ClientColumn kClientColumns[] = {
    {"RC59Permission", getRC59PermissionStringFromRC59PermissionNum},
    {"RC59Status", getRC59FormStatusStringFromRC59FormStatusNum},
    {"GSTFilingMethod", getGSTFilingMethodStringFromGSTFilingMethodNum},
    {"FinancialStatements", getFinancialStatementsStringFromFinancialStatementsNum},
    {"CorporationType", getCorporationTypeStringFromCorporationTypeNum},
    {"CorporationLevel", getCorporationLevelStringFromCorporationLevelNum},
};

struct Province {
    std::array<std::string_view, 5> spellings;  ///< compared in upper case; some hold lower case and so never match
    std::string_view code;
    std::string_view fullName;
};

constexpr Province kProvinces[] = {
    {{"ALBERTA", "ALTA.", "ALTA", "AB"}, "AB", "Alberta"},
    {{"BRITISHCOLUMBIA", "BRITISH COLUMBIA", "B.C.", "BC"}, "BC", "British Columbia"},
    {{"MANITOBA", "MAN.", "MAN", "MB"}, "MB", "Manitoba"},
    {{"ONTARIO", "ONT.", "ONT", "ON"}, "ON", "Ontario"},
    {{"SASKATCHEWAN", "SASK.", "SASK", "SK"}, "SK", "Saskatchewan"},
    {{"QUEBEC", "QUE.", "QUE", "QC"}, "QC", "Quebec"},
    {{"NOVASCOTIA", "NOVA SCOTIA", "N.S.", "NS"}, "NS", "Nova Scotia"},
    {{"NEWBRUNSWICK", "NEW BRUNSWICK", "N.B.", "NB"}, "NB", "New Brunswick"},
    {{"NEWFOUNDLAND", "NEWFOUNDLAND And LABRADOR", "NEWFOUNDLAND & LABRADOR", "Nfld.", "NL"}, "NL", "Newfoundland"},
    {{"PRINCE EDWARD ISLAND", "PEI", "P.E.I."}, "PEI", "Prince Edward Island"},
    {{"NORTHWEST TERRITORIES", "N.W.T.", "NWT", "NT"}, "NT", "Northwest Territories"},
    {{"NUNAVUT", "NU"}, "NU", "Nunavut"},
    {{"YUKON", "YT"}, "YT", "Yukon"},
};

const Province* findProvince(std::string_view province) {
    const std::string wanted = upperCase(province);
    if (wanted.empty()) return nullptr;
    for (const Province& row : kProvinces)
        for (const std::string_view spelling : row.spellings)
            if (spelling == wanted) return &row;
    return nullptr;
}

/// A name in the order in which it is put together. F and L are the contact's own names, D the one that is displayed, f and l those
/// of the spouse; anything else stands for itself.
struct CouplePattern {
    bool lastNameFirst;
    bool isSameLastName;
    std::string_view both, lastOnly, firstOnly, neither;  ///< by which of the contact's own names are set
};

constexpr CouplePattern kCouplePatterns[] = {
    {true, true, "L, F & f", "L, f", "F & l, f", "D & l, f"},
    {true, false, "L, F & l, f", "L & l, f", "F & l, f", "D & l, f"},
    {false, true, "F & f L", "f L", "F & f l", "D & f l"},
    {false, false, "F L & f l", "L & f l", "F & f l", "D & f l"},
};

std::string filledIn(std::string_view pattern, const CoupleNames& names) {
    std::string text;
    for (const char c : pattern) switch (c) {
            case 'F': text += names.firstName; break;
            case 'L': text += names.lastName; break;
            case 'D': text += names.displayName; break;
            case 'f': text += names.spouseFirstName; break;
            case 'l': text += names.spouseLastName; break;
            default: text += c;
        }
    return text;
}

/// By the shortest decimal digits that tell the number, half away from zero: 8.165 is 8.17, although it is a little less in binary.
std::string roundedToCents(double amount) {
    std::array<char, 400> buffer{};  // no amount takes more than 330
    std::string digits{buffer.data(),
                       std::to_chars(buffer.data(), buffer.data() + buffer.size(), amount, std::chars_format::fixed).ptr};
    if (digits.find('.') == std::string::npos) digits += '.';
    const std::size_t kept = digits.find('.') + 3;
    const bool isUp = digits.size() > kept && digits[kept] >= '5';
    digits.resize(kept, '0');
    for (std::size_t i = kept; isUp && i-- > 0;) {
        if (digits[i] == '.') continue;
        if (digits[i] != '9') {
            ++digits[i];
            return digits;
        }
        digits[i] = '0';
    }
    return isUp ? "1" + digits : digits;
}

}  // namespace

std::string_view getRC59PermissionStringFromRC59PermissionNum(std::int32_t number) {
    constexpr NumberText kRows[] = {{1, "Full"}, {2, "Limited"}};
    return textOf(kRows, number, "None");
}

std::string_view getRC59FormStatusStringFromRC59FormStatusNum(std::int32_t number) {
    constexpr NumberText kRows[] = {{1, "Awaiting Signature"}, {2, "CRA Processing"}, {3, "Completed"}};
    return textOf(kRows, number, "Not Filed");
}

std::string_view getGSTFilingMethodStringFromGSTFilingMethodNum(std::int32_t number) {
    constexpr NumberText kRows[] = {{1, "Traditional"}, {2, "Simple Method"}, {3, "Quick Method"}};
    return textOf(kRows, number, "Not Specified");
}

std::string_view getFinancialStatementsStringFromFinancialStatementsNum(std::int32_t number) {
    constexpr NumberText kRows[] = {
        {0, "Compilation (NTR)"}, {1, "Review Engagement"}, {2, "Review Engagement with Differential Reporting"}, {3, "Audit"}};
    return textOf(kRows, number, "Not Specified");
}

std::string_view getCorporationTypeStringFromCorporationTypeNum(std::int32_t number) {
    constexpr NumberText kRows[] = {{1, "Regular Corporation"}};
    return textOf(kRows, number, "CCPC");
}

std::string_view getCorporationLevelStringFromCorporationLevelNum(std::int32_t number) {
    constexpr NumberText kRows[] = {{2, "Provincial Corporation"}};
    return textOf(kRows, number, "Federal Corporation");
}

std::string_view getCompanyTypeStringFromCompanyTypeNum(std::int32_t number, bool isUnitedStates) {
    constexpr std::int32_t kPartnership = 2;
    constexpr NumberText kRows[] = {{0, "Corporation"},
                                    {1, "Sole Proprietorship"},
                                    {kPartnership, "Partnership"},
                                    {3, "Non Profit"},
                                    {4, "Trust"},
                                    {5, "Joint Venture"},
                                    {6, "S Corporation"},
                                    {7, "LLP"},
                                    {8, "LLC"},
                                    {9, "Fiduciary"}};
    if (number == kPartnership && isUnitedStates) return "General Partnership";
    return textOf(kRows, number, "Unknown");
}

TextOfNumber textOfClientColumn(std::string_view column) {
    for (const ClientColumn& row : kClientColumns)
        if (equalsTextually(row.column, column)) return row.textOfNumber;
    return nullptr;
}

std::string getAbbreviatedProvince(std::string_view province) {
    const Province* const row = findProvince(province);
    return std::string{row != nullptr ? row->code : province};
}

std::string getFullProvinceString(std::string_view province) {
    const Province* const row = findProvince(province);
    return std::string{row != nullptr ? row->fullName : province};
}

std::string moneyText(double amount) {
    if (!std::isfinite(amount)) return Variant{amount}.toText();
    std::string digits = roundedToCents(std::fabs(amount));
    const bool isZero = digits.find_first_not_of("0.") == std::string::npos;
    for (std::size_t i = digits.find('.'); i > 3; i -= 3) digits.insert(i - 3, 1, ',');
    return (amount < 0 && !isZero ? "$-" : "$") + digits;
}

std::string contactAndSpouseName(const CoupleNames& names, bool lastNameFirst) {
    using ValueHelper::isNullOrEmpty;
    const bool hasFirst = !isNullOrEmpty(names.firstName);
    const bool hasLast = !isNullOrEmpty(names.lastName);
    if (isNullOrEmpty(names.spouseFirstName) && isNullOrEmpty(names.spouseLastName)) {
        if (!hasFirst || !hasLast) return names.displayName;
        return filledIn(lastNameFirst ? "L, F" : "F L", names);
    }
    const bool isSame = upperCase(names.lastName) == upperCase(names.spouseLastName);
    for (const CouplePattern& row : kCouplePatterns) {
        if (row.lastNameFirst != lastNameFirst || row.isSameLastName != isSame) continue;
        if (hasFirst && hasLast) return filledIn(row.both, names);
        if (hasLast) return filledIn(row.lastOnly, names);
        return filledIn(hasFirst ? row.firstOnly : row.neither, names);
    }
    return {};
}

}  // namespace wmoutlook::merge

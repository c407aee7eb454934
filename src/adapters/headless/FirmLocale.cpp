#include "adapters/headless/FirmLocale.h"

#include "adapters/headless/HostRows.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace wmoutlook {

namespace {

struct PlaceName {
    std::string_view name;  ///< folded for matching, letters only
    std::int32_t number;
};

constexpr PlaceName kCountries[] = {
    {"ca", country::kCanada},
    {"can", country::kCanada},
    {"canada", country::kCanada},
    {"us", country::kUnitedStates},
    {"usa", country::kUnitedStates},
    {"unitedstates", country::kUnitedStates},
    {"etatsunis", country::kUnitedStates},
    {"unitedstatesofamerica", country::kUnitedStates},
};

constexpr PlaceName kProvinces[] = {
    {"ab", province::kAlberta},
    {"alberta", province::kAlberta},
    {"bc", province::kBritishColumbia},
    {"britishcolumbia", province::kBritishColumbia},
    {"mb", province::kManitoba},
    {"manitoba", province::kManitoba},
    {"on", province::kOntario},
    {"ontario", province::kOntario},
    {"sk", province::kSaskatchewan},
    {"saskatchewan", province::kSaskatchewan},
    {"qc", province::kQuebec},
    {"pq", province::kQuebec},
    {"quebec", province::kQuebec},
    {"ns", province::kNovaScotia},
    {"novascotia", province::kNovaScotia},
    {"nb", province::kNewBrunswick},
    {"newbrunswick", province::kNewBrunswick},
    {"nl", province::kNewfoundland},
    {"nf", province::kNewfoundland},
    {"newfoundland", province::kNewfoundland},
    {"newfoundlandandlabrador", province::kNewfoundland},
    {"pe", province::kPrinceEdwardIsland},
    {"pei", province::kPrinceEdwardIsland},
    {"princeedwardisland", province::kPrinceEdwardIsland},
};

template <std::size_t count>
std::optional<std::int32_t> numberOf(const PlaceName (&places)[count], std::string_view text) {
    std::string name = foldedForMatching(text);
    name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return c < 'a' || c > 'z'; }), name.end());
    for (const PlaceName& place : places)
        if (place.name == name) return place.number;
    return std::nullopt;
}

/// The first member of the staff by name, or this one if it is there.
std::optional<std::int32_t> staffMember(HostDatabase& database, std::optional<std::int32_t> wanted) {
    for (HostRows staff{database,
                        "SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.UserName FROM AccountantEmployeeInfo "
                        "ORDER BY AccountantEmployeeInfo.UserName;"};
         !staff.isAtEnd(); staff.next()) {
        const std::int32_t number = staff.field("ContactID").toInteger();
        if (!wanted || *wanted == number) return number;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::int32_t> countryFromText(std::string_view text) {
    return numberOf(kCountries, text);
}

std::optional<std::int32_t> provinceFromText(std::string_view text) {
    return numberOf(kProvinces, text);
}

FirmLocale::FirmLocale(HostDatabase& database, std::shared_ptr<Clock> clock, std::optional<std::int32_t> user)
    : clock_(std::move(clock)) {
    readFirm(database);
    user_ = staffMember(database, user).value_or(kNoRecord);
}

void FirmLocale::readFirm(HostDatabase& database) {
    const HostRows firm{database, "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo;"};
    if (firm.isAtEnd()) return;
    country_ = countryFromText(firm.field("Country").toText()).value_or(country_);
    const std::int32_t unnamed = country_ == country::kCanada ? province_ : kNoRecord;
    province_ = provinceFromText(firm.field("Province").toText()).value_or(unnamed);
}

std::int32_t FirmLocale::currentTaxYear() {
    return civil(clock_->now()).year - 1;
}

}  // namespace wmoutlook

#include "apps/tallowsync/sample/Sample.h"

#include <string>

namespace wmoutlook::sample {

namespace {

std::string digits(Dice& dice, std::int32_t count) {
    std::string number;
    for (std::int32_t i = 0; i < count; ++i) number += static_cast<char>('0' + dice.below(10));
    return number;
}

/// Registrations begin with zeros: no office gives out such numbers.
void addCanadianInfo(Sample& sample, std::int32_t id) {
    Dice& dice = sample.dice;
    const std::string business = "0000" + digits(dice, 5);
    const std::int32_t founded = civil(sample.options.now).year - dice.between(1, 60);
    sample.rows.add("AccountingServices", {{"AccountingServiceID", id},
                                           {"BusinessNumber", business},
                                           {"RC59Permission", dice.below(3)},
                                           {"RC59Status", dice.below(4)},
                                           {"GSTNumber", business + " RT0001"},
                                           {"GSTFilingMethod", dice.below(4)},
                                           {"PayrollNumber", dice.chance(50) ? Variant{business + " RP0001"} : Variant{}},
                                           {"FinancialStatements", dice.below(4)}});
    sample.rows.add("CorpTaxInfo", {{"CorpTaxInfoID", id},
                                    {"YearEndDate", makeDay(civil(sample.options.now).year, dice.between(1, 12), 28)},
                                    {"IncorporationDate", makeDayOf(dice, founded)},
                                    {"FederalCorpNumber", digits(dice, 7)},
                                    {"CorporationType", dice.chance(20) ? 1 : 0},
                                    {"CorporationLevel", dice.between(1, 2)}});
    sample.rows.add(
        "WSIB_EHTInfo",
        {{"WSIB_EHTInfoID", id}, {"WSIBNumber", "00" + digits(dice, 6)}, {"WSIBPremiumRate", "1." + digits(dice, 2)}});
    sample.rows.add("ClientUSInfo", {{"ClientUSInfoID", id}});
}

void addAmericanInfo(Sample& sample, std::int32_t id) {
    Dice& dice = sample.dice;
    const std::int32_t founded = civil(sample.options.now).year - dice.between(1, 60);
    sample.rows.add("AccountingServices", {{"AccountingServiceID", id}, {"FinancialStatements", dice.below(4)}});
    sample.rows.add("CorpTaxInfo", {{"CorpTaxInfoID", id}});
    sample.rows.add("WSIB_EHTInfo", {{"WSIB_EHTInfoID", id}});
    sample.rows.add("ClientUSInfo", {{"ClientUSInfoID", id},
                                     {"EIN", "00-" + digits(dice, 7)},
                                     {"SellersPermitNum", "000" + digits(dice, 6)},
                                     {"USYearEndDate", makeDay(civil(sample.options.now).year, 12, 31)},
                                     {"USIncorporationDate", makeDayOf(dice, founded)}});
}

void addSoftware(Sample& sample, std::int32_t companyID) {
    Dice& dice = sample.dice;
    sample.rows.add("SoftwareInfo", {{"CompanyIDNum", companyID},
                                     {"ContactIDNum", kNoRecord},
                                     {"CompanyID", companyID},
                                     {"DefaultSoftware", true},
                                     {"SoftwareName", dice.chance(50) ? "Ledger Lite" : "Grand livre Pro"},
                                     {"SoftwareVersion", std::to_string(dice.between(3, 12)) + ".0"},
                                     {"SoftwareSerialNumber", "SN-" + digits(dice, 8)},
                                     {"UserName", "admin"},
                                     {"Password", "sample-" + digits(dice, 4)}});
}

}  // namespace

void addClientData(Sample& sample, std::int32_t companyID, bool isActive) {
    Rows& rows = sample.rows;
    Fields fields{{"CompanyIDNum", companyID}, {"ActiveStatus", isActive ? 1 : 2}, {"ShowThisClient", sample.dice.chance(97)}};
    if (sample.dice.chance(15)) fields.push_back({"ClientCustom1", sample.dice.pick(sample.staff).name});
    const std::int32_t id = rows.add("ClientData", fields);
    rows.add("ClientOptions", {{"ClientOptionID", id}});
    rows.add("ClientNotes", {{"ClientNoteID", id}});
    rows.add("LawInfo", {{"LawInfoID", id}});
    rows.add("OtherInfo", {{"OtherInfoID", id},
                           {"BankerInfo", sample.dice.chance(10) ? Variant{"First Sample Bank, main branch"} : Variant{}}});
    if (sample.options.country == country::kUnitedStates)
        addAmericanInfo(sample, id);
    else
        addCanadianInfo(sample, id);
    if (sample.dice.chance(25)) addSoftware(sample, companyID);
}

}  // namespace wmoutlook::sample

#include "apps/tallowsync/sample/MadeUpCompany.h"

#include "apps/tallowsync/sample/SampleText.h"
#include "platform/Services.h"

#include <array>

namespace wmoutlook::sample {

namespace {

constexpr std::array<std::string_view, 4> kDifficultNames{
    "Café L'Été chez Zoé Inc.",
    "O'Brien & Fils Ltée",
    "Œuvres L'Étoile inc.",
    "Garçon, Hébert & Associés S.E.N.C.",
};

std::string makeName(Dice& dice, const Company& company, const Place& place, std::string_view legalForm) {
    const std::string last{dice.pick(lastNames(company.isFrench))};
    const std::string form{legalForm};
    if (company.isFrench) {
        if (dice.chance(15)) return "Groupe " + last + form;
        return std::string{company.industry->frenchWord} + " " + last + form;
    }
    const std::string word{company.industry->word};
    const bool isFamily = form.find('&') != std::string::npos;
    const std::int32_t pattern = isFamily ? 0 : dice.below(4);
    if (pattern == 1) return std::string{place.city} + " " + word + form;
    if (pattern == 2) return last + " & " + std::string{dice.pick(lastNames(false))} + " " + word + form;
    return last + " " + word + form;
}

/// Many companies trade under another name than the one under which they are registered.
std::string makeCorporateName(Dice& dice, const Company& company, const Place& place) {
    if (company.type != 0 || !dice.chance(30)) return company.name;
    const std::string number = std::to_string(dice.between(1000000, 2999999));
    return number + (place.provinceCode == "QC" ? " Québec inc." : " " + std::string{place.province} + " Inc.");
}

}  // namespace

Company makeCompany(Dice& dice, const Place& place, std::int32_t country, bool isFrench, std::int32_t number) {
    Company company;
    company.isFrench = isFrench;
    company.industry = &dice.pick(industries());
    const LegalForm& form = dice.pick(legalForms(country, isFrench));
    company.type = form.companyType;
    const auto index = static_cast<std::size_t>(number);
    company.name =
        index < kDifficultNames.size() ? std::string{kDifficultNames[index]} : makeName(dice, company, place, form.text);
    company.corporateName = makeCorporateName(dice, company, place);
    if (!dice.chance(6)) company.address = makeAddress(dice, place, country);
    if (!dice.chance(8)) company.office = makePhone(dice, place);
    if (dice.chance(40)) company.fax = makePhone(dice, place);
    company.domain =
        addressPart(company.name).substr(0, 40) + (country == country::kUnitedStates ? ".example.com" : ".example.ca");
    if (!dice.chance(25)) company.email = "info@" + company.domain;
    if (!dice.chance(35)) company.webSite = "http://www." + company.domain;
    return company;
}

}  // namespace wmoutlook::sample

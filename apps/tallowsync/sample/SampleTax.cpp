#include "apps/tallowsync/sample/Names.h"
#include "apps/tallowsync/sample/Sample.h"
#include "hostdata/CategoryTables.h"

#include <iterator>
#include <string>

namespace wmoutlook::sample {

namespace {

constexpr auto kStepCount = static_cast<std::int32_t>(std::size(categories::kDefaultTaxSteps));

std::int32_t addCategory(Sample& sample, std::int32_t parent, const std::string& name, const std::string& description,
                         const std::string& code) {
    return sample.rows.add("Categories", {{"CategoryNum", parent},
                                          {"CategoryName", name},
                                          {"CategoryDescription", description},
                                          {"CategorySpecialCode", code.empty() ? Variant{} : Variant{code}}});
}

TaxYear addTaxYear(Sample& sample, std::int32_t year) {
    const std::string name = std::to_string(year);
    const std::int32_t category =
        addCategory(sample, sample.numbers.personalCategory, name,
                    "This category contains all of the Personal Tax clients for the " + name + " tax year.",
                    std::string{categories::kTaxYearCode} + name);
    for (std::int32_t number = 1; number <= kStepCount; ++number) {
        const categories::TaxStep& step = categories::kDefaultTaxSteps[number - 1];
        sample.rows.add("PersonalTaxSteps", {{"TaxYear", year},
                                             {"StepName", step.name},
                                             {"StepDescription", step.description},
                                             {"ColumnName", step.columnName},
                                             {"DefaultWidth", 1000},
                                             {"SortIndex", number},
                                             {"OldSortIndex", number}});
    }
    sample.rows.add("PersonalTaxDataImportInfo", {{"TaxYear", year}, {"ShowProfileT1InfoInSummary", year % 2 == 0}});
    return {year, category};
}

void addStatus(Sample& sample, std::int32_t contactID, const TaxYear& tax, const std::string& homePhone) {
    Dice& dice = sample.dice;
    const bool isFiled = tax.year == sample.taxYears.front().year || dice.chance(40);
    Fields fields{{"ContactNum", contactID},
                  {"TaxYear", tax.year},
                  {"ActiveStatus", dice.chance(94) ? 1 : 2},
                  {"InHouseDueDate", makeDay(tax.year + 1, 4, 15)},
                  {"ReturnStatus", isFiled ? 1 : 0},
                  {"OverdueFlag", !isFiled && dice.chance(20)},
                  {"EmployeeAssigned", dice.pick(sample.staff).name}};
    if (isFiled) fields.push_back({"ReturnDate", makeDay(tax.year + 1, 4, dice.between(1, 30))});
    append(fields, "Custom1", homePhone);  // the look-up column that the labels set up
    sample.rows.add("PersonalTaxStatus", fields);
}

void addYearOfClient(Sample& sample, std::int32_t contactID, const TaxYear& tax, const std::string& homePhone) {
    Rows& rows = sample.rows;
    rows.add("ContactLinks", {{"ContactIDNum", contactID}, {"CategoryNum", tax.category}, {"IsPersonalTaxCategory", true}});
    rows.add("PersonalTaxInfo", {{"ContactNum", contactID}, {"TaxYear", tax.year}});
    addStatus(sample, contactID, tax, homePhone);
    rows.add("PersonalTaxNotes", {{"ContactNum", contactID}, {"TaxYear", tax.year}});
    rows.add("PersonalTaxProfileInfo",
             {{"ContactNum", contactID}, {"TaxYear", tax.year}, {"ProfileClientStatus", sample.dice.between(1, 8)}});
    for (std::int32_t step = 1; step <= kStepCount; ++step)
        rows.add("PersonalTaxTasks", {{"ContactNum", contactID}, {"TaxYear", tax.year}, {"StepNum", step}});
}

}  // namespace

void addCategoriesAndTaxYears(Sample& sample) {
    for (const Industry& industry : industries())
        sample.industryCategories.push_back(
            addCategory(sample, sample.numbers.businessCategory, std::string{industry.name}, "", ""));
    sample.supplierCategory = addCategory(sample, sample.numbers.mainCategory, "Suppliers & Banks", "Whom the firm pays.", "");
    sample.friendCategory = addCategory(sample, sample.numbers.mainCategory, "Réseau / Network", "", "");
    // The returns of the year before are prepared now.
    const std::int32_t year = civil(sample.options.now).year;
    sample.taxYears = {addTaxYear(sample, year - 2), addTaxYear(sample, year - 1)};
}

void addTaxClient(Sample& sample, std::int32_t contactID, const std::string& homePhone) {
    if (sample.dice.chance(70)) addYearOfClient(sample, contactID, sample.taxYears.front(), homePhone);
    addYearOfClient(sample, contactID, sample.taxYears.back(), homePhone);
}

}  // namespace wmoutlook::sample

#include "apps/tallowsync/sample/MadeUpCompany.h"
#include "apps/tallowsync/sample/Names.h"
#include "apps/tallowsync/sample/Sample.h"
#include "apps/tallowsync/sample/SampleText.h"

#include <optional>
#include <string>
#include <utility>

namespace wmoutlook::sample {

namespace {

/// A person of a company, with what the company's own row copies from its default contact.
struct Employee {
    Person person;
    std::string phone;
    std::string fax;
    std::string email;
};

Employee makeEmployee(Sample& sample, const Company& company, const Place& place) {
    Employee employee;
    employee.person = makePerson(sample.dice, company.isFrench, sample.options.now);
    if (sample.dice.chance(45)) employee.phone = makePhone(sample.dice, place);
    if (sample.dice.chance(10)) employee.fax = makePhone(sample.dice, place);
    const std::string mailbox = addressPart(employee.person.first) + "." + addressPart(employee.person.last);
    if (sample.dice.chance(75) && mailbox.size() > 1) employee.email = mailbox + "@" + company.domain;
    return employee;
}

/// Where a company is filed: most under their industry, some straight under the clients, the rest among those whom the firm pays.
/// An associate company stands below its parent and has no category of its own.
struct Filing {
    Variant category;
    Variant parentCompany;
    bool isClient = true;
};

Filing chooseFiling(Sample& sample, const Company& company, std::int32_t number) {
    Dice& dice = sample.dice;
    if (number > 0 && dice.chance(5)) return {{}, sample.clients[static_cast<std::size_t>(dice.below(number))].companyID, true};
    if (dice.chance(10)) return {sample.supplierCategory, {}, false};
    if (dice.chance(20)) return {sample.numbers.businessCategory, {}, true};
    const auto index = static_cast<std::size_t>(company.industry - industries().data());
    return {sample.industryCategories[index], {}, true};
}

std::int32_t addCompanyRow(Sample& sample, const Company& company, const Filing& filing, const Employee* defaultContact) {
    Fields fields{{"CompanyName", company.name},         {"CorporateName", company.corporateName},
                  {"CompanyNum", filing.parentCompany},  {"CategoryNum", filing.category},
                  {"CompanyType", company.type},         {"IndustryType", company.industry->name},
                  {"PartnerName", sample.staff[0].name}, {"AccountantName", sample.dice.pick(sample.staff).name}};
    if (sample.dice.chance(80))
        fields.push_back({"ClientID", addressPart(company.name).substr(0, 4) + std::to_string(sample.dice.between(100, 999))});
    append(fields, "Address", company.address.street);
    append(fields, "City", company.address.city);
    append(fields, "Province", company.address.province);
    append(fields, "PostalCode", company.address.postalCode);
    append(fields, "Country", company.address.country);
    append(fields, "OfficeNumber", company.office);
    append(fields, "FaxNumber", company.fax);
    append(fields, "Email", company.email);
    append(fields, "WebSite", company.webSite);
    if (sample.dice.chance(10)) fields.push_back({"Custom1", "Underground"});
    if (defaultContact != nullptr) {
        append(fields, "DefaultContactName", defaultContact->person.display);
        append(fields, "DefaultContactPhoneNumber", defaultContact->phone);
        append(fields, "DefaultContactFaxNumber", defaultContact->fax);
        append(fields, "DefaultContactEmail", defaultContact->email);
    }
    return sample.rows.add("Companies", fields);
}

void addCompanyNotes(Sample& sample, std::int32_t companyID, const Company& company) {
    Fields fields{
        {"CompanyNum", companyID},
        {"BusinessNotes", richSummary({{"Company Name", company.name}, {"Office", company.office}, {"Email", company.email}})}};
    if (sample.dice.chance(25)) fields.push_back({"Notes", sample.dice.pick(companyNotes())});
    sample.rows.add("CompaniesNotes", fields);
}

std::int32_t addEmployeeRow(Sample& sample, const Company& company, const Employee& employee, const std::string& homePhone,
                            const Place& place) {
    Dice& dice = sample.dice;
    Fields fields{{"BusinessName", company.name}, {"InheritCompanyInfo", dice.chance(75)}};
    appendName(fields, employee.person);
    if (dice.chance(70)) fields.push_back({"BusinessJobTitle", dice.pick(jobTitles())});
    append(fields, "BusinessPhone_Main", employee.phone);
    append(fields, "BusinessPhone_Fax", employee.fax);
    append(fields, "BusinessEmail", employee.email);
    if (dice.chance(30)) fields.push_back({"BusinessPhone_Cell", makePhone(dice, place)});
    if (dice.chance(40)) appendBusinessAddress(fields, company.address);
    if (dice.chance(35)) appendHomeAddress(fields, makeAddress(dice, place, sample.options.country));
    if (dice.chance(60)) fields.push_back({"Birthday", employee.person.birthday});
    append(fields, "HomePhone_Main", homePhone);
    return sample.rows.add("Contacts", fields);
}

void addEmployee(Sample& sample, std::int32_t companyID, const Company& company, const Employee& employee, bool isDefault,
                 const Place& place) {
    const std::string homePhone = sample.dice.chance(40) ? makePhone(sample.dice, place) : "";
    const std::int32_t id = addEmployeeRow(sample, company, employee, homePhone, place);
    sample.rows.add("ContactLinks", {{"ContactIDNum", id}, {"CompanyNum", companyID}, {"DefaultContact", isDefault}});
    addContactRows(sample, id, {},
                   richSummary({{"Name", employee.person.display}, {"Company Name", company.name}, {"Email", employee.email}}));
    if (sample.dice.chance(12)) addTaxClient(sample, id, homePhone);
}

void addCompany(Sample& sample, std::int32_t number) {
    Dice& dice = sample.dice;
    const Place& place = sample.pickPlace();
    const Company company = makeCompany(dice, place, sample.options.country, sample.pickLanguage(place), number);
    const Filing filing = chooseFiling(sample, company, number);
    const std::int32_t people = dice.chance(35) ? 0 : dice.between(1, 2);
    std::vector<Employee> employees;
    employees.reserve(static_cast<std::size_t>(people));
    for (std::int32_t i = 0; i < people; ++i) employees.push_back(makeEmployee(sample, company, place));
    const bool hasDefault = !employees.empty() && dice.chance(88);

    const std::int32_t id = addCompanyRow(sample, company, filing, hasDefault ? employees.data() : nullptr);
    addCompanyNotes(sample, id, company);
    sample.rows.add("Clients", {{"CompanyIDNum", id}, {"ContactIDNum", kNoRecord}});
    if (filing.isClient) addClientData(sample, id, dice.chance(94));
    for (std::size_t i = 0; i < employees.size(); ++i)
        addEmployee(sample, id, company, employees[i], hasDefault && i == 0, place);
    sample.clients.push_back({id, kNoRecord, company.name});
}

}  // namespace

void addCompanies(Sample& sample) {
    for (std::int32_t number = 0; number < sample.options.companies; ++number) addCompany(sample, number);
}

void addContactRows(Sample& sample, std::int32_t contactID, std::span<const std::int32_t> categories,
                    const std::string& summary) {
    sample.rows.add("ContactsNotes", {{"ContactNum", contactID}, {"BusinessNotes", summary}});
    sample.rows.add("Clients", {{"CompanyIDNum", kNoRecord}, {"ContactIDNum", contactID}});
    for (const std::int32_t category : categories)
        sample.rows.add("ContactLinks", {{"ContactIDNum", contactID}, {"CategoryNum", category}});
}

}  // namespace wmoutlook::sample

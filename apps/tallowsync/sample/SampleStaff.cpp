#include "apps/tallowsync/sample/Names.h"
#include "apps/tallowsync/sample/Sample.h"
#include "apps/tallowsync/sample/SampleText.h"

#include <algorithm>
#include <string>

namespace wmoutlook::sample {

namespace {

/// How one user wants names and calendar texts; the others have no row and get what the host does by default.
struct Preferences {
    std::int32_t companyNames;
    std::int32_t contactNames;
    std::int32_t familyOption;
    std::string_view appointmentTemplate;  ///< blank: the standard one
    std::string_view taskTemplate;
};

constexpr Preferences kPreferences[] = {
    {1, 3, 2, "«Appointment Name» - «Company Name» («Contact Display Name»)",
     "«Task Name»: «Company Name», «(Task Due Date, mmm d yyyy)»"},
    {4, 2, 1, "0", ""},
    {1, 1, 1, "Text Constant", "«Task Name» for «Company Name»"},
};

constexpr std::string_view kStaffTitles[] = {"Partner", "Manager", "Senior Accountant", "Bookkeeper", "Adjointe administrative"};

void addStaff(Sample& sample) {
    const std::int32_t count = std::clamp(4 + sample.options.companies / 40, 4, 60);
    for (std::int32_t i = 0; i < count; ++i) {
        const bool isFrench = i % 3 == 1;
        const std::string first{sample.dice.pick(firstNames(isFrench)).name};
        const std::string last{sample.dice.pick(lastNames(isFrench))};
        const std::string phone = makePhone(sample.dice, sample.dice.pick(sample.homePlaces));
        const std::int32_t id = addStaffMember(sample.rows, sample.numbers, first, last,
                                               {{"BusinessJobTitle", sample.dice.pick(kStaffTitles)},
                                                {"BusinessPhone_Main", phone},
                                                {"BusinessEmail", addressPart(first + last) + "@firm.example.com"}});
        sample.staff.push_back({id, first + " " + last});
    }
}

void addPreferences(Sample& sample) {
    for (std::size_t i = 0; i < std::size(kPreferences); ++i) {
        const Preferences& wanted = kPreferences[i];
        const std::int32_t user = sample.staff[i].id;
        sample.rows.add("UserGeneralSettings", {{"UserIDNum", user},
                                                {"OptionsCompanyNameDisplayType", wanted.companyNames},
                                                {"OptionsContactNameDisplayType", wanted.contactNames},
                                                {"OptionsFamilyDisplayOption", wanted.familyOption}});
        sample.rows.add("UserCalendarSettings", {{"UserIDNum", user},
                                                 {"ApptTemplate", wanted.appointmentTemplate},
                                                 {"TaskTemplate", wanted.taskTemplate},
                                                 {"ApptTitleBarText", i == 0 ? "Company Name" : ""}});
    }
}

void addLabels(Sample& sample) {
    sample.rows.add("CustomFields", {{"CustomName1", "Referred By:"},
                                     {"CustomName2", "Custom 2"},
                                     {"ApptCustomName1", "Meeting Room:"},
                                     {"TaskCustomName1", "Binder"},
                                     {"RemittanceLabel1", "Filing Period:"},
                                     {"PersonalTaxTaskCustomType1", 3},
                                     {"PersonalTaxTaskCustomInfo1", "HomePhone_Main"}});
    sample.rows.add("CustomAddressFields",
                    {{"CompanyLabel1", "Parking:"}, {"ContactLabel1", "Nickname:"}, {"ContactLabel2", "Langue:"}});
}

}  // namespace

void addStaffAndSettings(Sample& sample) {
    addStaff(sample);
    addPreferences(sample);
    addLabels(sample);
}

}  // namespace wmoutlook::sample

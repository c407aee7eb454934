#include "apps/tallowsync/sample/NewFirm.h"

#include "adapters/sql/SqliteDatabase.h"
#include "apps/tallowsync/sample/Dice.h"
#include "apps/tallowsync/sample/HalfMade.h"
#include "hostdata/CategoryTables.h"

#include <vector>

namespace wmoutlook {

namespace sample {

namespace {

constexpr std::string_view kApplicationName = "Tallow Brook";

std::string makeDataFileID(RandomSource& random) {
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    Dice dice{random};
    std::string id;
    while (id.size() < 12) id += dice.pick(kLetters);
    return id;
}

std::int32_t addCategory(Rows& rows, const categories::FixedCategory& category, const Variant& parent) {
    const std::string application{kApplicationName};
    const std::string end{category.descriptionEnd};
    return rows.add("Categories",
                    {{"CategoryNum", parent},
                     {"CategoryName", (category.startsWithApplicationName ? application : "") + std::string{category.nameEnd}},
                     {"CategoryDescription", std::string{category.descriptionStart} + (end.empty() ? "" : application + end)},
                     {"CategorySpecialCode", category.code}});
}

/// The categories that every firm has; the component would create them one by one when it first needs them.
FirmNumbers addCategories(Rows& rows) {
    FirmNumbers numbers;
    numbers.mainCategory = addCategory(rows, categories::kMain, {});
    numbers.businessCategory = addCategory(rows, categories::kBusiness, numbers.mainCategory);
    numbers.personalCategory = addCategory(rows, categories::kPersonal, numbers.mainCategory);
    numbers.firmCategory = addCategory(rows, categories::kFirm, numbers.mainCategory);
    return numbers;
}

}  // namespace

FirmNumbers addFirm(Rows& rows, const FirmProfile& profile, std::span<const Field> more) {
    FirmNumbers numbers = addCategories(rows);
    const bool isUnitedStates = profile.country == country::kUnitedStates;
    std::vector<Field> fields{{"CompanyName", profile.name},
                              {"CorporateName", profile.name},
                              {"Province", profile.province},
                              {"Country", isUnitedStates ? "United States" : "Canada"}};
    fields.insert(fields.end(), more.begin(), more.end());
    numbers.firm = rows.add("AccountantFirmInfo", fields);
    rows.add("DataVersion", {{"DataUniqueID", makeDataFileID(*profile.random)}});
    return numbers;
}

std::int32_t addStaffMember(Rows& rows, const FirmNumbers& numbers, const std::string& firstName, const std::string& lastName,
                            std::initializer_list<Field> more) {
    std::vector<Field> fields{{"DisplayName", firstName + " " + lastName}, {"FirstName", firstName}, {"LastName", lastName}};
    fields.insert(fields.end(), more.begin(), more.end());
    const std::int32_t id = rows.add("Contacts", fields);
    rows.add("ContactsNotes", {{"ContactNum", id}});
    rows.add("Clients", {{"CompanyIDNum", kNoRecord}, {"ContactIDNum", id}});
    rows.add("ContactLinks", {{"ContactIDNum", id}, {"CategoryNum", numbers.firmCategory}});
    fields.push_back({"ContactID", id});
    fields.push_back({"UserName", firstName + " " + lastName});
    rows.add("AccountantEmployeeInfo", fields);
    return id;
}

}  // namespace sample

void createFirm(const std::string& path, const FirmProfile& profile) {
    createSqliteDatabase(path);
    HalfMade made;
    made.madeDatabase(path);
    sample::Rows rows{path};
    const sample::FirmNumbers numbers = sample::addFirm(rows, profile);
    sample::addStaffMember(rows, numbers, profile.userFirstName, profile.userLastName, {});
    rows.commit();
    made.keep();
}

}  // namespace wmoutlook

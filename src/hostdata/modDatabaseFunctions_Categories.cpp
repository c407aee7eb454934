#include "hostdata/modDatabaseFunctions.h"

#include "hostdata/CategoryTables.h"
#include "hostdata/HostServices.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

namespace wmoutlook::modDatabaseFunctions {

namespace {

using namespace categories;

/// Nothing when the application cannot be named.
std::optional<std::string> defaultName(const FixedCategory& category) {
    if (!category.startsWithApplicationName) return std::string{category.nameEnd};
    auto name = applicationName();
    if (name) name->append(category.nameEnd);
    return name;
}

std::optional<std::string> defaultDescription(const FixedCategory& category) {
    std::string description{category.descriptionStart};
    if (category.descriptionEnd.empty()) return description;
    const auto name = applicationName();
    if (!name) return std::nullopt;
    return description.append(*name).append(category.descriptionEnd);
}

struct NewCategory {
    std::string code;
    std::string name;
    std::string description;
    std::optional<std::int32_t> parent;
};

std::int32_t addCategory(const NewCategory& category) {
    const Recordset categories{"SELECT Categories.* FROM Categories;", LockCode::updatable};
    categories.addNew();
    if (category.parent) categories.set("CategoryNum", toText(*category.parent));
    categories.set("CategoryName", category.name);
    categories.set("CategoryDescription", category.description);
    categories.set("CategorySpecialCode", category.code);
    const std::int32_t id = categories.number("CategoryID", kNoRecord);
    if (id != kNoRecord) categories.save();  // a category that nobody can name again is not begun
    return id;
}

std::string queryByCode(std::string_view wantedFields, std::string_view code) {
    return "SELECT Categories.CategorySpecialCode, " + std::string{wantedFields} +
           " FROM Categories WHERE CategorySpecialCode = '" + std::string{code} + "';";
}

struct Found {
    std::int32_t id = kNoRecord;
    bool isMissing = false;  ///< known to have no row; a read that failed does not say so
};

Found findCategory(const std::string& query) {
    const Recordset categories{query};
    const auto isThere = categories.hasRowsIfTold();
    if (!isThere) return {};
    return *isThere ? Found{categories.number("CategoryID", kNoRecord), false} : Found{kNoRecord, true};
}

std::int32_t addFixedCategory(const FixedCategory& category, std::optional<std::int32_t> parent) {
    const auto name = defaultName(category);
    const auto description = defaultDescription(category);
    if (!name || !description) return kNoRecord;
    return addCategory({std::string{category.code}, *name, *description, parent});
}

/// Hangs the child under the root, creating it where it is absent.
std::int32_t ensureChild(const FixedCategory& category, std::int32_t mainID) {
    {
        const Recordset categories{queryByCode("Categories.CategoryID, Categories.CategoryNum", category.code),
                                   LockCode::updatable};
        const auto isThere = categories.hasRowsIfTold();
        if (!isThere) return kNoRecord;
        if (*isThere) {
            categories.update("CategoryNum", toText(mainID));
            return categories.number("CategoryID", kNoRecord);
        }
    }
    return addFixedCategory(category, mainID);
}

std::int32_t createChild(std::string_view errorTag, const FixedCategory& category) {
    std::int32_t id = kNoRecord;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::int32_t mainID = getMainCategoryNum();  // a root that had to be created has brought this child along
        if (mainID != kNoRecord) id = ensureChild(category, mainID);
    });
    return id;
}

using Create = std::int32_t (*)();

std::int32_t categoryNum(std::string_view errorTag, const FixedCategory& category, Create create) {
    std::int32_t id = kNoRecord;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Found found = findCategory(queryByCode("Categories.CategoryID", category.code));
        id = found.isMissing ? create() : found.id;
    });
    return id;
}

std::string categoryName(std::string_view errorTag, const FixedCategory& category, Create create,
                         std::string_view whenMissing = {}) {
    std::string name;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::string query = queryByCode("Categories.CategoryName", category.code);
        for (const bool isCreated : {false, true}) {
            if (isCreated) create();
            const Recordset categories{query};
            const auto isThere = categories.hasRowsIfTold();
            if (!isThere) return;
            name = *isThere ? categories.text("CategoryName") : std::string{whenMissing};
            if (*isThere) return;
        }
    });
    return name;
}

// Tax years

constexpr std::array<std::string_view, 4> kCopiedStepFields{"StepName", "StepDescription", "ColumnName", "DefaultWidth"};

std::string stepsOfYear(std::int32_t year) {
    return "SELECT PersonalTaxSteps.* FROM PersonalTaxSteps WHERE PersonalTaxSteps.TaxYear=" + toText(year);
}

/// False when the year before is known to have no steps.
bool copyStepsOfYearBefore(std::int32_t year) {
    Recordset before{stepsOfYear(year - 1) + " ORDER BY PersonalTaxSteps.SortIndex;"};
    if (before.hasRowsIfTold() == false) return false;
    const Recordset steps{"SELECT PersonalTaxSteps.* FROM PersonalTaxSteps;", LockCode::updatable};
    for (before.moveFirst(); !before.isAtEnd(); before.moveNext()) {
        const std::string sortIndex = before.text("SortIndex");
        steps.addNew();
        steps.set("TaxYear", toText(year));
        for (const std::string_view field : kCopiedStepFields) steps.set(field, before.text(field));
        steps.set("SortIndex", sortIndex);
        steps.set("OldSortIndex", sortIndex);
        steps.save();
    }
    return true;
}

std::int32_t yearBehind(std::string_view code) {
    code.remove_prefix(kTaxYearCode.size());
    std::int32_t year = kNoRecord;
    std::from_chars(code.data(), code.data() + code.size(), year);
    return year;
}

std::string specialCodeOf(std::int32_t categoryID) {
    const Recordset categories{"SELECT Categories.CategoryID, Categories.CategorySpecialCode FROM Categories WHERE CategoryID=" +
                               toText(categoryID) + ";"};
    return categories.hasRows() ? categories.text("CategorySpecialCode") : std::string{};
}

/// Climbs from a category to the root and stops where `isReached` says so. A tree whose parents run in a circle, which a
/// damaged file can hold, is left after one round.
template <class IsReached>
void climb(std::int32_t categoryID, IsReached isReached) {
    const Recordset categories{
        "SELECT Categories.CategoryID, Categories.CategoryNum, Categories.CategorySpecialCode FROM Categories;"};
    std::vector<std::int32_t> seen;
    for (std::int32_t id = categoryID; id >= 0 && std::find(seen.begin(), seen.end(), id) == seen.end();) {
        seen.push_back(id);
        if (!categories.findFirst("CategoryID", id) || isReached(id, categories)) return;
        id = categories.number("CategoryNum", kNoRecord);
    }
}

}  // namespace

std::string getMainCategoryName() {
    return categoryName("Tallowbrook.exe-modDatabaseFunctions-getMainCategoryName", kMain, createNewDefaultMainCategory,
                        kAddressBook);
}

std::int32_t getMainCategoryNum() {
    return categoryNum("Tallowbrook.exe-modDatabaseFunctions-getMainCategoryNum", kMain, createNewDefaultMainCategory);
}

std::string getBusinessCategoryName() {
    return categoryName("Tallowbrook.exe-modDatabaseFunctions-getBusinessCategoryName", kBusiness,
                        createNewDefaultBusinessCategory);
}

std::int32_t getBusinessCategoryNum() {
    return categoryNum("Tallowbrook.exe-modDatabaseFunctions-getBusinessCategoryNum", kBusiness,
                       createNewDefaultBusinessCategory);
}

std::string getFirmCategoryName() {
    return categoryName("Tallowbrook.exe-modDatabaseFunctions-getFirmCategoryName", kFirm, createNewFirmCategory);
}

std::int32_t getFirmCategoryNum() {
    return categoryNum("Tallowbrook.exe-modDatabaseFunctions-getFirmCategoryNum", kFirm, createNewFirmCategory);
}

std::string getPersonalTaxCategoryName() {
    return categoryName("Tallowbrook.exe-modDatabaseFunctions-getPersonalTaxCategoryName", kPersonal,
                        createNewPersonalTaxCategory);
}

std::int32_t getPersonalTaxCategoryNum() {
    return categoryNum("Tallowbrook.exe-modDatabaseFunctions-getPersonalTaxCategoryNum", kPersonal, createNewPersonalTaxCategory);
}

std::string getDefaultBusinessCategoryName() {
    std::string name;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getDefaultBusinessCategoryName"};
    routine.run([&] { name = defaultName(kBusiness).value_or(""); });
    return name;
}

std::string getDefaultPersonalTaxCategoryName() {
    std::string name;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getDefaultPersonalTaxCategoryName"};
    routine.run([&] { name = defaultName(kPersonal).value_or(""); });
    return name;
}

std::int32_t createNewDefaultMainCategory() {
    std::int32_t mainID = kNoRecord;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-createNewDefaultMainCategory"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        mainID = addFixedCategory(kMain, std::nullopt);
        if (mainID == kNoRecord) return;
        for (const FixedCategory& child : kChildrenOfMain) ensureChild(child, mainID);
    });
    return mainID;
}

std::int32_t createNewDefaultBusinessCategory() {
    return createChild("Tallowbrook.exe-modDatabaseFunctions-createNewDefaultBusinessCategory", kBusiness);
}

std::int32_t createNewFirmCategory() {
    return createChild("Tallowbrook.exe-modDatabaseFunctions-createNewFirmCategory", kFirm);
}

std::int32_t createNewPersonalTaxCategory() {
    return createChild("Tallowbrook.exe-modDatabaseFunctions-createNewPersonalTaxCategory", kPersonal);
}

std::int32_t getPersonalTaxYearCategory(std::int32_t year) {
    std::int32_t id = kNoRecord;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getPersonalTaxYearCategory"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::string yearText = toText(year);
        const std::string code = std::string{kTaxYearCode} + yearText;
        const Found found = findCategory(
            "SELECT Categories.CategorySpecialCode, Categories.CategoryName, Categories.CategoryNum, Categories.CategoryID, "
            "Categories.CategoryDescription FROM Categories WHERE CategorySpecialCode = '" +
            code + "';");
        id = found.id;
        const std::int32_t parent = found.isMissing ? getPersonalTaxCategoryNum() : kNoRecord;
        if (parent == kNoRecord) return;
        id = addCategory({code, yearText,
                          "This category contains all of the Personal Tax clients for the " + yearText + " tax year.", parent});
        if (id == kNoRecord) return;
        if (!copyStepsOfYearBefore(year)) createDefaultPersonalTaxSteps(year);
    });
    return id;
}

void createDefaultPersonalTaxSteps(std::int32_t year) {
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-createDefaultPersonalTaxSteps"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const Recordset steps{"SELECT PersonalTaxSteps.* FROM PersonalTaxSteps;", LockCode::updatable};
        std::int32_t number = 0;
        for (const TaxStep& step : kDefaultTaxSteps) {
            const std::string sortIndex = toText(++number);
            steps.addNew();
            steps.set("TaxYear", toText(year));
            steps.set("StepName", step.name);
            steps.set("StepDescription", step.description);
            steps.set("ColumnName", step.columnName);
            steps.set("DefaultWidth", kDefaultStepWidth);
            steps.set("SortIndex", sortIndex);
            steps.set("OldSortIndex", sortIndex);
            steps.save();
        }
    });
}

bool isCategoryPersonalTaxYearCategory(std::int32_t categoryID) {
    bool isTaxYear = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-isCategoryPersonalTaxYearCategory"};
    routine.run([&] {
        if (isDatabaseOpen()) isTaxYear = specialCodeOf(categoryID).find("TaxYear") != std::string::npos;
    });
    return isTaxYear;
}

bool isCategoryMainCategory(std::int32_t categoryID) {
    bool isMain = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-isCategoryMainCategory"};
    routine.run([&] {
        if (isDatabaseOpen()) isMain = specialCodeOf(categoryID) == kMain.code;
    });
    return isMain;
}

std::int32_t getPersonalTaxYearFromCategoryID(std::int32_t categoryID) {
    std::int32_t year = kNoRecord;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getPersonalTaxYearFromCategoryID"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        climb(categoryID, [&](std::int32_t, const Recordset& category) {
            const std::string code = category.text("CategorySpecialCode");
            if (!code.starts_with(kTaxYearCode)) return false;
            year = yearBehind(code);
            return true;
        });
    });
    return year;
}

bool doesThisCategoryBelongToCategory(std::int32_t categoryID, std::int32_t otherID) {
    bool belongs = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-doesThisCategoryBelongToCategory"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        climb(categoryID, [&](std::int32_t id, const Recordset&) { return belongs = id == otherID; });
    });
    return belongs;
}

}  // namespace wmoutlook::modDatabaseFunctions

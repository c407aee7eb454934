#include "hostdata/modDatabaseFunctions.h"

#include "hostdata/CategoryTables.h"
#include "hostdata/HostServices.h"
#include "hostdata/TaxSteps.h"
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

constexpr std::string_view kAllCategories = "SELECT Categories.* FROM Categories;";

struct NewCategory {
    std::string code;
    std::string name;
    std::string description;
    std::optional<std::int32_t> parent;
};

/// Nothing when the application cannot be named.
std::optional<NewCategory> newCategory(const FixedCategory& category, std::optional<std::int32_t> parent) {
    const auto name = defaultName(category);
    const auto description = defaultDescription(category);
    if (!name || !description) return std::nullopt;
    return NewCategory{std::string{category.code}, *name, *description, parent};
}

/// Fills a new row and gives its number, or -1 for a row that is not to be saved: without its code every request would add
/// another one, without its parent nobody would see it, and a number read without a new row is that of another category.
std::int32_t beginCategory(const Recordset& categories, const NewCategory& category) {
    const bool isComplete =
        categories.addNew() && (!category.parent || categories.set("CategoryNum", toText(*category.parent))) &&
        categories.set("CategoryName", category.name) && categories.set("CategoryDescription", category.description) &&
        categories.set("CategorySpecialCode", category.code);
    return isComplete ? categories.number("CategoryID", kNoRecord) : kNoRecord;
}

// The numbers below are given by reference: one that is known stays with the caller also when closing a set leaves the routine.

void addCategory(const NewCategory& category, std::int32_t& id) {
    const Recordset categories{kAllCategories, LockCode::updatable};
    const std::int32_t number = beginCategory(categories, category);
    if (number != kNoRecord && categories.save()) id = number;
}

std::string queryByCode(std::string_view wantedFields, std::string_view code) {
    return "SELECT Categories.CategorySpecialCode, " + std::string{wantedFields} +
           " FROM Categories WHERE CategorySpecialCode = '" + std::string{code} + "';";
}

/// Whether the category is known to have no row; a read that failed does not say so.
bool isMissing(const std::string& query, std::int32_t& id) {
    const Recordset categories{query};
    const auto isThere = categories.hasRowsIfTold();
    if (isThere.value_or(false)) id = categories.number("CategoryID", kNoRecord);
    return isThere == false;
}

/// Whether the child is there and hangs under the root now; nothing when that could not be told or done.
std::optional<bool> hang(const FixedCategory& child, std::int32_t mainID, std::int32_t& id) {
    const Recordset categories{queryByCode("Categories.CategoryID, Categories.CategoryNum", child.code), LockCode::updatable};
    const auto isThere = categories.hasRowsIfTold();
    if (!isThere.value_or(false)) return isThere;
    id = categories.number("CategoryID", kNoRecord);
    return categories.update("CategoryNum", toText(mainID)) ? isThere : std::nullopt;
}

void addChild(const FixedCategory& child, std::int32_t mainID, std::int32_t& id) {
    if (const auto category = newCategory(child, mainID)) addCategory(*category, id);
}

/// Children that outlived their root are moved before the new one is saved: nobody looks after them once there is a root.
void addMain(std::int32_t& mainID) {
    const auto category = newCategory(kMain, std::nullopt);
    if (!category) return;
    const Recordset categories{kAllCategories, LockCode::updatable};
    const std::int32_t number = beginCategory(categories, *category);
    if (number == kNoRecord) return;
    for (const FixedCategory& child : kChildrenOfMain) {
        std::int32_t childID = kNoRecord;
        if (!hang(child, number, childID)) return;
    }
    if (categories.save()) mainID = number;
}

std::int32_t createChild(std::string_view errorTag, const FixedCategory& category) {
    std::int32_t id = kNoRecord;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        const std::int32_t mainID = getMainCategoryNum();  // a root that had to be created has brought this child along
        if (mainID != kNoRecord && hang(category, mainID, id) == false) addChild(category, mainID, id);
    });
    return id;
}

using Create = std::int32_t (*)();

std::int32_t categoryNum(std::string_view errorTag, const FixedCategory& category, Create create) {
    std::int32_t id = kNoRecord;
    Routine routine{errorTag};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        if (isMissing(queryByCode("Categories.CategoryID", category.code), id)) id = create();
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

std::int32_t yearBehind(std::string_view code) {
    code.remove_prefix(kTaxYearCode.size());
    std::int32_t year = kNoRecord;
    std::from_chars(code.data(), code.data() + code.size(), year);
    return year;
}

template <class Use>
void useSpecialCode(std::int32_t categoryID, Use use) {
    const Recordset categories{"SELECT Categories.CategoryID, Categories.CategorySpecialCode FROM Categories WHERE CategoryID=" +
                               toText(categoryID) + ";"};
    if (categories.hasRows()) use(categories.text("CategorySpecialCode"));
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
        addMain(mainID);
        if (mainID == kNoRecord) return;
        for (const FixedCategory& child : kChildrenOfMain) {
            std::int32_t childID = kNoRecord;
            if (isMissing(queryByCode("Categories.CategoryID", child.code), childID)) addChild(child, mainID, childID);
        }
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
        const std::string query =
            "SELECT Categories.CategorySpecialCode, Categories.CategoryName, Categories.CategoryNum, Categories.CategoryID, "
            "Categories.CategoryDescription FROM Categories WHERE CategorySpecialCode = '" +
            code + "';";
        if (!isMissing(query, id)) return;
        const std::int32_t parent = getPersonalTaxCategoryNum();
        // The steps come first: a year that has its category is never looked at again.
        if (parent == kNoRecord || !completeTaxSteps(year)) return;
        addCategory(
            {code, yearText, "This category contains all of the Personal Tax clients for the " + yearText + " tax year.", parent},
            id);
    });
    return id;
}

bool isCategoryPersonalTaxYearCategory(std::int32_t categoryID) {
    bool isTaxYear = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-isCategoryPersonalTaxYearCategory"};
    routine.run([&] {
        if (!isDatabaseOpen()) return;
        useSpecialCode(categoryID, [&](const std::string& code) { isTaxYear = code.find("TaxYear") != std::string::npos; });
    });
    return isTaxYear;
}

bool isCategoryMainCategory(std::int32_t categoryID) {
    bool isMain = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-isCategoryMainCategory"};
    routine.run([&] {
        if (isDatabaseOpen()) useSpecialCode(categoryID, [&](const std::string& code) { isMain = code == kMain.code; });
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

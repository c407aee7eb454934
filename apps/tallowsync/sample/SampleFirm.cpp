#include "apps/tallowsync/sample/SampleFirm.h"

#include "adapters/headless/Machine.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/sql/SqliteDatabase.h"
#include "apps/tallowsync/sample/HalfMade.h"
#include "apps/tallowsync/sample/Sample.h"
#include "apps/tallowsync/sample/SampleOutlook.h"
#include "platform/Errors.h"
#include "platform/Text.h"

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <utility>

namespace wmoutlook {

namespace {

namespace fs = std::filesystem;

SampleOptions withDefaults(SampleOptions options) {
    const bool isUnitedStates = options.country == country::kUnitedStates;
    if (options.province.empty()) options.province = isUnitedStates ? "NY" : "ON";
    options.province = upperCase(options.province);
    if (options.companies < 0 || options.companies > kMostSampleCompanies)
        throw std::invalid_argument("--companies: a sample firm has from 0 to " + std::to_string(kMostSampleCompanies) +
                                    " companies");
    if (sample::placesOf(options.country, options.province).empty())
        throw std::invalid_argument("--province: there is no " + std::string{isUnitedStates ? "state" : "province"} + " \"" +
                                    options.province + "\"; give its two-letter code");
    return options;
}

std::string newFile(const fs::path& directory, const char* name) {
    const fs::path file = directory / name;
    if (fs::exists(file)) throw DatabaseError(0, "The file \"" + file.string() + "\" is there already and stays as it is");
    return file.string();
}

FirmProfile profileOf(const SampleOptions& options, std::shared_ptr<RandomSource> random) {
    FirmProfile profile;
    profile.name = "Bouchard & Whitfield LLP";
    profile.country = options.country;
    profile.province = options.province;
    profile.random = std::move(random);
    return profile;
}

sample::FirmNumbers addSampleFirm(sample::Rows& rows, sample::Dice& dice, const SampleOptions& options,
                                  const FirmProfile& profile) {
    const sample::Place& place = dice.pick(sample::placesOf(options.country, options.province));
    const sample::Address address = sample::makeAddress(dice, place, options.country);
    return sample::addFirm(rows, profile,
                           sample::Fields{{"CompanyType", 7},
                                          {"IndustryType", "Accounting"},
                                          {"Address", address.street},
                                          {"City", address.city},
                                          {"PostalCode", address.postalCode},
                                          {"OfficeNumber", sample::makePhone(dice, place)},
                                          {"Email", "office@firm.example.com"},
                                          {"WebSite", "http://www.firm.example.com"}});
}

void fillFirm(sample::Sample& sample) {
    sample.homePlaces = sample::placesOf(sample.options.country, sample.options.province);
    sample.allPlaces = sample::placesOf(sample.options.country);
    addStaffAndSettings(sample);
    addCategoriesAndTaxYears(sample);
    addCompanies(sample);
    addHouseholds(sample);
    addCalendar(sample);
    sample.rows.commit();
}

}  // namespace

void createSample(const std::string& directory, const SampleOptions& options) {
    const SampleOptions complete = withDefaults(options);
    complete.checkpoint();  // before anything is made
    HalfMade made;
    made.makeFolder(directory);
    const std::string firmFile = newFile(directory, "firm.db");
    const std::string outlookFile = newFile(directory, "outlook.db");

    const auto random = std::make_shared<SeededRandom>(complete.seed);
    sample::Dice dice{*random};
    createSqliteDatabase(firmFile);
    made.madeDatabase(firmFile);
    sample::Rows rows{firmFile, complete.checkpoint};
    const sample::FirmNumbers numbers = addSampleFirm(rows, dice, complete, profileOf(complete, random));
    sample::Sample sample{complete, dice, rows, numbers};
    fillFirm(sample);

    createOutlookStore(outlookFile, *random);
    made.madeDatabase(outlookFile);
    OutlookStoreOptions storeOptions;
    storeOptions.clock = std::make_shared<FixedClock>(complete.now);
    fillOutlook(sample, *openOutlookStore(outlookFile, storeOptions));
    made.keep();
}

}  // namespace wmoutlook

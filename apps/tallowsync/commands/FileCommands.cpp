#include "adapters/headless/FirmLocale.h"
#include "adapters/headless/Machine.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "apps/tallowsync/Command.h"
#include "apps/tallowsync/OptionTexts.h"
#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/sample/NewFirm.h"
#include "apps/tallowsync/sample/SampleFirm.h"
#include "platform/Text.h"

#include <memory>
#include <random>

namespace wmoutlook {

namespace {

constexpr std::string_view kSampleDay = "2026-11-22T09:00:00";  // not today's: the same options always give the same sample

std::shared_ptr<SeededRandom> unforeseenNumbers() {
    std::random_device random;
    return std::make_shared<SeededRandom>(std::uint64_t{random()} << 32U | random());
}

/// Where a made-up or new firm is.
struct Home {
    std::string country = "ca";
    std::string province;
};

void declareHome(CLI::App& line, Home& home) {
    line.add_option("--country", home.country, "ca (the default) or us")->check(CLI::IsMember({"ca", "us"}));
    line.add_option("--province", home.province, "The province or state by its code, such as ON (the default) or NY");
}

std::int32_t countryOf(const Home& home) {
    return home.country == "us" ? country::kUnitedStates : country::kCanada;
}

// sample

struct SampleTexts {
    std::string directory;
    Home home;
    std::optional<std::string> companies, seed;
    std::string now{kSampleDay};
};

ExitStatus makeSample(const SampleTexts& texts, const StopSignal& stopSignal) {
    SampleOptions options;
    options.checkpoint = [&] { stopIfAsked(stopSignal); };
    if (texts.companies) options.companies = wholeNumber("--companies", *texts.companies);
    if (texts.seed) options.seed = seedNumber("--seed", *texts.seed);
    options.country = countryOf(texts.home);
    options.province = texts.home.province;
    options.now = moment("--now", texts.now);
    try {
        createSample(texts.directory, options);
    } catch (const std::invalid_argument& error) {
        throw UsageError{error.what()};
    }
    return ExitStatus::done;
}

Action declareSample(CLI::App& line) {
    const auto texts = std::make_shared<SampleTexts>();
    line.add_option("DIR", texts->directory, "Where firm.db and outlook.db are made; they must not exist yet")->required();
    line.add_option(
        "--companies", texts->companies,
        "How many client companies the firm has, from 0 to " + std::to_string(kMostSampleCompanies) + "; 60 without it");
    line.add_option("--seed", texts->seed, "Another seed makes up another firm; 1 without it");
    declareHome(line, texts->home);
    line.add_option("--now", texts->now, "The day around which the calendar lies; " + std::string{kSampleDay} + " without it");
    return [texts](Console& console) { return makeSample(*texts, console.stopSignal); };
}

// new-firm

std::string provinceCode(const Home& home) {
    if (home.province.empty()) return home.country == "us" ? "NY" : "ON";
    const bool isCode = home.province.size() == 2 &&
                        foldedForMatching(home.province).find_first_not_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos;
    if (!isCode || (home.country == "ca" && !provinceFromText(home.province)))
        throw UsageError{"--province: \"" + home.province + "\" is no code of a " +
                         (home.country == "us" ? "state, such as NY" : "province, such as ON or QC")};
    return upperCase(home.province);
}

struct FirmTexts {
    std::string path;
    Home home;
    std::optional<std::string> name;
};

Action declareNewFirm(CLI::App& line) {
    const auto texts = std::make_shared<FirmTexts>();
    line.add_option("FILE", texts->path, "The file to make; it must not exist yet")->required();
    declareHome(line, texts->home);
    line.add_option("--name", texts->name, "The firm's name, of at most " + std::to_string(kLongestName) + " characters");
    return [texts](Console&) {
        FirmProfile profile;
        if (texts->name) profile.name = nameText("--name", *texts->name);
        profile.country = countryOf(texts->home);
        profile.province = provinceCode(texts->home);
        profile.random = unforeseenNumbers();
        createFirm(texts->path, profile);
        return ExitStatus::done;
    };
}

// new-outlook

Action declareNewOutlook(CLI::App& line) {
    const auto path = std::make_shared<std::string>();
    line.add_option("FILE", *path, "The file to make; it must not exist yet")->required();
    return [path](Console&) {
        createOutlookStore(*path, *unforeseenNumbers());
        return ExitStatus::done;
    };
}

constexpr Command kCommands[] = {
    {"sample", "Makes up a life-like firm and an Outlook store to try things out on, the same for the same options.",
     "sample demo --companies 100 --province QC", declareSample, true},
    {"new-firm", "Makes the database of a firm without clients.",
     "new-firm firm.db --name \"Whitfield & Associates\" --province BC", declareNewFirm, true},
    {"new-outlook", "Makes an empty Outlook store with the default folders.", "new-outlook outlook.db", declareNewOutlook, true},
};

}  // namespace

std::span<const Command> fileCommands() {
    return kCommands;
}

}  // namespace wmoutlook

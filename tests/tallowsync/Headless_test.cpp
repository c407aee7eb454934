#include "adapters/headless/BarProgressDialog.h"
#include "adapters/headless/ConsoleErrorService.h"
#include "adapters/headless/DiskFiles.h"
#include "adapters/headless/FirmLocale.h"
#include "adapters/headless/Machine.h"
#include "adapters/headless/WorkingFolders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace wmoutlook::testing {
namespace {

namespace fs = std::filesystem;

TEST(DiskFiles, RetiredFilesNeverReplaceOneAnother) {
    TemporaryWorkingFolder folder;
    DiskFiles files;
    const std::string legacy = folder.workingFolderPath() + "/legacy.mdb";
    for (const char* content : {"first", "second", "third"}) {
        std::ofstream{legacy} << content;
        const std::string aside = files.retireFile(legacy);
        EXPECT_FALSE(fs::exists(legacy));
        std::string kept;
        std::ifstream{aside} >> kept;
        EXPECT_EQ(kept, content);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator{folder.workingFolderPath()}, {}), 3);
    EXPECT_EQ(files.retireFile(legacy), "");
}

TEST(DiskFiles, FolderHasOneSuffixHoweverItIsSpelled) {
    TemporaryWorkingFolder folder;
    DiskFiles files;
    const std::string path = folder.workingFolderPath();
    ASSERT_TRUE(files.makeFolder(path + "/below"));
    const std::string suffix = files.suffixForFolder(path);
    for (const std::string& other : {path + "/", path + "//", path + "/below/..", path + "/./", path + "\\below\\.."})
        EXPECT_EQ(files.suffixForFolder(other), suffix) << other;
    fs::create_directory_symlink(path, path + "/link");
    EXPECT_EQ(files.suffixForFolder(path + "/link"), suffix);
    EXPECT_NE(files.suffixForFolder(path + "/below"), suffix);
    EXPECT_EQ(files.suffixForFolder("/no/such/folder"), "f08651b22016087b");  // the same from run to run and year to year
}

TEST(DiskFiles, NormalizedFolderEndsInOneSlash) {
    DiskFiles files;
    EXPECT_EQ(files.normalizeFolder(""), "");
    EXPECT_EQ(files.normalizeFolder("/"), "/");
    EXPECT_EQ(files.normalizeFolder("C:\\Data\\Work\\\\"), "C:/Data/Work/");
}

TEST(DiskFiles, CopyNeverReplaces) {
    TemporaryWorkingFolder folder;
    DiskFiles files;
    const std::string path = folder.workingFolderPath() + "/";
    std::ofstream{path + "one"} << "1";
    std::ofstream{path + "empty"};
    EXPECT_FALSE(files.isUsableFile(path + "empty"));
    EXPECT_FALSE(files.copyFile(path + "one", path + "empty"));
    EXPECT_TRUE(files.copyFile(path + "one", path + "two"));
    EXPECT_TRUE(files.isUsableFile(path + "two"));
    EXPECT_FALSE(files.isUsableFile(path));
    EXPECT_FALSE(files.deleteFile(path)) << "a folder is no file";
}

TEST(TemporaryWorkingFolder, IsGoneWithAllThatWasInIt) {
    std::string path;
    {
        TemporaryWorkingFolder folder;
        path = folder.workingFolderPath();
        std::ofstream{path + "/settings"} << "x";
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(SeededRandom, GivesTheSameNumbersOnEveryMachine) {
    SeededRandom random{5489};
    double number = 0;
    for (int i = 0; i < 10000; ++i) number = random.next();
    // The language's standard states the 10,000th number of this engine and seed.
    EXPECT_DOUBLE_EQ(number, static_cast<double>(9981545732273789042U >> 11U) / 9007199254740992.0);
}

/// A dialog whose run takes `steps` steps of 400 milliseconds each.
std::string drawnBy(bool isTerminal, bool mayColour, int steps, std::int32_t maximum) {
    std::ostringstream stream;
    std::chrono::steady_clock::time_point moment;
    const auto record = std::make_shared<ProgressRecord>();
    BarProgressDialog dialog{{&stream, isTerminal, mayColour, [&] { return moment; }}, record};
    const auto subscription = dialog.StartProgress.subscribe([&] {
        for (int i = 0; i < steps; ++i) {
            moment += std::chrono::milliseconds{400};
            dialog.setValue(dialog.value() + 1);
        }
        dialog.close();
    });
    dialog.setMaximum(maximum);
    dialog.setMessage("Synchronizing \x1b]0;evil\x07\xC2\x9B");
    dialog.show(true);
    EXPECT_EQ(record->value, steps);
    EXPECT_EQ(record->messages.size(), 1U);
    return stream.str();
}

TEST(BarProgressDialog, ShowsABarOnATerminalAfterASecond) {
    EXPECT_EQ(drawnBy(true, false, 2, 10), "");
    EXPECT_EQ(drawnBy(false, false, 20, 10), "");
    const std::string plain = drawnBy(true, false, 3, 6);
    EXPECT_EQ(plain, "\r\x1b[K[###############...............] 3 Synchronizing  ]0;evil  \r\x1b[K");
    EXPECT_NE(drawnBy(true, true, 3, 6).find("\x1b[32m"), std::string::npos);
}

TEST(BarProgressDialog, IsFullAboveItsMaximum) {
    for (const std::int32_t maximum : {0, 1})
        EXPECT_NE(drawnBy(true, false, 4, maximum).find("[##############################] 4"), std::string::npos) << maximum;
}

TEST(ConsoleErrorService, GivesUpRetryingOnlyWhenNothingHappensInBetween) {
    const auto end = std::make_shared<ProgramEnd>();
    int shown = 0;
    ConsoleErrorService service{ErrorPolicy::retry, end, [&](const ErrorReport&) { ++shown; }};
    for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(service.reportError({"tag", 1, "locked"}), ErrorAnswer::tryAgain);
        service.enterFunction("next");
    }
    EXPECT_FALSE(end->isDecided());
    for (int i = 0; i < ConsoleErrorService::kMostRetries; ++i) static_cast<void>(service.reportError({"tag", 1, "locked"}));
    EXPECT_TRUE(end->isDecided());
    EXPECT_EQ(shown, 1);
    EXPECT_THROW(end->unwindIfDecided(), HostUnwind);
}

TEST(FirmLocale, ReadsPlacesAsPeopleWriteThem) {
    struct Case {
        std::string text;
        std::optional<std::int32_t> number;
    };
    for (const Case& c :
         {Case{"QC", province::kQuebec}, Case{"Québec", province::kQuebec}, Case{" p.e.i.", province::kPrinceEdwardIsland},
          Case{"Newfoundland and Labrador", province::kNewfoundland}, Case{"NY", std::nullopt}, Case{"", std::nullopt}})
        EXPECT_EQ(provinceFromText(c.text), c.number) << c.text;
    for (const Case& c : {Case{"CANADA", country::kCanada}, Case{"U.S.A.", country::kUnitedStates},
                          Case{"États-Unis", country::kUnitedStates}, Case{"France", std::nullopt}})
        EXPECT_EQ(countryFromText(c.text), c.number) << c.text;
}

}  // namespace
}  // namespace wmoutlook::testing

// How often a second one key is read from a settings file, and one written and saved safely, beside two libraries that do the same.
// See docs/performance.md and scripts/bench.sh.

#include "adapters/headless/PrivateProfileFile.h"
#include "bench/settings/SimpleIniSide.h"

#include <glib.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace wmoutlook::bench {

namespace {

constexpr double kLeastReads = 5;   // times as often as SimpleIni
constexpr double kLeastWrites = 1;  // times as often as GKeyFile
constexpr int kRounds = 5;
constexpr double kSecondsAtLeast = 0.15;  // of one measurement
constexpr int kLinesOfSection = 20;

const std::string kKey = "Key7";

/// A file of so many lines, sections of 20 each; what is looked up stands in its middle.
struct SettingsFile {
    std::string path;
    std::string section;

    SettingsFile(const std::string& folder, int lines) : path{folder + "/settings-" + std::to_string(lines) + ".ini"} {
        std::ofstream file{path, std::ios::binary};
        const int sections = lines / kLinesOfSection;
        for (int i = 0; i < sections; ++i) {
            file << "[Section" << i << "]\r\n";
            for (int key = 1; key < kLinesOfSection; ++key) file << "Key" << key << "=value " << i << " of key " << key << "\r\n";
        }
        section = "Section" + std::to_string(sections / 2);
    }
};

void require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error{what};
}

double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// How often a second the work is done.
double rateOf(const std::function<void()>& work) {
    for (long count = 1;; count *= 4) {
        const double start = processorSeconds();
        for (long i = 0; i < count; ++i) work();
        const double seconds = processorSeconds() - start;
        if (seconds >= kSecondsAtLeast) return static_cast<double>(count) / seconds;
    }
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return (values[(values.size() - 1) / 2] + values[values.size() / 2]) / 2;
}

std::string readOwn(PrivateProfileFile& profile, const SettingsFile& file) {
    return profile.readKey(file.section, kKey, "", 255, file.path).text;
}

/// GLib writes the file beside, brings it to the disk and renames it.
void writeWithGlib(const SettingsFile& file, const std::string& value) {
    GKeyFile* const keys = g_key_file_new();
    require(g_key_file_load_from_file(keys, file.path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr) != FALSE,
            "GKeyFile cannot load");
    g_key_file_set_string(keys, file.section.c_str(), kKey.c_str(), value.c_str());
    require(g_key_file_save_to_file(keys, file.path.c_str(), nullptr) != FALSE, "GKeyFile cannot save");
    g_key_file_free(keys);
}

/// One line of the table; whether its bound is kept.
bool report(int lines, const char* what, const char* other, double bound, const std::function<void()>& own,
            const std::function<void()>& theirs) {
    std::vector<double> ownRates, otherRates, ratios;
    for (int round = 0; round < kRounds; ++round) {
        ownRates.push_back(rateOf(own));
        otherRates.push_back(rateOf(theirs));
        ratios.push_back(ownRates.back() / otherRates.back());
    }
    std::printf("| %6d | %-26s | %9.0f | %-9s | %9.0f | %6.1f |\n", lines, what, median(ownRates), other, median(otherRates),
                median(ratios));
    std::fflush(stdout);
    const bool isKept = median(ratios) >= bound;
    if (!isKept) std::fprintf(stderr, "settings_bench: %d lines, %s: %.2f times %s.\n", lines, what, median(ratios), other);
    return isKept;
}

bool measure(const std::string& folder, int lines) {
    const SettingsFile own{folder, lines};
    std::filesystem::create_directory(folder + "/other");
    const SettingsFile other{folder + "/other", lines};
    PrivateProfileFile profile;
    require(!readOwn(profile, own).empty() && readOwn(profile, own) == readWithSimpleIni(other.path, other.section, kKey),
            "the two do not read the same");
    const bool isReadKept = report(
        lines, "one key read", "SimpleIni", kLeastReads, [&] { static_cast<void>(readOwn(profile, own)); },
        [&] { static_cast<void>(readWithSimpleIni(other.path, other.section, kKey)); });
    int value = 0;
    const bool isWriteKept = report(
        lines, "one key written and saved", "GKeyFile", kLeastWrites,
        [&] { profile.write(own.section, kKey, "new " + std::to_string(++value), own.path); },
        [&] { writeWithGlib(other, "new " + std::to_string(++value)); });
    profile.write(own.section, kKey, "last", own.path);
    writeWithGlib(other, "last");
    require(readOwn(profile, own) == "last" && readOwn(profile, other) == "last", "what was written is not there");
    return isReadKept && isWriteKept;
}

int run() {
    const std::string folder = "/dev/shm/settings-bench-" + std::to_string(static_cast<long>(std::time(nullptr)));
    std::filesystem::create_directory(folder);
    std::printf("| lines | what | own, a second | beside | a second | ratio |\n|---:|---|---:|---|---:|---:|\n");
    bool isKept = true;
    for (const int lines : {200, 20000}) isKept = measure(folder, lines) && isKept;
    std::filesystem::remove_all(folder);
    return isKept ? 0 : 1;
}

}  // namespace

}  // namespace wmoutlook::bench

int main() {
    try {
        return wmoutlook::bench::run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "settings_bench: %s\n", error.what());
        return 1;
    }
}

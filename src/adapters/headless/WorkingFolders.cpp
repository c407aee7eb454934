#include "adapters/headless/WorkingFolders.h"

#include <random>
#include <system_error>

namespace wmoutlook {

namespace {

namespace fs = std::filesystem;

constexpr int kMostAttempts = 100;

/// The name cannot be guessed, and a folder that is there already is never taken over.
fs::path makeFolderOfItsOwn() {
    std::random_device random;
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        const fs::path folder = fs::temp_directory_path() / ("tallowsync-" + std::to_string(random()) + std::to_string(random()));
        if (!fs::create_directory(folder)) continue;
        fs::permissions(folder, fs::perms::owner_all);
        return folder;
    }
    throw fs::filesystem_error{"No folder for temporary files can be made", fs::temp_directory_path(),
                               std::make_error_code(std::errc::file_exists)};
}

}  // namespace

TemporaryWorkingFolder::~TemporaryWorkingFolder() {
    std::error_code ignored;  // what is left behind lies in the folder that the machine clears
    if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

std::string TemporaryWorkingFolder::workingFolderPath() {
    if (folder_.empty()) folder_ = makeFolderOfItsOwn();
    const std::u8string path = folder_.generic_u8string();
    return {path.begin(), path.end()};
}

}  // namespace wmoutlook

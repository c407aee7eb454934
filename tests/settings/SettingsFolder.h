#pragma once

#include "adapters/headless/PrivateProfileFile.h"
#include "adapters/headless/WorkingFolders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace wmoutlook::testing {

/// A folder with one settings file in it, or none.
class SettingsFolder : public ::testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) { return folder.workingFolderPath() + "/" + name; }

    void put(const std::string& bytes) { std::ofstream{file, std::ios::binary} << bytes; }

    [[nodiscard]] std::string bytes() const {
        std::ostringstream content;
        content << std::ifstream{file, std::ios::binary}.rdbuf();
        return content.str();
    }

    [[nodiscard]] std::ptrdiff_t filesInFolder() {
        return std::distance(std::filesystem::directory_iterator{folder.workingFolderPath()},
                             std::filesystem::directory_iterator{});
    }

    TemporaryWorkingFolder folder;
    std::string file = path("settings.ini");
    PrivateProfileFile profile;
};

}  // namespace wmoutlook::testing

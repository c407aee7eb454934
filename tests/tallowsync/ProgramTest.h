#pragma once

#include "adapters/headless/WorkingFolders.h"
#include "apps/tallowsync/Json.h"
#include "apps/tallowsync/Program.h"
#include "tests/support/RawDatabase.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace wmoutlook::testing {

/// The program in a folder of its own, with a small firm in firm.db and an Outlook store in outlook.db.
class ProgramTest : public ::testing::Test {
protected:
    struct Result {
        int status = 0;
        std::string out;
        std::string err;
        [[nodiscard]] Json json() const { return Json::parse(out); }
    };

    void SetUp() override { ASSERT_EQ(run({"sample", folder.workingFolderPath(), "--companies", "4"}).err, ""); }

    [[nodiscard]] std::string file(const std::string& name) { return folder.workingFolderPath() + "/" + name; }

    static Result run(
        std::vector<std::string> arguments, const std::string& input = {}, StopSignal stopSignal = [] { return 0; }) {
        std::istringstream in{input};
        std::ostringstream out, err;
        Console console{in, out, err, false, false, std::move(stopSignal)};
        const int status = runTallowsync(std::move(arguments), console);
        return {status, out.str(), err.str()};
    }

    /// To Outlook at a fixed time.
    Result sync(const std::vector<std::string>& more = {}, const std::string& objects = "contacts") {
        std::vector<std::string> all{"sync",  "--firm",      file("firm.db"), "--outlook", file("outlook.db"),   "--objects",
                                     objects, "--direction", "to-outlook",    "--now",     "2026-11-22T09:00:00"};
        all.insert(all.end(), more.begin(), more.end());
        return run(all);
    }

    Result outlook(std::vector<std::string> more, const std::string& input = {}) {
        more.insert(more.begin(), {"outlook", file("outlook.db")});
        return run(more, input);
    }

    /// Everything that lies in the files, the log of the firm's included.
    [[nodiscard]] std::map<std::string, std::string> bytes() {
        std::map<std::string, std::string> contents;
        for (const auto& entry : std::filesystem::directory_iterator(folder.workingFolderPath())) {
            const bool isEmptyLog = entry.path().extension() == ".db-wal" && entry.file_size() == 0;
            if (isEmptyLog || entry.path().extension() == ".db-shm") continue;  // no data
            std::ostringstream content;
            content << std::ifstream{entry.path(), std::ios::binary}.rdbuf();
            contents[entry.path().filename().string()] = content.str();
        }
        return contents;
    }

    TemporaryWorkingFolder folder;
};

}  // namespace wmoutlook::testing

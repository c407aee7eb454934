#pragma once

#include "adapters/outlookstore/OutlookStore.h"
#include "platform/Errors.h"
#include "platform/outlook/PropertyNames.h"

#include <gtest/gtest.h>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook::testing {

/// A folder of its own for each test, gone at its end.
class TestFolder {
public:
    TestFolder() {
        const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string{test->test_suite_name()} + "-" + test->name() + "-" +
                           std::to_string(::testing::UnitTest::GetInstance()->random_seed());
        for (char& c : name)
            if (c == '/') c = '_';
        path_ = std::filesystem::temp_directory_path() / ("outlookstore-" + name);
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    [[nodiscard]] std::string file(std::string_view name) const { return (path_ / name).string(); }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

class SteppingClock : public Clock {
public:
    Date time = *makeDate({2026, 11, 22, 9, 0, 0});
    Date now() override { return time; }
};

class SeededRandom : public RandomSource {
public:
    explicit SeededRandom(std::uint64_t seed = 1) : state_(seed) {}
    double next() override {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return static_cast<double>(state_ >> 11) / 9007199254740992.0;
    }

private:
    std::uint64_t state_;
};

/// What the action's OutlookError says; empty when it throws none.
inline std::string messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const OutlookError& error) {
        return error.what();
    }
    return {};
}

/// An open session on a file.
struct Session {
    explicit Session(const std::string& path, const OutlookStoreOptions& options = {})
        : store(openOutlookStore(path, options)),
          application(store->getRunning()),
          nameSpace(application->getNamespace("MAPI")),
          contacts(nameSpace->getDefaultFolder(outlook::DefaultFolder::contacts)) {}

    /// The new item's identifier.
    std::string add(std::string_view fileAs) const {
        const auto item = contacts->items()->add(std::nullopt);
        item->put(outlook::property::FileAs, fileAs);
        item->save();
        return item->get(outlook::property::EntryID).toText();
    }
    [[nodiscard]] std::shared_ptr<outlook::port::Item> item(std::string_view entryID) const {
        return nameSpace->getItemFromID(entryID, contacts->storeID());
    }

    std::shared_ptr<outlook::port::Automation> store;
    std::shared_ptr<outlook::port::Application> application;
    std::shared_ptr<outlook::port::NameSpace> nameSpace;
    std::shared_ptr<outlook::port::MAPIFolder> contacts;
};

}  // namespace wmoutlook::testing

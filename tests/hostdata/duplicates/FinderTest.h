#pragma once

#include "hostdata/duplicates/Finders.h"
#include "platform/Routine.h"
#include "tests/support/FaultyDatabase.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

namespace wmoutlook::testing {

/// A finder on a firm's file through a database that can fail, and a service that hears of it.
class FinderTest : public ::testing::Test {
protected:
    TestHost host;
    Faults faults;
    std::shared_ptr<FaultyDatabase> database = std::make_shared<FaultyDatabase>(host.database, faults);

    void SetUp() override { setErrorService(host.errors); }
    void TearDown() override {
        setErrorService(nullptr);
        EXPECT_TRUE(database->openHandles.empty());
    }

    std::int32_t company(const std::string& name, const std::string& telephone = {}, const std::string& email = {}) {
        return addCompany(*host.database, {{"CompanyName", name}, {"OfficeNumber", telephone}, {"Email", email}});
    }
};

}  // namespace wmoutlook::testing

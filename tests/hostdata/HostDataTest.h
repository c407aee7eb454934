#pragma once

#include "hostdata/HostServices.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Routine.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

namespace wmoutlook::testing {

/// The shared routines over a new firm's file, with a service that hears of every failure.
class HostDataTest : public ::testing::Test {
protected:
    TestHost host;

    void SetUp() override { setServices(host.database); }

    void setServices(std::shared_ptr<HostDatabase> database) {
        setErrorService(host.errors);
        hostServices().database = std::move(database);
        hostServices().locale = host.locale;
        hostServices().clock = host.clock;
        modSettings::initializeNameDisplayType(1);
    }

    /// All rows of a query, a line each: the given fields with bars between them.
    std::vector<std::string> rows(const std::string& sql, const std::vector<std::string>& fields) {
        std::vector<std::string> lines;
        const RecordsetHandle set = host.database->openRecordset(sql, LockCode::readOnly);
        for (host.database->moveFirst(set); !host.database->isEndOfRecordset(set); host.database->moveNext(set)) {
            std::string line;
            for (const std::string& field : fields)
                line += (&field == fields.data() ? "" : "|") + host.database->getField(set, field).toText();
            lines.push_back(line);
        }
        host.database->closeRecordset(set);
        return lines;
    }
};

}  // namespace wmoutlook::testing

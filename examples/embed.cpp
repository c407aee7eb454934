// A host in one page: carries every company of a firm to Outlook. Both are files here; a real host brings its own ports.
//     example_embed build/demo/firm.db build/demo/outlook.db

#include "adapters/headless/DiskFiles.h"
#include "adapters/headless/FirmLocale.h"
#include "adapters/headless/HostRows.h"
#include "adapters/headless/Machine.h"
#include "adapters/headless/PrivateProfileFile.h"
#include "adapters/headless/WorkingFolders.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/sql/SqliteDatabase.h"
#include "component/clsOutlookSynchronization.h"

#include <iostream>

using namespace wmoutlook;

namespace {

/// Tells of each failure and goes on behind it. The answer is the host's to give: see ErrorAnswer.
class ConsoleErrors : public ErrorService {
public:
    void enterFunction(std::string_view) override {}
    void leaveFunction() override {}
    ErrorAnswer reportError(const ErrorReport& report) override {
        std::cerr << report.errorTag << ": " << report.message << '\n';
        return ErrorAnswer::goOn;
    }
};

/// What the component needs of the machine.
Platform machine(const std::string& outlookFile) {
    Platform platform;
    platform.clock = std::make_shared<SystemClock>();
    platform.random = std::make_shared<SeededRandom>(1);
    platform.messageLoop = std::make_shared<IdleMessageLoop>();
    platform.files = std::make_shared<DiskFiles>();
    platform.privateProfile = std::make_shared<PrivateProfileFile>();
    platform.programFolder = folderOfThisProgram();
    platform.outlook = openOutlookStore(outlookFile);
    platform.newWorkingFolder = [] { return std::make_shared<TemporaryWorkingFolder>(); };
    platform.newProgressDialog = [] { return nullptr; };  // this host sets showProgress to false
    return platform;
}

void carryCompanies(const std::string& firmFile, const std::string& outlookFile) {
    const auto firm = openSqliteDatabase(firmFile);
    const Platform platform = machine(outlookFile);

    clsOutlookSynchronization sync{platform};
    sync.errorClass(std::make_shared<ConsoleErrors>());
    sync.LocaleReference(std::make_shared<FirmLocale>(*firm, platform.clock, std::nullopt));
    sync.DatabaseReference(firm);
    sync.dataFileUniqueID("embedded example");

    for (HostRows rows{*firm, "SELECT Companies.CompanyID FROM Companies;"}; !rows.isAtEnd(); rows.next())
        sync.companyCollection->add({rows.field("CompanyID")});

    sync.syncObjects(outlookSyncObjectsEnum::syncContacts);
    sync.syncDirectionType(outlookSyncTypeEnum::syncFromTallowbrookToOutlook);
    sync.showProgress(false);
    if (!sync.startOutlook() || !sync.connectedToOutlook()) throw OutlookError{0, "Outlook cannot be reached"};
    sync.synchronize();
    std::cout << sync.getCompaniesCollectionRecordCount() << " companies are in Outlook.\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: example_embed FIRM OUTLOOK\n";
        return 2;
    }
    try {
        carryCompanies(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

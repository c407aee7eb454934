#pragma once

#include "component/clsOutlookSynchronization.h"
#include "platform/HostDatabase.h"
#include "tests/support/Recorders.h"

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace wmoutlook::testing {

using Fields = std::vector<std::pair<std::string, std::string>>;

/// A folder that is made when it is first used, and gone when the test is over.
class TemporaryFolder {
public:
    TemporaryFolder() = default;
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string file(const std::string& name) const;

private:
    mutable std::filesystem::path path_;
};

struct Link {
    std::string dataFileID, storeID, companyNum, contactNum, outlookID, dateLastSync;

    friend bool operator==(const Link&, const Link&) = default;
};

/// A firm's file and an Outlook store in a folder, both new and empty but for what every new file has.
struct FirmFiles {
    [[nodiscard]] static FirmFiles make(const TemporaryFolder& folder);
    [[nodiscard]] FirmFiles copyTo(const TemporaryFolder& folder) const;
    std::string firm;
    std::string outlook;
};

// What a test puts in and looks at, on any database with the host's tables.

/// Adds a row and gives its auto-number (0 for a table without one).
std::int32_t addRow(HostDatabase& database, const std::string& table, const std::string& key, const Fields& fields);
std::int32_t addCompany(HostDatabase& database, const Fields& fields);
std::int32_t addContact(HostDatabase& database, const Fields& fields);
void makeDefaultContact(HostDatabase& database, std::int32_t companyID, std::int32_t contactID);
std::vector<Link> linksOf(HostDatabase& database);

/// The session of the Outlook that is running, or of a new one when the run has quit it.
std::shared_ptr<outlook::port::NameSpace> nameSpaceOf(outlook::port::Automation& outlook);
/// The items of a default folder, in folder order.
std::vector<std::shared_ptr<outlook::port::Item>> itemsIn(outlook::port::Automation& outlook, outlook::DefaultFolder folder);
std::vector<std::shared_ptr<outlook::port::Item>> contactItems(outlook::port::Automation& outlook);
std::string textOf(const outlook::port::Item& item, std::string_view property);

/// A host with a small firm, an Outlook that is running, and recorders for the person. The component is made by connect().
class TestHost {
public:
    TestHost();
    explicit TestHost(FirmFiles existing);  ///< works on these files in place
    ~TestHost();

    TemporaryFolder folder;
    FirmFiles files;
    std::shared_ptr<HostDatabase> database;
    std::shared_ptr<outlook::port::Automation> outlookStore;
    std::shared_ptr<ErrorRecorder> errors = std::make_shared<ErrorRecorder>();
    std::shared_ptr<MessageRecorder> messages = std::make_shared<MessageRecorder>();
    std::shared_ptr<TestLocale> locale = std::make_shared<TestLocale>();
    std::shared_ptr<TestClock> clock = std::make_shared<TestClock>();
    std::shared_ptr<TestMessageLoop> messageLoop = std::make_shared<TestMessageLoop>();
    std::shared_ptr<TestProgressDialog> dialog;  ///< the last one shown
    Faults* faults = nullptr;                    ///< for the windows of the host

    [[nodiscard]] Platform platform();
    /// A component with all services handed over; with data file "DF" and without a progress dialog.
    [[nodiscard]] std::unique_ptr<clsOutlookSynchronization> component(std::shared_ptr<HostDatabase> hostDatabase = nullptr);
    static void select(clsOutlookSynchronization& component, std::initializer_list<std::int32_t> companies,
                       std::initializer_list<std::pair<std::int32_t, std::int32_t>> contactsWithCompany);

private:
    void open();
};

}  // namespace wmoutlook::testing

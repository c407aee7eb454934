#include "tests/support/TestFirm.h"

#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/sql/SqliteDatabase.h"
#include "hostdata/HostServices.h"
#include "platform/Errors.h"

#include <cstdlib>

namespace wmoutlook::testing {

namespace {

/// New files once per process; every test gets a copy.
const FirmFiles& templateFiles() {
    static const TemporaryFolder folder;
    static const FirmFiles files = FirmFiles::make(folder);
    return files;
}

}  // namespace

std::string TemporaryFolder::file(const std::string& name) const {
    if (path_.empty()) {
        const std::filesystem::path base =
            std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
        std::string pattern = (base / "wmoutlook-test-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    return (path_ / name).string();
}

TemporaryFolder::~TemporaryFolder() {
    if (path_.empty()) return;
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

FirmFiles FirmFiles::make(const TemporaryFolder& folder) {
    const FirmFiles files{folder.file("firm.db"), folder.file("outlook.db")};
    createSqliteDatabase(files.firm);
    TestRandom random;
    createOutlookStore(files.outlook, random);
    return files;
}

FirmFiles FirmFiles::copyTo(const TemporaryFolder& folder) const {
    const FirmFiles copies{folder.file("firm.db"), folder.file("outlook.db")};
    std::filesystem::copy_file(firm, copies.firm);
    std::filesystem::copy_file(outlook, copies.outlook);
    return copies;
}

std::int32_t addRow(HostDatabase& database, const std::string& table, const std::string& key, const Fields& fields) {
    const RecordsetHandle rows = database.openRecordset("SELECT " + table + ".* FROM " + table + ";", LockCode::updatable);
    database.addNewRecord(rows);
    for (const auto& [field, value] : fields) database.setNewField(rows, field, value);
    const std::int32_t id = key.empty() ? 0 : database.getField(rows, key).toInteger();
    database.saveNewRecord(rows);
    database.closeRecordset(rows);
    return id;
}

std::int32_t addCompany(HostDatabase& database, const Fields& fields) {
    return addRow(database, "Companies", "CompanyID", fields);
}

std::int32_t addContact(HostDatabase& database, const Fields& fields) {
    return addRow(database, "Contacts", "ContactID", fields);
}

void makeDefaultContact(HostDatabase& database, std::int32_t companyID, std::int32_t contactID) {
    addRow(database, "ContactLinks", "",
           {{"CompanyNum", toText(companyID)}, {"ContactIDNum", toText(contactID)}, {"DefaultContact", "True"}});
}

std::vector<Link> linksOf(HostDatabase& database) {
    std::vector<Link> links;
    const RecordsetHandle rows = database.openRecordset("SELECT OutlookSync.* FROM OutlookSync;", LockCode::readOnly);
    const auto text = [&](const char* field) { return database.getField(rows, field).toText(); };
    for (database.moveFirst(rows); !database.isEndOfRecordset(rows); database.moveNext(rows))
        links.push_back({text("DataFileID"), text("FolderStoreID"), text("CompanyNum"), text("ContactNum"), text("OutlookID"),
                         text("DateLastSync")});
    database.closeRecordset(rows);
    return links;
}

std::shared_ptr<outlook::port::NameSpace> nameSpaceOf(outlook::port::Automation& outlook) {
    try {
        return outlook.getRunning()->getNamespace("MAPI");
    } catch (const OutlookError&) {
        return outlook.createNew()->getNamespace("MAPI");
    }
}

std::vector<std::shared_ptr<outlook::port::Item>> itemsIn(outlook::port::Automation& outlook, outlook::DefaultFolder folder) {
    std::vector<std::shared_ptr<outlook::port::Item>> items;
    const auto all = nameSpaceOf(outlook)->getDefaultFolder(folder)->items();
    for (auto item = all->getFirst(); item; item = all->getNext()) items.push_back(item);
    return items;
}

std::vector<std::shared_ptr<outlook::port::Item>> contactItems(outlook::port::Automation& outlook) {
    return itemsIn(outlook, outlook::DefaultFolder::contacts);
}

std::string textOf(const outlook::port::Item& item, std::string_view property) {
    return item.get(property).toText();
}

TestHost::TestHost() : files(templateFiles().copyTo(folder)) {
    open();
}

TestHost::TestHost(FirmFiles existing) : files(std::move(existing)) {
    open();
}

void TestHost::open() {
    database = openSqliteDatabase(files.firm);
    OutlookStoreOptions options;
    options.clock = clock;
    outlookStore = openOutlookStore(files.outlook, options);
}

TestHost::~TestHost() {
    setErrorService(nullptr);  // services are module-wide: the next test starts without any
    hostServices() = {};
}

Platform TestHost::platform() {
    Platform platform;
    platform.clock = clock;
    platform.random = std::make_shared<TestRandom>();
    platform.messageLoop = messageLoop;
    platform.files = std::make_shared<TestFiles>();
    platform.privateProfile = std::make_shared<TestProfile>();
    platform.outlook = outlookStore;
    platform.newWorkingFolder = [] { return std::make_shared<TestWorkingFolder>(); };
    platform.newProgressDialog = [this] { return dialog = std::make_shared<TestProgressDialog>(faults); };
    return platform;
}

std::unique_ptr<clsOutlookSynchronization> TestHost::component(std::shared_ptr<HostDatabase> hostDatabase) {
    auto component = std::make_unique<clsOutlookSynchronization>(platform());
    component->errorClass(errors);
    component->MsgboxClass(messages);
    component->LocaleReference(locale);
    component->WorkingFolderReference(std::make_shared<TestWorkingFolder>());
    component->DatabaseReference(hostDatabase ? hostDatabase : database);
    component->dataFileUniqueID("DF");
    component->showProgress(false);
    return component;
}

void TestHost::select(clsOutlookSynchronization& component, std::initializer_list<std::int32_t> companies,
                      std::initializer_list<std::pair<std::int32_t, std::int32_t>> contactsWithCompany) {
    for (const std::int32_t company : companies) component.companyCollection->add({toText(company)});
    for (const auto& [contact, company] : contactsWithCompany)
        component.contactCollection->add({company < 0 ? Variant{} : Variant{toText(company)}, toText(contact)});
}

}  // namespace wmoutlook::testing

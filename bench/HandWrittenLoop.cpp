#include "bench/HandWrittenLoop.h"

#include "platform/Text.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <stdexcept>
#include <unordered_set>

namespace wmoutlook::bench {

namespace {

constexpr std::string_view kCategory = "Business";
constexpr double kFirstBirthday = -5112;     // 1 January 1886
constexpr double kBehindBirthdays = 401769;  // 1 January 3000

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n\v\f") == std::string_view::npos;
}

sqlite3* open(const std::string& path, const char* pragmas) {
    sqlite3* database = nullptr;
    if (sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK ||
        sqlite3_exec(database, pragmas, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error{path + " cannot be opened"};
    return database;
}

/// Columns of the statements, in their order.
enum CompanyColumn : int {
    CompanyID,
    CompanyName,
    Address,
    City,
    Province,
    PostalCode,
    Country,
    OfficeNumber,
    FaxNumber,
    Email,
    WebSite
};

struct TextColumn {
    std::string_view column;
    Code code;
};

constexpr std::array kContactTexts{
    TextColumn{"NamePrefix", Code::Title},
    TextColumn{"FirstName", Code::FirstName},
    TextColumn{"MiddleName", Code::MiddleName},
    TextColumn{"LastName", Code::LastName},
    TextColumn{"NameSuffix", Code::Suffix},
    TextColumn{"DisplayName", Code::FullName},
    TextColumn{"HomePhone_Main", Code::HomeTelephoneNumber},
    TextColumn{"HomePhone_Cell", Code::MobileTelephoneNumber},
    TextColumn{"HomePhone_Pager", Code::PagerNumber},
    TextColumn{"HomePhone_Fax", Code::HomeFaxNumber},
    TextColumn{"HomeAddress", Code::HomeAddressStreet},
    TextColumn{"HomeCity", Code::HomeAddressCity},
    TextColumn{"HomeProvince", Code::HomeAddressState},
    TextColumn{"HomePostalCode", Code::HomeAddressPostalCode},
    TextColumn{"HomeCountry", Code::HomeAddressCountry},
    TextColumn{"PersonalWebSite", Code::PersonalHomePage},
    TextColumn{"SpouseName", Code::Spouse},
    TextColumn{"Children", Code::Children},
    TextColumn{"BusinessJobTitle", Code::JobTitle},
    TextColumn{"BusinessDepartment", Code::Department},
    TextColumn{"BusinessOffice", Code::OfficeLocation},
    TextColumn{"BusinessPhone_Cell", Code::Business2TelephoneNumber},
};
constexpr std::array kWhereCompanyIsBlank{
    TextColumn{"BusinessPhone_Main", Code::BusinessTelephoneNumber},
    TextColumn{"BusinessPhone_Fax", Code::BusinessFaxNumber},
    TextColumn{"BusinessWebSite", Code::WebPage},
};
constexpr int kWhereBlankAt = kContactTexts.size();
constexpr int kOthersAt = kWhereBlankAt + int{kWhereCompanyIsBlank.size()};
enum OtherColumn : int { BusinessEmail = kOthersAt, PersonalEmail, Gender, Birthday, Anniversary };

std::string defaultContactText() {
    std::string columns;
    for (const TextColumn& column : kContactTexts) columns.append("c.").append(column.column).append(", ");
    for (const TextColumn& column : kWhereCompanyIsBlank) columns.append("c.").append(column.column).append(", ");
    return "SELECT " + columns +
           "c.BusinessEmail, c.PersonalEmail, c.Gender, c.Birthday, c.Anniversary FROM ContactLinks AS l JOIN Contacts AS c ON "
           "c.ContactID = l.ContactIDNum WHERE l.CompanyNum = ?1 AND l.DefaultContact = 1 ORDER BY l._rowid_ LIMIT 1";
}

}  // namespace

struct HandWrittenLoop::Connections {
    sqlite3* firm;
    sqlite3* outlook;

    explicit Connections(const Files& files)
        : firm(open(files.firm,
                    "PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 4000; PRAGMA cache_size = -16384; "
                    "PRAGMA temp_store = MEMORY; PRAGMA journal_mode = WAL")),
          outlook(open(files.outlook,
                       "PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 4000; PRAGMA cache_size = -16000; "
                       "PRAGMA cell_size_check = ON")) {}
    ~Connections() {
        sqlite3_close(firm);
        sqlite3_close(outlook);
    }
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;
};

struct HandWrittenLoop::Statements {
    explicit Statements(const Connections& on)
        : nextCompany(
              on.firm,
              "SELECT CompanyID, CompanyName, Address, City, Province, PostalCode, Country, OfficeNumber, FaxNumber, Email, "
              "WebSite FROM Companies WHERE CompanyID > ?1 ORDER BY CompanyID LIMIT 1"),
          defaultContact(on.firm, defaultContactText()),
          link(on.firm,
               "SELECT _rowid_, OutlookID, DateLastSync FROM OutlookSync WHERE CompanyNum = ?1 AND DataFileID = ?2 AND "
               "FolderStoreID = ?3 ORDER BY _rowid_ LIMIT 1"),
          insertLink(
              on.firm,
              "INSERT INTO OutlookSync (DataFileID, CompanyNum, OutlookID, FolderStoreID, DateLastSync) VALUES (?1, ?2, ?3, "
              "?4, ?5)"),
          updateLink(on.firm, "UPDATE OutlookSync SET OutlookID = ?2, DateLastSync = ?3 WHERE _rowid_ = ?1"),
          findByName(on.outlook,
                     "SELECT ItemNumber FROM Items WHERE FolderNumber = ?1 AND FileAsKey = ?2 ORDER BY ItemNumber LIMIT 1"),
          item(on.outlook, "SELECT Properties FROM Items WHERE ItemNumber = ?1"),
          insertItem(
              on.outlook,
              "INSERT INTO Items (ItemNumber, FolderNumber, ItemType, Version, Created, Modified, Properties, FileAsKey, "
              "FullNameKey, Email1AddressKey) VALUES (1 + max(ifnull((SELECT max(ItemNumber) FROM Items), 0), (SELECT Value "
              "FROM Counters WHERE Name = 'HighestDeletedItem')), ?1, 2, 1, ?2, ?2, ?3, ?4, ?5, ?6)"),
          updateItem(on.outlook, "UPDATE Items SET Version = Version + 1, Modified = ?2, Properties = ?3 WHERE ItemNumber = ?1"),
          updateItemAndKeys(
              on.outlook,
              "UPDATE Items SET Version = Version + 1, Modified = ?2, Properties = ?3, FileAsKey = ?4, FullNameKey = "
              "?5, Email1AddressKey = ?6 WHERE ItemNumber = ?1") {}

    Prepared nextCompany, defaultContact, link, insertLink, updateLink;
    Prepared findByName, item, insertItem, updateItem, updateItemAndKeys;
};

HandWrittenLoop::HandWrittenLoop(const Files& files, std::int32_t companies)
    : connections_(std::make_unique<Connections>(files)), statements_(std::make_unique<Statements>(*connections_)) {
    for (std::int32_t id = 1; id <= companies; ++id) selection_.push_back(id);
    Prepared folder{connections_->outlook,
                    "SELECT f.FolderNumber, s.StoreKey FROM Folders AS f JOIN Stores AS s USING (StoreNumber) WHERE f.Role = 10 "
                    "ORDER BY s.StoreNumber LIMIT 1"};
    if (!folder.step()) throw std::runtime_error{"The store has no folder for contacts"};
    folder_ = folder.integer(0);
    storeKey_ = folder.text(1);
    storeID_ = "00000000" + storeKey_;
}

HandWrittenLoop::~HandWrittenLoop() = default;

Cost HandWrittenLoop::run() {
    const double begin = processorSeconds();
    std::int64_t preparedByFirst = 0;
    const std::unordered_set<std::int32_t> selected(selection_.begin(), selection_.end());
    std::size_t carried = 0;
    Prepared& company = statements_->nextCompany;
    for (std::int64_t last = 0; company.bind(1, last).step(); company.reset()) {
        last = company.integer(CompanyID);
        const auto companyID = static_cast<std::int32_t>(last);
        if (!selected.contains(companyID)) continue;
        carryCompany(companyID);
        if (++carried == 1) preparedByFirst = preparedStatements();
    }
    company.reset();
    const double end = processorSeconds();
    if (carried != selection_.size()) throw std::runtime_error{"The loop did not walk all companies"};
    return {end - begin, preparedStatements() - preparedByFirst};
}

void HandWrittenLoop::carryCompany(std::int32_t companyID) {
    const Link link = findLink(companyID);
    std::int64_t number = link.item;
    if (link.row == 0) number = findItemFiledUnder(statements_->nextCompany.text(CompanyName));
    const bool isThere = number != 0 && loadItem(number);
    if (!isThere) item_.clear();
    fillItem(companyID);
    if (isThere)
        updateItem(number);
    else
        number = insertItem();
    // No cursor stays open over a write to its own file: the log could not begin anew.
    statements_->defaultContact.reset();
    statements_->nextCompany.reset();
    saveLink(companyID, link, number);
}

HandWrittenLoop::Link HandWrittenLoop::findLink(std::int32_t companyID) {
    Prepared& statement = statements_->link;
    Link link;
    if (statement.bind(1, std::int64_t{companyID}).bind(2, kDataFileID).bind(3, storeID_).step()) {
        link.row = statement.integer(0);
        const std::string_view id = statement.text(1);
        if (id.size() == 56 && id.substr(8, 32) == storeKey_)
            std::from_chars(id.data() + 42, id.data() + id.size(), link.item, 16);
        link.isCurrent = statement.real(2) == kToday.days;
    }
    statement.reset();
    return link;
}

std::int64_t HandWrittenLoop::findItemFiledUnder(std::string_view name) {
    key_ = lowerCase(name);
    Prepared& statement = statements_->findByName;
    const std::int64_t number = statement.bind(1, folder_).bind(2, key_).step() ? statement.integer(0) : 0;
    statement.reset();
    return number;
}

/// The item's values are views of the row until the statement is reset.
bool HandWrittenLoop::loadItem(std::int64_t number) {
    Prepared& statement = statements_->item;
    if (statement.bind(1, number).step()) {
        item_.read(statement.blob(0));
        return true;
    }
    statement.reset();
    return false;
}

void HandWrittenLoop::fillItem(std::int32_t companyID) {
    const Prepared& company = statements_->nextCompany;
    const std::string_view oldFileAs = item_.text(Code::FileAs);
    const std::string_view oldFullName = item_.text(Code::FullName);
    const std::string_view oldEmail = item_.text(Code::Email1Address);

    item_.stamp(kToday);
    item_.putText(Code::CompanyName, company.text(CompanyName));
    item_.putText(Code::Categories, kCategory);
    item_.putText(Code::BusinessAddressStreet, company.text(Address));
    item_.putText(Code::BusinessAddressCity, company.text(City));
    item_.putText(Code::BusinessAddressState, company.text(Province));
    item_.putText(Code::BusinessAddressPostalCode, company.text(PostalCode));
    item_.putText(Code::BusinessAddressCountry, company.text(Country));
    item_.putText(Code::BusinessTelephoneNumber, company.text(OfficeNumber));
    item_.putText(Code::BusinessFaxNumber, company.text(FaxNumber));
    item_.putText(Code::WebPage, company.text(WebSite));
    if (statements_->defaultContact.bind(1, std::int64_t{companyID}).step()) fillFromContact(company.text(Email));
    item_.putText(Code::FileAs, company.text(CompanyName));

    keysChanged_ = oldFileAs != item_.text(Code::FileAs) || oldFullName != item_.text(Code::FullName) ||
                   oldEmail != item_.text(Code::Email1Address);
}

void HandWrittenLoop::fillFromContact(std::string_view companyEmail) {
    const Prepared& contact = statements_->defaultContact;
    for (int i = 0; i < kWhereBlankAt; ++i) item_.putText(kContactTexts[static_cast<std::size_t>(i)].code, contact.text(i));
    for (int i = kWhereBlankAt; i < kOthersAt; ++i) {
        const Code code = kWhereCompanyIsBlank[static_cast<std::size_t>(i - kWhereBlankAt)].code;
        if (isBlank(item_.text(code))) item_.putText(code, contact.text(i));
    }

    std::string_view first = companyEmail;
    std::string_view second = contact.text(BusinessEmail);
    const std::string_view third = contact.text(PersonalEmail);
    if (isBlank(first)) first = !isBlank(second) ? second : (!isBlank(third) ? third : first);
    if (isBlank(second) && !isBlank(third)) second = third;
    if (!isBlank(first) && isBlank(second) && isBlank(third)) second = first;
    item_.putText(Code::Email1Address, first);
    item_.putText(Code::Email2Address, second);
    item_.putText(Code::Email3Address, third);

    key_ = upperCase(contact.text(Gender));
    item_.putInteger(Code::Gender, key_ == "MALE" ? 2 : (key_ == "FEMALE" ? 1 : 0));
    if (!contact.isNull(Birthday)) {
        const double birthday = contact.real(Birthday);
        if (birthday >= kFirstBirthday && birthday < kBehindBirthdays) item_.putDay(Code::Birthday, birthday);
    }
    if (!contact.isNull(Anniversary)) item_.putDay(Code::Anniversary, contact.real(Anniversary));
}

void HandWrittenLoop::bindKeys(Prepared& statement, int first) {
    fileAsKey_ = lowerCase(item_.text(Code::FileAs));
    fullNameKey_ = lowerCase(item_.text(Code::FullName));
    emailKey_ = lowerCase(item_.text(Code::Email1Address));
    statement.bind(first, fileAsKey_).bind(first + 1, fullNameKey_).bind(first + 2, emailKey_);
}

std::int64_t HandWrittenLoop::insertItem() {
    item_.write(bytes_);
    Prepared& statement = statements_->insertItem;
    statement.bind(1, folder_).bind(2, kToday.days).bindBlob(3, bytes_);
    bindKeys(statement, 4);
    statement.run();
    return sqlite3_last_insert_rowid(connections_->outlook);
}

void HandWrittenLoop::updateItem(std::int64_t number) {
    item_.write(bytes_);
    Prepared& statement = keysChanged_ ? statements_->updateItemAndKeys : statements_->updateItem;
    statement.bind(1, number).bind(2, kToday.days).bindBlob(3, bytes_);
    if (keysChanged_) bindKeys(statement, 4);
    statements_->item.reset();
    statement.run();
}

std::string_view HandWrittenLoop::entryID(std::int64_t item) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    entryID_.assign(storeID_).append("02");
    for (unsigned shift = 56; shift > 0; shift -= 4) entryID_ += kDigits[static_cast<std::uint64_t>(item) >> (shift - 4) & 0xF];
    return entryID_;
}

void HandWrittenLoop::saveLink(std::int32_t companyID, Link link, std::int64_t item) {
    if (link.row == 0)
        statements_->insertLink.bind(1, kDataFileID)
            .bind(2, std::int64_t{companyID})
            .bind(3, entryID(item))
            .bind(4, storeID_)
            .bind(5, kToday.days)
            .run();
    else if (link.item != item || !link.isCurrent)
        statements_->updateLink.bind(1, link.row).bind(2, entryID(item)).bind(3, kToday.days).run();
}

}  // namespace wmoutlook::bench

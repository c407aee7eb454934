#include "bench/BenchFirm.h"

#include "adapters/headless/Machine.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/sql/BulkInsert.h"
#include "adapters/sql/SqliteDatabase.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <vector>

namespace wmoutlook::bench {

namespace {

constexpr std::array<std::string_view, 12> kFirstNames{"Isabelle", "Robert", "Zoé",   "William",   "Geneviève", "Sandra",
                                                       "Étienne",  "Harold", "Chloé", "Christine", "Patrick",   "Ann"};
constexpr std::array<std::string_view, 16> kLastNames{"Tremblay",  "MacDonald", "Lévesque",  "Nguyen",   "Robinson", "Bélanger",
                                                      "Singh",     "O'Brien",   "Gauthier",  "Kowalski", "Thompson", "Côté",
                                                      "Fernandes", "Wong",      "Pelletier", "Hughes"};
constexpr std::array<std::string_view, 10> kTrades{"Boulangerie", "Plumbing & Heating", "Consulting Services", "Dental Clinic",
                                                   "Landscaping", "Construction",       "Auto Repair",         "Family Farms",
                                                   "Imports",     "Property Management"};
constexpr std::array<std::string_view, 6> kStreets{
    "Ste-Catherine Street West", "Lakeshore Road", "King Street East", "Avenue du Parc", "Main Street", "Boulevard Laurier"};
struct Place {
    std::string_view city, province, postalCode;
};
constexpr std::array<Place, 5> kPlaces{{{"Toronto", "Ontario", "M5V 2T6"},
                                        {"Montréal", "Québec", "H3B 1A7"},
                                        {"Mississauga", "Ontario", "L5B 3C2"},
                                        {"Halifax", "Nova Scotia", "B3J 1S9"},
                                        {"Québec", "Québec", "G1R 4P5"}}};

/// Picks that depend on the record's number and nothing else.
class Record {
public:
    explicit Record(std::int32_t number) : number_(number), state_(static_cast<std::uint64_t>(number)) {}

    std::uint64_t draw(std::uint64_t below) {  // splitmix64
        std::uint64_t bits = (state_ += 0x9E3779B97F4A7C15U);
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
        return (bits ^ (bits >> 31)) % below;
    }
    template <class Table>
    const auto& pick(const Table& table) {
        return table[draw(table.size())];
    }
    std::string phone() {
        char text[24];
        std::snprintf(text, sizeof text, "(%03d) 555-%04d", static_cast<int>(201 + draw(700)), static_cast<int>(draw(10000)));
        return text;
    }
    std::string address() { return std::to_string(1 + draw(9999)).append(" ").append(pick(kStreets)); }
    [[nodiscard]] std::string number() const { return std::to_string(number_); }

private:
    std::int32_t number_;
    std::uint64_t state_;
};

struct Named {
    std::string_view column;
    Variant value;
};

/// Inserts a row and gives its key. All rows of a table name the same columns.
class Rows {
public:
    explicit Rows(const std::string& path) : bulk_(path) {}

    std::int32_t add(std::string_view table, std::initializer_list<Named> row) {
        columns_.clear();
        values_.clear();
        for (const Named& field : row) {
            columns_.push_back(field.column);
            values_.push_back(field.value);
        }
        bulk_.into(table, columns_);
        return static_cast<std::int32_t>(bulk_.insert(values_));
    }
    void commit() { bulk_.commit(); }

private:
    BulkInsert bulk_;
    std::vector<std::string_view> columns_;
    std::vector<Variant> values_;
};

struct Person {
    std::string first, last, full, mailName;
};

Person personOf(Record& record) {
    Person person{std::string{record.pick(kFirstNames)}, std::string{record.pick(kLastNames)}, {}, {}};
    person.full = person.first + " " + person.last;
    person.mailName = "contact" + record.number();
    return person;
}

std::int32_t addCompany(Rows& rows, Record record, const Person& person) {
    const std::string name = person.last + " " + std::string{record.pick(kTrades)} + " " + record.number() + " Inc.";
    const std::string domain = "client" + record.number() + ".example";
    const Place& place = record.pick(kPlaces);
    return rows.add("Companies", {{"CompanyName", name},
                                  {"CorporateName", record.number() + " Canada Inc."},
                                  {"ClientID", "C" + record.number()},
                                  {"CompanyType", static_cast<std::int32_t>(record.draw(4))},
                                  {"IndustryType", record.pick(kTrades)},
                                  {"Address", record.address()},
                                  {"City", place.city},
                                  {"Province", place.province},
                                  {"PostalCode", place.postalCode},
                                  {"Country", "Canada"},
                                  {"OfficeNumber", record.phone()},
                                  {"FaxNumber", record.draw(3) == 0 ? Variant{} : Variant{record.phone()}},
                                  {"Email", "info@" + domain},
                                  {"WebSite", "www." + domain},
                                  {"PartnerName", "Margaret Ellison"},
                                  {"AccountantName", "Jean-François Roy"},
                                  {"DefaultContactName", person.full},
                                  {"DefaultContactEmail", person.mailName + "@" + domain}});
}

std::int32_t addContact(Rows& rows, Record record, const Person& person) {
    const std::string domain = "client" + record.number() + ".example";
    const Place& place = record.pick(kPlaces);
    const bool isMale = record.draw(2) == 0;
    const bool isMarried = record.draw(3) != 0;
    const std::string spouse = isMarried ? std::string{record.pick(kFirstNames)} : std::string{};
    const auto birthday = Date{static_cast<double>(15000 + record.draw(18000))};
    const auto wedding = Date{static_cast<double>(33000 + record.draw(12000))};
    return rows.add("Contacts", {{"DisplayName", person.full},
                                 {"ClientID", "P" + record.number()},
                                 {"NamePrefix", isMale ? "Mr." : "Ms."},
                                 {"FirstName", person.first},
                                 {"MiddleName", record.draw(2) == 0 ? Variant{} : Variant{"J."}},
                                 {"LastName", person.last},
                                 {"Gender", isMale ? "Male" : "Female"},
                                 {"Birthday", birthday},
                                 {"Anniversary", isMarried ? Variant{wedding} : Variant{}},
                                 {"SpokenLanguage", "English"},
                                 {"MaritialStatus", isMarried ? "Married" : "Single"},
                                 {"Children", record.draw(2) == 0 ? Variant{} : Variant{"Emma, Olivier"}},
                                 {"SpouseName", isMarried ? Variant{spouse + " " + person.last} : Variant{}},
                                 {"SpouseFirstName", spouse},
                                 {"BusinessName", person.last + " " + record.number() + " Inc."},
                                 {"BusinessJobTitle", "Managing Director"},
                                 {"BusinessDepartment", "Administration"},
                                 {"BusinessOffice", "Suite " + std::to_string(100 + record.draw(900))},
                                 {"BusinessAddress", record.address()},
                                 {"BusinessCity", place.city},
                                 {"BusinessProvince", place.province},
                                 {"BusinessPostalCode", place.postalCode},
                                 {"BusinessCountry", "Canada"},
                                 {"BusinessPhone_Main", record.phone()},
                                 {"BusinessPhone_Fax", record.phone()},
                                 {"BusinessPhone_Cell", record.phone()},
                                 {"BusinessEmail", person.mailName + "@" + domain},
                                 {"BusinessWebSite", "www." + domain},
                                 {"HomeAddress", record.address()},
                                 {"HomeCity", place.city},
                                 {"HomeProvince", place.province},
                                 {"HomePostalCode", place.postalCode},
                                 {"HomeCountry", "Canada"},
                                 {"HomePhone_Main", record.phone()},
                                 {"HomePhone_Fax", record.draw(4) == 0 ? Variant{record.phone()} : Variant{}},
                                 {"HomePhone_Cell", record.phone()},
                                 {"HomePhone_Pager", record.draw(20) == 0 ? Variant{record.phone()} : Variant{}},
                                 {"PersonalEmail", person.mailName + "@home.example"},
                                 {"PersonalWebSite", record.draw(5) == 0 ? Variant{"www.family.example"} : Variant{}}});
}

}  // namespace

Files Files::in(const std::string& folder, std::string_view name) {
    const std::string base = folder + "/" + std::string{name};
    return {base + "-firm.db", base + "-outlook.db"};
}

void Files::copyTo(const Files& target) const {
    target.remove();
    std::filesystem::copy_file(firm, target.firm);
    std::filesystem::copy_file(outlook, target.outlook);
}

void Files::remove() const {
    for (const std::string& path : {firm, outlook})
        for (const char* const suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path + suffix);
}

void makeFirm(const Files& files, std::int32_t companies) {
    files.remove();
    createSqliteDatabase(files.firm);
    SeededRandom random{1};
    createOutlookStore(files.outlook, random);
    Rows rows{files.firm};
    for (std::int32_t i = 1; i <= companies; ++i) {
        Record record{i};
        const Person person = personOf(record);
        const std::int32_t companyID = addCompany(rows, record, person);
        const std::int32_t contactID = addContact(rows, record, person);
        // Another person of the company, as most have: the look-up of the default contact has to choose.
        rows.add("ContactLinks",
                 {{"ContactIDNum", std::max(1, contactID - 1)}, {"CompanyNum", companyID}, {"DefaultContact", false}});
        rows.add("ContactLinks", {{"ContactIDNum", contactID}, {"CompanyNum", companyID}, {"DefaultContact", true}});
    }
    rows.commit();
}

void makeCalendar(const Files& files, std::int32_t appointments) {
    constexpr std::int32_t kCompanies = 100;
    makeFirm(files, kCompanies);
    Rows rows{files.firm};
    for (std::int32_t i = 1; i <= appointments; ++i) {
        Record record{i};
        const double hour = 1.0 / 24;
        const auto from = Date{static_cast<double>(8 + record.draw(9)) * hour};
        rows.add("Appointments",
                 {{"UserIDNum", static_cast<std::int32_t>(1 + record.draw(10))},
                  {"CompanyIDNum", i % 2 == 0 ? static_cast<std::int32_t>(1 + record.draw(kCompanies)) : kNoRecord},
                  {"ContactIDNum", kNoRecord},
                  {"DateFrom", Date{static_cast<double>(45000 + record.draw(1000))}},
                  {"TimeFrom", from},
                  {"TimeTo", Date{from.days + hour}},
                  {"Subject", std::string{record.pick(kTrades)} + " " + record.number()},
                  {"Remind", i % 4 == 0},
                  {"ReminderPeriod", "1 Hr"},
                  {"TextBody", i % 4 == 1 ? Variant{"{\\rtf1\\ansi\\b True\\par}"} : Variant{}}});
    }
    rows.commit();
}

}  // namespace wmoutlook::bench

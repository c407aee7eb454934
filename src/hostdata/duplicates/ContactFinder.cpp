#include "hostdata/duplicates/FinderBase.h"
#include "hostdata/duplicates/Finders.h"
#include "hostdata/duplicates/HostRows.h"
#include "hostdata/duplicates/PersonNames.h"

#include <unordered_map>

namespace wmoutlook {

namespace {

constexpr std::int32_t kInactive = 2;

constexpr std::string_view kTaxStatuses =
    "SELECT PersonalTaxStatus.ContactNum, PersonalTaxStatus.TaxYear, PersonalTaxStatus.ActiveStatus FROM PersonalTaxStatus;";

constexpr std::string_view kContactsAbove =
    "SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.FirstName, Contacts.MiddleName, Contacts.LastName, "
    "Contacts.NameSuffix, Contacts.InheritCompanyInfo, Contacts.BusinessPhone_Main, Contacts.BusinessPhone_Cell, "
    "Contacts.HomePhone_Main, Contacts.HomePhone_Cell, Contacts.BusinessEmail, Contacts.PersonalEmail FROM Contacts "
    "WHERE Contacts.ContactID>";

struct TaxStatus {
    std::int32_t year = kNoRecord;
    bool isInactive = false;
};

class ContactFinder final : public FinderBase<ContactDuplicateFinder, PersonNames> {
public:
    void setFullName(std::string_view name) override { fullName_ = readingsOfFullName(name); }
    void setFirstName(std::string_view name) override { firstName_ = name; }
    void setLastName(std::string_view name) override { lastName_ = name; }

    void search() override {
        found_ = kNoRecord;
        Routine routine{"wmImportDup6.dll-ContactDuplicateFinder-search"};
        routine.run([&] { found_ = findRecord(); });
    }

    [[nodiscard]] bool isFound() const override { return found_ != kNoRecord; }
    [[nodiscard]] std::int32_t foundNumber() const override { return found_; }

protected:
    void clearItem() override {
        fullName_.clear();
        firstName_.clear();
        lastName_.clear();
        found_ = kNoRecord;
    }

    [[nodiscard]] bool isNameGiven() const override { return !fullName_.empty() || !firstAndLastName().isBlank(); }

    [[nodiscard]] std::int32_t findByName(const PersonNames& names, LookAt lookAt) const override {
        return names.find(fullName_.empty() ? std::vector{firstAndLastName()} : fullName_, lookAt);
    }

    /// By the status in the last tax year that is known of a contact: who left the firm has no rows of the years since.
    [[nodiscard]] std::unordered_set<std::int32_t> readInactive(HostDatabase& database) const override {
        std::unordered_map<std::int32_t, TaxStatus> latest;
        forEachHostRow(database, kTaxStatuses, [&](const HostRow& row) {
            TaxStatus& status = latest[row.number("ContactNum")];
            const std::int32_t year = row.number("TaxYear");
            if (year >= status.year) status = {year, row.text("ActiveStatus") == toText(kInactive)};
        });
        std::unordered_set<std::int32_t> inactive;
        for (const auto& [contactID, status] : latest)
            if (status.isInactive) inactive.insert(contactID);
        return inactive;
    }

    void readRecords(HostDatabase& database, std::int32_t above) override {
        forEachHostRow(database, std::string{kContactsAbove} + toText(above) + ";",
                       [&](const HostRow& row) { indexContact(row); });
    }

private:
    [[nodiscard]] PersonName firstAndLastName() const { return personName(firstName_, {}, lastName_); }

    void indexContact(const HostRow& row) {
        const HostRecord record = recordOf(row.number("ContactID"));
        if (settings().byName) indexNames(row, record);
        if (settings().byTelephone) indexTelephones(row, record);
        if (settings().byEmailAddress)
            for (const std::string_view field : {"BusinessEmail", "PersonalEmail"}) addEmailAddress(row.text(field), record);
    }

    /// The display name may be another than the fields': a nickname, or all there is.
    void indexNames(const HostRow& row, const HostRecord& record) {
        names().add(personName(row.text("FirstName"), row.text("MiddleName"), row.text("LastName"), row.text("NameSuffix")),
                    record);
        const std::vector<PersonName> displayed = readingsOfFullName(row.text("DisplayName"));
        if (!displayed.empty()) names().add(displayed.back(), record);  // the shortest last name
    }

    void indexTelephones(const HostRow& row, const HostRecord& record) {
        for (const std::string_view field : {"BusinessPhone_Cell", "HomePhone_Main", "HomePhone_Cell"})
            addTelephone(row.text(field), record);
        // The number of the company would lead to any of its people.
        if (!row.truth("InheritCompanyInfo")) addTelephone(row.text("BusinessPhone_Main"), record);
    }

    std::vector<PersonName> fullName_;
    std::string firstName_;
    std::string lastName_;
    std::int32_t found_ = kNoRecord;
};

}  // namespace

std::shared_ptr<ContactDuplicateFinder> makeContactDuplicateFinder() {
    return std::make_shared<ContactFinder>();
}

}  // namespace wmoutlook

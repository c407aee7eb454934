#include "hostdata/duplicates/FinderBase.h"
#include "hostdata/duplicates/Finders.h"
#include "hostdata/duplicates/HostRows.h"
#include "hostdata/duplicates/SimilarNames.h"

namespace wmoutlook {

namespace {

/// ClientData.ActiveStatus of a client who is inactive.
constexpr std::string_view kInactiveClients =
    "SELECT ClientData.CompanyIDNum, ClientData.ActiveStatus FROM ClientData WHERE ClientData.ActiveStatus=2;";

constexpr std::int32_t kSameName = 1;
constexpr std::int32_t kNormalisedName = 2;
constexpr std::int32_t kTolerant = 3;

struct CompanyNames {
    NumbersByKey same;
    SimilarNames normalised;
};

class CompanyFinder final : public FinderBase<CompanyDuplicateFinder, CompanyNames> {
public:
    void setCompanyName(std::string_view name) override {
        sameName_ = sameNameKey(name);
        normalisedName_ = normalisedCompanyName(name);
    }

    void search() override {
        found_ = tolerantlyFound_ = kNoRecord;
        Routine routine{"wmImportDup6.dll-CompanyDuplicateFinder-search"};
        routine.run([&] {
            if (kind() < kSameName || kind() > kTolerant) return;
            (kind() == kTolerant ? tolerantlyFound_ : found_) = findRecord();
        });
    }

    [[nodiscard]] bool isFound() const override { return found_ != kNoRecord; }
    [[nodiscard]] std::int32_t foundNumber() const override { return found_; }
    [[nodiscard]] bool isFoundTolerantly() const override { return tolerantlyFound_ != kNoRecord; }
    [[nodiscard]] std::int32_t tolerantlyFoundNumber() const override { return tolerantlyFound_; }

protected:
    void clearItem() override {
        sameName_.clear();
        normalisedName_.clear();
        found_ = tolerantlyFound_ = kNoRecord;
    }

    [[nodiscard]] bool isNameGiven() const override { return !sameName_.empty(); }

    [[nodiscard]] std::int32_t findByName(const CompanyNames& names, LookAt lookAt) const override {
        if (kind() == kSameName) return names.same.find(sameName_, lookAt);
        return kind() == kNormalisedName ? names.normalised.findEqual(normalisedName_, lookAt)
                                         : names.normalised.find(normalisedName_, lookAt);
    }

    [[nodiscard]] std::unordered_set<std::int32_t> readInactive(HostDatabase& database) const override {
        std::unordered_set<std::int32_t> inactive;
        forEachHostRow(database, kInactiveClients, [&](const HostRow& row) { inactive.insert(row.number("CompanyIDNum")); });
        return inactive;
    }

    void readRecords(HostDatabase& database, std::int32_t above) override {
        const std::string query =
            "SELECT Companies.CompanyID, Companies.CompanyName, Companies.OfficeNumber, Companies.Email "
            "FROM Companies WHERE Companies.CompanyID>" +
            toText(above) + ";";
        forEachHostRow(database, query, [&](const HostRow& row) { indexCompany(row); });
    }

private:
    void indexCompany(const HostRow& row) {
        const HostRecord record = recordOf(row.number("CompanyID"));
        if (settings().byName) {
            const std::string name = row.text("CompanyName");
            names().same.add(sameNameKey(name), record);
            names().normalised.add(normalisedCompanyName(name), record);
        }
        if (settings().byTelephone) addTelephone(row.text("OfficeNumber"), record);
        if (settings().byEmailAddress) addEmailAddress(row.text("Email"), record);
    }

    std::string sameName_;
    std::string normalisedName_;
    std::int32_t found_ = kNoRecord;
    std::int32_t tolerantlyFound_ = kNoRecord;
};

}  // namespace

std::shared_ptr<CompanyDuplicateFinder> makeCompanyDuplicateFinder() {
    return std::make_shared<CompanyFinder>();
}

}  // namespace wmoutlook

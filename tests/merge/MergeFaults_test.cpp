#include "tests/merge/MergeFirm.h"
#include "tests/support/FaultyRun.h"

#include <sstream>

namespace wmoutlook::testing {
namespace {

/// A list box in which any call can fail.
class FaultyList : public RecordedList {
public:
    explicit FaultyList(Faults& faults) : faults_(faults) {}
    void Clear() override { then("Clear").RecordedList::Clear(); }
    void AddItem(std::string_view text) override { then("AddItem").RecordedList::AddItem(text); }
    using RecordedList::ItemData;
    std::int32_t NewIndex() override { return then("NewIndex").RecordedList::NewIndex(); }
    void ItemData(std::int32_t index, std::int32_t data) override { then("ItemData").RecordedList::ItemData(index, data); }
    void Refresh() override { then("Refresh").RecordedList::Refresh(); }

private:
    FaultyList& then(const char* operation) {
        faults_.hit(operation);
        return *this;
    }
    Faults& faults_;
};

/// Everything that merges do, in a firm whose calls fail as planned.
class FaultyMerge : public MergeFirm, public ::testing::WithParamInterface<ErrorAnswer> {
protected:
    FaultyMerge() {
        add("CustomAddressFields", "", {{"CompanyLabel1", "Branch"}});
        add("UserCalendarSettings", "", {{"UserIDNum", "1"}, {"ApptTemplate", "«Appointment Name» for «Contact Display Name»"}});
        host.errors->answer = [](const ErrorReport&) { return GetParam(); };
        faulty = host.component(database);
    }
    /// The texts, one after the other, and the city that was written to the company's row.
    std::string everything() {
        clsInsertFieldsInRTB one;
        one.companyID = company;
        one.contactID = contact;
        one.ListType = clsInsertFieldsInRTB::kCompanyAndContact;
        one.MergeFieldListUse(clsInsertFieldsInRTB::kWriteBack);
        one.ListBox = std::make_shared<FaultyList>(faults);
        one.ConvertStrToRTF = false;
        one.initializeDataRecordsetsForSingleDocMerge();
        one.TemplateText = kTemplate;
        std::string texts = one.parseRTBComment();
        texts += one.getMergeDataFromFieldName("City") + "|";
        one.writeDataToField("Country", "Canada");
        return texts + createTextByID(0, appointment, 1);
    }
    [[nodiscard]] static std::string countryOf(std::int32_t companyID) {
        const Recordset row{"SELECT Companies.* FROM Companies WHERE CompanyID=" + toText(companyID) + ";"};
        return row.text("Country");
    }

    void setCountry(std::string_view country) {
        const Recordset row{"SELECT Companies.* FROM Companies WHERE CompanyID=" + toText(company) + ";", LockCode::updatable};
        row.update("Country", country);
    }

    static constexpr const char* kTemplate =
        "«Company Name»|«Branch»|«Contact & Spouse Name»|«(Contact Birthday, yyyy)»|«Client ID»|«Contact Notes»|«Province»|";
    Faults faults;
    std::shared_ptr<FaultyDatabase> database = std::make_shared<FaultyDatabase>(host.database, faults);
    std::unique_ptr<clsOutlookSynchronization> faulty;
    std::int32_t company = addCompany(
        *host.database, {{"CompanyName", "Birch & Co"}, {"City", "Laval"}, {"Province", "Ontario"}, {"Custom1", "own"}});
    std::int32_t other = addCompany(*host.database, {{"CompanyName", "Other"}});
    std::int32_t contact = addContact(
        *host.database, {{"DisplayName", "Bob"}, {"FirstName", "Bob"}, {"LastName", "Alder"}, {"Birthday", "1961-03-05"}});
    std::int32_t appointment = add("Appointments", "AppointmentID",
                                   {{"Subject", "Meeting"}, {"DateFrom", "2026-11-24"}, {"ContactIDNum", toText(contact)}});
};

/// What is left of a value of which parts could not be read.
bool isLeftOf(std::string_view whole, std::string_view part) {
    for (const char c : whole)
        if (part.starts_with(c)) part.remove_prefix(1);
    return part.empty();
}

std::vector<std::string> partsOf(const std::string& text) {
    std::vector<std::string> parts;
    std::istringstream stream{text};
    for (std::string part; std::getline(stream, part, '|');) parts.push_back(part);
    return parts;
}

TEST_P(FaultyMerge, FailingCallCostsValuesAtMost) {
    const std::string clean = everything();
    ASSERT_EQ(clean, "Birch & Co|own|Bob Alder|1961|||Ontario|Laval|Meeting for Bob");
    const std::vector<std::string> cleanParts = partsOf(clean), templateParts = partsOf(kTemplate);
    int call = 0;
    for (bool isClean = false; !isClean && !HasFailure();) {
        setCountry("");
        faults = {};
        faults.failOnce(++call);
        const std::string texts = everything();
        isClean = faults.failed == 0;
        SCOPED_TRACE("call " + std::to_string(call) + " (" + std::exchange(faults, {}).firstFailed + "): " + texts);
        EXPECT_TRUE(database->openHandles.empty());
        EXPECT_TRUE(host.errors->open.empty());
        EXPECT_EQ(countryOf(other), "");
        if (isRepeated(GetParam())) {
            EXPECT_EQ(texts, clean);
            EXPECT_EQ(countryOf(company), "Canada");
        }
        const std::vector<std::string> parts = partsOf(texts);
        ASSERT_GE(parts.size(), templateParts.size());
        for (std::size_t i = 0; i < templateParts.size(); ++i)
            EXPECT_TRUE(isLeftOf(cleanParts[i], parts[i]) || parts[i] == templateParts[i]) << i;
    }
    EXPECT_GT(call, 500);  // the sweep has really gone through a merge
    EXPECT_EQ(everything(), clean);
}

TEST_P(FaultyMerge, CallsThatGoOnFailingEndTheMerge) {
    if (isRepeated(GetParam())) return;  // an error service that never gives in is asked for ever
    const std::string clean = everything();
    for (int call = 1; call < 600 && !HasFailure(); call += 7) {
        faults = {};
        faults.failFromNowOn(call);
        static_cast<void>(everything());
        EXPECT_LT(std::exchange(faults, {}).calls, 2000) << call;
        EXPECT_TRUE(database->openHandles.empty()) << call;
    }
    EXPECT_EQ(everything(), clean);
}

INSTANTIATE_TEST_SUITE_P(Answers, FaultyMerge,
                         ::testing::Values(ErrorAnswer::goOn, ErrorAnswer::leaveRoutine, ErrorAnswer::endProgram,
                                           ErrorAnswer::tryAgain));

}  // namespace
}  // namespace wmoutlook::testing

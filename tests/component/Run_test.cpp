#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

namespace wmoutlook::testing {
namespace {

using Names = std::vector<std::string>;

class Run : public ::testing::Test {
protected:
    TestHost host;
    std::unique_ptr<clsOutlookSynchronization> component = host.component();

    void SetUp() override {
        const auto company = addCompany(*host.database, {{"CompanyName", "Birch"}});
        TestHost::select(*component, {company}, {});
        component->showProgress(true);
    }
};

TEST_F(Run, DialogIsSetUpShownAndClosed) {
    component->startOutlook();
    EXPECT_FALSE(component->synchronize());
    const Names setUp{"message",      "barStyle 1", "owner",      "minimum", "maximum",
                      "options 1001", "icon 101",   "show modal", "message", "close"};
    EXPECT_EQ(host.dialog->calls, setUp);
    EXPECT_EQ(host.dialog->minimum, 0);
    EXPECT_EQ(host.dialog->maximum, 1);
    EXPECT_EQ(host.dialog->shownValue, 1);
    EXPECT_EQ(host.dialog.use_count(), 1);  // the component has released it
    const int yields = host.messageLoop->yields;
    host.dialog->StartProgress.raise();  // and hears of it no more
    EXPECT_EQ(host.messageLoop->yields, yields);
    EXPECT_EQ(contactItems(*host.outlookStore).size(), 1U);
}

TEST_F(Run, WithoutProgressThereIsNoDialogAndTheSameRun) {
    component->showProgress(false);
    component->startOutlook();
    component->synchronize();
    EXPECT_EQ(host.dialog, nullptr);
    EXPECT_EQ(contactItems(*host.outlookStore).size(), 1U);
}

TEST_F(Run, CalendarDialogHasAMaximumOfOne) {
    component->startOutlook();
    for (const auto objects : {outlookSyncObjectsEnum::syncAppointments, outlookSyncObjectsEnum::syncTasks}) {
        component->syncObjects(objects);
        component->synchronize();
        EXPECT_EQ(host.dialog->maximum, 1);
        EXPECT_EQ(host.dialog->calls.back(), "close");
    }
}

TEST_F(Run, UnknownKindOfObjectsDoesNothing) {
    component->startOutlook();
    for (const int objects : {0, 4}) {
        component->syncObjects(static_cast<outlookSyncObjectsEnum>(objects));
        component->synchronize();
    }
    EXPECT_EQ(host.dialog, nullptr);
    EXPECT_TRUE(host.messages->messages.empty());
    EXPECT_TRUE(contactItems(*host.outlookStore).empty());
}

TEST_F(Run, WizardIsShownForTheInstanceAndItsAbsenceIsAFailure) {
    class Wizard : public WizardForm {
    public:
        explicit Wizard(clsOutlookSynchronization*& shownFor) : shownFor_(shownFor) {}
        void showModal(clsOutlookSynchronization& component) override { shownFor_ = &component; }

    private:
        clsOutlookSynchronization*& shownFor_;
    };
    clsOutlookSynchronization* shownFor = nullptr;
    clsOutlookSynchronization withWizard{host.platform(), [&] { return std::make_unique<Wizard>(shownFor); }};
    withWizard.openSynchForm();
    EXPECT_EQ(shownFor, &withWizard);

    const int before = static_cast<int>(host.errors->reports.size());
    clsOutlookSynchronization withoutForm{host.platform(), [] { return std::unique_ptr<WizardForm>{}; }};
    withoutForm.openSynchForm();
    EXPECT_EQ(static_cast<int>(host.errors->reports.size()), before + 1);
    host.errors->reports.clear();
    component->openSynchForm();
    ASSERT_EQ(host.errors->reports.size(), 1U);
    EXPECT_EQ(host.errors->reports[0].errorTag, "wmoutlooktb.dll-clsOutlookSynchronization-openSyncForm");
}

TEST_F(Run, CountsTellTheSelection) {
    TestHost::select(*component, {}, {{1, kNoRecord}, {2, 1}});
    EXPECT_EQ(component->getCompaniesCollectionRecordCount(), 1);
    EXPECT_EQ(component->getContactsCollectionRecordCount(), 2);
    component->companyCollection = nullptr;  // the host may assign what it likes
    EXPECT_EQ(component->getCompaniesCollectionRecordCount(), 0);
    component->startOutlook();
    component->synchronize();
    EXPECT_FALSE(host.dialog->isUp);
}

}  // namespace
}  // namespace wmoutlook::testing

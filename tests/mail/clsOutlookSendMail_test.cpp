#include "mail/clsOutlookSendMail.h"

#include "platform/Errors.h"
#include "platform/Routine.h"
#include "tests/adapters/outlookstore/TestStore.h"
#include "tests/support/FaultyOutlook.h"
#include "tests/support/Recorders.h"

#include <gtest/gtest.h>

#include <fstream>

namespace wmoutlook::testing {
namespace {

using outlook::DefaultFolder;

/// An embedded store whose calls can be made to fail, and the mail that is composed in it.
class Composing : public ::testing::Test {
protected:
    Composing() {
        std::ofstream{attached} << "42";
        setErrorService(errors);
    }
    ~Composing() override { setErrorService(nullptr); }

    /// The items of a default folder.
    [[nodiscard]] std::vector<std::shared_ptr<port::Item>> mailsIn(DefaultFolder role) const {
        std::vector<std::shared_ptr<port::Item>> mails;
        const auto items = store->getRunning()->getNamespace("MAPI")->getDefaultFolder(role)->items();
        for (auto item = items->getFirst(); item; item = items->getNext()) mails.push_back(item);
        return mails;
    }

    TestFolder folder;
    std::string attached = folder.file("return.pdf");
    std::shared_ptr<ErrorRecorder> errors = std::make_shared<ErrorRecorder>();
    Faults faults;
    std::shared_ptr<port::Automation> store = [this] {
        SeededRandom random;
        createOutlookStore(folder.file("mail.db"), random);
        return openOutlookStore(folder.file("mail.db"));
    }();
    clsOutlookSendMail mail{std::make_shared<FaultyAutomation>(store, faults)};
};

TEST_F(Composing, WithoutAMailNothingHappens) {
    ASSERT_TRUE(mail.startOutlook("", "", false, false));
    mail.subject("Early");
    mail.body("Early");
    mail.recipient_TO("early@example.ca");
    mail.recipient_CC("early@example.ca");
    mail.recipient_BCC("early@example.ca");
    EXPECT_FALSE(mail.attachment(attached));
    EXPECT_FALSE(mail.sendMail());
    EXPECT_FALSE(mail.displayMail());
    EXPECT_TRUE(mail.createNewMail());
    EXPECT_TRUE(mail.displayMail());
    mail.closeOutlook();
    EXPECT_FALSE(mail.displayMail());
    EXPECT_FALSE(mail.sendMail());
    EXPECT_EQ(errors->reports.size(), 0U);
    ASSERT_EQ(mailsIn(DefaultFolder::drafts).size(), 1U);
    const auto draft = mailsIn(DefaultFolder::drafts)[0];
    EXPECT_EQ(draft->get("Subject").toText() + draft->get("Body").toText() + draft->get("To").toText(), "");
    EXPECT_EQ(draft->recipients()->count() + draft->attachments()->count(), 0);
}

TEST_F(Composing, EachRecipientAndAttachmentIsOneMore) {
    ASSERT_TRUE(mail.startOutlook("", "", false, false));
    ASSERT_TRUE(mail.createNewMail());
    mail.recipient_TO("one@example.ca");
    mail.recipient_TO("one@example.ca");
    mail.recipient_CC("two@example.ca");
    mail.recipient_BCC("Unknown");  // resolved or not, it is there
    mail.attachment(attached);
    mail.attachment(attached, "Return 2025");
    EXPECT_TRUE(mail.displayMail());
    const auto draft = mailsIn(DefaultFolder::drafts).at(0);
    std::string seen;
    for (std::int32_t i = 1; i <= draft->recipients()->count(); ++i) {
        const auto recipient = draft->recipients()->item(i);
        seen += std::to_string(static_cast<int>(recipient->type())) + " " + recipient->name() + " " + recipient->address() + "\n";
    }
    EXPECT_EQ(seen,
              "1 one@example.ca one@example.ca\n1 one@example.ca one@example.ca\n2 two@example.ca two@example.ca\n3 Unknown \n");
    ASSERT_EQ(draft->attachments()->count(), 2);
    EXPECT_EQ(draft->attachments()->item(1)->displayName(), "return.pdf");
    EXPECT_EQ(draft->attachments()->item(2)->displayName(), "Return 2025");
    EXPECT_TRUE(errors->reports.empty());
}

TEST_F(Composing, ANewMailTakesThePlaceOfTheLastOneUnlessThereIsNone) {
    ASSERT_TRUE(mail.startOutlook("", "", false, false));
    mail.createNewMail();
    mail.subject("First");
    EXPECT_TRUE(mail.createNewMail());
    mail.subject("Second");
    faults.failOnce(faults.calls + 1);
    EXPECT_FALSE(mail.createNewMail());
    EXPECT_TRUE(mail.displayMail());
    ASSERT_EQ(mailsIn(DefaultFolder::drafts).size(), 1U);
    EXPECT_EQ(mailsIn(DefaultFolder::drafts)[0]->get("Subject"), Variant{"Second"});
}

/// Every call of a whole mail fails once, under every answer.
TEST_F(Composing, OneFailedCallCostsItsOwnPartAndNoMore) {
    struct Outcome {
        bool started, created, attached, sent;
        bool operator==(const Outcome&) const = default;
    };
    const auto compose = [&] {
        mail.closeOutlook();
        Outcome done{mail.startOutlook("Anne", "secret", true, true), mail.createNewMail(), false, false};
        mail.subject("Return");
        mail.body("Attached.");
        mail.recipient_TO("anne@example.ca");
        done.attached = mail.attachment(attached, "Return");
        done.sent = mail.sendMail();
        return done;
    };
    ASSERT_EQ(compose(), (Outcome{true, true, true, true}));
    const int calls = faults.calls;
    ASSERT_GT(calls, 10);
    std::size_t sentBefore = mailsIn(DefaultFolder::outbox).size();
    for (const ErrorAnswer answer :
         {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine, ErrorAnswer::endProgram, ErrorAnswer::tryAgain})
        for (int call = 1; call <= calls; ++call) {
            faults = {};
            faults.failOnce(call);
            errors->answer = [&](const ErrorReport&) {
                return faults.failed > 0 && faults.calls > call ? ErrorAnswer::goOn : answer;
            };
            const Outcome outcome = compose();
            const std::string& failed = faults.firstFailed;
            SCOPED_TRACE(failed + " answered with " + std::to_string(static_cast<int>(answer)));
            const bool isTriedAgain = answer == ErrorAnswer::endProgram || answer == ErrorAnswer::tryAgain;
            const bool isUnderWay = isTriedAgain || failed == "Automation.getRunning";  // a new one is asked for then
            const auto costs = [&](std::initializer_list<const char*> operations) {
                return !isUnderWay && std::find(operations.begin(), operations.end(), failed) != operations.end();
            };
            const bool isCreated = !costs({"Application.createItem"});
            EXPECT_EQ(outcome,
                      (Outcome{!costs({"Application.getNamespace", "NameSpace.logon"}), isCreated, isCreated, isCreated}));
            const auto outbox = mailsIn(DefaultFolder::outbox);
            const bool isSent = isCreated && !costs({"Item.recipients", "Recipients.add", "Item.send"});
            ASSERT_EQ(outbox.size(), sentBefore + (isSent ? 1 : 0));
            sentBefore = outbox.size();
            EXPECT_TRUE(errors->open.empty());
            if (!isSent) continue;
            const auto sent = outbox.back();
            EXPECT_EQ(sent->get("To"), Variant{"anne@example.ca"});
            const int missing = (sent->get("Subject") == Variant{"Return"} ? 0 : 1) +
                                (sent->get("Body") == Variant{"Attached."} ? 0 : 1) + (sent->attachments()->count() == 1 ? 0 : 1);
            EXPECT_EQ(missing, costs({"Item.put", "Item.attachments", "Attachments.add"}) ? 1 : 0);
        }
}

TEST(SendMailWithoutOutlook, GivesFalseAndLetsNothingOut) {
    clsOutlookSendMail mail{nullptr};
    EXPECT_FALSE(mail.startOutlook("", "", false, false));
    EXPECT_FALSE(mail.createNewMail());
    EXPECT_FALSE(mail.sendMail());
}

/// Notes with what it is logged on to, and fails at everything else.
class LogonRecorder : public port::Automation, public port::Application, public port::NameSpace {
public:
    std::string logons;

    std::shared_ptr<port::Application> getRunning() override { throw OutlookError{-1, "No Outlook is running"}; }
    std::shared_ptr<port::Application> createNew() override { return {std::shared_ptr<void>{}, this}; }
    std::shared_ptr<port::NameSpace> getNamespace(std::string_view type) override {
        return type == "MAPI" ? std::shared_ptr<port::NameSpace>{std::shared_ptr<void>{}, this} : nullptr;
    }
    void logon(std::optional<std::string_view> profile, std::optional<std::string_view> password, bool dialog,
               bool session) override {
        logons += std::string{profile.value_or("missing")} + "/" + std::string{password.value_or("missing")} +
                  (dialog ? " dialog" : "") + (session ? " new" : "");
    }
    std::shared_ptr<port::Item> createItem(outlook::ItemType) override { fail(); }
    void quit() override { fail(); }
    std::shared_ptr<port::MAPIFolder> getDefaultFolder(DefaultFolder) override { fail(); }
    std::shared_ptr<port::MAPIFolder> getFolderFromID(std::string_view, std::string_view) override { fail(); }
    std::shared_ptr<port::Item> getItemFromID(std::string_view, std::string_view) override { fail(); }
    std::shared_ptr<port::Folders> folders() override { fail(); }

private:
    [[noreturn]] static void fail() { throw OutlookError{-1, "Not expected"}; }
};

TEST(SendMailLogon, AnEmptyProfileLeavesBothOutAndAnEmptyPasswordItself) {
    struct Case {
        std::string profile, password;
        bool dialog, session;
        std::string logon;
    };
    for (const Case& c :
         {Case{"", "", false, false, "missing/missing"}, Case{"", "secret", true, false, "missing/missing dialog"},
          Case{"Anne", "", false, true, "Anne/missing new"}, Case{"Anne", "secret", true, true, "Anne/secret dialog new"}}) {
        const auto outlook = std::make_shared<LogonRecorder>();
        clsOutlookSendMail mail{outlook};
        EXPECT_TRUE(mail.startOutlook(c.profile, c.password, c.dialog, c.session));
        EXPECT_EQ(outlook->logons, c.logon);
    }
}

}  // namespace
}  // namespace wmoutlook::testing

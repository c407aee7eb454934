#include "TestStore.h"
#include "adapters/outlookstore/StoreListing.h"
#include "platform/Errors.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <csignal>
#include <fstream>
#include <map>

namespace wmoutlook::testing {

namespace {

using outlook::DefaultFolder;
using outlook::RecipientType;

class StoreMail : public ::testing::Test {
protected:
    StoreMail() {
        SeededRandom random;
        createOutlookStore(path, random);
    }
    static std::shared_ptr<outlook::port::Item> newMail(const Session& session) {
        return session.application->createItem(outlook::ItemType::mail);
    }
    static std::int32_t count(const Session& session, DefaultFolder folder) {
        return session.nameSpace->getDefaultFolder(folder)->items()->count();
    }
    /// A file with this content.
    [[nodiscard]] std::string written(std::string_view name, std::string_view content) const {
        std::ofstream{folder.file(name), std::ios::binary} << content;
        return folder.file(name);
    }

    TestFolder folder;
    std::string path = folder.file("outlook.db");
};

TEST_F(StoreMail, ADraftKeepsItsPartsAndIsSentFromAnotherHandle) {
    std::string id;
    {
        const Session session{path};
        const auto mail = newMail(session);
        mail->put("Subject", "Return");
        const auto hidden = mail->recipients()->add("Anne Roy <anne@example.ca>");
        mail->recipients()->add("zoe@example.ca");
        hidden->setType(RecipientType::bcc);
        EXPECT_TRUE(hidden->resolve());
        const std::string attached = written("return.pdf", std::string{"\0PDF", 4});
        mail->attachments()->add(attached);
        mail->attachments()->add(attached)->setDisplayName("Return 2025.pdf");
        std::filesystem::remove(attached);  // what was added is a copy
        mail->display(false);
        mail->display(false);
        id = mail->get("EntryID").toText();
        EXPECT_EQ(count(session, DefaultFolder::drafts), 1);
    }
    const Session session{path};
    const auto draft = session.item(id);
    EXPECT_EQ(draft->get("To").toText() + "|" + draft->get("BCC").toText(), "zoe@example.ca|Anne Roy");
    EXPECT_NE(messageOf([&] { draft->put("To", "somebody"); }).find("follows the recipients"), std::string::npos);
    EXPECT_EQ(draft->attachments()->item(1)->displayName() + draft->attachments()->item(2)->displayName(),
              "return.pdfReturn 2025.pdf");
    EXPECT_EQ(outlookstore::attachmentContent(*draft, 1), (std::string{"\0PDF", 4}));
    EXPECT_EQ(draft->recipients()->item(2)->address(), "");
    draft->send();  // resolves what was not resolved
    EXPECT_EQ(count(session, DefaultFolder::drafts), 0);
    EXPECT_EQ(count(session, DefaultFolder::outbox), 1);
    const auto sent = session.item(id);
    EXPECT_EQ(sent->get("Submitted"), Variant{true});
    EXPECT_EQ(sent->recipients()->item(2)->address(), "zoe@example.ca");
    for (const auto& handle : {draft, sent})
        for (const std::function<void()>& change : {std::function<void()>{[&] { handle->send(); }},
                                                    {[&] { handle->put("Subject", "Late"); }},
                                                    {[&] { handle->recipients()->add("late@example.ca"); }},
                                                    {[&] { handle->recipients()->item(1)->setType(RecipientType::cc); }},
                                                    {[&] { handle->attachments()->item(1)->setDisplayName("Late"); }},
                                                    {[&] { handle->save(); }}})
            EXPECT_EQ(messageOf(change), "The mail has been sent; it can be changed and sent no more");
    EXPECT_NO_THROW(sent->display(false));
    sent->remove();
    EXPECT_EQ(count(session, DefaultFolder::outbox), 0);
}

TEST_F(StoreMail, LinesOfAddressesFollowTheRecipients) {
    const Session session{path};
    const auto mail = newMail(session);
    mail->recipients()->add("anne@example.ca");
    std::map<std::string_view, Variant> listed;
    for (const auto& property : outlookstore::describe(*mail).properties) listed[property.name] = property.value;
    EXPECT_EQ(listed["To"], Variant{"anne@example.ca"});
    EXPECT_EQ(mail->get("To").toText(), "anne@example.ca");
    mail->recipients()->item(1)->setType(RecipientType::cc);
    EXPECT_EQ(mail->get("To").toText(), "");
    EXPECT_EQ(mail->get("CC").toText(), "anne@example.ca");
}

TEST_F(StoreMail, AHandleThatMissedTheSendingCannotUndoIt) {
    const Session session{path};
    const auto mail = newMail(session);
    mail->recipients()->add("anne@example.ca");
    mail->save();
    const auto late = session.item(mail->get("EntryID").toText());
    mail->send();
    late->put("Subject", "Late");
    EXPECT_NE(messageOf([&] { late->save(); }).find("has been sent"), std::string::npos);
    EXPECT_NE(messageOf([&] { late->send(); }).find("has been sent"), std::string::npos);
    EXPECT_NO_THROW(late->display(false));
    EXPECT_EQ(count(session, DefaultFolder::outbox), 1);
    EXPECT_EQ(count(session, DefaultFolder::drafts), 0);
}

TEST_F(StoreMail, ARecipientIsAnAddressOrOneContact) {
    const Session session{path};
    const auto contact = [&](std::string_view name, std::string_view address) {
        const auto item = session.contacts->items()->add(std::nullopt);
        item->put("FullName", name);
        item->put("FileAs", std::string{name} + " (client)");
        item->put("Email1Address", address);
        item->save();
    };
    contact("Zoé Tremblay", "zoe@example.ca");
    contact("Luc Roy", "luc@example.ca");
    contact("Luc Roy", "luc.roy@example.ca");
    contact("Twin", "twin@example.ca");
    contact("TWIN", "Twin@example.ca");
    contact("No Address", "");
    contact("Bad Address", "at home");
    struct Case {
        std::string text, name, address;
    };
    for (const Case& c : {Case{"ZOÉ TREMBLAY", "Zoé Tremblay", "zoe@example.ca"},
                          Case{" Zoé Tremblay (client) ", "Zoé Tremblay", "zoe@example.ca"},
                          Case{"zoe@example.ca", "zoe@example.ca", "zoe@example.ca"},
                          Case{"\"Roy, Luc\" <luc@example.ca>", "Roy, Luc", "luc@example.ca"},
                          Case{"<luc@example.ca>", "luc@example.ca", "luc@example.ca"}, Case{"Twin", "Twin", "twin@example.ca"},
                          Case{"Luc Roy", "Luc Roy", ""}, Case{"No Address", "No Address", ""},
                          Case{"Bad Address", "Bad Address", ""}, Case{"Zoé", "Zoé", ""}, Case{"a@b@c", "a@b@c", ""},
                          Case{"a b@example.ca", "a b@example.ca", ""}, Case{"anne@-example.ca", "anne@-example.ca", ""},
                          Case{"a..b@example.ca", "a..b@example.ca", ""}, Case{".a@example.ca", ".a@example.ca", ""}}) {
        SCOPED_TRACE(c.text);
        const auto recipient = newMail(session)->recipients()->add(c.text);
        EXPECT_EQ(recipient->resolve(), !c.address.empty());
        EXPECT_EQ(recipient->name(), c.name);
        EXPECT_EQ(recipient->address(), c.address);
    }
}

TEST_F(StoreMail, WhatCannotBeIsRefusedWithoutTheName) {
    const Session session{path};
    const auto mail = newMail(session);
    for (const std::string& name :
         {std::string{}, std::string{" \t"}, std::string{"A\r\nBcc: x@example.ca"}, std::string{"A\0B", 3}})
        EXPECT_THROW(mail->recipients()->add(name), OutlookError);
    EXPECT_EQ(messageOf([&] { mail->send(); }), "The mail cannot be sent: it has no recipient");
    mail->recipients()->add("Unknown Person");
    mail->recipients()->add("anne@example.ca");
    const std::string unresolved = messageOf([&] { mail->send(); });
    EXPECT_EQ(unresolved.rfind("The mail cannot be sent: 1 of its 2 recipients cannot be resolved; ", 0), 0U) << unresolved;
    EXPECT_NE(messageOf([&] { static_cast<void>(mail->recipients()->item(0)); }), "");
    EXPECT_NE(messageOf([&] { static_cast<void>(mail->recipients()->item(3)); }), "");
    struct Case {
        std::string attached, said;
    };
    std::filesystem::create_directory(folder.path() / "sub");
    std::filesystem::create_symlink("nowhere", folder.path() / "dangling");
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    std::ofstream{folder.file("huge")};
    std::filesystem::resize_file(folder.file("huge"), 151U * 1024 * 1024);
    for (const Case& c :
         {Case{"", "no such file"}, Case{folder.file("none.pdf"), "no such file"}, Case{folder.file("sub"), "a folder"},
          Case{folder.file("dangling"), "no such file"}, Case{"/dev/zero", "no regular file"},
          Case{folder.file("pipe"), "no regular file"}, Case{written("a.pdf", "x") + std::string{"\0b", 2}, "no such file"},
          Case{folder.file("huge"), "together may have 150 MB"}}) {
        const std::string message = messageOf([&] { mail->attachments()->add(c.attached); });
        EXPECT_NE(message.find(c.said), std::string::npos) << c.attached << ": " << message;
    }
    EXPECT_EQ(mail->attachments()->count(), 0);
    std::filesystem::resize_file(folder.file("huge"), 100U * 1024 * 1024);
    mail->attachments()->add(folder.file("huge"));
    EXPECT_NE(messageOf([&] { mail->attachments()->add(folder.file("huge")); }), "") << "more than 150 MB together";
    EXPECT_EQ(mail->attachments()->count(), 1);
    EXPECT_NE(messageOf([&] { static_cast<void>(session.contacts->items()->add(std::nullopt)->recipients()); }), "");
    EXPECT_EQ(count(session, DefaultFolder::drafts) + count(session, DefaultFolder::outbox), 0);
}

TEST_F(StoreMail, ADryRunSendsNothing) {
    OutlookStoreOptions dry;
    dry.dryRun = true;
    {
        const Session session{path, dry};
        const auto mail = newMail(session);
        mail->recipients()->add("anne@example.ca");
        mail->attachments()->add(written("a.txt", "a"));
        mail->send();
        EXPECT_EQ(count(session, DefaultFolder::outbox), 1);
    }
    EXPECT_EQ(count(Session{path}, DefaultFolder::outbox), 0);
}

/// A full disk (the mail is larger than what the engine keeps in memory) makes the engine undo the whole of what a dry run did; what
/// came behind it would be stored for good.
TEST_F(StoreMail, ADryRunThatTheEngineHasUndoneStoresNothingMore) {
    OutlookStoreOptions dry;
    dry.dryRun = true;
    {
        const Session session{path, dry};
        session.add("Before");
        const auto large = newMail(session);
        large->attachments()->add(written("large", std::string(48U << 20U, 'x')));
        const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{1U << 20U, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        EXPECT_THROW(large->save(), OutlookError);
        setrlimit(RLIMIT_FSIZE, &before);
        static_cast<void>(std::signal(SIGXFSZ, ignored));
        EXPECT_NE(messageOf([&] { session.add("After"); }).find("has ended the dry run"), std::string::npos);
        EXPECT_NE(messageOf([&] { static_cast<void>(session.contacts->items()->count()); }).find("ended the dry run"),
                  std::string::npos);
    }
    EXPECT_EQ(Session{path}.contacts->items()->count(), 0);
}

}  // namespace

}  // namespace wmoutlook::testing

#include "tests/tallowsync/ProgramTest.h"

namespace wmoutlook::testing {
namespace {

class MailCommand : public ProgramTest {
protected:
    void SetUp() override {
        ASSERT_EQ(run({"new-outlook", file("outlook.db")}).err, "");
        std::ofstream{file("return.pdf")} << "PDF";
        std::ofstream{file("a=b.txt")} << "ab";
    }
    Result mail(std::vector<std::string> more, const std::string& input = {}) {
        more.insert(more.begin(), {"mail", "--outlook", file("outlook.db")});
        return run(std::move(more), input);
    }
};

TEST_F(MailCommand, ASentMailLiesInTheOutboxAndIsExported) {
    const Result sent = mail({"--to", "anne@example.ca", "--to", "Zoé <zoe@example.ca>", "--bcc", "x@example.ca", "--subject",
                              "Été", "--body", "-", "--attach", file("return.pdf") + "=Return 2025.pdf", "--attach",
                              file("a=b.txt"), "--attach", file("a=b.txt") + "=x=y", "--send", "--json"},
                             "Bonjour\nà tous");
    ASSERT_EQ(sent.err, "");
    const Json json = sent.json();
    EXPECT_EQ(json["Folder"], "Outbox");
    EXPECT_EQ(json["Body"], "Bonjour\nà tous");
    EXPECT_EQ(json["To"], "anne@example.ca; Zoé");
    EXPECT_EQ(json["Recipients"][2], Json::parse(R"({"Type": 3, "Name": "x@example.ca", "Address": "x@example.ca"})"));
    EXPECT_EQ(json["Attachments"][0]["DisplayName"], "Return 2025.pdf");
    EXPECT_EQ(json["Attachments"][1], Json::parse(R"({"FileName": "a=b.txt", "DisplayName": "a=b.txt", "Size": 2})"));
    EXPECT_EQ(json["Attachments"][2]["DisplayName"], "x=y");
    EXPECT_EQ(outlook({"list", "--folder", "Outbox", "--json"}).json()[0], json);
    EXPECT_EQ(outlook({"export", file("newest.eml")}).err, "");
    EXPECT_EQ(outlook({"export", file("same.EML"), "--item", json["EntryID"]}).err, "");
    EXPECT_EQ(bytes()["newest.eml"], bytes()["same.EML"]);
    EXPECT_NE(bytes()["newest.eml"].find("filename=\"Return 2025.pdf\""), std::string::npos);
}

TEST_F(MailCommand, ADraftIsAddedAgainFromItsJson) {
    ASSERT_EQ(mail({"--to", "Nobody Known", "--cc", "\"\"Anne\"\" <anne@example.ca>", "--display"}).err, "");
    const Result drafts = outlook({"list", "--folder", "Drafts", "--json"});
    ASSERT_EQ(outlook({"add"}, drafts.out).err, "");
    Json both = outlook({"list", "--folder", "Drafts", "--json"}).json();
    ASSERT_EQ(both.size(), 2U);
    for (Json& draft : both)
        for (const auto* const own : {"EntryID", "CreationTime", "LastModificationTime"}) draft.erase(own);
    EXPECT_EQ(both[0], both[1]);
    EXPECT_EQ(both[0]["Recipients"][0]["Address"], nullptr);
    for (const auto* const recipients :
         {R"([{"Type": 4, "Name": "A"}])", R"([{"Type": 1}])", R"([{"Type": 1, "Name": "A\nB"}])", R"("A")", R"([{"Name": "A"}])",
          R"([{"Type": 1, "Name": "A", "Address": "no address"}])"})
        EXPECT_EQ(outlook({"add", "--folder", "Drafts"}, std::string{"[{\"Recipients\": "} + recipients + "}]").err,
                  "tallowsync: Item 1 has a recipient without a usable Name, Address or Type of 1 (To), 2 (CC) or 3 (BCC).\n");
    EXPECT_EQ(outlook({"add", "--folder", "Drafts"}, R"({"Attachments": [{"FileName": "a"}]})").status, 3);
    EXPECT_EQ(outlook({"add", "--folder", "Contacts"}, R"({"Recipients": [{"Type": 1, "Name": "A"}]})").status, 3);
}

TEST_F(MailCommand, WhatCannotBeDoneIsOneSentenceAndLeavesNothing) {
    struct Case {
        std::vector<std::string> arguments;
        int status;
        std::string named;
    };
    const auto before = bytes();
    for (const Case& c : {
             Case{{"--send"}, 2, "--to"},
             Case{{"--to", "Nobody", "--to", "a@example.ca", "--send"}, 2, "\"Nobody\""},
             Case{{"--cc", "", "--display"}, 2, "--cc"},
             Case{{"--bcc", "A\nB", "--display"}, 2, "--bcc"},
             Case{{"--to", "a@example.ca"}, 2, "--display"},
             Case{{"--to", "a@example.ca", "--display", "--send"}, 2, "--display"},
             Case{{"--to", "a@example.ca", "--attach", file("none.pdf"), "--send"}, 3, "none.pdf"},
             Case{{"--to", "a@example.ca", "--attach", file("return.pdf"), "--attach", file(""), "--send"}, 3, "it is a folder"},
             Case{{"--to", "a@example.ca", "--attach", file("return.pdf") + "=a\nb", "--display"}, 2, "name of an attachment"},
             Case{{"--subject", "a\xFF", "--display"}, 2, "--subject"},
             Case{{"--body", std::string(1, '\xFF'), "--display"}, 2, "--body"},
             Case{{"--outlook", file("none.db"), "--to", "a@example.ca", "--send"}, 2, "--outlook"},
         }) {
        const Result result = mail(c.arguments);
        EXPECT_EQ(result.status, c.status) << result.err;
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find(c.named), std::string::npos) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_EQ(outlook({"list"}).out, "");
    }
    for (const Case& c : {
             Case{{"export", file("a.eml")}, 2, "Outbox"},
             Case{{"export", file("a.eml"), "--folder", "Nowhere"}, 2, "Nowhere"},
             Case{{"export", file("a.eml"), "--item", "12"}, 2, "12"},
             Case{{"export", file("a.pdf")}, 2, ".eml"},
             Case{{"export", file("a.eml"), "--item", "12", "--folder", "Drafts"}, 2, "--folder"},
         }) {
        const Result result = outlook(c.arguments);
        EXPECT_EQ(result.status, c.status) << result.err;
        EXPECT_NE(result.err.find(c.named), std::string::npos) << result.err;
    }
    EXPECT_EQ(bytes().size(), before.size());
}

}  // namespace
}  // namespace wmoutlook::testing

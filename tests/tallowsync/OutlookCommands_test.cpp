#include "tests/support/Files.h"
#include "tests/tallowsync/ProgramTest.h"

namespace wmoutlook::testing {
namespace {

class OutlookCommands : public ProgramTest {};

constexpr const char* kItems = R"([
  {"Class": 40, "FullName": "Zoé Łukaszewska", "FileAs": "Łukaszewska, Zoé", "Birthday": "1980-02-03", "Gender": 1,
   "ReminderSet": true, "Anniversary": null,
   "UserProperties": [{"name": "TallowbrookID", "type": 3, "value": null}, {"name": "Since", "type": 5, "value": "2020-01-02T03:04:05"},
                      {"name": "Fee", "type": 3, "value": 12.5}, {"name": "VIP", "type": 6, "value": true}]},
  {"FullName": "Luc Racine"}])";

/// What differs from item to item although nobody said so.
Json asGiven(Json items) {
    for (Json& item : items)
        for (const char* key : {"EntryID", "StoreID", "CreationTime", "LastModificationTime"}) item.erase(key);
    return items;
}

TEST_F(OutlookCommands, WhatIsAddedIsListedAndCanBeAddedAgainElsewhere) {
    ASSERT_EQ(outlook({"add-folder", "Contacts/Clients", "--type", "contacts"}).status, 0);
    ASSERT_EQ(outlook({"add-folder", "Contacts/Copies", "--type", "contacts"}).status, 0);
    const Result added = outlook({"add", "--folder", "Contacts/Clients"}, kItems);
    const Json listed = outlook({"list", "--folder", "Contacts/Clients", "--json"}).json();
    ASSERT_EQ(listed.size(), 2U) << added.err;
    EXPECT_EQ(added.out, listed[0]["EntryID"].get<std::string>() + "\n" + listed[1]["EntryID"].get<std::string>() + "\n");

    Json expected = Json::parse(kItems)[0];
    expected.erase("Anniversary");
    expected["Folder"] = "Contacts/Clients";
    EXPECT_EQ(nlohmann::json(asGiven(listed)[0]), nlohmann::json(expected));  // in any order

    ASSERT_EQ(outlook({"add", "--folder", "Contacts/Copies"}, listed.dump()).status, 0);
    Json copies = asGiven(outlook({"list", "--folder", "Contacts/Copies", "--json"}).json());
    for (Json& copy : copies) copy["Folder"] = "Contacts/Clients";
    EXPECT_EQ(copies, asGiven(listed));
}

TEST_F(OutlookCommands, FolderListCountsItsItems) {
    ASSERT_EQ(outlook({"add-folder", "Tasks/Office", "--type", "tasks"}).status, 0);
    ASSERT_EQ(outlook({"add", "--folder", "Tasks/Office"}, R"({"Subject": "File the return"})").status, 0);
    bool isThere = false;
    for (const Json& listed : outlook({"folders", "--json"}).json()) {
        if (listed["path"] != "Tasks/Office") continue;
        isThere = true;
        EXPECT_EQ(listed["type"], "tasks");
        EXPECT_EQ(listed["items"], 1);
    }
    EXPECT_TRUE(isThere);
}

TEST_F(OutlookCommands, DeletedItemsAreGoneAndTheOthersStay) {
    const Json before = outlook({"list", "--json"}).json();
    ASSERT_EQ(outlook({"delete", before[0]["EntryID"], before[2]["EntryID"], before[0]["EntryID"]}).status, 0);
    Json expected = before;
    expected.erase(2);
    expected.erase(0);
    EXPECT_EQ(outlook({"list", "--json"}).json(), expected);
}

TEST_F(OutlookCommands, StoredTextsCannotSteerATerminal) {
    const std::string name = R"({"FileAs": "a\u001b[31mb\u0007\u007f\u009b2Jé"})";
    ASSERT_EQ(outlook({"add", "--folder", "Drafts"}, R"({"Subject": "x\u001b\u009b"})").status, 0);
    ASSERT_EQ(outlook({"add", "--folder", "Contacts"}, name).status, 0);
    RawDatabase{file("outlook.db")}.run("UPDATE Folders SET Name = 'Draw' || char(27, 10, 155) WHERE Name = 'Drafts'");
    std::string shown;
    for (const std::vector<std::string>& command : {std::vector<std::string>{"folders"},
                                                    {"folders", "--json"},
                                                    {"list"},
                                                    {"list", "--json"},
                                                    {"list", "--folder", "no\x1B\xFF\xC2\x9B"}}) {
        const Result result = outlook(command);
        shown += result.out + result.err;
    }
    for (const char* control : {"\x1B", "\x07", "\x7F", "\xC2\x9B", "\xFF"})
        EXPECT_EQ(shown.find(control), std::string::npos) << int(control[0]);
    for (const char* escaped : {R"(a\x1B[31mb\x07\x7F\x9B2Jé)", R"(a\u001b[31mb\u0007\u007f\u009b2Jé)", R"(Draw\x1B\x0A\x9B)"})
        EXPECT_NE(shown.find(escaped), std::string::npos) << escaped;
    EXPECT_EQ(Json::parse(outlook({"list", "--folder", "Contacts", "--json"}).out).back()["FileAs"], Json::parse(name)["FileAs"]);
}

TEST_F(OutlookCommands, EmptyFolderIsAnEmptyArray) {
    EXPECT_EQ(outlook({"list", "--folder", "Drafts", "--json"}).json(), Json::array());
}

TEST_F(OutlookCommands, EveryCommandExplainsItselfWithAnExample) {
    for (const std::vector<std::string>& command : {std::vector<std::string>{},
                                                    {"sample"},
                                                    {"new-firm"},
                                                    {"new-outlook"},
                                                    {"sync"},
                                                    {"outlook"},
                                                    {"outlook", "x", "list"},
                                                    {"outlook", "x", "add"},
                                                    {"outlook", "x", "folders"},
                                                    {"outlook", "x", "add-folder"},
                                                    {"outlook", "x", "delete"}}) {
        std::vector<std::string> arguments = command;
        arguments.emplace_back("--help");
        const Result help = run(arguments);
        EXPECT_EQ(help.status, 0);
        EXPECT_NE(help.out.find("Example:\n  tallowsync "), std::string::npos) << help.out;
        EXPECT_EQ(help.err, "");
    }
}

TEST_F(OutlookCommands, ListGoesOnBehindAnItemThatCannotBeRead) {
    EXPECT_EQ(outlook({"list", "--expand", "2026-11-01", "2026-11-30"}).err, "");  // recurring tasks are not expanded
    EXPECT_EQ(
        outlook({"add", "--folder", "Calendar"}, R"([{"Start": "0100-01-01T09:00:00"}, {"Start": "2026-11-24T09:00:00"}])").err,
        "");
    const std::size_t before = outlook({"list", "--json"}).json().size();
    RawDatabase{file("outlook.db")}.run(
        "UPDATE Items SET Properties = x'FF' WHERE ItemNumber = (SELECT max(ItemNumber) - 1 FROM Items)");
    const Result list = outlook({"list", "--json"});
    EXPECT_EQ(list.status, 1);
    EXPECT_EQ(list.json().size(), before - 1);
    EXPECT_NE(list.err.find("cannot read"), std::string::npos) << list.err;
    EXPECT_EQ(outlook({"list", "--expand", "0100-01-01", "2026-11-30"}).status, 1);
}

TEST_F(OutlookCommands, AListThatBreaksOffIsADocumentAllTheSame) {
    const std::size_t all = outlook({"list", "--json"}).json().size();
    const RawDatabase raw{file("outlook.db")};
    raw.run("PRAGMA wal_checkpoint(TRUNCATE)");
    const auto root = static_cast<std::size_t>(raw.number("SELECT rootpage FROM sqlite_schema WHERE name = 'Items'"));
    std::string bytes = bytesOf(file("outlook.db"));
    const auto numberAt = [&](std::size_t at, std::size_t size) {
        std::size_t number = 0;
        for (std::size_t i = at; i < at + size; ++i) number = number * 256 + static_cast<unsigned char>(bytes[i]);
        return number;
    };
    const std::size_t page = (root - 1) * 4096;
    ASSERT_EQ(bytes[page], 5) << "the page has leaves below it";
    const std::size_t leaf = numberAt(page + numberAt(page + 14, 2), 4);  // the second one
    bytes.replace((leaf - 1) * 4096, 4096, 4096, '\0');
    std::ofstream{file("outlook.db"), std::ios::binary} << bytes;
    const Result listed = outlook({"list", "--json"});
    EXPECT_EQ(listed.status, 3);
    EXPECT_GT(listed.json().size(), 0U);
    EXPECT_LT(listed.json().size(), all);
}

}  // namespace
}  // namespace wmoutlook::testing

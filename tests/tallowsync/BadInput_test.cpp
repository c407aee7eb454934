#include "tests/tallowsync/ProgramTest.h"

#include <unistd.h>

#include <algorithm>
#include <functional>

namespace wmoutlook::testing {
namespace {

using Strings = std::vector<std::string>;

class BadInput : public ProgramTest {
protected:
    /// One sentence on standard error that names the thing, nothing on standard output, and every file as it was.
    void expectRefusal(const Strings& arguments, int status, const std::string& named, const std::string& input = {}) {
        std::string line;
        for (const std::string& argument : arguments) line += argument + ' ';
        SCOPED_TRACE(line);
        const auto before = bytes();
        const Result result = run(arguments, input);
        EXPECT_EQ(result.status, status) << result.err;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err.rfind("tallowsync: ", 0), 0U);
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_TRUE(result.err.size() > 2 && result.err[result.err.size() - 2] == '.') << result.err;
        EXPECT_NE(result.err.find(named), std::string::npos) << result.err;
        EXPECT_TRUE(bytes() == before) << "a file was changed";
    }

    Strings syncOf(const std::string& firm, const std::string& outlook, const Strings& more = {}) {
        Strings all{"sync",      "--firm",   file(firm),    "--outlook", file(outlook),
                    "--objects", "contacts", "--direction", "to-outlook"};
        all.insert(all.end(), more.begin(), more.end());
        return all;
    }
};

TEST_F(BadInput, RunsThatThisVersionHasNoPassFor) {
    const auto refuses = [&](const char* objects, const char* direction, const char* way) {
        expectRefusal(
            {"sync", "--firm", file("firm.db"), "--outlook", file("outlook.db"), "--objects", objects, "--direction", direction},
            2, way);
    };
    refuses("tasks", "to-host", "use --direction to-outlook");
    refuses("contacts", "to-host", "use --direction to-outlook");
}

TEST_F(BadInput, CommandLinesThatAskForWhatCannotBe) {
    struct Case {
        Strings options;
        std::string named;
    };
    for (const Case& c : {Case{{"--companies", "1,x"}, "--companies"},
                          Case{{"--companies", "1,,2"}, "--companies"},
                          Case{{"--companies", "99999999999"}, "99999999999"},
                          Case{{"--companies", ""}, "--companies"},
                          Case{{"--contacts", "7:"}, "--contacts"},
                          Case{{"--contacts", "7:1:2"}, "--contacts"},
                          Case{{"--users", "1"}, "--users"},
                          Case{{"--items", "all"}, "--items"},
                          Case{{"--folder", "Contacts/Nobody"}, "Contacts/Nobody"},
                          Case{{"--folder", "Calendar"}, "Calendar"},
                          Case{{"--set", "syncNothing=1"}, "syncNothing"},
                          Case{{"--set", "syncObjects"}, "NAME=VALUE"},
                          Case{{"--set", "syncObjects=syncEverything"}, "syncObjects"},
                          Case{{"--set", "showProgress=perhaps"}, "showProgress"},
                          Case{{"--set", "connectedToOutlook=True"}, "connectedToOutlook"},
                          Case{{"--set", "SchemeID=99999999999"}, "SchemeID"},
                          Case{{"--set", "mvarApptSynchStartRange=soon"}, "mvarApptSynchStartRange"},
                          Case{{"--data-file", "123456789012345678901"}, "--data-file"},
                          Case{{"--data-file", "O'Brien"}, "--data-file"},
                          Case{{"--data-file", "a\x1B"}, "--data-file"},
                          Case{{"--folder", ""}, "folder is empty"},
                          Case{{"--user", "4711"}, "4711"},
                          Case{{"--user", "me"}, "--user"},
                          Case{{"--now", "09:00:00"}, "--now"},
                          Case{{"--seed", "-1"}, "--seed"},
                          Case{{"--on-error", "panic"}, "--on-error"},
                          Case{{"--progress", "bar"}, "--progress"},
                          Case{{"--directions", "both"}, "--directions"}})
        expectRefusal(syncOf("firm.db", "outlook.db", c.options), 2, c.named);
    expectRefusal({"sync", "--firm", file("firm.db")}, 2, "--outlook");
    expectRefusal(
        {"sync", "--firm", file("firm.db"), "--outlook", file("outlook.db"), "--objects", "notes", "--direction", "both"}, 2,
        "notes");
    expectRefusal({}, 2, "--help");
    expectRefusal({"synchronise"}, 2, "synchronise");
}

TEST_F(BadInput, FilesThatAreNotWhatTheyShouldBe) {
    std::ofstream{file("text.db")} << "Dear Sir or Madam, this is no database. " << std::string(5000, '.');
    std::ofstream{file("empty.db")};
    std::filesystem::copy_file(file("firm.db"), file("lacking.db"));
    RawDatabase{file("lacking.db")}.run("DROP TABLE OutlookSync; PRAGMA wal_checkpoint(TRUNCATE)");
    std::filesystem::copy_file(file("firm.db"), file("firm copy.db"));
    std::filesystem::copy_file(file("outlook.db"), file("outlook copy.db"));
    expectRefusal(syncOf("firm.db", "firm.db"), 2, "the same file");
    for (const char* firm : {"text.db", "empty.db", "lacking.db", "outlook copy.db", "missing.db", "."})
        expectRefusal(syncOf(firm, "outlook.db"), 3, file(firm));
    for (const char* outlook : {"text.db", "empty.db", "firm copy.db", "missing.db", "."}) {
        expectRefusal(syncOf("firm.db", outlook), 3, file(outlook));
        expectRefusal({"outlook", file(outlook), "list"}, 3, file(outlook));
    }
    expectRefusal(syncOf("lacking.db", "outlook.db"), 3, "OutlookSync");
    expectRefusal({"new-firm", file("firm.db")}, 3, file("firm.db"));
    expectRefusal({"new-outlook", file("text.db")}, 3, file("text.db"));
    expectRefusal({"sample", folder.workingFolderPath()}, 3, "firm.db");
    expectRefusal({"new-firm", file("new.db"), "--province", "XX"}, 2, "XX");
    expectRefusal({"sample", file("new"), "--province", "TX"}, 2, "TX");
    for (const char* companies : {"-1", "1000001", "2147483647"})
        expectRefusal({"sample", file("new"), "--companies", companies}, 2, "--companies");
    for (const std::string& place : {std::string{"/proc/x"}, file("text.db"), std::string{}})
        expectRefusal({"sample", place}, 3, "older");
}

TEST_F(BadInput, FilesThatAnotherProcessHolds) {
    const RawDatabase other{file("firm.db")};
    other.run("BEGIN IMMEDIATE");
    expectRefusal(syncOf("firm.db", "outlook.db"), 3, file("firm.db"));
    other.run("ROLLBACK");
    other.run("PRAGMA journal_mode = DELETE");  // as a host that knows no log leaves it
    other.run("BEGIN; SELECT * FROM Companies");
    expectRefusal(syncOf("firm.db", "outlook.db"), 3, file("firm.db"));
    other.run("COMMIT");
    const RawDatabase reader{file("outlook.db")};
    reader.run("BEGIN IMMEDIATE");
    expectRefusal(syncOf("firm.db", "outlook.db"), 3, file("outlook.db"));
}

TEST_F(BadInput, FilesThatCannotBeWritten) {
    if (geteuid() == 0) GTEST_SKIP() << "this user may write to any file";
    for (const char* name : {"firm.db", "outlook.db"}) {
        std::filesystem::permissions(file(name), std::filesystem::perms::owner_read);
        expectRefusal(syncOf("firm.db", "outlook.db"), 3, file(name));
        std::filesystem::permissions(file(name), std::filesystem::perms::owner_all);
    }
}

TEST_F(BadInput, FirmWithoutAnIdentifierIsToldTheWayOut) {
    RawDatabase{file("firm.db")}.run("UPDATE DataVersion SET DataUniqueID = NULL; PRAGMA wal_checkpoint(TRUNCATE)");
    expectRefusal(syncOf("firm.db", "outlook.db"), 3, "--data-file");
}

TEST_F(BadInput, ItemsThatTheStoreCannotTake) {
    struct Case {
        std::string item;
        std::string named;
    };
    for (const Case& c : {Case{R"({"FullName": 7})", "FullName"},
                          Case{R"({"Favourite": "tea"})", "Favourite"},
                          Case{R"({"Birthday": "last May"})", "Birthday"},
                          Case{R"({"Birthday": "09:00:00"})", "Birthday"},
                          Case{R"({"Gender": 4294967296})", "Gender"},
                          Case{R"({"Gender": 1.5})", "Gender"},
                          Case{R"({"Gender": 77})", "from 0 to 2"},
                          Case{R"({"Gender": -1})", "Gender"},
                          Case{R"({"UnRead": "True"})", "UnRead"},
                          Case{R"({"Class": 41})", "Class"},
                          Case{R"({"Class": 26})", "Class"},
                          Case{R"("Anne")", "object"},
                          Case{R"({"FileAs": "x", "fileAs": "y"})", "fileAs"},
                          Case{R"({"FileAs": "x\u0000y"})", "NUL"},
                          Case{R"({"FileAs": ")" + std::string(1'000'001, 'x') + "\"}", "FileAs"},
                          Case{R"({"UserProperties": [{"name": "a\u001b", "type": 1}]})", "user property"},
                          Case{R"({"UserProperties": [{"name": "Fee", "type": 1, "value": "\u0000"}]})", "NUL"},
                          Case{R"({"UserProperties": {}})", "UserProperties"},
                          Case{R"({"UserProperties": [{"name": " ", "type": 1}]})", "user property"},
                          Case{R"({"UserProperties": [{"name": "Fee", "type": 2, "value": 1}]})", "user property"},
                          Case{R"({"UserProperties": [{"name": "Fee", "type": 3, "value": "1"}]})", "Fee"},
                          Case{R"({"UserProperties": [{"name": "Fee", "type": 3}, {"name": "FEE", "type": 1}]})", "FEE"}})
        expectRefusal({"outlook", file("outlook.db"), "add", "--folder", "Contacts"}, 3, c.named,
                      R"([{"FullName": "Anne Tremblay"}, )" + c.item + "]");
    expectRefusal({"outlook", file("outlook.db"), "add"}, 3, "Folder", R"([{"FullName": "Anne Tremblay"}])");
    expectRefusal({"outlook", file("outlook.db"), "add"}, 3, "Folder", R"([{"FullName": "Anne Tremblay", "Folder": "Nowhere"}])");
    expectRefusal({"outlook", file("outlook.db"), "add", "--folder", "Contacts"}, 3, "byte", R"([{"FullName": "Anne)");
    expectRefusal({"outlook", file("outlook.db"), "add", "--folder", "Contacts"}, 3, "too large", R"([{"Gender": 1e400}])");
    expectRefusal({"outlook", file("outlook.db"), "add", "--folder", "Nowhere"}, 2, "Nowhere", "[]");
    expectRefusal({"outlook", file("outlook.db"), "list", "--folder", "Nowhere"}, 2, "Nowhere");
    expectRefusal({"outlook", file("outlook.db"), "add", "--folder", "Calendar"}, 3, "of an Appointment", R"({"FileAs": "x"})");
    const Json items = outlook({"list", "--json"}).json();
    expectRefusal({"outlook", file("outlook.db"), "delete", items[0]["EntryID"], "00"}, 2, "\"00\"");
}

TEST_F(BadInput, NamesThatCannotBe) {
    std::string long256;
    for (int i = 0; i < 256; ++i) long256 += "é";
    for (const std::string& name :
         {std::string{}, std::string{" "}, std::string{"a\nb"}, std::string{"a\x1B[31m"}, std::string{"a\x7F"},
          std::string{"a\xC2\x9B"}, std::string{"a\xFF"}, std::string{"a\xC3"}, long256}) {
        expectRefusal({"new-firm", file("new.db"), "--name", name}, 2, "--name");
        expectRefusal({"outlook", file("outlook.db"), "add-folder", "Contacts/" + name, "--type", "mail"}, 2,
                      name.empty() ? "already" : "PATH");
    }
    struct Case {
        std::string path;
        std::string named;
    };
    for (const Case& c : {Case{"Nowhere/Below", "\"Nowhere\""}, Case{"Contacts", "already"}, Case{"", "PATH"}, Case{"/", "PATH"},
                          Case{R"(\\Another Store)", "Another Store"}})
        expectRefusal({"outlook", file("outlook.db"), "add-folder", c.path, "--type", "mail"}, 2, c.named);
    long256.resize(255 * std::string_view{"é"}.size());
    EXPECT_EQ(run({"new-firm", file("new.db"), "--name", long256}).status, 0);
    EXPECT_EQ(outlook({"add-folder", "Contacts\\" + long256 + "/", "--type", "mail"}).status, 0);
}

TEST_F(BadInput, OutputThatCannotBeWrittenIsToldApartFromWorkThatWasNotDone) {
    struct Case {
        Strings arguments;
        bool isWorkDone;
    };
    for (const Case& c : {Case{{"--help"}, false}, Case{{"outlook", file("outlook.db"), "list"}, false},
                          Case{{"outlook", file("outlook.db"), "add-folder", "New", "--type", "mail"}, true},
                          Case{syncOf("firm.db", "outlook.db"), true}}) {
        SCOPED_TRACE(c.arguments.front());
        std::istringstream in;
        std::ofstream out{"/dev/full"};
        std::ostringstream err;
        Console console{in, out, err};
        EXPECT_EQ(runTallowsync(c.arguments, console), 3);
        EXPECT_NE(err.str().find("standard output"), std::string::npos);
        EXPECT_EQ(err.str().find("was done") != std::string::npos, c.isWorkDone);
    }
    EXPECT_EQ(outlook({"list", "--folder", "New"}).status, 0);
}

}  // namespace
}  // namespace wmoutlook::testing

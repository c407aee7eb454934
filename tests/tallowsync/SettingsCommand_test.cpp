#include "tests/tallowsync/ProgramTest.h"

namespace wmoutlook::testing {
namespace {

class SettingsCommand : public ProgramTest {
protected:
    void SetUp() override {}  // without a firm

    Result settings(std::vector<std::string> more) {
        more.insert(more.begin(), {"settings", file("set.ini")});
        return run(std::move(more));
    }
};

TEST_F(SettingsCommand, FileIsMadeReadAndChanged) {
    struct Case {
        std::vector<std::string> arguments;
        std::string out;
    };
    EXPECT_EQ(settings({"new"}).status, 0);
    for (const Case& c : {
             Case{{"get", "popup", "PopupAlert"}, "-1\n"},
             Case{{"get", "Popup", "New", "7"}, "7\n"},
             Case{{"keys", "Popup"},
                  "PopupColour\nPopupCorners\nPopupGradient\nPopupEffect\nPopupTiming\nPopupAlert\nPopupWeekend\nNew\n"},
             Case{{"set", "Popup", "New", "-1"}, ""},
             Case{{"get", "Popup", "New"}, "-1\n"},
             Case{{"set", "Popup", "New", ""}, ""},
             Case{{"get", "Popup", "New"}, "<not_set>\n"},
             Case{{"delete", "Popup", "PopupAlert"}, ""},
             Case{{"delete", "CompressFile"}, ""},
             Case{{"set", "Été", "sections", "--", "-é "}, ""},
             Case{{"keys", "été", "--json"},
                  "{\n  \"section\": \"été\",\n  \"cut\": false,\n  \"keys\": [\n    \"sections\"\n  ]\n}\n"},
             Case{{"get", "été", "sections", "--json"},
                  "{\n  \"section\": \"été\",\n  \"key\": \"sections\",\n  \"value\": \"-é \",\n  \"cut\": false\n}\n"},
         }) {
        SCOPED_TRACE(c.arguments[0]);
        const Result result = settings(c.arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, c.out);
    }
    EXPECT_EQ(settings({"sections", "--json"}).json()["sections"].size(), 15U);
}

TEST_F(SettingsCommand, WhatCannotBeDoneIsToldInOneSentence) {
    struct Case {
        std::vector<std::string> arguments;
        int status;
        std::string named;
    };
    EXPECT_EQ(settings({"sections"}).status, 3);
    EXPECT_EQ(settings({"keys", "Popup"}).status, 3);
    EXPECT_TRUE(bytes().empty());  // only looking makes no file
    settings({"get", "Popup", "PopupColour"});
    const auto before = bytes();
    EXPECT_EQ(before.size(), 1U);
    for (const Case& c : {
             Case{{"new"}, 3, "set.ini"},
             Case{{"set", "Popup", "a\nb", "v"}, 2, "line break"},
             Case{{"set", "Popup", "a", "v\r\n[T]"}, 2, "line break"},
             Case{{"set", "Popup]", "a", "v"}, 2, "]"},
             Case{{"set", "Popup", "", "v"}, 2, "empty"},
             Case{{"set", "", "a", "v"}, 2, "SECTION"},
             Case{{"delete", "Popup", ""}, 2, "KEY"},
             Case{{"delete", ""}, 2, "SECTION"},
             Case{{"set", "Popup", "a"}, 2, "'tallowsync settings FILE set --help'"},
             Case{{"rename"}, 2, "rename"},
         }) {
        SCOPED_TRACE(c.named);
        const Result result = settings(c.arguments);
        EXPECT_EQ(result.status, c.status);
        EXPECT_NE(result.err.find(c.named), std::string::npos) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
        EXPECT_TRUE(bytes() == before);
    }
    for (const std::vector<std::string>& refused : {std::vector<std::string>{"settings", file("new.ini"), "set", "a]b", "k", "v"},
                                                    {"settings", file("new.ini"), "get", "S", "a=b"},
                                                    {"settings", "", "get", "S", "k"}})
        EXPECT_EQ(run(refused).status, 2);
    EXPECT_TRUE(bytes() == before);
    const Result lossy = settings({"set", "S", "k", "日本", "--json"});
    EXPECT_EQ(lossy.json()["value"], "??");
    EXPECT_NE(lossy.err.find("code page"), std::string::npos);
    settings({"set", "S", "k", std::string(300, 'v')});
    EXPECT_EQ(settings({"get", "S", "k", "--json"}).json()["cut"], true);
    for (const std::string& place : {folder.workingFolderPath(), file("none/set.ini")})
        EXPECT_EQ(run({"settings", place, "set", "S", "k", "v"}).status, 3) << place;
}

}  // namespace
}  // namespace wmoutlook::testing

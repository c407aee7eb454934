#include "tests/tallowsync/ProgramTest.h"

#include <algorithm>
#include <chrono>

namespace wmoutlook::testing {
namespace {

class MergeCommands : public ProgramTest {
protected:
    Result merge(std::vector<std::string> more, const std::string& input = {}) {
        more.insert(more.begin(), {"merge", "--firm", file("firm.db"), "--now", "2026-11-22T09:00:00"});
        return run(std::move(more), input);
    }
};

TEST_F(MergeCommands, TemplateBecomesTheClientsText) {
    const RawDatabase firm{file("firm.db")};
    firm.run("UPDATE Companies SET CompanyName = 'Birch Inc.', City = 'Laval' WHERE CompanyID = 1");
    const auto before = bytes();
    EXPECT_EQ(merge({"--company", "1", "«Company Name», «City», «(Todays Date, mmmm d yyyy)»"}).out,
              "Birch Inc., Laval, November 22 2026\n");
    EXPECT_EQ(merge({"--company", "1", "-"}, "{\\rtf1\\par\\'abCity\\'bb}").out, "{\\rtf1\\par Laval}\n");
    EXPECT_EQ(merge({"--company", "1", "--plain", "--json", "x«City»"}).json(),
              Json::parse(R"({"text": "xLaval", "rich": false, "errors": []})"));
    const Result missing = merge({"--company", "999", "[«City»]"});
    EXPECT_EQ(missing.out, "[]\n");
    EXPECT_EQ(missing.status, 0);
    EXPECT_NE(missing.err.find("--company: the firm has no company 999; its fields are empty"), std::string::npos);
    const Result failing = merge({"--company", "1", "[«Company Notes»]"});  // a field whose search fails, as it always did
    EXPECT_EQ(failing.status, 1);
    EXPECT_EQ(failing.out, "[]\n");
    EXPECT_EQ(bytes(), before);
}

TEST_F(MergeCommands, FieldsAndCalendarTextsAreListed) {
    const Json fields = run({"fields", "--firm", file("firm.db"), "--list-type", "8", "--json"}).json();
    EXPECT_EQ(fields["fields"][1], Json::parse(R"({"row": 2, "name": "Task Due Date", "field": "DueDate", "source": "TaskInfo",
                                                   "type": 2, "sample": "Nov 22, 2026", "length": -1})"));
    EXPECT_EQ(fields["pickList"][0], Json::parse(R"({"text": "[Task Info]", "row": null})"));
    EXPECT_EQ(fields["pickList"][1], Json::parse(R"({"text": "Task Name", "row": 1})"));
    EXPECT_EQ(fields["firmPickList"][0]["text"], "Insert your Letterhead");
    const std::string lines = run({"fields", "--firm", file("firm.db"), "--list-type", "8"}).out;
    EXPECT_EQ(lines.rfind("[Task Info]\nTask Name\n", 0), 0U) << lines;
    EXPECT_NE(lines.find("Custom Task Field 5 = «Custom Remmit Field 5»\n"), std::string::npos) << lines;
    const RawDatabase firm{file("firm.db")};
    firm.run("UPDATE Tasks SET Subject = 'File' WHERE TaskID = 1");
    const Result text = run({"display-text", "--firm", file("firm.db"), "--kind", "1", "--id", "1", "--user", "1", "--json"});
    EXPECT_NE(text.json()["text"].get<std::string>().find("File"), std::string::npos);
}

TEST_F(MergeCommands, TemplateIsChecked) {
    EXPECT_EQ(run({"check-template", "«Company Name» «Appointment Name» «Unknown"}).status, 1);
    for (const char* const right : {"«Task Name» «Appointment Name» «(Task Due Date, d)»", "«( Task Due Date , d)»"}) {
        const Result checked = run({"check-template", right});
        EXPECT_EQ(checked.out + checked.err, "");
        EXPECT_EQ(checked.status, 0);
    }
    EXPECT_NE(run({"check-template", "«Appointment Name» «Unknown»"}).out.find("«Unknown»"), std::string::npos);
    EXPECT_EQ(run({"check-template", "«Company Name"}).out,
              "You are missing your opening brackets, '«' in one of your expressions\n");
    const Result longName = run({"check-template", "«" + std::string(41, 'x') + "»"});
    EXPECT_NE(longName.out.find("a field. eg. «Company Name»\n"), std::string::npos) << longName.out;
    for (const char* const wrong : {"{\\rtf1 \\'abUnknown\\'bb}", "{\\rtf1 «Unknown»}"})
        EXPECT_EQ(run({"check-template", wrong}).status, 1) << wrong;
    EXPECT_EQ(run({"check-template", "--plain", "{\\rtf1 \\'abUnknown\\'bb}"}).status, 0);
    EXPECT_EQ(run({"check-template", "--list-type", "5", "--json", "«Task Name»"}).json()["messages"].size(), 1U);
    EXPECT_EQ(run({"check-template", "--rtf", "-"}, "\\'abCompany Name\\'bb").status, 0);
    const Result unreadable = run({"check-template", "«(Todays Date)»"});
    EXPECT_EQ(unreadable.status, 1);
    EXPECT_EQ(unreadable.out, "");
    EXPECT_EQ(std::count(unreadable.err.begin(), unreadable.err.end(), '\n'), 1) << unreadable.err;
    EXPECT_EQ(run({"check-template", "--firm", file("none.db"), "x"}).status, 3);
    EXPECT_EQ(run({"merge", "--firm", file("none.db"), "x"}).status, 3);
    EXPECT_EQ(merge({"--company", "x", "y"}).status, 2);
    EXPECT_EQ(merge({"--rtf", "--plain", "y"}).status, 2);
    EXPECT_EQ(merge({"--task", "1", "--appointment", "1", "y"}).status, 2);
    EXPECT_EQ(merge({"--user", "99999", "y"}).status, 2);
    EXPECT_EQ(run({"display-text", "--firm", file("firm.db"), "--kind", "1", "--id", "1", "--user", "99999"}).status, 2);
    for (const char* const none : {"4", "abc", "2147483648"}) {
        const Result refused = run({"fields", "--firm", file("firm.db"), "--list-type", none});
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.err.find("is none of 1, 2, 3, 5, 6, 8"), std::string::npos) << refused.err;
    }
}

TEST_F(MergeCommands, EmptyValueIsNoValue) {
    for (const std::vector<std::string>& line :
         {std::vector<std::string>{"merge", "--firm", "", "x"},
          {"fields", "--firm", "", "--list-type", "5"},
          {"check-template", "--firm", "", "x"},
          {"merge", "--firm", file("firm.db"), "--user", "", "x"},
          {"display-text", "--firm", file("firm.db"), "--kind", "1", "--id", "1", "--user", ""}}) {
        const Result refused = run(line);
        EXPECT_EQ(refused.status, 2) << line[0];
        EXPECT_EQ(refused.out, "");
        EXPECT_NE(refused.err.find(" is empty; 'tallowsync " + line[0] + " --help' explains it."), std::string::npos)
            << refused.err;
    }
}

TEST_F(MergeCommands, CheckOfManyNamesTakesOneReading) {
    std::string text;
    for (int i = 0; i < 50000; ++i) text += "«Task Name»";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(run({"check-template", "-"}, text).status, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{5});  // 20 without an index of the names
}

}  // namespace
}  // namespace wmoutlook::testing

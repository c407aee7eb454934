#include "adapters/headless/RunLock.h"
#include "tests/tallowsync/ProgramTest.h"

#include <algorithm>
#include <set>

namespace wmoutlook::testing {
namespace {

using Strings = std::vector<std::string>;

Strings keysOf(const Json& object) {
    Strings keys;
    for (const auto& [key, value] : object.items()) keys.push_back(key);
    return keys;
}

Json without(Json report, const Strings& keys) {
    for (const std::string& key : keys) report.erase(key);
    return report;
}

/// The links that a run wrote, such as "CompanyNum 1".
std::set<std::string> linksIn(const Json& rows) {
    std::set<std::string> links;
    for (const Json& row : rows)
        for (const auto& [key, value] : row.items())
            if (key != "table") links.insert(key + " " + value.dump());
    return links;
}

class SyncCommand : public ProgramTest {
protected:
    /// A client whose look-up in Outlook fails: the filter language has no way to write its name.
    void addClientWithQuotedName() {
        RawDatabase{file("firm.db")}.run("INSERT INTO Companies (CompanyID, CompanyName) VALUES (900, 'Bar \"Le Coin\"')");
    }
};

TEST_F(SyncCommand, ReportHasExactlyTheKeysOfTheContract) {
    const Json report = sync({"--companies", "2", "--json"}).json();
    EXPECT_EQ(keysOf(report), (Strings{"objects", "direction", "connected", "startOutlook", "events", "progress", "yields",
                                       "errors", "messages", "refreshData", "scheduleEntries", "written", "seconds"}));
    EXPECT_EQ(keysOf(report["progress"]), (Strings{"maximum", "value", "messages"}));
    EXPECT_EQ(report["objects"], "contacts");
    EXPECT_EQ(report["direction"], "to-outlook");
    EXPECT_EQ(report["events"], (Strings{"startingConnectingToOutlook", "successfullyConnectedToOutlook"}));
    EXPECT_EQ(report["progress"]["maximum"], 1);
    EXPECT_EQ(report["yields"], 8);  // two for each of the four companies, chosen or not; contacts are not walked
    EXPECT_EQ(report["written"]["host"]["created"], Json::parse(R"([{"table": "OutlookSync", "CompanyNum": 2}])"));
}

TEST_F(SyncCommand, DryRunReportsTheSameAndLeavesBothSidesAsTheyWere) {
    const auto before = bytes();
    const Json trial = sync({"--dry-run", "--json"}).json();
    EXPECT_EQ(bytes(), before);
    const Json real = sync({"--json"}).json();
    EXPECT_NE(bytes(), before);
    EXPECT_EQ(trial["dryRun"], true);
    EXPECT_GT(real["written"]["outlook"]["created"].size(), 0U);
    EXPECT_EQ(without(trial, {"seconds", "dryRun"}), without(real, {"seconds"}));
}

TEST_F(SyncCommand, SecondRunUpdatesWhatTheFirstWroteAndCreatesNothing) {
    const Json first = sync({"--json"}).json()["written"];
    const Json second = sync({"--json"}).json()["written"];
    for (const char* side : {"outlook", "host"}) {
        SCOPED_TRACE(side);
        std::set<Json> written{first[side]["created"].begin(), first[side]["created"].end()};
        written.insert(first[side]["updated"].begin(), first[side]["updated"].end());
        EXPECT_EQ(second[side]["created"], Json::array());
        EXPECT_EQ(std::set<Json>(second[side]["updated"].begin(), second[side]["updated"].end()), written);
    }
}

TEST_F(SyncCommand, CalendarOfTheChosenUsersIsCarriedAndKeptInStep) {
    struct Case {
        std::string objects, table, key, folder;
    };
    for (const Case& c :
         {Case{"appointments", "Appointments", "AppointmentID", "Calendar"}, Case{"tasks", "Tasks", "TaskID", "Tasks"}}) {
        SCOPED_TRACE(c.objects);
        RawDatabase{file("firm.db")}.run("UPDATE " + c.table + " SET TextBody = NULL, UserIDNum = 7 WHERE " + c.key + " <= 3");
        const std::size_t own = outlook({"list", "--folder", c.folder, "--json"}).json().size();
        const Strings options{"--users", "7", "--set", "mvarUseAppointmentDateRange=false", "--json"};
        const Json first = sync(options, c.objects).json();
        EXPECT_EQ(first["objects"], c.objects);
        EXPECT_EQ(first["errors"], Json::array());
        EXPECT_EQ(first["written"]["outlook"]["created"].size(), 3U);
        EXPECT_EQ(first["progress"]["maximum"], 3);
        EXPECT_EQ(outlook({"list", "--folder", c.folder, "--json"}).json().size(), own + 3);

        RawDatabase{file("firm.db")}.run("DELETE FROM " + c.table + " WHERE " + c.key + " = 2");
        const Json second = sync(options, c.objects).json()["written"]["outlook"];
        EXPECT_EQ(second["created"].size(), 0U);
        EXPECT_EQ(second["updated"].size(), 2U);
        EXPECT_EQ(second["deleted"], Json::array({first["written"]["outlook"]["created"][1]}));
    }
}

TEST_F(SyncCommand, CreatedItemsAreInTheStoreUnderTheirIdentifiers) {
    EXPECT_EQ(outlook({"add-folder", "Contacts/Clients", "--type", "contacts"}).status, 0);
    const Json written = sync({"--contacts", "all", "--folder", "contacts/clients", "--json"}).json()["written"]["outlook"];
    std::set<std::string> listed;
    for (const Json& item : outlook({"list", "--folder", "Contacts/Clients", "--json"}).json()) listed.insert(item["EntryID"]);
    const std::set<std::string> created{written["created"].begin(), written["created"].end()};
    EXPECT_FALSE(created.empty());
    EXPECT_EQ(listed, created);
}

TEST_F(SyncCommand, SelectionDecidesWhatIsLinked) {
    struct Case {
        Strings options;
        std::set<std::string> links;
    };
    for (const Case& c : {Case{{"--companies", "none"}, {}}, Case{{"--companies", "1, 3,999"}, {"CompanyNum 1", "CompanyNum 3"}},
                          Case{{"--contacts", "2,1:3,-7"}, {"ContactNum 1", "ContactNum 2"}},
                          Case{{"--companies", "2", "--contacts", "1"}, {"CompanyNum 2", "ContactNum 1"}},
                          Case{{"--companies", "all"}, {"CompanyNum 1", "CompanyNum 2", "CompanyNum 3", "CompanyNum 4"}}}) {
        Strings options = c.options;
        SCOPED_TRACE(options[1]);
        options.insert(options.end(), {"--json", "--dry-run"});
        EXPECT_EQ(linksIn(sync(options).json()["written"]["host"]["created"]), c.links);
    }
}

TEST_F(SyncCommand, ContactUnderACompanyCarriesTheCompanysName) {
    RawDatabase{file("firm.db")}.run("UPDATE Companies SET CompanyName = 'Orchard Lane Bakery' WHERE CompanyID = 3");
    const auto companyNameOf = [&](const std::string& contact) {
        const Json written = sync({"--contacts", contact, "--json"}).json()["written"]["outlook"];
        const Json entryID = written["created"].empty() ? written["updated"][0] : written["created"][0];
        for (const Json& item : outlook({"list", "--json"}).json())
            if (item["EntryID"] == entryID) return item.value("CompanyName", "");
        return std::string{"no item"};
    };
    EXPECT_NE(companyNameOf("1"), "Orchard Lane Bakery");
    EXPECT_EQ(companyNameOf("1:3"), "Orchard Lane Bakery");
}

TEST_F(SyncCommand, SettingsReachTheComponentByNameAndNumber) {
    const Json report = sync({"--set", "syncdirectiontype=syncBothsWays", "--set", "showProgress=False", "--json"}).json();
    EXPECT_EQ(report["direction"], "both");
    EXPECT_EQ(report["progress"]["maximum"], Json{});
    EXPECT_EQ(sync({"--set", "syncObjects=7", "--json"}).json()["objects"], 7);
    const Json written =
        sync({"--companies", "1", "--set", "outlookCategory=Clients = ours", "--json"}).json()["written"]["outlook"];
    const Json& entryID = written[written["created"].empty() ? "updated" : "created"].at(0);
    Json category;
    for (const Json& item : outlook({"list", "--folder", "Contacts", "--json"}).json())
        if (entryID == item["EntryID"]) category = item["Categories"];
    EXPECT_EQ(category, "Clients = ours");
}

TEST_F(SyncCommand, NumbersThatNameNothingAreToldAndDoNotStopTheRun) {
    struct Case {
        Strings options;
        Strings told;
    };
    for (const Case& c :
         {Case{{"--companies", "1,999,-1"}, {"no company -1;", "no company 999;"}},
          Case{{"--contacts", "1:888,777"}, {"no contact 777;", "no company 888;"}},
          Case{{"--set", "syncCompanyInformation=99"}, {"has no value 99"}},
          Case{{"--set", "syncCompanyInformation=companyOnly", "--set", "SchemeID=99", "--companies", "2"}, {}}}) {
        SCOPED_TRACE(c.options[1]);
        Strings options = c.options;
        options.emplace_back("--dry-run");
        const Result result = sync(options);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(static_cast<std::size_t>(std::count(result.err.begin(), result.err.end(), '\n')), c.told.size()) << result.err;
        for (const std::string& sentence : c.told) EXPECT_NE(result.err.find(sentence), std::string::npos) << result.err;
    }
}

TEST_F(SyncCommand, EachAnswerToAFailureEndsTheRunItsOwnWay) {
    addClientWithQuotedName();
    struct Case {
        std::string policy;
        int status;
        std::size_t errors;
        bool isWritten;
    };
    for (const Case& c :
         {Case{"resume", 1, 1, true}, Case{"leave", 1, 1, true}, Case{"stop", 4, 1, false}, Case{"retry", 4, 100, false}}) {
        SCOPED_TRACE(c.policy);
        const Result result = sync({"--companies", "900", "--on-error", c.policy, "--json", "--dry-run"});
        const Json report = result.json();
        EXPECT_EQ(result.status, c.status);
        EXPECT_EQ(report["errors"].size(), c.errors);
        EXPECT_EQ(keysOf(report["errors"][0]), (Strings{"tag", "message"}));
        EXPECT_EQ(report["written"]["outlook"]["created"].size(), c.isWritten ? 1U : 0U);
        const bool hasExitEvent = report["events"].back() == "ExitProgram";
        EXPECT_EQ(hasExitEvent, c.policy == "stop");
        EXPECT_EQ(result.err.find("Le Coin"), std::string::npos) << "a client's name in an error message";
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), c.status == 4 ? 2 : 1);
    }
}

TEST_F(SyncCommand, RunLeavesNoFileOpen) {
    static_cast<void>(sync({"--companies", "1"}));
    RawDatabase{file("firm.db")}.run("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT");
    RawDatabase{file("outlook.db")}.run("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT");
}

TEST_F(SyncCommand, LinksBelongToTheDataFileThatIsNamed) {
    static_cast<void>(sync({"--companies", "1"}));
    EXPECT_EQ(sync({"--companies", "1", "--json"}).json()["written"]["host"]["created"].size(), 0U);
    EXPECT_EQ(sync({"--companies", "1", "--data-file", "other", "--json"}).json()["written"]["host"]["created"].size(), 1U);
}

TEST_F(SyncCommand, TwoRunsAtOnceAreRefused) {
    for (const auto* const name : {"firm.db", "outlook.db"}) {
        const RunLock other{file(name)};
        const auto before = bytes();
        const Result refused = sync();
        EXPECT_EQ(refused.status, 3);
        EXPECT_EQ(refused.err,
                  "tallowsync: Another run is at work on \"" + file(name) + "\"; start this one again when it is done.\n");
        EXPECT_EQ(bytes(), before);
    }
    EXPECT_EQ(sync().status, 0);
}

}  // namespace
}  // namespace wmoutlook::testing

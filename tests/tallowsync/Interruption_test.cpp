#include "tests/tallowsync/ProgramTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <set>
#include <thread>

namespace wmoutlook::testing {
namespace {

namespace fs = std::filesystem;

/// SIGTERM, from the n-th time on that the program asks.
StopSignal stopAt(int n) {
    return [n, asked = 0]() mutable { return ++asked < n ? 0 : SIGTERM; };
}

class Interruption : public ProgramTest {
protected:
    Result syncStoppedAt(int n, std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"sync", "--firm", file("firm.db"), "--outlook", file("outlook.db"), "--objects", "contacts",
                                   "--direction", "to-outlook", "--now", "2026-11-22T09:00:00", "--json"});
        return run(more, {}, stopAt(n));
    }

    void copySides(const fs::path& from, const fs::path& to) {
        for (const char* name : {"firm.db", "outlook.db"})
            fs::copy_file(from / name, to / name, fs::copy_options::overwrite_existing);
    }

    /// The items in any order and without what each store gives them.
    std::multiset<std::string> items() {
        std::multiset<std::string> all;
        for (Json item : outlook({"list", "--json"}).json()) {
            for (const char* key : {"EntryID", "StoreID", "CreationTime", "LastModificationTime"}) item.erase(key);
            all.insert(item.dump());
        }
        return all;
    }
};

TEST_F(Interruption, StoppedRunEndsBetweenTwoRecordsAndTheNextOneConverges) {
    TemporaryWorkingFolder aside;
    copySides(folder.workingFolderPath(), aside.workingFolderPath());
    const auto itemsAtFirst = items();
    ASSERT_EQ(sync().status, 0);
    const auto itemsWithoutStop = items();
    std::size_t partlyWritten = 0;
    for (int n = 1; n < 6000; n = n * 3 / 2 + 1) {
        SCOPED_TRACE(n);
        copySides(aside.workingFolderPath(), folder.workingFolderPath());
        const Result trial = syncStoppedAt(n, {"--dry-run"});
        EXPECT_EQ(items(), itemsAtFirst);
        const Result stopped = syncStoppedAt(n);
        EXPECT_EQ(trial.status, stopped.status);
        if (stopped.status == 0) break;  // it was over before
        EXPECT_EQ(stopped.status, 128 + SIGTERM);
        EXPECT_EQ(stopped.err, "tallowsync: Stopped by a signal; what was written stays, run it again to go on.\n");
        EXPECT_EQ(trial.err, "tallowsync: Stopped by a signal; both sides are as they were.\n");
        const Json written = stopped.json()["written"];
        const std::size_t links = written["host"]["created"].size();
        EXPECT_LE(written["outlook"]["created"].size() + written["outlook"]["updated"].size(), links) << "a link is missing";
        if (links > 0) ++partlyWritten;
        ASSERT_EQ(sync().status, 0);
        EXPECT_EQ(items(), itemsWithoutStop);
    }
    EXPECT_GE(partlyWritten, 3U);
}

TEST_F(Interruption, NothingElseLeavesATrace) {
    const auto before = items();
    fs::create_directory(file("there"));
    std::ofstream{file("there/letter.txt")} << "Dear Sir";
    int asked = 0;
    const auto countQuestions = [&] { return ++asked, 0; };
    ASSERT_EQ(run({"sample", file("whole"), "--companies", "5"}, {}, countQuestions).status, 0);
    for (const int n : {1, 2, asked / 2, asked - 60, asked}) {  // the last ones are items in Outlook
        SCOPED_TRACE(n);
        for (const char* name : {"new/below", "there"})
            EXPECT_EQ(run({"sample", file(name), "--companies", "5"}, {}, stopAt(n)).status, 128 + SIGTERM) << name;
        EXPECT_FALSE(fs::exists(file("new")));
        EXPECT_EQ(std::distance(fs::directory_iterator{file("there")}, {}), 1);
    }
    const std::string tenPeople = Json(std::vector<Json>(10, {{"FullName", "Anne Tremblay"}})).dump();
    for (const int n : {1, 5, 10}) {
        const Result added = run({"outlook", file("outlook.db"), "add", "--folder", "Contacts"}, tenPeople, stopAt(n));
        EXPECT_EQ(added.status, 128 + SIGTERM);
        EXPECT_EQ(added.out, "");
        EXPECT_EQ(items(), before);
    }
}

/// The program itself, with a folder for temporary files of its own.
class Process {
public:
    explicit Process(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), TALLOWSYNC_PROGRAM);
        std::vector<char*> values;
        for (std::string& argument : arguments) values.push_back(argument.data());
        values.push_back(nullptr);
        id_ = fork();
        if (id_ == 0) {
            execv(values[0], values.data());
            _exit(127);
        }
    }
    void send(int signal) const { kill(id_, signal); }
    /// The exit status, -1 when a signal has killed it.
    [[nodiscard]] int status() const {
        int state = 0;
        waitpid(id_, &state, 0);
        return WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    }

private:
    pid_t id_ = 0;
};

TEST_F(Interruption, RealSignalsStopTheProgram) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        const Process making{{"sample", file("new"), "--companies", "1000000"}};
        for (int i = 0; i < 3000 && !fs::exists(file("new/firm.db")); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds{10});
        making.send(signal);
        EXPECT_EQ(making.status(), 128 + signal);
        EXPECT_FALSE(fs::exists(file("new")));
    }
}

}  // namespace
}  // namespace wmoutlook::testing

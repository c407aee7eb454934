#include "TestStore.h"
#include "adapters/outlookstore/StoreAutomation.h"
#include "adapters/outlookstore/StoreListing.h"
#include "platform/Errors.h"
#include "tests/support/RawDatabase.h"

#include <sqlite3.h>
#include <functional>
#include <limits>
#include <vector>

namespace wmoutlook::testing {

namespace {

using namespace outlookstore;
using enum RecurrenceType;
using outlook::DefaultFolder;
using ItemPointer = std::shared_ptr<outlook::port::Item>;

constexpr std::int32_t kMonday = 2;

/// "2026-11-23 09:00"
Date at(std::string_view text) {
    return fromIsoText(std::string{text} + (text.size() > 10 ? ":00" : "")).value();
}

class Calendar : public ::testing::Test {
protected:
    void SetUp() override {
        SeededRandom random;
        createOutlookStore(path, random);
        open();
    }
    void open() {
        session.reset();
        session = std::make_unique<Session>(path);
        calendar = session->nameSpace->getDefaultFolder(DefaultFolder::calendar);
        tasks = session->nameSpace->getDefaultFolder(DefaultFolder::tasks);
    }
    ItemPointer add(std::string_view subject, std::string_view start, std::optional<Recurrence> recurrence = std::nullopt) const {
        const auto item = calendar->items()->add(std::nullopt);
        item->put("Subject", subject);
        if (!start.empty()) item->put("Start", at(start));
        if (recurrence) setRecurrence(*item, *recurrence);
        item->save();
        return item;
    }
    ItemPointer addTask(std::string_view subject, std::string_view due) const {
        const auto item = tasks->items()->add(std::nullopt);
        item->put("Subject", subject);
        if (!due.empty()) item->put("DueDate", at(due));
        item->save();
        return item;
    }
    /// As a reader of the calendar prepares it.
    [[nodiscard]] std::shared_ptr<outlook::port::Items> expanded(std::string_view filter = {}) const {
        auto items = calendar->items();
        items->sort("[Start]", false);
        items->setIncludeRecurrences(true);
        if (!filter.empty()) {
            items = items->restrict(filter);
            items->sort("[Start]", false);
        }
        return items;
    }
    [[nodiscard]] ItemPointer master(const outlook::port::Item& item) const {
        return session->nameSpace->getItemFromID(item.get("EntryID").toText(), calendar->storeID());
    }
    static std::string subjects(outlook::port::Items& items) {
        std::string text;
        for (auto item = items.getFirst(); item; item = items.getNext()) text += item->get("Subject").toText() + " ";
        return text;
    }
    /// Subject and start of each, one a line.
    static std::string lines(outlook::port::Items& items) {
        std::string text;
        for (auto item = items.getFirst(); item; item = items.getNext())
            text += item->get("Subject").toText() + " " + toIsoText(item->get("Start").toDate()) + "\n";
        return text;
    }

    TestFolder folder;
    std::string path = folder.file("outlook.db");
    std::unique_ptr<Session> session;
    std::shared_ptr<outlook::port::MAPIFolder> calendar, tasks;
};

constexpr std::string_view kNovember = "[Start] >= 'Nov 1, 2026 12:00 am' and [Start] <= 'Nov 30, 2026 11:59 pm'";

TEST_F(Calendar, AnAllDayEventGoesFromMidnightToMidnight) {
    struct Case {
        std::vector<std::pair<std::string_view, Variant>> puts;
        std::string_view start, end;
        std::int32_t duration;
    };
    for (const Case& c : {
             Case{{{"Start", at("2026-11-23 10:00")}, {"AllDayEvent", true}}, "2026-11-23", "2026-11-24", 1440},
             Case{{{"AllDayEvent", true}, {"Start", at("2026-11-23 10:00")}}, "2026-11-23", "2026-11-24", 1440},
             Case{{{"Start", at("2026-11-23")}, {"End", at("2026-11-25")}, {"AllDayEvent", true}},
                  "2026-11-23",
                  "2026-11-25",
                  2880},
             Case{{{"Start", at("2026-11-23 10:00")}, {"End", at("2026-11-24 08:00")}, {"AllDayEvent", true}},
                  "2026-11-23",
                  "2026-11-25",
                  2880},
             Case{{{"AllDayEvent", true}, {"Start", at("2026-11-23")}, {"End", at("2026-11-22")}},
                  "2026-11-23",
                  "2026-11-24",
                  1440},
             Case{{{"Start", at("2026-11-23")}, {"AllDayEvent", true}, {"Duration", 1441}}, "2026-11-23", "2026-11-25", 2880},
             Case{{{"Start", at("2026-11-23 10:00")}, {"AllDayEvent", true}, {"AllDayEvent", false}},
                  "2026-11-23",
                  "2026-11-24",
                  1440},
             Case{{{"Start", at("2026-11-23")}, {"End", at("2026-11-23")}}, "2026-11-23", "2026-11-23", 0},
         }) {
        const auto item = calendar->items()->add(std::nullopt);
        for (const auto& [property, value] : c.puts) item->put(property, value);
        EXPECT_EQ(item->get("Start"), Variant{at(c.start)}) << c.end;
        EXPECT_EQ(item->get("End"), Variant{at(c.end)});
        EXPECT_EQ(item->get("Duration"), Variant{c.duration}) << c.end;
    }
}

TEST_F(Calendar, AViewIsSortedByAnyPropertyAndKeepsTheOrderOfEqualOnes) {
    for (const auto& [subject, start, importance] :
         {std::tuple{"c", "2026-11-24 09:00", 2}, {"é", "2026-11-23 09:00", 0}, {"E", "", 1}, {"a", "2026-11-24 09:00", 2}}) {
        const auto item = add(subject, start);
        item->put("Importance", importance);
        item->save();
    }
    const auto contact = calendar->items()->add(outlook::ItemType::contact);
    contact->put("Subject", "K");
    contact->save();
    struct Case {
        std::string_view property;
        bool descending;
        std::string_view expected;
    };
    for (const Case& c :
         {Case{"[Start]", false, "é c a E K "}, Case{"start", true, "E c a é K "}, Case{" [ Importance ] ", false, "é E K c a "},
          Case{"Importance", true, "c a E K é "}, Case{"[Subject]", false, "a c E é K "}, Case{"[Subject]", true, "K é E c a "},
          Case{"[DueDate]", false, "c é E a K "}, Case{"[FileAs]", false, "K c é E a "}}) {
        SCOPED_TRACE(c.property);
        const auto items = calendar->items();
        items->sort(c.property, c.descending);
        EXPECT_EQ(subjects(*items), c.expected);
        EXPECT_EQ(items->getNext(), nullptr) << "the end stays the end";
        EXPECT_EQ(items->count(), 5);
    }
    for (const auto* const refused : {"", "[]", "[Nothing]", "EntryID", "[Start"})
        EXPECT_THROW(calendar->items()->sort(refused, false), OutlookError) << refused;
}

TEST_F(Calendar, ASortedWalkGoesOnBehindWhatIsDeletedAndSeesWhatIsAdded) {
    for (const auto* const start : {"2026-11-23 09:00", "2026-11-24 09:00", "2026-11-24 09:00", "2026-11-25 09:00"})
        add(start, start);
    for (const bool descending : {false, true}) {
        const auto items = calendar->items();
        items->sort("[Start]", descending);
        int seen = 0;
        for (auto item = items->getFirst(); item; item = items->getNext()) {
            if (++seen == 2) add("Later", descending ? "2026-11-01 09:00" : "2026-12-01 09:00");
            if (seen == 3) item->remove();
        }
        EXPECT_EQ(seen, 5) << descending;
        const auto later = calendar->items()->find("[Subject] = 'Later'");
        ASSERT_NE(later, nullptr);
        later->remove();
        add("Again", "2026-11-24 09:00");
    }
}

TEST_F(Calendar, RestrictionsOnTheDateHoldToTheMinute) {
    for (const auto* const start : {"2026-11-30 23:59", "2026-11-01 00:00", "2026-10-31 23:59", "2026-12-01 00:00", ""})
        add(start, start);
    const auto item = add("seconds", "2026-11-30 23:58");
    item->put("Start", *makeDate({2026, 11, 30, 23, 59, 59}));
    item->save();
    struct Case {
        std::string_view filter, expected;
    };
    for (const Case& c :
         {Case{kNovember, "2026-11-01 00:00 2026-11-30 23:59 seconds "},
          Case{"[Start] > 'Nov 30, 2026 11:58 pm' and [Start] < 'Dec 1, 2026'", "2026-11-30 23:59 seconds "},
          Case{"[Start] = '2026-12-01'", "2026-12-01 00:00 "}, Case{"not [Start] >= '2026-11-01'", "2026-10-31 23:59 "},
          Case{"[Start] < '2026-11-01' or [Start] > '2026-12-31'", "2026-10-31 23:59  "},
          Case{"[Start] > '2026-12-31' and [Start] < '2026-01-01'", ""}}) {
        SCOPED_TRACE(c.filter);
        const auto sorted = calendar->items();
        sorted->sort("[Start]", false);
        EXPECT_EQ(subjects(*sorted->restrict(c.filter)), c.expected);
        EXPECT_EQ(subjects(*expanded(c.filter)), c.expected);
        EXPECT_EQ(sorted->restrict(c.filter)->count(), calendar->items()->restrict(c.filter)->count());
    }
    addTask("due", "2026-11-15");
    addTask("none", "");
    addTask("before", "2026-11-14");
    const auto due = tasks->items();
    due->sort("[DueDate]", false);
    due->setIncludeRecurrences(true);
    EXPECT_EQ(subjects(*due), "before due none ") << "a missing date is the last one";
    EXPECT_EQ(subjects(*due->restrict("[DueDate] >= 'Nov 15, 2026' and [DueDate] <= 'Nov 30, 2026'")), "due ");
}

TEST_F(Calendar, OccurrencesComeOneByOneAmongSingleItems) {
    const auto series = add("Team", "2026-11-09 09:00", Recurrence{weekly, 1, kMonday, 0, 0, 0, 3});
    add("Lunch", "2026-11-16 12:00");
    add("Early", "2026-11-16 09:00");  // the same start: the older item first
    const auto items = expanded(kNovember);
    EXPECT_EQ(lines(*items),
              "Team 2026-11-09 09:00:00\nTeam 2026-11-16 09:00:00\nEarly 2026-11-16 09:00:00\nLunch 2026-11-16 12:00:00\n"
              "Team 2026-11-23 09:00:00\n");
    EXPECT_EQ(items->count(), 5);
    for (auto item = items->getFirst(); item; item = items->getNext()) {
        const bool isTeam = item->get("Subject") == Variant{"Team"};
        EXPECT_EQ(item->get("IsRecurring"), Variant{isTeam});
        EXPECT_EQ(item->get("RecurrenceState"), Variant{isTeam ? 2 : 0});
        EXPECT_EQ(item->get("EntryID") == series->get("EntryID"), isTeam);
        EXPECT_EQ(item->get("Duration"), Variant{30});
    }
    EXPECT_EQ(master(*series)->get("Start"), Variant{at("2026-11-09 09:00")});
    EXPECT_EQ(master(*series)->get("RecurrenceState"), Variant{1});
    EXPECT_EQ(calendar->items()->count(), 3);
    EXPECT_EQ(items->find("[Start] > 'Nov 17, 2026'")->get("Start"), Variant{at("2026-11-23 09:00")});
    open();
    EXPECT_EQ(expanded("[Subject] = 'Team' and [IsRecurring] = True")->count(), 3) << "after reopening";
}

TEST_F(Calendar, ASeriesIsExpandedOnlyInTheOrderOfStartAndForRestrictionsThatFollow) {
    add("Team", "2026-11-09 09:00", Recurrence{weekly, 1, kMonday, 0, 0, 0, 3});
    struct Case {
        std::string_view what;
        std::function<void(outlook::port::Items&)> prepare;
        std::int32_t count;
    };
    for (const Case& c : {Case{"not sorted", [](auto& items) { items.setIncludeRecurrences(true); }, 1},
                          Case{"descending",
                               [](auto& items) {
                                   items.sort("[Start]", true);
                                   items.setIncludeRecurrences(true);
                               },
                               1},
                          Case{"by another property",
                               [](auto& items) {
                                   items.sort("[Subject]", false);
                                   items.setIncludeRecurrences(true);
                               },
                               1},
                          Case{"included first",
                               [](auto& items) {
                                   items.setIncludeRecurrences(true);
                                   items.sort("[Start]", false);
                               },
                               3},
                          Case{"left out again",
                               [](auto& items) {
                                   items.sort("[Start]", false);
                                   items.setIncludeRecurrences(true);
                                   items.setIncludeRecurrences(false);
                               },
                               1}}) {
        SCOPED_TRACE(c.what);
        const auto items = calendar->items();
        c.prepare(*items);
        EXPECT_EQ(items->count(), c.count);
    }
    // What was restricted before it was expanded was restricted by the series' own start.
    const auto early = calendar->items()->restrict("[Start] < 'Nov 10, 2026'");
    early->sort("[Start]", false);
    early->setIncludeRecurrences(true);
    EXPECT_EQ(early->count(), 3);
    const auto late = calendar->items()->restrict("[Start] > 'Nov 10, 2026'");
    late->sort("[Start]", false);
    late->setIncludeRecurrences(true);
    EXPECT_EQ(late->count(), 0);
}

TEST_F(Calendar, ASeriesWithoutAnEndIsBoundedByTheRestriction) {
    add("Daily", "1990-01-01 08:00", Recurrence{daily});
    add("Old", "1990-01-01 09:00", Recurrence{daily, 1, 0, 0, 0, 0, 999});
    EXPECT_EQ(lines(*expanded("[Start] >= 'Feb 28, 2028' and [Start] <= 'Mar 1, 2028 8:00 am'")),
              "Daily 2028-02-28 08:00:00\nDaily 2028-02-29 08:00:00\nDaily 2028-03-01 08:00:00\n");
    EXPECT_EQ(expanded("[Start] >= 'Feb 28, 2028'")->count(), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(expanded("[Start] >= 'Dec 30, 2500' and [Start] <= 'Jan 1, 4000'")->count(), 2) << "the last year of all";
    const auto items = expanded();
    int steps = 0;
    for (auto item = items->getFirst(); item && steps < 3000; item = items->getNext()) ++steps;
    EXPECT_EQ(steps, 3000);
}

TEST_F(Calendar, AnOccurrenceCanBeMovedChangedAndDeleted) {
    const auto series = add("Team", "2026-11-02 09:00", Recurrence{weekly, 1, kMonday, 0, 0, 0, 5});
    const auto occurrence = [&](std::string_view start) { return expanded()->find("[Start] = '" + std::string{start} + "'"); };
    const auto moved = occurrence("2026-11-09 09:00");
    moved->put("Start", at("2026-11-17 15:00"));
    moved->save();
    EXPECT_EQ(moved->get("RecurrenceState"), Variant{3});
    const auto changed = occurrence("2026-11-23 09:00");
    changed->put("Subject", "Budget");
    changed->put("Duration", 90);
    changed->save();
    const auto gone = occurrence("2026-11-02 09:00");
    gone->remove();
    EXPECT_THROW(gone->save(), OutlookError);
    EXPECT_THROW(gone->remove(), OutlookError);
    const std::string expected =
        "Team 2026-11-16 09:00:00\nTeam 2026-11-17 15:00:00\nBudget 2026-11-23 09:00:00\nTeam 2026-11-30 09:00:00\n";
    EXPECT_EQ(lines(*expanded()), expected);
    EXPECT_EQ(expanded("[Subject] = 'Budget'")->getFirst()->get("End"), Variant{at("2026-11-23 10:30")});
    EXPECT_EQ(expanded("[Start] >= 'Nov 17, 2026'")->count(), 3) << "the restriction looks at where it was moved to";

    // What an exception does not change follows the series.
    const auto whole = master(*series);
    whole->put("Location", "Room 2");
    whole->put("Subject", "Staff");
    whole->save();
    EXPECT_EQ(subjects(*expanded("[Location] = 'Room 2'")), "Staff Staff Budget Staff ");
    const auto listed = describe(*whole).recurrence.value();
    EXPECT_EQ(listed.occurrences, 5);
    ASSERT_EQ(listed.exceptions.size(), 3u);
    EXPECT_TRUE(listed.exceptions[0].deleted);
    EXPECT_EQ(listed.exceptions[1].originalDate, at("2026-11-09"));
    EXPECT_EQ(listed.exceptions[1].changes[0].name, "Start");

    // Another time of the series is another pattern: its exceptions end.
    whole->put("Start", at("2026-11-02 08:00"));
    whole->save();
    EXPECT_EQ(expanded()->count(), 5);
    EXPECT_EQ(expanded("[Start] = 'Nov 9, 2026 8:00 am'")->count(), 1);
    whole->remove();
    EXPECT_EQ(lines(*expanded()), "");
    EXPECT_EQ(calendar->items()->count(), 0);
    EXPECT_THROW(changed->save(), OutlookError) << "its series has gone";
}

TEST_F(Calendar, ASeriesComesWithItsExceptionsAndStartsOnItsFirstDay) {
    Recurrence recurrence{monthly, 1, 0, 31};
    recurrence.patternEndDate = at("2027-03-31");
    recurrence.exceptions = {{at("2026-12-31"), true, {}},
                             {at("2027-02-28"), false, {{"start", "2027-02-26 10:00"}, {"Subject", "Early"}, {"Location", {}}}}};
    const auto item = calendar->items()->add(std::nullopt);
    item->put("Subject", "Close");
    item->put("Location", "Office");
    item->put("Start", at("2026-11-20 17:00"));
    setRecurrence(*item, recurrence);
    EXPECT_EQ(item->get("Start"), Variant{at("2026-11-20 17:00")}) << "the save moves it";
    item->save();
    EXPECT_EQ(item->get("End"), Variant{at("2026-11-30 17:30")});
    EXPECT_EQ(lines(*expanded()),
              "Close 2026-11-30 17:00:00\nClose 2027-01-31 17:00:00\nEarly 2027-02-26 10:00:00\nClose 2027-03-31 17:00:00\n");
    EXPECT_EQ(expanded("[Subject] = 'Early' and [Location] = ''")->count(), 1);

    struct Refused {
        RecurrenceException exception;
        std::string_view said;
    };
    for (const Refused& c : {Refused{{at("2026-12-30"), true, {}}, "no day of the pattern"},
                             Refused{{at("2027-04-30"), true, {}}, "no day of the pattern"},
                             Refused{{at("2027-01-31"), false, {{"Birthday", at("2027-01-31")}}}, "\"Birthday\""},
                             Refused{{at("2027-01-31"), false, {{"IsRecurring", false}}}, "\"IsRecurring\""},
                             Refused{{at("2027-01-31"), false, {{"Start", "soon"}}}, "AppointmentItem.Start"},
                             Refused{{at("2026-12-31"), false, {}}, "twice"}}) {
        Recurrence broken = recurrence;
        broken.exceptions.push_back(c.exception);
        const std::string message = messageOf([&] { setRecurrence(*item, broken); });
        EXPECT_NE(message.find(c.said), std::string::npos) << c.said << ": " << message;
    }
    const auto contact = session->contacts->items()->add(std::nullopt);
    EXPECT_EQ(messageOf([&] { setRecurrence(*contact, recurrence); }), "Only appointments and tasks can recur");
    EXPECT_NE(messageOf([&] { setRecurrence(*calendar->items()->add(std::nullopt), recurrence); }).find("no date"),
              std::string::npos);
    const auto single = expanded()->getFirst();
    EXPECT_THROW(setRecurrence(*single, recurrence), OutlookError);
    single->userProperties()->add("TallowbrookID", outlook::UserPropertyType::number, false);
    EXPECT_NE(messageOf([&] { single->save(); }).find("user properties"), std::string::npos);
}

TEST_F(Calendar, ARecurringTaskIsOneItem) {
    const auto task = tasks->items()->add(std::nullopt);
    task->put("DueDate", at("2026-11-20"));
    setRecurrence(*task, {monthly, 1, 0, 30});
    task->save();
    const auto items = tasks->items();
    items->sort("[DueDate]", false);
    items->setIncludeRecurrences(true);
    ASSERT_EQ(items->count(), 1);
    EXPECT_EQ(items->getFirst()->get("DueDate"), Variant{at("2026-11-30")});
    EXPECT_EQ(items->getFirst()->get("IsRecurring"), Variant{true});
    EXPECT_EQ(describe(*items->getFirst()).recurrence->dayOfMonth, 30);
}

TEST_F(Calendar, AFolderIsListedByItsOccurrences) {
    add("Team", "2026-11-09 09:00", Recurrence{weekly, 1, kMonday});
    add("Lunch", "2026-11-16 12:00");
    session->add("Somebody");
    std::string listed;
    forEachOccurrence(*session->store, std::nullopt, at("2026-11-16"), at("2026-11-23"), [&](const ListedItem& item) {
        EXPECT_FALSE(item.recurrence);
        for (const ListedProperty& property : item.properties)
            if (property.name == "Start") listed += item.folder + " " + toIsoText(property.value.toDate()) + "\n";
    });
    EXPECT_EQ(listed, "Calendar 2026-11-16 09:00:00\nCalendar 2026-11-16 12:00:00\nCalendar 2026-11-23 09:00:00\n");
}

TEST_F(Calendar, NonsenseInTheFileIsAnErrorAndNoHang) {
    add("Team", "2026-11-09 09:00", Recurrence{weekly, 1, kMonday});
    add("Lunch", "2026-11-16 12:00");
    session.reset();
    calendar.reset();
    tasks.reset();
    std::filesystem::copy_file(path, folder.file("sound.db"));
    for (const auto* const damage :
         {"UPDATE Series SET Interval = 0", "UPDATE Series SET Interval = -9223372036854775807",
          "UPDATE Series SET DayOfWeekMask = 0", "UPDATE Series SET RecurrenceType = 99",
          "UPDATE Series SET RecurrenceType = 2, DayOfWeekMask = 0, DayOfMonth = 2147483647",
          "UPDATE Series SET PatternEndDay = 9223372036854775807", "UPDATE Series SET FirstStart = 'x', LastStart = 9e99",
          "INSERT OR REPLACE INTO SeriesExceptions VALUES (1, 46000, 0, 5, x'02')",
          "INSERT OR REPLACE INTO SeriesExceptions VALUES (1, 999999999999, 0, 5, x'01')",
          "UPDATE Items SET Properties = x'01' WHERE ItemNumber = 1", "DELETE FROM Items WHERE ItemNumber = 1"}) {
        SCOPED_TRACE(damage);
        std::filesystem::copy_file(folder.file("sound.db"), path, std::filesystem::copy_options::overwrite_existing);
        RawDatabase{path}.run(damage);
        open();
        auto items = expanded(kNovember);
        bool foundLunch = false;
        for (int step = 0; step < 20 && !foundLunch; ++step) try {
                const auto item = step == 0 ? items->getFirst() : items->getNext();
                if (!item) break;
                foundLunch = item->get("Subject") == Variant{"Lunch"};
            } catch (const OutlookError&) {  // of the one step
            }
        EXPECT_TRUE(foundLunch);
        items.reset();
        session.reset();
        calendar.reset();
        tasks.reset();
    }
}

/// Instructions of SQLite's machine since the last call, over all statements.
std::int64_t stepsSince(sqlite3* handle) {
    std::int64_t steps = 0;
    for (auto* statement = sqlite3_next_stmt(handle, nullptr); statement != nullptr;
         statement = sqlite3_next_stmt(handle, statement)) {
        EXPECT_EQ(sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_SORT, 1), 0) << sqlite3_sql(statement);
        steps += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_VM_STEP, 1);
    }
    return steps;
}

TEST_F(Calendar, AWalkCostsTheSamePerItemInALargeCalendar) {
    sqlite3* const handle = storeOf(*session->store).inspection()->file().connection().handle();
    add("Team", "2020-01-06 09:00", Recurrence{weekly, 1, kMonday});
    const auto costs = [&] {
        std::vector<std::int64_t> steps;
        for (const bool descending : {false, true}) {
            const auto items = calendar->items();
            items->sort("[Start]", descending);
            const auto restricted = items->restrict(kNovember);
            static_cast<void>(stepsSince(handle));
            for (auto item = restricted->getFirst(); item; item = restricted->getNext()) {}
            steps.push_back(stepsSince(handle));
        }
        const auto occurrences = expanded(kNovember);
        for (auto item = occurrences->getFirst(); item; item = occurrences->getNext()) {}
        steps.push_back(stepsSince(handle));
        static_cast<void>(add("New", "2026-12-24 09:00"));
        steps.push_back(stepsSince(handle));
        return steps;
    };
    for (int day = 1; day <= 20; ++day) add("In November", "2026-11-" + std::string(day < 10 ? "0" : "") + std::to_string(day));
    const auto small = costs();
    for (int i = 0; i < 1000; ++i) add("Another", i % 2 == 0 ? "2015-11-20 09:00" : "2030-11-20 09:00");
    const auto large = costs();
    for (std::size_t i = 0; i < small.size(); ++i) EXPECT_LE(large[i], small[i] + 20) << "walk " << i;
}

}  // namespace

}  // namespace wmoutlook::testing

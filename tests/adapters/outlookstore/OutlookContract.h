#pragma once

#include "platform/Errors.h"
#include "platform/outlook/ObjectModel.h"
#include "platform/outlook/PropertyNames.h"

#include <gtest/gtest.h>
#include <functional>
#include <memory>
#include <string>

/// What every Outlook adapter promises, run against each of them. The factory gives a session with empty default folders; what
/// an adapter honestly does otherwise is a flag here, not a weaker test.
namespace wmoutlook::testing {

struct OutlookUnderTest {
    std::string name;
    std::function<std::shared_ptr<outlook::port::Application>()> open;
    bool derivesNames = false;          ///< writing FullName fills the parts of the name and the other way round
    bool deletesForGood = true;         ///< a removed item cannot be fetched by its identifier any more
    bool lastSaveWins = true;           ///< of two handles on one item; otherwise the second save is an error
    bool refusesDoubledQuotes = false;  ///< a doubled quotation mark in a filter's text is an error
};

class OutlookContract : public ::testing::TestWithParam<OutlookUnderTest> {
protected:
    void SetUp() override {
        application = GetParam().open();
        session = application->getNamespace("MAPI");
        contacts = session->getDefaultFolder(outlook::DefaultFolder::contacts);
    }

    std::shared_ptr<outlook::port::Item> saved(std::string_view fileAs) {
        auto item = contacts->items()->add(std::nullopt);
        item->put(outlook::property::FileAs, fileAs);
        item->save();
        return item;
    }
    static std::string idOf(const outlook::port::Item& item) { return item.get(outlook::property::EntryID).toText(); }
    /// The FileAs of what the filter finds first, "-" for nothing, "error" when it is refused.
    std::string found(std::string_view filter) {
        try {
            const auto item = contacts->items()->find(filter);
            return item ? item->get(outlook::property::FileAs).toText() : "-";
        } catch (const OutlookError&) {
            return "error";
        }
    }

    std::shared_ptr<outlook::port::Application> application;
    std::shared_ptr<outlook::port::NameSpace> session;
    std::shared_ptr<outlook::port::MAPIFolder> contacts;
};

TEST_P(OutlookContract, DefaultFoldersHoldTheirTypeOfItem) {
    using outlook::DefaultFolder;
    using outlook::ItemType;
    struct Case {
        DefaultFolder folder;
        ItemType type;
        std::int32_t itemClass;
    };
    for (const Case& c :
         {Case{DefaultFolder::contacts, ItemType::contact, 40}, Case{DefaultFolder::calendar, ItemType::appointment, 26},
          Case{DefaultFolder::tasks, ItemType::task, 48}, Case{DefaultFolder::drafts, ItemType::mail, 43}}) {
        SCOPED_TRACE(c.itemClass);
        const auto folder = session->getDefaultFolder(c.folder);
        EXPECT_EQ(folder->defaultItemType(), c.type);
        EXPECT_EQ(folder->items()->add(std::nullopt)->get(outlook::property::Class), Variant{c.itemClass});
        EXPECT_EQ(session->getFolderFromID(folder->entryID(), folder->storeID())->name(), folder->name());
        application->createItem(c.type)->save();
        EXPECT_EQ(folder->items()->count(), 1) << "an item without a folder goes to the default one";
    }
    EXPECT_THROW(static_cast<void>(session->getDefaultFolder(static_cast<DefaultFolder>(77))), OutlookError);
}

TEST_P(OutlookContract, TheFirstSaveGivesAnIdentifierThatLaterSavesKeep) {
    auto item = contacts->items()->add(std::nullopt);
    EXPECT_EQ(idOf(*item), "");
    item->save();
    const std::string id = idOf(*item);
    ASSERT_NE(id, "");
    EXPECT_EQ(id.find_first_not_of("0123456789ABCDEF"), std::string::npos);
    item->put(outlook::property::CompanyName, "Dupont Ltée");
    item->save();
    EXPECT_EQ(idOf(*item), id);
    EXPECT_EQ(session->getItemFromID(id, contacts->storeID())->get(outlook::property::CompanyName), Variant{"Dupont Ltée"});
    EXPECT_NE(idOf(*saved("Other")), id);
}

TEST_P(OutlookContract, ChangesAreSeenByOthersOnlyWhenSaved) {
    auto item = saved("Before");
    item->put(outlook::property::FileAs, "After");
    EXPECT_EQ(found("[FileAs] = \"After\""), "-");
    EXPECT_EQ(found("[FileAs] = \"Before\""), "Before");
    item->save();
    EXPECT_EQ(found("[FileAs] = \"After\""), "After");
    EXPECT_EQ(found("[FileAs] = \"Before\""), "-");
}

TEST_P(OutlookContract, AnItemThatIsNotThereIsAnError) {
    auto item = saved("Gone");
    const std::string id = idOf(*item);
    const std::string store = contacts->storeID();
    EXPECT_THROW(static_cast<void>(session->getItemFromID(id, "00000000" + std::string(32, 'A'))), OutlookError);
    EXPECT_THROW(static_cast<void>(session->getItemFromID(contacts->entryID(), store)), OutlookError);
    EXPECT_THROW(static_cast<void>(session->getFolderFromID(id, store)), OutlookError);
    for (const std::string& broken : {std::string{}, std::string{"0"}, id + "0", id.substr(2), std::string{"not hexadecimal"}}) {
        SCOPED_TRACE(broken);
        EXPECT_THROW(static_cast<void>(session->getItemFromID(broken, store)), OutlookError);
    }
    item->remove();
    EXPECT_EQ(contacts->items()->count(), 0);
    if (GetParam().deletesForGood) {
        EXPECT_THROW(static_cast<void>(session->getItemFromID(id, store)), OutlookError);
    }
    EXPECT_THROW(item->save(), OutlookError);
    EXPECT_EQ(contacts->items()->count(), 0) << "a deleted item does not come back by saving";
}

TEST_P(OutlookContract, OfTwoHandlesOnOneItemTheLastSaveStands) {
    auto first = saved("Original");
    const std::string id = idOf(*first);
    auto second = session->getItemFromID(id, contacts->storeID());
    auto third = session->getItemFromID(id, contacts->storeID());
    second->put(outlook::property::FileAs, "Renamed");
    second->save();
    first->put(outlook::property::Department, "Tax");
    if (!GetParam().lastSaveWins) {
        EXPECT_THROW(first->save(), OutlookError);
        return;
    }
    first->save();  // its FileAs stands again although this handle never changed it: the search must know
    EXPECT_EQ(found("[FileAs] = \"Original\""), "Original");
    EXPECT_EQ(found("[FileAs] = \"Renamed\""), "-");
    third->remove();
    EXPECT_THROW(second->save(), OutlookError);
    EXPECT_EQ(contacts->items()->count(), 0);
}

TEST_P(OutlookContract, PropertiesHaveOutlooksDefaultsAndKinds) {
    auto contact = contacts->items()->add(std::nullopt);
    EXPECT_EQ(contact->get("NickName"), Variant{""});
    EXPECT_EQ(contact->get("Gender"), Variant{0});
    EXPECT_EQ(contact->get("Importance"), Variant{1});
    EXPECT_EQ(contact->get("Birthday"), Variant{absentDate()});
    EXPECT_EQ(application->createItem(outlook::ItemType::task)->get("Complete"), Variant{false});
    EXPECT_EQ(application->createItem(outlook::ItemType::appointment)->get("BusyStatus"), Variant{2});

    struct Case {
        std::string_view property;
        Variant put, got;
    };
    for (const Case& c : {Case{"NickName", 12, "12"}, Case{"Gender", "2", 2}, Case{"Birthday", "1961-03-05", makeDay(1961, 3, 5)},
                          Case{"Birthday", *makeDate({1961, 3, 5, 14, 30, 0}), makeDay(1961, 3, 5)},
                          Case{"Birthday", {}, absentDate()}, Case{"Gender", {}, 0}, Case{"NickName", {}, ""},
                          Case{"Journal", "True", true}, Case{"Journal", 0, false}, Case{"nickname", "Zoé", "Zoé"}}) {
        SCOPED_TRACE(c.property);
        contact->put(c.property, c.put);
        EXPECT_EQ(contact->get(c.property), c.got);
        contact->save();
        EXPECT_EQ(session->getItemFromID(idOf(*contact), contacts->storeID())->get(c.property), c.got);
    }
}

TEST_P(OutlookContract, AnAppointmentThatIsMovedKeepsItsDuration) {
    auto appointment = application->createItem(outlook::ItemType::appointment);
    const auto at = [](std::int32_t hour, std::int32_t minute) { return *makeDate({2026, 11, 23, hour, minute, 0}); };
    appointment->put("Start", at(9, 0));
    EXPECT_EQ(appointment->get("End"), Variant{at(9, 30)}) << "half an hour, if nobody says otherwise";
    appointment->put("End", at(10, 15));
    EXPECT_EQ(appointment->get("Duration"), Variant{75});
    appointment->put("Start", at(14, 0));
    EXPECT_EQ(appointment->get("End"), Variant{at(15, 15)});
    appointment->put("Duration", 20);
    EXPECT_EQ(appointment->get("End"), Variant{at(14, 20)});
}

TEST_P(OutlookContract, ATaskIsCompleteByFlagPercentageAndStatusAtOnce) {
    struct Case {
        std::string_view property;
        Variant value;
        bool complete;
        std::int32_t percent, status;
    };
    auto task = application->createItem(outlook::ItemType::task);
    for (const Case& c :
         {Case{"Complete", true, true, 100, 2}, Case{"Complete", false, false, 0, 0}, Case{"PercentComplete", 40, false, 40, 1},
          Case{"Status", 3, false, 40, 3}, Case{"Complete", false, false, 40, 3}, Case{"Status", 2, true, 100, 2},
          Case{"Status", 1, false, 0, 1}, Case{"PercentComplete", 100, true, 100, 2}, Case{"PercentComplete", 0, false, 0, 0}}) {
        SCOPED_TRACE(c.property);
        task->put(c.property, c.value);
        EXPECT_EQ(task->get("Complete"), Variant{c.complete});
        EXPECT_EQ(task->get("PercentComplete"), Variant{c.percent});
        EXPECT_EQ(task->get("Status"), Variant{c.status});
        EXPECT_EQ(task->get("DateCompleted") != Variant{absentDate()}, c.complete);
    }
}

TEST_P(OutlookContract, WhatCannotBeWrittenIsRefusedByName) {
    auto task = application->createItem(outlook::ItemType::task);
    struct Case {
        std::string_view property;
        Variant value;
    };
    for (const Case& c :
         {Case{"EntryID", "1"}, Case{"Class", 40}, Case{"CreationTime", makeDay(2026, 1, 1)}, Case{"IsRecurring", true},
          Case{"DueDate", "soon"}, Case{"PercentComplete", "half"}, Case{"PercentComplete", 3e9}, Case{"Complete", "maybe"},
          Case{"Birthday", makeDay(1961, 3, 5)}, Case{"NoSuchThing", 1}, Case{"", 1}}) {
        SCOPED_TRACE(c.property);
        try {
            task->put(c.property, c.value);
            ADD_FAILURE() << "it was taken";
        } catch (const OutlookError& error) {
            EXPECT_NE(std::string{error.what()}.find("TaskItem." + std::string{c.property}), std::string::npos) << error.what();
        }
    }
    EXPECT_THROW(static_cast<void>(task->get("Birthday")), OutlookError);
}

TEST_P(OutlookContract, UserPropertiesStayWithTheirItem) {
    using outlook::UserPropertyType;
    auto item = saved("Stamped");
    const auto stamps = item->userProperties();
    stamps->add("TallowbrookID", UserPropertyType::number, false);
    stamps->add("EntryID", UserPropertyType::text, false);
    stamps->add("DateLastSynched", UserPropertyType::dateTime, false)->setValue("2026-11-22");
    stamps->add("Checked", UserPropertyType::yesNo, false)->setValue(true);
    EXPECT_EQ(stamps->add("datelastsynched", UserPropertyType::dateTime, false)->value(), Variant{makeDay(2026, 11, 22)});
    EXPECT_THROW(stamps->add("EntryID", UserPropertyType::number, false), OutlookError);
    EXPECT_THROW(stamps->item(1)->setValue("many"), OutlookError);
    item->save();

    const auto kept = session->getItemFromID(idOf(*item), contacts->storeID())->userProperties();
    const Variant expected[] = {0.0, "", makeDay(2026, 11, 22), true};
    ASSERT_EQ(kept->count(), 4);
    for (std::int32_t i = 1; i <= 4; ++i) EXPECT_EQ(kept->item(i)->value(), expected[i - 1]) << i;
    EXPECT_THROW(static_cast<void>(kept->item(5)), OutlookError);
    EXPECT_EQ(saved("Plain")->userProperties()->count(), 0);
}

TEST_P(OutlookContract, WalksAndSearchesGoInOrderOfCreation) {
    for (const auto* name : {"B", "A", "C", "a"}) saved(name)->save();
    const auto items = contacts->items();
    std::string order;
    for (auto item = items->getFirst(); item; item = items->getNext()) order += item->get(outlook::property::FileAs).toText();
    EXPECT_EQ(order, "BACa");
    EXPECT_EQ(items->getNext(), nullptr) << "the end stays the end";
    EXPECT_EQ(found("[FileAs] = 'A'"), "A");
    EXPECT_EQ(items->count(), 4);

    const auto restricted = items->restrict("[FileAs] = \"a\"");
    EXPECT_EQ(restricted->count(), 2);
    EXPECT_EQ(restricted->restrict("[FileAs] > 'B'")->getFirst(), nullptr);
    EXPECT_EQ(restricted->find("[Gender] = 0")->get(outlook::property::FileAs), Variant{"A"});
    for (auto item = restricted->getFirst(); item; item = restricted->getNext()) item->remove();
    EXPECT_EQ(items->count(), 2) << "a walk goes on behind an item that is deleted on the way";
}

TEST_P(OutlookContract, FiltersFindWhatTheySay) {
    auto item = saved("Émile \"Milou\" O'Brien");
    for (const auto& [property, value] : {std::pair<std::string_view, Variant>{"LastName", "O'Brien"},
                                          {"Gender", 2},
                                          {"Journal", true},
                                          {"Birthday", makeDay(1961, 3, 5)},
                                          {"ReminderTime", *makeDate({2015, 1, 5, 9, 0, 30})}})
        item->put(property, value);
    item->save();
    const std::string doubled = GetParam().refusesDoubledQuotes ? "error" : "hit";
    struct Case {
        std::string_view filter;
        std::string_view expected;
    };
    for (const Case& c : {
             Case{"[LastName] = \"o'brien\"", "hit"},
             Case{"[LastName] = 'O''Brien'", doubled},
             Case{"[lastname]='O'", "-"},
             Case{"[FileAs] = 'éMILE \"milou\" o''brien'", doubled},
             Case{"[FileAs] = \"Émile \"\"Milou\"\" O'Brien\"", doubled},
             Case{"[FileAs] = 'Emile \"Milou\" O''Brien'", "-"},
             Case{"[Gender] = 2 AND [Journal] = True", "hit"},
             Case{"[Gender] > 2 or [Journal] = no", "-"},
             Case{"[Gender] <> 2", "-"},
             Case{"not [Gender] = 1", "hit"},
             Case{"[Gender] = 1 or [Gender] = 2 and [Gender] = 3", "-"},
             Case{"([Gender] = 2 or [Gender] = 1) and not ([Journal] = False)", "hit"},
             Case{"[NickName] = ''", "hit"},
             Case{"[LastName] >= 'O' and [LastName] < 'P'", "hit"},
             Case{"[Birthday] = 'Mar 5, 1961'", "hit"},
             Case{"[Birthday] = \"3/5/1961\"", "hit"},
             Case{"[Birthday] > '1961-03-05'", "-"},
             Case{"[ReminderTime] = '1/5/2015 9:00 AM'", "hit"},
             Case{"[ReminderTime] <= 'January 5, 2015 9:00 am'", "hit"},
             Case{"[ReminderTime] >= 'Jan 5, 2015 12:00 am' and [ReminderTime] <= 'Jan 5, 2015 11:59 pm'", "hit"},
             Case{"[ReminderTime] = '2015-01-05T09:01'", "-"},
             Case{"[Anniversary] >= '4501-01-01'", "hit"},
             Case{"[Class] = 40", "hit"},
         }) {
        SCOPED_TRACE(c.filter);
        const std::string answer = found(c.filter);
        EXPECT_EQ(answer.size() > 5 ? "hit" : answer, c.expected);
    }
}

TEST_P(OutlookContract, AMalformedFilterIsAnErrorWithoutThePersonsName) {
    struct Case {
        std::string_view filter;
        int character;
    };
    for (const Case& c : {Case{"[FileAs] = \"Ann \"Secret\" Lee\"", 18}, Case{"[FileAs] = \"Secret", 12},
                          Case{"[FileAs] = Secret", 12}, Case{"", 1}, Case{"[Secret] = 1", 1}, Case{"[FileAs = 'Secret'", 1},
                          Case{"[FileAs] ~ 'Secret'", 10}, Case{"[FileAs] = 5", 12}, Case{"[Gender] = 'Secret'", 12},
                          Case{"[Birthday] = 'Secret'", 14}, Case{"[Birthday] = 5", 14}, Case{"[Journal] = 'Secret'", 13},
                          Case{"([Gender] = 1", 14}, Case{"[Gender] = 1)", 13}, Case{"[Gender] = 1 and", 17},
                          Case{"[FileAs] = 'Élodie' Secret", 21}, Case{"[Gender] = --1", 12}, Case{"[Gender] = 1.2.3", 12}}) {
        SCOPED_TRACE(c.filter);
        try {
            static_cast<void>(contacts->items()->restrict(c.filter));
            ADD_FAILURE() << "it was taken";
        } catch (const OutlookError& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.find("Secret"), std::string::npos) << message;
            EXPECT_NE(message.find("character " + std::to_string(c.character) + ":"), std::string::npos) << message;
        }
    }
}

TEST_P(OutlookContract, FoldersHaveNamesOfTheirOwn) {
    const auto below = contacts->folders();
    const auto clients = below->add("Clients", outlook::DefaultFolder::contacts);
    EXPECT_EQ(below->count(), 1);
    EXPECT_EQ(below->item(1)->entryID(), clients->entryID());
    EXPECT_EQ(clients->defaultItemType(), outlook::ItemType::contact);
    for (const auto* name : {"", "clients", "A\\B"}) {
        SCOPED_TRACE(name);
        EXPECT_THROW(below->add(name, outlook::DefaultFolder::contacts), OutlookError);
    }
    EXPECT_THROW(static_cast<void>(below->item(2)), OutlookError);
    EXPECT_THROW(static_cast<void>(below->item(0)), OutlookError);
    clients->items()->add(std::nullopt)->save();
    EXPECT_EQ(clients->items()->count(), 1);
    EXPECT_EQ(contacts->items()->count(), 0) << "a folder does not show the items below it";
    EXPECT_EQ(session->folders()->item(1)->storeID(), contacts->storeID());
}

TEST_P(OutlookContract, NothingWorksOnAnOutlookThatWasQuit) {
    auto item = saved("Late");
    application->quit();
    EXPECT_THROW(static_cast<void>(application->getNamespace("MAPI")), OutlookError);
    EXPECT_THROW(static_cast<void>(session->getDefaultFolder(outlook::DefaultFolder::contacts)), OutlookError);
    EXPECT_THROW(static_cast<void>(contacts->items()), OutlookError);
    EXPECT_THROW(static_cast<void>(contacts->storeID()), OutlookError);
    EXPECT_THROW(item->save(), OutlookError);
    EXPECT_THROW(application->quit(), OutlookError);
}

}  // namespace wmoutlook::testing

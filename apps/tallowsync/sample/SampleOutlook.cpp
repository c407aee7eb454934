#include "apps/tallowsync/sample/SampleOutlook.h"

#include "apps/tallowsync/sample/MadeUpCompany.h"
#include "apps/tallowsync/sample/Names.h"
#include "apps/tallowsync/sample/SampleSeries.h"
#include "apps/tallowsync/sample/SampleText.h"
#include "platform/outlook/PropertyNames.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace wmoutlook::sample {

namespace {

using outlook::DefaultFolder;
namespace property = outlook::property;

using Properties = std::vector<std::pair<std::string_view, Variant>>;

void addItem(const Sample& sample, outlook::port::Items& items, const Properties& properties) {
    sample.rows.passCheckpoint();
    const std::shared_ptr<outlook::port::Item> item = items.add(std::nullopt);
    for (const auto& [name, value] : properties) item->put(name, value);
    item->save();
}

Properties personProperties(Sample& sample, const Person& person, const Place& place) {
    Dice& dice = sample.dice;
    Properties properties{{property::Title, person.prefix},
                          {property::FirstName, person.first},
                          {property::MiddleName, person.middle},
                          {property::LastName, person.last},
                          {property::FullName, person.display}};
    if (dice.chance(60)) properties.emplace_back(property::Email1Address, addressPart(person.display) + "@mail.example.com");
    if (dice.chance(70)) properties.emplace_back(property::MobileTelephoneNumber, makePhone(dice, place));
    if (dice.chance(20)) properties.emplace_back(property::Birthday, person.birthday);
    if (dice.chance(15)) properties.emplace_back(property::Gender, person.isMale ? 2 : 1);
    if (!dice.chance(40)) return properties;
    const Address home = makeAddress(dice, place, sample.options.country);
    properties.insert(properties.end(), {{property::HomeAddressStreet, home.street},
                                         {property::HomeAddressCity, home.city},
                                         {property::HomeAddressState, home.province},
                                         {property::HomeAddressPostalCode, home.postalCode},
                                         {property::HomeAddressCountry, home.country}});
    return properties;
}

/// Someone whom the firm does not know: a person, a person of a company, or a company alone.
void addStranger(Sample& sample, outlook::port::Items& contacts) {
    Dice& dice = sample.dice;
    const Place& place = sample.pickPlace();
    const bool isFrench = sample.pickLanguage(place);
    const Person person = makePerson(dice, isFrench, sample.options.now);
    const Company company = makeCompany(dice, place, sample.options.country, isFrench, dice.between(100, 999));
    const bool hasCompany = dice.chance(50);
    const bool hasPerson = !hasCompany || dice.chance(80);
    Properties properties = hasPerson ? personProperties(sample, person, place) : Properties{};
    if (hasCompany)
        properties.insert(properties.end(), {{property::CompanyName, company.name},
                                             {property::BusinessTelephoneNumber, company.office},
                                             {property::BusinessAddressCity, company.address.city},
                                             {property::WebPage, company.webSite}});
    properties.emplace_back(property::FileAs, hasPerson ? person.display : company.name);
    if (dice.chance(20)) properties.emplace_back(property::Categories, dice.chance(50) ? "Personal" : "Famille");
    addItem(sample, contacts, properties);
}

/// A record of the firm that is filed under the same name, with older data.
void addAcquaintance(Sample& sample, outlook::port::Items& contacts, const Client& client) {
    const Place& place = sample.pickPlace();
    Properties properties{{property::FileAs, client.name}};
    if (client.companyID != kNoRecord) {
        properties.emplace_back(property::CompanyName, client.name);
        properties.emplace_back(property::BusinessTelephoneNumber, makePhone(sample.dice, place));
    } else {
        properties.emplace_back(property::FullName, client.name);
        properties.emplace_back(property::HomeTelephoneNumber, makePhone(sample.dice, place));
    }
    properties.emplace_back(property::Categories, "Clients");
    addItem(sample, contacts, properties);
}

void addContacts(Sample& sample, outlook::port::MAPIFolder& folder, std::int32_t count) {
    const std::shared_ptr<outlook::port::Items> contacts = folder.items();
    const auto known = std::min<std::size_t>(static_cast<std::size_t>(count / 4), sample.clients.size());
    for (std::size_t i = 0; i < known; ++i) {
        // From both ends of the list: companies and people.
        const std::size_t index = i % 2 == 0 ? i / 2 : sample.clients.size() - 1 - i / 2;
        addAcquaintance(sample, *contacts, sample.clients[index]);
    }
    for (std::int32_t i = 0; i < count - static_cast<std::int32_t>(known); ++i) addStranger(sample, *contacts);
    const std::shared_ptr<outlook::port::MAPIFolder> club = folder.folders()->add("Curling Club", DefaultFolder::contacts);
    const std::shared_ptr<outlook::port::Items> members = club->items();
    for (std::int32_t i = 0; i < 5; ++i) addStranger(sample, *members);
}

Date pickMoment(Sample& sample) {
    const Date day = addDays(dayOf(sample.options.now), sample.dice.between(-60, 90));
    return Date{day.days + fromSecondsSinceDayZero(std::int64_t{900} * sample.dice.between(28, 80)).days};
}

void addOwnAppointment(Sample& sample, outlook::port::Items& calendar) {
    Dice& dice = sample.dice;
    const Date start = pickMoment(sample);
    if (dice.chance(20)) {
        addItem(sample, calendar,
                {{property::Subject, dice.pick(allDayTexts())},
                 {"Start", dayOf(start)},
                 {"End", addDays(dayOf(start), 1)},
                 {"AllDayEvent", true}});
        return;
    }
    const CalendarText& text = dice.pick(appointmentTexts());
    addItem(sample, calendar,
            {{property::Subject, text.subject},
             {property::Body, text.notes},
             {"Start", start},
             {"End", Date{start.days + fromSecondsSinceDayZero(std::int64_t{1800} * dice.between(1, 4)).days}},
             {"Location", dice.chance(40) ? "Boardroom" : ""},
             {"ReminderSet", dice.chance(50)}});
}

void addAppointments(Sample& sample, outlook::port::MAPIFolder& folder, std::int32_t count) {
    const std::shared_ptr<outlook::port::Items> calendar = folder.items();
    for (const CalendarMatch& match : sample.appointments)
        addItem(sample, *calendar, {{property::Subject, match.subject}, {"Start", match.start}, {"End", match.end}});
    for (std::int32_t i = 0; i < count; ++i) addOwnAppointment(sample, *calendar);
}

void addTasks(Sample& sample, outlook::port::MAPIFolder& folder, std::int32_t count) {
    const std::shared_ptr<outlook::port::Items> tasks = folder.items();
    for (const CalendarMatch& match : sample.tasks)
        addItem(sample, *tasks, {{property::Subject, match.subject}, {"DueDate", dayOf(match.start)}});
    for (std::int32_t i = 0; i < count; ++i) {
        const CalendarText& text = sample.dice.pick(taskTexts());
        Properties properties{
            {property::Subject, text.subject}, {property::Body, text.notes}, {"Complete", sample.dice.chance(25)}};
        // One in four has no date at all.
        if (!sample.dice.chance(25)) properties.emplace_back("DueDate", dayOf(pickMoment(sample)));
        addItem(sample, *tasks, properties);
    }
}

}  // namespace

void fillOutlook(Sample& sample, outlook::port::Automation& store) {
    const std::shared_ptr<outlook::port::NameSpace> session = store.getRunning()->getNamespace("MAPI");
    const auto grown = static_cast<std::int32_t>(6 * std::sqrt(static_cast<double>(sample.options.companies)));
    const std::int32_t count = std::min(20 + grown, 400);
    addContacts(sample, *session->getDefaultFolder(DefaultFolder::contacts), count);
    const auto calendar = session->getDefaultFolder(DefaultFolder::calendar);
    const auto tasks = session->getDefaultFolder(DefaultFolder::tasks);
    addAppointments(sample, *calendar, count / 2);
    addTasks(sample, *tasks, count / 3);
    addSeries(sample, *calendar, *tasks);
}

}  // namespace wmoutlook::sample

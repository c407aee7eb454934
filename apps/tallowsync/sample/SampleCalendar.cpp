#include "apps/tallowsync/sample/Names.h"
#include "apps/tallowsync/sample/Sample.h"
#include "apps/tallowsync/sample/SampleText.h"
#include "platform/DateHelper.h"

#include <algorithm>
#include <string>

namespace wmoutlook::sample {

namespace {

constexpr std::size_t kMostMatches = 15;
constexpr std::int32_t kDaysAround = 120;

/// A stretch of a day; the times stand on day 0, as the host keeps them. All day is from midnight to midnight.
struct Slot {
    Date day;
    Date from;
    Date to;
};

Date timeOfDay(std::int32_t minutes) {
    return fromSecondsSinceDayZero(std::int64_t{minutes} * 60);
}

Date nextWeekday(Date day) {
    const auto number = static_cast<std::int64_t>(day.days);  // day 0 was a Saturday
    const std::int64_t weekday = number % 7;
    if (weekday == 0) return addDays(day, 2);
    return weekday == 1 ? addDays(day, 1) : day;
}

Slot pickSlot(Sample& sample) {
    Dice& dice = sample.dice;
    Slot slot;
    slot.day = nextWeekday(addDays(dayOf(sample.options.now), dice.between(-kDaysAround, kDaysAround)));
    const std::int32_t start = 8 * 60 + 15 * dice.below(36);
    slot.from = timeOfDay(start);
    slot.to = timeOfDay(start + 15 * dice.between(1, 8));
    return slot;
}

/// Whose time it is and for whom. A few records are internal, and a few old ones say nothing at all.
struct Booking {
    StaffMember user;
    Client client;
    bool isSilent = false;
};

Booking pickBooking(Sample& sample) {
    Booking booking;
    booking.user = sample.dice.pick(sample.staff);
    booking.isSilent = sample.dice.chance(5);
    if (!booking.isSilent && !sample.clients.empty() && sample.dice.chance(80)) booking.client = sample.dice.pick(sample.clients);
    return booking;
}

/// What the standard template of the calendar gives.
std::string textOf(const std::string& subject, const Client& client, const Slot& slot) {
    constexpr std::string_view kTime = "h:nn am/pm";
    return subject + " for " + client.name + "\r\n" + DateHelper::format(slot.from, kTime) + " to " +
           DateHelper::format(slot.to, kTime);
}

Fields calendarFields(const Booking& booking, const Slot& slot, const std::string& subject) {
    Fields fields{{"UserIDNum", booking.user.id},
                  {"DateFrom", slot.day},
                  {"TimeFrom", slot.from},
                  {"TimeTo", slot.to},
                  {"Subject", subject}};
    fields.push_back({"AppointmentText", textOf(subject, booking.client, slot)});
    if (booking.isSilent) return fields;
    fields.push_back({"CompanyIDNum", booking.client.companyID});
    fields.push_back({"ContactIDNum", booking.client.contactID});
    return fields;
}

void appendNotes(Fields& fields, std::string_view notes) {
    fields.push_back({"NotesFlag", !notes.empty()});
    if (!notes.empty()) fields.push_back({"TextBody", richText(notes)});
}

bool appendReminder(Sample& sample, Fields& fields) {
    const bool reminds = sample.dice.chance(35);
    fields.push_back({"Remind", reminds});
    if (reminds) fields.push_back({"ReminderPeriod", sample.dice.pick(reminderPeriods())});
    return reminds;
}

void remember(std::vector<CalendarMatch>& matches, const Slot& slot, const std::string& subject) {
    if (matches.size() >= kMostMatches) return;
    matches.push_back({subject, Date{slot.day.days + slot.from.days}, Date{slot.day.days + slot.to.days}});
}

std::int32_t addAppointmentRow(Sample& sample, Fields fields, std::string_view notes, const Slot& slot) {
    appendNotes(fields, notes);
    const bool reminds = appendReminder(sample, fields);
    const std::int32_t id = sample.rows.add("Appointments", fields);
    if (reminds) sample.rows.add("Reminders", {{"AppointmentIDNum", id}, {"Completed", isEarlier(slot.day, sample.options.now)}});
    if (sample.dice.chance(4))
        sample.rows.add("ClientNotification", {{"AppointmentNum", id}, {"NotificationSent", sample.dice.chance(50)}});
    return id;
}

void addTimedAppointments(Sample& sample, std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) {
        const Slot slot = pickSlot(sample);
        const CalendarText& text = sample.dice.pick(appointmentTexts());
        const Booking booking = pickBooking(sample);
        addAppointmentRow(sample, calendarFields(booking, slot, std::string{text.subject}), text.notes, slot);
        remember(sample.appointments, slot, std::string{text.subject});
    }
}

void addAllDayAppointments(Sample& sample, std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) {
        Slot slot = pickSlot(sample);
        slot.from = slot.to = Date{};
        Booking booking;
        booking.user = sample.dice.pick(sample.staff);
        addAppointmentRow(sample, calendarFields(booking, slot, std::string{sample.dice.pick(allDayTexts())}), "", slot);
    }
}

/// A series of one user: one row per occurrence, which share a number.
void addSeries(Sample& sample, std::int32_t repeatNumber) {
    const Booking booking = pickBooking(sample);
    const CalendarText& text = sample.dice.pick(appointmentTexts());
    const std::int32_t everyDays = sample.dice.chance(50) ? 7 : 28;
    Slot slot = pickSlot(sample);
    for (std::int32_t occurrence = 0; occurrence < 6; ++occurrence, slot.day = addDays(slot.day, everyDays)) {
        Fields fields = calendarFields(booking, slot, std::string{text.subject});
        fields.push_back({"RepeatNum", repeatNumber});
        addAppointmentRow(sample, fields, text.notes, slot);
    }
}

/// The job that a task belongs to; 111 with 5 is an entry that stands by itself.
std::int32_t addScheduleEntry(Sample& sample, const Booking& booking, const Slot& slot, bool isClosed) {
    Dice& dice = sample.dice;
    const bool isByItself = dice.chance(40);
    Fields fields{{"ClientNum", booking.client.companyID},
                  {"ContactIDNum", booking.client.contactID},
                  {"TotalNum", isByItself ? 111 : dice.between(1, 9)},
                  {"ScheduleNum", isByItself ? 5 : dice.between(1, 4)},
                  {"DueDate", addDays(slot.day, 14)},
                  {"InHouseDueDate", addDays(slot.day, 7)},
                  {"CalendarDate", slot.day},
                  {"PeriodDescription", std::to_string(civil(slot.day).year)},
                  {"EmployeeAssigned", booking.user.name},
                  {"Year", civil(slot.day).year}};
    if (isClosed) fields.insert(fields.end(), {{"DateCompleted", slot.day}, {"PersonCompleted", booking.user.name}});
    return sample.rows.add("Schedule", fields);
}

void addTask(Sample& sample, const Booking& booking, const Slot& slot, const CalendarText& text, const Variant& repeatNumber) {
    const std::string subject{text.subject};
    const bool isClosed = isEarlier(slot.day, sample.options.now) && sample.dice.chance(60);
    Fields fields = calendarFields(booking, slot, subject);
    appendNotes(fields, text.notes);
    fields.push_back({"Closed", isClosed});
    fields.push_back({"EstimatedTime", DateHelper::minutesBetween(slot.from, slot.to) / 60});
    fields.push_back({"RepeatNum", repeatNumber});
    if (booking.client.name.empty() || sample.dice.chance(40)) {
        sample.rows.add("Tasks", fields);
    } else {
        fields.push_back({"ScheduleIDNum", addScheduleEntry(sample, booking, slot, isClosed)});
        sample.rows.add("Tasks", fields);
        if (isClosed && sample.dice.chance(20)) sample.rows.add("archiveTasks", {{"ScheduleIDNum", fields.back().value}});
    }
    remember(sample.tasks, slot, subject);
}

void addTasks(Sample& sample, std::int32_t count, std::int32_t seriesCount) {
    for (std::int32_t i = 0; i < count; ++i) {
        const Booking booking = pickBooking(sample);
        const Slot slot = pickSlot(sample);
        addTask(sample, booking, slot, sample.dice.pick(taskTexts()), {});
    }
    for (std::int32_t series = 1; series <= seriesCount; ++series) {
        const Booking booking = pickBooking(sample);
        const CalendarText& text = sample.dice.pick(taskTexts());
        Slot slot = pickSlot(sample);
        for (std::int32_t month = 0; month < 4; ++month, slot.day = addDays(slot.day, 28))
            addTask(sample, booking, slot, text, series);
    }
}

void addDockets(Sample& sample, std::int32_t count) {
    constexpr double kRate = 95;
    for (std::int32_t i = 0; i < count; ++i) {
        const Slot slot = pickSlot(sample);
        const double hours = DateHelper::minutesBetween(slot.from, slot.to) / 60;
        const Booking booking = pickBooking(sample);
        Fields fields = calendarFields(booking, slot, std::string{sample.dice.pick(taskTexts()).subject});
        fields.insert(fields.end(), {{"DocketBillingType", "Hourly"},
                                     {"BillingJobRate", "95"},
                                     {"BillableTime", true},
                                     {"Invoiced", isEarlier(addDays(slot.day, 30), sample.options.now)},
                                     {"TotalTimeReal", hours},
                                     {"TotalTimeFinal", hours},
                                     {"TotalAmountFinal", hours * kRate}});
        sample.rows.add("Dockets", fields);
    }
}

}  // namespace

void addCalendar(Sample& sample) {
    const std::int32_t companies = sample.options.companies;
    addTimedAppointments(sample, 40 + companies);
    addAllDayAppointments(sample, 8 + companies / 15);
    for (std::int32_t series = 1; series <= 3 + companies / 50; ++series) addSeries(sample, series);
    addTasks(sample, 25 + companies, 2 + companies / 100);
    addDockets(sample, 15 + companies / 2);
}

}  // namespace wmoutlook::sample

#include "hostdata/HostServices.h"
#include "hostdata/Recordset.h"
#include "hostdata/modDatabaseFunctions_Calendar.h"
#include "platform/DateHelper.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"

#include <cmath>
#include <optional>
#include <string>
#include <utility>

namespace wmoutlook::modDatabaseFunctions {

namespace {

Date atHour(std::int32_t hour) {
    return fromSecondsSinceDayZero(std::int64_t{hour} * 3600);
}

/// In the precision of the hours that a record needs: twenty minutes are a third of an hour only there.
float hoursBetween(Date earlier, Date later) {
    return static_cast<float>(DateHelper::minutesBetween(earlier, later) / 60);
}

std::string recordsOfDay(CalendarType type, std::int32_t userID, Date day) {
    const std::string user = toText(userID);
    const std::string date = "#" + formatDateForSql(dayOf(day)) + "#";
    if (type == CalendarType::tasks)
        return "SELECT Tasks.UserIDNum, Tasks.DateFrom, Tasks.TimeFrom, Tasks.TimeTo FROM Tasks WHERE UserIDNum = " + user +
               " AND DateFrom = " + date + " ORDER BY Tasks.TimeTo;";
    const std::string table = type == CalendarType::dockets ? "Dockets" : "Appointments";
    return "SELECT " + table + ".UserIDNum, " + table + ".DateFrom, " + table + ".TimeFrom, " + table + ".TimeTo FROM " + table +
           " WHERE " + table + ".UserIDNum = " + user + " AND " + table + ".DateFrom = " + date + " ORDER BY " + table +
           ".TimeTo;";
}

/// Nothing for a blank time, for one that could not be read and for one that is none.
std::optional<Date> minuteIn(const Recordset& records, std::string_view field) {
    const Variant time = records.field(field);
    if (ValueHelper::isNullOrEmpty(time)) return std::nullopt;
    return statement([&]() -> std::optional<Date> { return minuteOf(time.toDate()); });
}

/// The first gap in front of a record, and where the last record that counts ends. A record that ends with the day, at 17:00,
/// does not count: its time is taken for free. Meant so.
struct OfficeDay {
    Date opens = atHour(9);
    Date closes = atHour(17);
    Date lastEnd = opens;
    std::optional<Date> gap;

    void walk(Recordset& records, float hours) {
        for (records.moveFirst(); !records.isAtEnd() && !gap; records.moveNext()) {
            const auto from = minuteIn(records, "TimeFrom");
            const auto to = minuteIn(records, "TimeTo");
            if (from && to) pass(*from, *to, hours);
        }
    }

private:
    void pass(Date from, Date to, float hours) {
        if (isEarlier(from, opens) || !isEarlier(to, closes)) return;
        if (isEarlier(lastEnd, from) && hoursBetween(lastEnd, from) >= hours) gap = lastEnd;
        if (!gap) lastEnd = to;
    }
};

/// The numbers drawn reach beyond the day, and all beyond it stand for one o'clock: about half of the picks.
Date randomHour() {
    constexpr double kHoursDrawn = 17;
    constexpr std::int32_t kFirstHour = 9;
    constexpr std::int32_t kLastHour = 17;
    constexpr std::int32_t kAfternoon = 13;
    const double drawn = statement([] {
        const auto random = hostServices().random;
        if (!random) throw ObjectNotSet{"random source"};
        return random->next();
    });
    const std::int32_t hour = static_cast<std::int32_t>(std::floor(kHoursDrawn * drawn)) + kFirstHour;
    return atHour(hour > kLastHour ? kAfternoon : hour);
}

}  // namespace

Date getBestTimeInCalendarForSpecificDayAndUser(CalendarType type, std::int32_t userID, Date day, float hours) {
    Date time;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-getBestTimeInCalendarForSpecificDayAndUser"};
    routine.run([&] {
        OfficeDay office;
        if (isDatabaseOpen()) {
            Recordset records{recordsOfDay(type, userID, day)};
            office.walk(records, hours);
        }
        // No other time is remembered: the best gap starts out at 9:00, but that is where the search begins and no answer.
        // Given as one it would put every task of a full day at nine; there chance decides.
        if (office.gap)
            time = *office.gap;
        else if (hoursBetween(office.lastEnd, office.closes) >= hours)
            time = office.lastEnd;
        else
            time = randomHour();
    });
    return time;
}

Date determineEndTimeFromEstimatedTime(Date start, float hours) {
    Date end = start;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-determineEndTimeFromEstimatedTime"};
    routine.run([&] {
        if (!(hours > 0)) return;
        // Measured from the day's first midnight, not to its last: early in the day every task ends at midnight. Meant so.
        const float sinceMidnight = std::abs(hoursBetween(minuteOf(start), Date{}));
        end = sinceMidnight > hours ? DateHelper::addHoursToTime(start, hours) : Date{};
    });
    return end;
}

void verifyStartAndEndTime(Date& start, Date& end) {
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-verifyStartAndEndTime"};
    routine.run([&] {
        if (isEarlier(end, start)) std::swap(start, end);
    });
}

}  // namespace wmoutlook::modDatabaseFunctions

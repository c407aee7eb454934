#include "calendar/CalendarWriter.h"
#include "platform/Errors.h"
#include "platform/Text.h"
#include "platform/Variant.h"

#include <limits>

namespace wmoutlook {

namespace {

struct UnitRow {
    std::string_view word;
    std::int32_t minutes;
};

/// Tried in this order, anywhere in the text: "Days" before the "Day" that it holds.
constexpr UnitRow kUnits[] = {
    {"min", 1}, {"hr", 60}, {"days", 1440}, {"day", 1440}, {"weeks", 10080}, {"week", 10080},
};

/// The host calculates reminders with 16 bits: four weeks are too many.
std::int32_t as16Bit(std::int32_t number) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (number < Limits::min() || number > Limits::max())
        throw ConversionError{"The reminder period has more minutes than 16 bits hold"};
    return number;
}

}  // namespace

std::int32_t reminderMinutes(std::string_view period) {
    const std::string text = lowerCase(period);
    for (const UnitRow& unit : kUnits) {
        if (text.find(unit.word) == std::string::npos) continue;
        const std::string count = replaceAll(text, unit.word, "");
        return as16Bit(as16Bit(Variant{trimmed(count)}.toInteger()) * unit.minutes);
    }
    return kDefaultReminderMinutes;
}

}  // namespace wmoutlook

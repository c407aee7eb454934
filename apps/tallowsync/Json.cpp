#include "apps/tallowsync/Json.h"

#include "platform/DateHelper.h"

namespace wmoutlook {

Json jsonDay(Date date) {
    return date == absentDate() ? Json{} : Json(DateHelper::format(date, "yyyy-mm-dd"));
}

Json jsonMoment(Date date) {
    if (date == absentDate()) return {};
    return DateHelper::format(date, "yyyy-mm-dd") + "T" + DateHelper::format(date, "hh:nn:ss");
}

std::string jsonText(const Json& document, int indent) {
    return document.dump(indent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace wmoutlook

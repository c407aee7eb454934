#include "apps/tallowsync/Json.h"

#include "platform/DateHelper.h"

#include <string_view>

namespace wmoutlook {

namespace {

/// JSON allows DEL and U+0080 to U+009F as they are, but some terminals obey them. They stand in texts only, so an escape may
/// take their place.
std::string withControlsEscaped(std::string text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    constexpr std::string_view kSuspects = "\x7F\xC2";
    std::size_t next = text.find_first_of(kSuspects);
    if (next == std::string::npos) return text;
    std::string escaped;
    std::size_t done = 0;
    for (; next != std::string::npos; next = text.find_first_of(kSuspects, next + 1)) {
        const std::size_t length = text[next] == '\x7F' ? 1 : 2;  // valid UTF-8: behind 0xC2 there is one more byte
        const auto code = static_cast<unsigned char>(text[next + length - 1]);
        if (code >= 0xA0) continue;
        escaped.append(text, done, next - done).append("\\u00").append(1, kDigits[code / 16]).append(1, kDigits[code % 16]);
        done = next + length;
    }
    return escaped.append(text, done);
}

}  // namespace

Json jsonDay(Date date) {
    return date == absentDate() ? Json{} : Json(DateHelper::format(date, "yyyy-mm-dd"));
}

Json jsonMoment(Date date) {
    if (date == absentDate()) return {};
    return DateHelper::format(date, "yyyy-mm-dd") + "T" + DateHelper::format(date, "hh:nn:ss");
}

std::string jsonText(const Json& document, int indent) {
    return withControlsEscaped(document.dump(indent, ' ', false, Json::error_handler_t::replace));
}

}  // namespace wmoutlook

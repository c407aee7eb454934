#include "apps/tallowsync/OptionTexts.h"

#include "apps/tallowsync/Console.h"
#include "apps/tallowsync/PlainText.h"
#include "platform/Text.h"

#include <algorithm>
#include <charconv>

namespace wmoutlook {

namespace {

[[noreturn]] void refuse(std::string_view option, std::string_view text, std::string_view expected) {
    throw UsageError{std::string{option} + ": \"" + std::string{text} + "\" is " + std::string{expected}};
}

template <class Number>
Number parsed(std::string_view option, std::string_view text, std::string_view expected) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) refuse(option, text, expected);
    return number;
}

}  // namespace

std::int32_t wholeNumber(std::string_view option, std::string_view text) {
    return parsed<std::int32_t>(option, text, "no whole number of 32 bits");
}

std::uint64_t seedNumber(std::string_view option, std::string_view text) {
    return parsed<std::uint64_t>(option, text, "no whole number from 0 up");
}

std::string nameText(std::string_view option, std::string_view text) {
    if (const std::string fault = faultOfName(text); !fault.empty())
        throw UsageError{std::string{option} + ": the name " + (text.empty() ? "" : inQuotes(text) + " ") + fault};
    return std::string{text};
}

Date moment(std::string_view option, std::string_view text) {
    const auto date = text.size() >= 10 ? fromIsoText(text) : std::nullopt;  // a time of day alone is shorter
    if (!date) refuse(option, text, "no moment such as 2026-11-22T09:00:00");
    return *date;
}

std::vector<std::string> listParts(std::string_view option, std::string_view text) {
    std::vector<std::string> parts;
    for (std::string_view rest = text;;) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        const std::string_view part = withoutWhiteSpaceAround(rest.substr(0, comma));
        if (part.empty()) refuse(option, text, "no list such as 1,2,3");
        parts.emplace_back(part);
        if (comma == rest.size()) return parts;
        rest.remove_prefix(comma + 1);
    }
}

}  // namespace wmoutlook

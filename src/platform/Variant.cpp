#include "platform/Variant.h"

#include "platform/Errors.h"
#include "platform/Text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

namespace wmoutlook {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};

template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::optional<double> numberIn(std::string_view text) {
    text = withoutWhiteSpaceAround(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    const bool isWhole = error == std::errc{} && end == text.data() + text.size() && !text.empty();
    if (!isWhole || !std::isfinite(number)) return std::nullopt;
    return number;
}

std::int32_t rounded(double number) {
    const double whole = std::nearbyint(number);  // half to even, as the host's language rounds
    if (!(whole >= std::numeric_limits<std::int32_t>::min() && whole <= std::numeric_limits<std::int32_t>::max()))
        throw ConversionError{"The number is outside the 32-bit range"};
    return static_cast<std::int32_t>(whole);
}

std::string textOf(double number) {
    if (number == 0) return "0";  // also the negative one
    char digits[400];
    const auto result = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed);
    return {digits, result.ptr};
}

}  // namespace

std::string Variant::toText() const {
    return std::visit(
        Overloaded{[](std::monostate) { return std::string{}; }, [](bool value) { return std::string{wmoutlook::toText(value)}; },
                   [](std::int32_t value) { return wmoutlook::toText(value); }, [](double value) { return textOf(value); },
                   [](Date value) { return toIsoText(value); }, [](const std::string& value) { return value; }},
        value_);
}

std::int32_t Variant::toInteger() const {
    if (const auto* number = std::get_if<std::int32_t>(&value_)) return *number;
    return rounded(toDouble());
}

double Variant::toDouble() const {
    return std::visit(Overloaded{[](std::monostate) -> double { throw ConversionError{"A null is no number"}; },
                                 [](bool value) -> double { return value ? kTrueAsNumber : 0; },
                                 [](std::int32_t value) -> double { return value; }, [](double value) { return value; },
                                 [](Date value) { return value.days; },
                                 [](const std::string& value) {
                                     if (const auto number = numberIn(value)) return *number;
                                     throw ConversionError{"The text is no number"};
                                 }},
                      value_);
}

bool Variant::toBoolean() const {
    if (const auto* value = text()) {
        if (equalsTextually(*value, "True")) return true;
        if (equalsTextually(*value, "False")) return false;
        if (!numberIn(*value)) throw ConversionError{"The text is no truth value"};
    }
    return toDouble() != 0;
}

Date Variant::toDate() const {
    if (const auto* value = text()) {
        if (const auto date = fromIsoText(*value)) return *date;
        throw ConversionError{"The text is no date"};
    }
    const double days = toDouble();
    constexpr double kYear100 = -657434;
    constexpr double kYear10000 = 2958466;
    if (!(std::trunc(days) >= kYear100 && days < kYear10000)) throw ConversionError{"The number is no date"};
    return Date{days};
}

std::string toText(std::int32_t number) {
    char digits[16];
    const auto result = std::to_chars(digits, digits + sizeof digits, number);
    return {digits, result.ptr};
}

std::string_view toText(bool value) {
    return value ? "True" : "False";
}

}  // namespace wmoutlook

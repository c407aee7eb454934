#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace wmoutlook {

/// An identifier that names no record.
inline constexpr std::int32_t kNoRecord = -1;
/// A truth value that stands where a number is expected counts as -1.
inline constexpr std::int32_t kTrueAsNumber = -1;

/// What a field of the host or a property of Outlook holds.
class Variant {
public:
    using Value = std::variant<std::monostate, bool, std::int32_t, double, Date, std::string>;

    Variant() = default;  ///< null
    Variant(bool value) : value_(value) {}
    Variant(std::int32_t value) : value_(value) {}
    Variant(double value) : value_(value) {}
    Variant(Date value) : value_(value) {}
    Variant(std::string value) : value_(std::move(value)) {}
    Variant(std::string_view value) : value_(std::string{value}) {}
    Variant(const char* value) : value_(std::string{value}) {}

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(value_); }
    [[nodiscard]] const Value& value() const { return value_; }

    /// The text form: "" for null, "True" or "False", a number without exponent or trailing zeros, a date as toIsoText.
    [[nodiscard]] std::string toText() const;
    /// The text itself without a copy when the value is a text; null otherwise.
    [[nodiscard]] const std::string* text() const { return std::get_if<std::string>(&value_); }

    /// The conversions throw ConversionError when the value has no such form: a null, a text that is no number, a number
    /// outside 32 bits. Fractions round to the nearest even whole number; True is -1.
    [[nodiscard]] std::int32_t toInteger() const;
    [[nodiscard]] double toDouble() const;
    [[nodiscard]] bool toBoolean() const;
    [[nodiscard]] Date toDate() const;

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    Value value_;
};

[[nodiscard]] std::string toText(std::int32_t number);
/// "True" or "False": the form in which truth values travel to the host database.
[[nodiscard]] std::string_view toText(bool value);
std::string toText(const char*) = delete;

}  // namespace wmoutlook

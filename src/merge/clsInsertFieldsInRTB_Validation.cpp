#include "merge/clsInsertFieldsInRTB.h"

#include "hostdata/HostServices.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/TextSearch.h"

#include <algorithm>

namespace wmoutlook {

namespace {

constexpr std::size_t kLongestName = 40;  ///< longer is taken for two placeholders with a mark missing
constexpr std::string_view kMissingOpening = "You are missing your opening brackets, '«' in one of your expressions";
constexpr std::string_view kMissingClosingRound =
    "You are missing the closing round bracket, ')' in one of your date expressions";
constexpr std::string_view kMissingOpeningRound =
    "You are missing the opening round bracket, '(' in one of your date expressions";
constexpr std::string_view kMissingClosing =
    "You are missing a closing bracket, '»' in one of your expressions.  Make sure you have a bracket immediately before and "
    "after "
    "a field.\r\n\r\neg. «Company Name»";

/// What stands between the first two marks, and what follows them.
struct Expression {
    std::string_view between;
    std::string_view rest;
};

enum class Look { noneLeft, unbalanced, found };

/// The first closing mark in front of the first opening one, or none for it, is an error; a closing mark alone is not.
Look nextExpression(std::string_view text, const merge::Marks& marks, Expression& expression) {
    const auto open = findTextually(text, marks.open);
    if (!open) return Look::noneLeft;
    const auto close = findTextually(text, marks.close);
    if (!close || close->position < open->position) return Look::unbalanced;
    const std::size_t start = open->position + open->length;
    expression = {text.substr(start, close->position - start), text.substr(close->position + close->length)};
    return Look::found;
}

bool isDateFormat(std::string_view format) {
    return std::any_of(merge::kDateFormats.begin(), merge::kDateFormats.end(),
                       [&](const merge::DateFormat& known) { return known.written == format; });
}

/// The name and the format of what stands between the round brackets. Without a comma there is no second part to take.
std::pair<std::string_view, std::string_view> dateParts(std::string_view expression) {
    constexpr std::int32_t kSubscriptOutOfRange = 9;
    expression = expression.substr(1, expression.size() - 2);
    const std::size_t comma = expression.find(',');
    if (comma == std::string_view::npos)
        throw Failure{kSubscriptOutOfRange, "A date expression has no format; it reads as «(Todays Date, mmmm d yyyy)» does"};
    return {trimmed(expression.substr(0, comma)), trimmed(expression.substr(comma + 1))};
}

/// A placeholder's name, and what is wrong with the rest of its expression; nothing when it is right.
struct Reading {
    std::string_view name;
    std::string fault{};
};

Reading readExpression(std::string_view between) {
    const bool isOpened = between.starts_with('(');
    const bool isClosed = between.ends_with(')');
    if (isOpened && !isClosed) return {between, std::string{kMissingClosingRound}};
    if (!isOpened && isClosed) return {between, std::string{kMissingOpeningRound}};
    if (!isOpened) return {between};
    const auto [name, format] = dateParts(between);
    if (isDateFormat(format)) return {name};
    return {name, "The date format of: '" + std::string{format} + "' is not valid.  Please see help for valid date formats."};
}

}  // namespace

bool clsInsertFieldsInRTB::testStr(std::string_view name) {
    bool isKnown = false;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-testStr"};
    routine.run([&] {
        isKnown = upperCase(name) == "TODAYS DATE" ||
                  fields_.find(name, merge::fieldColumn::kDisplayName) != merge::FieldList::kNotFound ||
                  (isKnownElsewhere && isKnownElsewhere(name));
    });
    return isKnown;
}

std::string clsInsertFieldsInRTB::faultOfName(std::string_view name, bool skipFieldNameCheck) {
    if (characterCount(name) > kLongestName) return std::string{kMissingClosing};
    if (skipFieldNameCheck || testStr(name)) return {};
    return "The " + applicationTitle() + " Pad did not recognize: «" + std::string{name} + "» as a valid placeholder field name.";
}

bool clsInsertFieldsInRTB::testRTBComment(std::string text, bool treatAsRtf, bool showMessages, bool skipFieldNameCheck) {
    bool hasError = false;
    const auto fail = [&](std::string_view message) {
        hasError = true;
        if (showMessages) MergeCommentError.raise(std::string{message});
    };
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-testRTBComment"};
    routine.run([&] {
        text = convertProvinceFields(std::move(text));
        const merge::Marks& marks = treatAsRtf ? merge::kEscapedMarks : merge::kPlainMarks;
        Expression expression{{}, text};
        Look look = nextExpression(text, marks, expression);
        if (look == Look::unbalanced) fail(kMissingOpening);
        while (look == Look::found && !hasError) {
            hasError = true;  // as long as the expression has not been read
            Reading reading = readExpression(expression.between);
            hasError = false;
            if (reading.fault.empty()) reading.fault = faultOfName(reading.name, skipFieldNameCheck);
            if (!reading.fault.empty()) fail(reading.fault);
            look = nextExpression(expression.rest, marks, expression);
            if (look == Look::unbalanced) fail(kMissingOpening);
        }
    });
    return hasError;
}

}  // namespace wmoutlook

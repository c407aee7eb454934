#include "hostdata/Recordset.h"

#include "hostdata/HostServices.h"
#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/ValueHelper.h"

#include <exception>
#include <type_traits>
#include <utility>

namespace wmoutlook {

namespace {

/// A statement at the end of a scope: silent when the scope is left by an exception.
template <class Attempt>
auto closingStatement(int exceptionsBefore, Attempt&& attempt, std::invoke_result_t<Attempt> skipped)
    -> std::invoke_result_t<Attempt> {
    if (std::uncaught_exceptions() == exceptionsBefore) return statement(attempt, skipped);
    try {
        return attempt();
    } catch (...) {  // the exception on its way is what matters
        return skipped;
    }
}

}  // namespace

Recordset::Recordset(std::string_view sql, LockCode lock)
    : database_(hostServices().database), exceptionsAtOpening_(std::uncaught_exceptions()) {
    handle_ = statement([&] { return database().openRecordset(sql, lock); }, kNoRecordset);
}

Recordset::~Recordset() noexcept(false) {
    close();
}

void Recordset::close() {
    const RecordsetHandle handle = std::exchange(handle_, kNoRecordset);
    if (handle == kNoRecordset) return;
    bool isToClose = true;
    try {
        isToClose = closingStatement(
            exceptionsAtOpening_, [&] { return database_->isRecordsetOpen(handle); }, true);
    } catch (...) {  // the routine is left: the handle is closed all the same
        quietly([&] { database_->closeRecordset(handle); });
        throw;
    }
    if (isToClose)
        closingStatement(
            exceptionsAtOpening_, [&] { return database_->closeRecordset(handle), true; }, true);
}

/// Reads and converts a field in one statement, so that trying again meets a row that was put right meanwhile.
template <class Convert>
auto Recordset::converted(std::string_view name, Convert conversion) const {
    return convert(
        name, [&] { return conversion(database().getField(handle_, name)); }, std::nullopt);
}

void Recordset::failToConvert(std::string_view field, const ConversionError& error) const {
    const std::string record = recordName_.empty() ? "" : " of " + recordName_;
    throw ConversionError{"The field \"" + std::string{field} + "\"" + record + " holds what cannot be used: " + error.what()};
}

HostDatabase& Recordset::database() const {
    if (!database_) throw ObjectNotSet{"host database"};
    return *database_;
}

std::int32_t Recordset::recordCount() const {
    return statement([&] { return database().recordCount(handle_); });
}

bool Recordset::hasRows() const {
    return statement([&] { return database().hasRows(handle_); });
}

std::optional<bool> Recordset::hasRowsIfTold() const {
    const auto told = statement([&]() -> std::optional<bool> { return database().hasRows(handle_); });
    return isOpen() ? told : std::nullopt;  // a service may say "no rows" of a set that it never opened
}

bool Recordset::isAtEnd() const {
    return isPassedOver_ || statement([&] { return database().isEndOfRecordset(handle_); }, true);
}

bool Recordset::moveFirst() {
    const auto hasRow = statement([&]() -> std::optional<bool> { return database().moveFirst(handle_); });
    isPassedOver_ = !hasRow;
    return hasRow.value_or(false);
}

void Recordset::moveNext() {
    if (!isPassedOver_) isPassedOver_ = !statement([&] { return database().moveNext(handle_), true; });
}

Variant Recordset::field(std::string_view name) const {
    return statement([&] { return database().getField(handle_, name); });
}

std::string Recordset::text(std::string_view name) const {
    return field(name).toText();
}

std::optional<Variant> Recordset::fieldIfRead(std::string_view name) const {
    return statement([&]() -> std::optional<Variant> { return database().getField(handle_, name); });
}

std::optional<std::string> Recordset::textIfRead(std::string_view name) const {
    return statement([&]() -> std::optional<std::string> { return database().getField(handle_, name).toText(); });
}

std::optional<Date> Recordset::dateIfRead(std::string_view name) const {
    return converted(name, [](const Variant& value) { return std::optional{value.toDate()}; });
}

std::optional<bool> Recordset::truthIfRead(std::string_view name) const {
    return converted(name, [](const Variant& value) { return std::optional{value.toBoolean()}; });
}

std::optional<std::int32_t> Recordset::numberIfRead(std::string_view name, std::int32_t fallback) const {
    return converted(name, [&](const Variant& value) {
        return std::optional{ValueHelper::isNullOrEmpty(value) ? fallback : value.toInteger()};
    });
}

std::int32_t Recordset::number(std::string_view name, std::int32_t fallback) const {
    return numberIfRead(name, fallback).value_or(fallback);
}

bool Recordset::truth(std::string_view name) const {
    const auto isTrue = converted(
        name, [](const Variant& value) { return std::optional{!ValueHelper::isNullOrEmpty(value) && value.toBoolean()}; });
    return isTrue.value_or(false);
}

std::optional<bool> Recordset::findFirstIfTold(std::string_view field, std::string_view value) const {
    const auto isFound = statement([&]() -> std::optional<bool> { return database().findFirst(handle_, field, value); });
    if (isFound.value_or(false)) isPassedOver_ = false;
    return isOpen() ? isFound : std::nullopt;
}

std::optional<bool> Recordset::findFirstIfTold(std::string_view field, std::int32_t value) const {
    return findFirstIfTold(field, toText(value));
}

bool Recordset::findFirst(std::string_view field, std::string_view value) const {
    return findFirstIfTold(field, value).value_or(false);
}

bool Recordset::findFirst(std::string_view field, std::int32_t value) const {
    return findFirst(field, toText(value));
}

bool Recordset::findNext() const {
    const bool isFound = statement([&] { return database().findNext(handle_); });
    if (isFound) isPassedOver_ = false;
    return isFound;
}

bool Recordset::update(std::string_view field, std::string_view value) const {
    return statement([&] { return database().updateField(handle_, field, value), true; });
}

bool Recordset::deleteRecord() const {
    return statement([&] { return database().deleteRecord(handle_), true; });
}

bool Recordset::addNew() const {
    return statement([&] { return database().addNewRecord(handle_), true; });
}

bool Recordset::set(std::string_view field, std::string_view value) const {
    return statement([&] { return database().setNewField(handle_, field, value), true; });
}

bool Recordset::save() const {
    return statement([&] { return database().saveNewRecord(handle_), true; });
}

KeptPosition::KeptPosition(const Recordset& recordset)
    : recordset_(recordset),
      marker_(
          statement([&]() -> std::optional<RecordMarker> { return recordset.database().saveRecordPosition(recordset.handle_); })),
      wasPassedOver_(recordset.isPassedOver_),
      exceptionsAtStart_(std::uncaught_exceptions()) {}

KeptPosition::~KeptPosition() noexcept(false) {
    // A set that stays on a row of the nested walk would be walked from there again: it counts as being at its end.
    recordset_.isPassedOver_ = true;
    if (!marker_) return;
    const auto restore = [&] { return recordset_.database().restoreRecordPosition(recordset_.handle_, *marker_), true; };
    recordset_.isPassedOver_ = !closingStatement(exceptionsAtStart_, restore, false) || wasPassedOver_;
}

}  // namespace wmoutlook

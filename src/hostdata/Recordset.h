#pragma once

#include "platform/Errors.h"
#include "platform/HostDatabase.h"
#include "platform/Routine.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace wmoutlook {

/// A recordset of the host's database, open for the life of this object. Each operation is a statement of the current
/// routine. A skipped one leaves behind what ends every loop: null, empty text, not found, no rows, at the end; a skipped
/// moveNext puts the set at its end too.
class Recordset {
public:
    /// Opens on the module-wide database.
    explicit Recordset(std::string_view sql, LockCode lock = LockCode::readOnly);
    /// Closing is the last statement, so it may leave the routine; while an exception passes it is silent.
    ~Recordset() noexcept(false);
    /// Earlier than at the end of its life; from then on it is a set that is not open.
    void close();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    [[nodiscard]] RecordsetHandle handle() const { return handle_; }
    /// What messages call the current record, such as "Appointments 12".
    void nameRecord(std::string name) { recordName_ = std::move(name); }
    /// A conversion of a field's value as a statement; what cannot be converted is told with its field and record.
    template <class Attempt>
    auto convert(std::string_view field, Attempt attempt, std::invoke_result_t<Attempt> skipped) const;
    [[nodiscard]] std::int32_t recordCount() const;
    [[nodiscard]] bool hasRows() const;
    /// Nothing when it could not be told: only a set that is known to be empty is a licence to add what is missing.
    [[nodiscard]] std::optional<bool> hasRowsIfTold() const;
    [[nodiscard]] bool isAtEnd() const;
    bool moveFirst();
    void moveNext();

    [[nodiscard]] Variant field(std::string_view name) const;
    [[nodiscard]] std::string text(std::string_view name) const;  ///< "" for a blank value
    /// Nothing when the read was skipped, so that a failing service does not blank what the value was meant for.
    [[nodiscard]] std::optional<Variant> fieldIfRead(std::string_view name) const;
    [[nodiscard]] std::optional<std::string> textIfRead(std::string_view name) const;
    /// Nothing when the read was skipped or the value is no date (no truth value); a null is neither.
    [[nodiscard]] std::optional<Date> dateIfRead(std::string_view name) const;
    [[nodiscard]] std::optional<bool> truthIfRead(std::string_view name) const;
    /// The fallback for a blank value and for one that is no number.
    [[nodiscard]] std::int32_t number(std::string_view name, std::int32_t fallback) const;
    /// The fallback for a blank value; nothing when the read was skipped or the value is no number.
    [[nodiscard]] std::optional<std::int32_t> numberIfRead(std::string_view name, std::int32_t fallback) const;
    [[nodiscard]] bool truth(std::string_view name) const;  ///< false for a blank value

    bool findFirst(std::string_view field, std::string_view value) const;
    bool findFirst(std::string_view field, std::int32_t value) const;
    /// Nothing when the search was skipped: only one that found nothing is a licence to add the row.
    [[nodiscard]] std::optional<bool> findFirstIfTold(std::string_view field, std::string_view value) const;
    [[nodiscard]] std::optional<bool> findFirstIfTold(std::string_view field, std::int32_t value) const;
    bool findNext() const;

    // Each gives whether it went through. The auto-number of a new row is to be read behind addNew alone.

    bool update(std::string_view field, std::string_view value) const;
    bool deleteRecord() const;
    bool addNew() const;
    bool set(std::string_view field, std::string_view value) const;
    bool save() const;

private:
    friend class KeptPosition;

    template <class Convert>
    [[nodiscard]] auto converted(std::string_view name, Convert conversion) const;
    [[noreturn]] void failToConvert(std::string_view field, const ConversionError& error) const;
    [[nodiscard]] HostDatabase& database() const;
    [[nodiscard]] bool isOpen() const { return handle_ != kNoRecordset; }

    std::shared_ptr<HostDatabase> database_;
    RecordsetHandle handle_ = kNoRecordset;
    std::string recordName_;
    mutable bool isPassedOver_ = false;  ///< a move was skipped: the set counts as being at its end until a row is found
    int exceptionsAtOpening_ = 0;
};

template <class Attempt>
auto Recordset::convert(std::string_view field, Attempt attempt, std::invoke_result_t<Attempt> skipped) const {
    return statement(
        [&] {
            try {
                return attempt();
            } catch (const ConversionError& error) {
                failToConvert(field, error);
            }
        },
        std::move(skipped));
}

/// Puts a recordset back on its row when a nested call that uses the same service is over. The recordset outlives it.
class KeptPosition {
public:
    explicit KeptPosition(const Recordset& recordset);
    ~KeptPosition() noexcept(false);
    KeptPosition(const KeptPosition&) = delete;
    KeptPosition& operator=(const KeptPosition&) = delete;

private:
    const Recordset& recordset_;
    std::optional<RecordMarker> marker_;  ///< nothing when the position could not be told
    bool wasPassedOver_;
    int exceptionsAtStart_;
};

}  // namespace wmoutlook

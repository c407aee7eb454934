#pragma once

#include "platform/Variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

class Recordset;

/// The custom columns of tasks, personal tax records and projects whose values are not typed: a lookup column is copied from a field of
/// the client, a repeater column holds one value in all rows of a client or of a type. With a closed database, a type or a number of a
/// column that is none, and in the one data file that is left out, the tests are False and nothing is written; nor is anything
/// written into a column of another kind than the one that a routine is for.
class clsLookupFields {
public:
    static constexpr std::int32_t kTaskColumns = 1;
    static constexpr std::int32_t kPersonalTaxColumns = 2;
    static constexpr std::int32_t kProjectColumns = 3;

    enum class ClientType { company, contact };

    std::int32_t LookUpFieldsType = 0;  ///< one of the three
    std::int32_t clientIDNum = kNoRecord;
    std::int32_t companyIDNum = kNoRecord;
    std::int32_t contactIDNum = kNoRecord;
    std::int32_t PersonalTaxYear = 0;
    std::int16_t customNumber = 0;  ///< of the column, 1 to 5
    std::string fieldName;          ///< the database field of the merge that feeds a lookup column
    std::string RepeatValue;

    void clientType(ClientType type) { clientType_ = type; }  ///< whose rows a repeater column is for

    [[nodiscard]] bool isLookupField() const;
    [[nodiscard]] bool isClientRepeaterField() const;
    [[nodiscard]] bool isTaskTypeRepeaterField() const;

    /// The rows of a client whose value could not be read keep theirs.
    void populateLookupFieldValuesForAllClients() const;
    void removeLookupFieldVales() const;  ///< blanks the column in all rows, of personal tax records in those of the year

    // Each writes RepeatValue into the column of all rows of the client: of clientIDNum, or of companyIDNum and contactIDNum.

    void populateClientRepeaterFieldValues() const;
    void populateTaskTypeRepeaterFieldValues() const;
    void populateProjectTypeRepeaterFieldValues() const;

private:
    struct Client {
        std::int32_t companyID = kNoRecord;
        std::int32_t contactID = kNoRecord;
    };

    [[nodiscard]] bool canWork() const;
    /// A statement of the routine that is running.
    [[nodiscard]] bool hasKind(std::int32_t kind) const;
    [[nodiscard]] bool isOfKind(std::string_view errorTag, std::int32_t kind) const;
    [[nodiscard]] std::string clientsQuery() const;
    [[nodiscard]] std::optional<Client> clientOf(const Recordset& row) const;
    [[nodiscard]] Client chosenClient() const;
    [[nodiscard]] std::string rowsQuery(const Client& client) const;
    [[nodiscard]] std::optional<std::string> valueFor(const Client& client) const;
    void write(std::string_view query, std::string_view value) const;
    void repeat(std::string_view errorTag, std::int32_t kind) const;

    ClientType clientType_ = ClientType::company;
};

}  // namespace wmoutlook

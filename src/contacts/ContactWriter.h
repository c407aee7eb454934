#pragma once

#include "syncstore/SyncRun.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

class Recordset;

/// Writes one host client into one Outlook contact: the item is updated when it can be got, otherwise created. Mapped
/// properties are overwritten, blank values included, but for dates, the numbers that only fill a gap and the business block
/// that was not asked for. A property without a host field is left alone, and so is one whose field could not be read.
class ContactWriter {
public:
    explicit ContactWriter(SyncRun& run) : run_(run) {}

    // The result is the entry identifier of the saved item, kNothingWritten (TargetItem.h) when the host's row is gone, and no
    // value when the item was not saved for another reason: the database is closed, a call failed, the routine was left.

    /// A contact, with company data when the run asks for it; companyID is -1 for none. A blank entryID creates an item.
    std::optional<std::string> createNewTallowbrookContactInOutlook(std::int32_t contactID, std::int32_t companyID,
                                                                    std::string_view entryID, std::string_view storeID) const;
    /// A company, with the person data of its default contact when the run asks for it.
    std::optional<std::string> createNewTallowbrookCompanyInOutlook(std::int32_t companyID, std::string_view entryID,
                                                                    std::string_view storeID) const;

private:
    void writeContact(const outlook::Item& item, const Recordset& contact, std::int32_t contactID, std::int32_t companyID) const;
    void writeBusinessOfContact(const outlook::Item& item, const Recordset& contact, std::int32_t companyID) const;
    void writeCompany(const outlook::Item& item, const Recordset& company, std::int32_t companyID) const;
    /// The default contact whose data was written; -1 when the company has none.
    std::int32_t writeDefaultContact(const outlook::Item& item, const Recordset& company, std::int32_t companyID) const;
    void showProgress(std::string_view name) const;

    SyncRun& run_;
};

/// Fills gaps so that the first slots are not empty. It copies and never clears: one address can end up in two or three slots.
void sortEmailAddresses(std::string& first, std::string& second, std::string& third);

}  // namespace wmoutlook

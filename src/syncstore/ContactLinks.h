#pragma once

#include "syncstore/SyncRun.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

class Recordset;

/// Which host record belongs to which Outlook contact: the rows of OutlookSync, and what stands in for a row that is missing.
/// Links are scoped by data file and Outlook store; a link row whose number is blank is no link.
///
/// After a write to Outlook the pass saves by host number (save...OutlookID), after an import by entry identifier
/// (saveOutlook...ID). Each keeps the row unique on its own side only, so a record that was written out and also imported
/// from another item holds two rows.
class ContactLinks {
public:
    explicit ContactLinks(SyncRun& run) : run_(run) {}

    // Empty when there is no link and no item in the default contacts folder is filed under the name. The default folder is
    // searched whatever the store. A name with a double quote makes the search fail, through the handler: it finds nothing.
    // No value at all when the link could not be told: a record that may well be linked is not to be created again.

    [[nodiscard]] std::optional<std::string> getOutlookIDFromTallowbrookCompanyID(std::int32_t companyID,
                                                                                  std::string_view storeID) const;
    /// Tries DisplayName first, then the name as the user wants it displayed.
    [[nodiscard]] std::optional<std::string> getOutlookIDFromTallowbrookContactID(std::int32_t contactID,
                                                                                  std::string_view storeID) const;

    // -1 when there is neither a link nor, with the finder, a record that looks the same; isNew is true then.

    [[nodiscard]] std::int32_t getTallowbrookCompanyIDFromOutlookID(std::string_view entryID, std::string_view storeID,
                                                                    bool useDuplicateFinder, bool& isNew) const;
    [[nodiscard]] std::int32_t getTallowbrookContactIDFromOutlookID(std::string_view entryID, std::string_view storeID,
                                                                    bool useDuplicateFinder, bool& isNew) const;

    void saveCompanyOutlookID(std::int32_t companyID, std::string_view entryID, std::string_view storeID) const;
    void saveContactOutlookID(std::int32_t contactID, std::string_view entryID, std::string_view storeID) const;
    void saveOutlookCompanyID(std::string_view entryID, std::string_view storeID, std::int32_t companyID) const;
    void saveOutlookContactID(std::string_view entryID, std::string_view storeID, std::int32_t contactID) const;

private:
    /// The field of the link row that holds the host's number.
    enum class HostField { companyNum, contactNum };

    struct LinkSearch {
        HostField field;
        std::string_view entryID;
        std::string_view storeID;
        bool useDuplicateFinder;
    };

    static std::string_view nameOf(HostField field);
    [[nodiscard]] std::optional<bool> findOutlookID(HostField field, std::int32_t number, std::string_view storeID,
                                                    std::optional<std::string>& entryID) const;
    void findHostNumber(HostField field, std::string_view entryID, std::string_view storeID,
                        std::optional<std::int32_t>& number) const;
    template <class Finder>
    void findHostRecord(const LinkSearch& wanted, const std::shared_ptr<Finder>& finder,
                        std::optional<std::int32_t> (*search)(Finder&, const outlook::Item&),
                        std::optional<std::int32_t>& number) const;
    void saveByHostNumber(HostField field, std::int32_t number, std::string_view entryID, std::string_view storeID) const;
    void saveByEntryID(HostField field, std::string_view entryID, std::string_view storeID, std::int32_t number) const;
    void addLink(const Recordset& links, HostField field, std::int32_t number, std::string_view entryID,
                 std::string_view storeID) const;

    SyncRun& run_;
};

}  // namespace wmoutlook

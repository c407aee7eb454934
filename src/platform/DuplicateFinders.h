#pragma once

#include "platform/HostDatabase.h"
#include "platform/Services.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace wmoutlook {

/// What may be compared; the wizard copies these from its check boxes.
struct DuplicateMatchSettings {
    bool byName = true;
    bool byTelephone = false;
    bool byEmailAddress = false;

    friend bool operator==(const DuplicateMatchSettings&, const DuplicateMatchSettings&) = default;
};

/// What both finders of the import library have in common. A finder is cleared, given the values of one item, told the
/// option and the kind of search, and searched; the found-test and the found number then tell the result.
class DuplicateFinder {
public:
    virtual ~DuplicateFinder() = default;

    virtual void setErrorService(std::shared_ptr<ErrorService> service) = 0;
    virtual void setMessageBoxService(std::shared_ptr<MessageBoxService> service) = 0;
    virtual void setDatabase(std::shared_ptr<HostDatabase> database) = 0;
    virtual void setLocaleService(std::shared_ptr<LocaleService> service) = 0;

    virtual void setMatchSettings(const DuplicateMatchSettings& settings) = 0;
    [[nodiscard]] virtual DuplicateMatchSettings matchSettings() const = 0;
    virtual void setLookAtInactiveClients(bool option) = 0;  ///< the Boolean option
    virtual void setCheckingOn(bool on) = 0;
    [[nodiscard]] virtual bool isCheckingOn() const = 0;

    /// A run begins: host tables are read anew at the next search.
    virtual void startRun() = 0;

    virtual void clear() = 0;  ///< forgets the item's values and the last result
    virtual void setTelephone(std::string_view number) = 0;
    virtual void setEmailAddress(std::string_view address) = 0;
    virtual void setSearchKind(std::int32_t kind) = 0;
    virtual void search() = 0;
};

/// Kinds 1 and 2 answer through the first found-test, kind 3 through the second.
class CompanyDuplicateFinder : public DuplicateFinder {
public:
    virtual void setCompanyName(std::string_view name) = 0;

    [[nodiscard]] virtual bool isFound() const = 0;
    [[nodiscard]] virtual std::int32_t foundNumber() const = 0;  ///< -1 when none
    [[nodiscard]] virtual bool isFoundTolerantly() const = 0;
    [[nodiscard]] virtual std::int32_t tolerantlyFoundNumber() const = 0;
};

class ContactDuplicateFinder : public DuplicateFinder {
public:
    virtual void setFullName(std::string_view name) = 0;
    virtual void setFirstName(std::string_view name) = 0;
    virtual void setLastName(std::string_view name) = 0;

    [[nodiscard]] virtual bool isFound() const = 0;
    [[nodiscard]] virtual std::int32_t foundNumber() const = 0;  ///< -1 when none
};

}  // namespace wmoutlook

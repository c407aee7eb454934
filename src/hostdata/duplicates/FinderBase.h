#pragma once

#include "hostdata/duplicates/NormalisedNames.h"
#include "hostdata/duplicates/NumbersByKey.h"
#include "platform/DuplicateFinders.h"
#include "platform/Errors.h"
#include "platform/Routine.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace wmoutlook {

/// What both finders have in common: settings, values and the reading of the host. `Index` is a finder's own index of names.
template <class Port, class Index>
class FinderBase : public Port {
public:
    // Routines report to the module-wide error service, which is the one handed over here; a finder asks neither a person nor
    // the locale anything.
    void setErrorService(std::shared_ptr<ErrorService> /*service*/) final {}
    void setMessageBoxService(std::shared_ptr<MessageBoxService> /*service*/) final {}
    void setLocaleService(std::shared_ptr<LocaleService> /*service*/) final {}

    void setDatabase(std::shared_ptr<HostDatabase> database) final {
        database_ = std::move(database);
        forgetHost();
    }

    void setMatchSettings(const DuplicateMatchSettings& settings) final {
        if (settings != settings_) forgetHost();  // other columns are wanted
        settings_ = settings;
    }
    [[nodiscard]] DuplicateMatchSettings matchSettings() const final { return settings_; }
    void setLookAtInactiveClients(bool option) final { lookAt_ = option ? LookAt::all : LookAt::activeOnly; }
    void setCheckingOn(bool on) final { isCheckingOn_ = on; }
    [[nodiscard]] bool isCheckingOn() const final { return isCheckingOn_; }

    void startRun() final { forgetHost(); }

    void clear() final {
        telephone_.clear();
        emailAddress_.clear();
        isUpToDate_ = false;
        clearItem();
    }
    void setTelephone(std::string_view number) final { telephone_ = telephoneKey(number); }
    void setEmailAddress(std::string_view address) final { emailAddress_ = sameNameKey(address); }
    void setSearchKind(std::int32_t kind) final { kind_ = kind; }

protected:
    virtual void clearItem() = 0;  ///< the finder's own values, and the result
    [[nodiscard]] virtual bool isNameGiven() const = 0;
    [[nodiscard]] virtual std::int32_t findByName(const Index& names, LookAt lookAt) const = 0;
    [[nodiscard]] virtual std::unordered_set<std::int32_t> readInactive(HostDatabase& database) const = 0;
    /// Indexes the records whose number is above the given one. May be called again for rows that it has indexed.
    virtual void readRecords(HostDatabase& database, std::int32_t above) = 0;

    [[nodiscard]] std::int32_t kind() const { return kind_; }
    [[nodiscard]] const DuplicateMatchSettings& settings() const { return settings_; }

    /// The record that the given values lead to. Reading the host, where needed, is a statement of the current routine.
    [[nodiscard]] std::int32_t findRecord() {
        if (!isAnythingToCompare()) return kNoRecord;
        readHost();
        if (!isRead_) return kNoRecord;
        std::int32_t found = settings_.byName && isNameGiven() ? findByName(index_.names, lookAt_) : kNoRecord;
        if (found == kNoRecord && settings_.byEmailAddress) found = index_.emailAddresses.find(emailAddress_, lookAt_);
        if (found == kNoRecord && settings_.byTelephone) found = index_.telephones.find(telephone_, lookAt_);
        return found;
    }

    // For readRecords

    [[nodiscard]] HostRecord recordOf(std::int32_t number) {
        highestSeen_ = std::max(highestSeen_, number);
        return {number, index_.inactive.contains(number)};
    }
    [[nodiscard]] Index& names() { return index_.names; }
    void addTelephone(std::string_view number, const HostRecord& record) { index_.telephones.add(telephoneKey(number), record); }
    void addEmailAddress(std::string_view address, const HostRecord& record) {
        index_.emailAddresses.add(sameNameKey(address), record);
    }

private:
    struct HostIndex {
        Index names;
        NumbersByKey emailAddresses;
        NumbersByKey telephones;
        std::unordered_set<std::int32_t> inactive;
        bool knowsInactive = false;
        std::int32_t highestNumber = kNoRecord;
    };

    [[nodiscard]] bool isAnythingToCompare() const {
        return (settings_.byName && isNameGiven()) || (settings_.byEmailAddress && !emailAddress_.empty()) ||
               (settings_.byTelephone && !telephone_.empty());
    }

    void forgetHost() {
        index_ = HostIndex{};
        isRead_ = isUpToDate_ = false;
    }

    /// All at the first search of a run, later what was added since the last item. Who is inactive is read when a search first
    /// needs to know; the rest is then read once more.
    void readHost() {
        if (isRead_ && !index_.knowsInactive && lookAt_ == LookAt::activeOnly) forgetHost();
        if (isUpToDate_) return;
        statement([&] {
            if (!database_) throw ObjectNotSet{"host database of the duplicate finder"};
            if (!index_.knowsInactive && lookAt_ == LookAt::activeOnly) readAllInactive();
            highestSeen_ = index_.highestNumber;
            readRecords(*database_, index_.highestNumber);
            index_.highestNumber = highestSeen_;  // only behind a whole walk: a part of the rows is read again
            isRead_ = isUpToDate_ = true;
        });
    }

    void readAllInactive() {
        index_.inactive = readInactive(*database_);
        index_.knowsInactive = true;
    }

    std::shared_ptr<HostDatabase> database_;
    DuplicateMatchSettings settings_;
    LookAt lookAt_ = LookAt::activeOnly;
    bool isCheckingOn_ = false;
    std::int32_t kind_ = 1;
    std::string telephone_;
    std::string emailAddress_;
    HostIndex index_;
    std::int32_t highestSeen_ = kNoRecord;
    bool isRead_ = false;      ///< the tables were read whole in this run
    bool isUpToDate_ = false;  ///< and so were the rows added before this item
};

}  // namespace wmoutlook

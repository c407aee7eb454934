#pragma once

#include "adapters/outlookstore/StoreFile.h"
#include "platform/outlook/ObjectModel.h"

#include <memory>

namespace wmoutlook::outlookstore {

/// What openOutlookStore gives.
class StoreAutomation : public outlook::port::Automation {
public:
    StoreAutomation(std::shared_ptr<StoreFile> file, const OutlookStoreOptions& options);

    [[nodiscard]] std::shared_ptr<outlook::port::Application> getRunning() override;
    [[nodiscard]] std::shared_ptr<outlook::port::Application> createNew() override;

    /// For the owner of the store: always there, always logged on, not counted as a running Outlook.
    [[nodiscard]] const std::shared_ptr<Instance>& inspection() const { return inspection_; }

private:
    std::shared_ptr<StoreFile> file_;
    bool canStart_;
    bool acceptsLogon_;
    std::shared_ptr<Instance> running_;
    std::shared_ptr<Instance> inspection_;
};

/// Throws OutlookError for another adapter's object.
[[nodiscard]] StoreAutomation& storeOf(outlook::port::Automation& automation);

/// The folder or item of this identifier; an OutlookError when it is not there or lies in another store than `storeID`
/// names (empty: whichever).
[[nodiscard]] std::shared_ptr<outlook::port::MAPIFolder> folderFromID(const std::shared_ptr<Instance>& instance,
                                                                      std::string_view entryID, std::string_view storeID);
[[nodiscard]] std::shared_ptr<outlook::port::Item> itemFromID(const std::shared_ptr<Instance>& instance, std::string_view entryID,
                                                              std::string_view storeID);

}  // namespace wmoutlook::outlookstore

#pragma once

#include "adapters/headless/ConsoleErrorService.h"
#include "platform/Date.h"
#include "syncstore/SyncEnumerations.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace wmoutlook {

/// What is chosen of one kind of thing: everything, or what is listed.
template <class Element>
struct Choice {
    bool isAll = false;
    std::vector<Element> listed;
};

struct ContactChoice {
    std::int32_t contact = 0;
    std::optional<std::int32_t> company;  ///< under which the contact is written
};

struct Selection {
    Choice<std::int32_t> companies;
    Choice<ContactChoice> contacts;
    Choice<std::int32_t> users;
    Choice<std::string> items;  ///< entry identifiers
};

/// One run, as the command line asks for it.
struct SyncRequest {
    std::string firm;
    std::string outlook;
    outlookSyncObjectsEnum objects = outlookSyncObjectsEnum::syncContacts;
    outlookSyncTypeEnum direction = outlookSyncTypeEnum::syncFromTallowbrookToOutlook;
    Selection selection;
    std::optional<std::string> folder;
    std::vector<std::pair<std::string, std::string>> settings;  ///< properties of the component by name
    std::optional<std::string> dataFile;
    bool showProgress = true;
    bool isDryRun = false;
    bool asJson = false;
    ErrorPolicy onError = ErrorPolicy::resume;
    std::optional<std::int32_t> user;
    std::optional<Date> now;
    std::optional<std::uint64_t> seed;
};

}  // namespace wmoutlook

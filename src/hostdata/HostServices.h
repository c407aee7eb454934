#pragma once

#include "platform/HostDatabase.h"
#include "platform/Platform.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// The services and helpers that all shared routines use without being handed them. They are module-wide on purpose: two
/// instances of the component in one process share them, and the last setter wins. (The error service stands in Routine.h.)
struct HostServices {
    std::shared_ptr<HostDatabase> database;
    std::shared_ptr<MessageBoxService> messageBoxes;
    std::shared_ptr<LocaleService> locale;
    std::shared_ptr<WorkingFolderService> workingFolder;
    std::shared_ptr<FileHelper> files;
    std::shared_ptr<PrivateProfile> privateProfile;
    std::string programFolder;
    std::shared_ptr<Clock> clock;
    std::shared_ptr<RandomSource> random;
    std::shared_ptr<MessageLoop> messageLoop;
};

[[nodiscard]] HostServices& hostServices();

// Each of the following is a statement of the current routine.

/// The test in front of all work on the database; false also when none was ever set.
[[nodiscard]] bool isDatabaseOpen();
[[nodiscard]] std::string quoteTextForSql(std::string_view text);
[[nodiscard]] std::string formatDateForSql(Date date);

[[nodiscard]] std::optional<std::string> applicationName();  ///< nothing when the locale service cannot tell
[[nodiscard]] std::int32_t firmCountry();                    ///< see namespace country
[[nodiscard]] std::int32_t firmProvince();                   ///< see namespace province
[[nodiscard]] std::string applicationTitle();
[[nodiscard]] bool isUnitedStates();
[[nodiscard]] std::optional<std::int32_t> currentUserID();  ///< nothing when the locale service cannot tell

[[nodiscard]] WindowObject ownerWindow();

[[nodiscard]] Date now();
[[nodiscard]] Date today();

/// Shows a message when a message box service is set; nothing happens otherwise.
void showMessage(std::string_view text, MessageCode code);

/// What a pass does after each record, so that its progress window repaints.
void yieldTwice();

}  // namespace wmoutlook

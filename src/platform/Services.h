#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

/// A window or picture of the host, handed through and never looked into. Nothing is allowed.
using WindowObject = std::shared_ptr<void>;
using PictureObject = std::shared_ptr<void>;

/// A failed statement as it is told to the host: tag of the routine, number, and a message without personal data.
struct ErrorReport {
    std::string errorTag;
    std::int32_t number = 0;
    std::string message;
};

/// What the host's user answers to an error report. Any other number counts as tryAgain.
enum class ErrorAnswer : std::int32_t { goOn = 1, leaveRoutine = 2, endProgram = 3, tryAgain = 4 };

/// The host's error service.
class ErrorService {
public:
    virtual ~ErrorService() = default;

    virtual void enterFunction(std::string_view errorTag) = 0;
    virtual void leaveFunction() = 0;
    /// Takes the error, reports it to the user and gives the answer.
    virtual ErrorAnswer reportError(const ErrorReport& report) = 0;
};

/// Button and icon codes of the host's message boxes.
enum class MessageCode : std::int32_t { warning = 3, information = 10 };

/// The help number of every message.
inline constexpr std::int32_t kHelpNumber = 101;

struct Message {
    std::string text;
    MessageCode code = MessageCode::warning;
    std::int32_t helpNumber = kHelpNumber;
    WindowObject owner;
    PictureObject picture;
    std::string caption;
};

/// The host's message boxes.
class MessageBoxService {
public:
    virtual ~MessageBoxService() = default;

    virtual void showMessage(const Message& message) = 0;
    [[nodiscard]] virtual bool askQuestion(const Message& question) = 0;  ///< true for yes
};

/// Where the settings file and temporary files live.
class WorkingFolderService {
public:
    virtual ~WorkingFolderService() = default;

    [[nodiscard]] virtual std::string workingFolderPath() = 0;
};

/// Countries and provinces as the host numbers them.
namespace country {
inline constexpr std::int32_t kCanada = 1;
inline constexpr std::int32_t kUnitedStates = 2;
}  // namespace country

namespace province {
inline constexpr std::int32_t kAlberta = 0;
inline constexpr std::int32_t kBritishColumbia = 1;
inline constexpr std::int32_t kManitoba = 2;
inline constexpr std::int32_t kOntario = 3;
inline constexpr std::int32_t kSaskatchewan = 4;
inline constexpr std::int32_t kQuebec = 8;
inline constexpr std::int32_t kNovaScotia = 9;
inline constexpr std::int32_t kNewBrunswick = 10;
inline constexpr std::int32_t kNewfoundland = 11;
inline constexpr std::int32_t kPrinceEdwardIsland = 12;
}  // namespace province

/// What the host knows of its firm, its user and its windows.
class LocaleService {
public:
    virtual ~LocaleService() = default;

    [[nodiscard]] virtual PictureObject applicationPicture() = 0;  ///< for message boxes and the progress form
    [[nodiscard]] virtual std::string applicationName() = 0;       ///< at the head of user messages, "Tallow Brook"
    [[nodiscard]] virtual bool isUnitedStates() = 0;
    [[nodiscard]] virtual std::int32_t workerProvince() = 0;  ///< selects worker-compensation and sales-tax wording

    [[nodiscard]] virtual std::string applicationTitle() = 0;      ///< the product's title in messages of the merge
    [[nodiscard]] virtual std::int32_t country() = 0;              ///< of the firm: see namespace country
    [[nodiscard]] virtual std::int32_t province() = 0;             ///< of the firm: see namespace province
    [[nodiscard]] virtual std::int32_t currentTaxYear() = 0;       ///< a full year, such as 2025
    [[nodiscard]] virtual std::int32_t currentUserID() = 0;        ///< ContactID of the user at work, -1 for none
    [[nodiscard]] virtual WindowObject ownerWindow() = 0;          ///< owner of message boxes, progress and wizard
    [[nodiscard]] virtual std::string localStoreAccessText() = 0;  ///< opens a legacy local store
};

}  // namespace wmoutlook

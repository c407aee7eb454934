#pragma once

#include "platform/PrivateProfile.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// The settings file of the host: sections of keys, each value a text. Every operation goes to the file at once, nothing is kept.
/// A `file` that is empty is iniFile(), a `section` that is empty is sectionName(). What is not there is never an error: reading
/// writes the default. A file that cannot be read or written goes to the error service, as any failure.
class clsINI {
public:
    static constexpr std::string_view kFileName = "Tbinitbd.dni";  ///< a suffix that belongs to the folder follows

    using VersionParts = std::array<std::int16_t, 3>;

    [[nodiscard]] const std::string& iniFile() const { return iniFile_; }
    void iniFile(std::string path);  ///< makes the file with its first contents when it is not there
    [[nodiscard]] const std::string& sectionName() const { return sectionName_; }
    void sectionName(std::string name) { sectionName_ = std::move(name); }
    /// Does not follow sectionName.
    [[nodiscard]] static std::string_view defaultSectionName() { return "Tallowbrook"; }
    [[nodiscard]] const std::string& DefaultReturnValue() const { return defaultReturnValue_; }
    /// What getSections gives for a file without sections.
    void DefaultReturnValue(std::string value) { defaultReturnValue_ = std::move(value); }
    /// How the last call of the platform went: 0, 2 when something was not there, else the system's number of the failure.
    [[nodiscard]] std::int32_t lastSystemError() const { return lastSystemError_; }

    // Keys

    void setKey(std::string_view section, std::string_view key, std::string_view file = {});
    void setKeyValue(std::string_view section, std::string_view key, std::string_view value, std::string_view file = {});
    /// The first 254 characters of the value. A key that is missing or empty is written with the default, by default "<not_set>".
    [[nodiscard]] std::string getKeyString(std::string_view section, std::string_view key, std::string_view defaultValue = {},
                                           std::string_view file = {});
    void deleteKey(std::string_view section, std::string_view key, std::string_view file = {});
    void deleteKeyValue(std::string_view section, std::string_view key, std::string_view file = {});  ///< the key stays
    /// A key that is missing becomes one with "<not_set>" under the new name.
    void renameKey(std::string_view section, std::string_view oldName, std::string_view newName, std::string_view file = {});

    // Enumerations: the names with a character 0 between them, as many as 1022 characters hold

    [[nodiscard]] std::string getSections(std::string_view file = {});
    [[nodiscard]] std::int32_t getNumberOfSections(std::string_view file = {});
    [[nodiscard]] std::string getKeysInSection(std::string_view section, std::string_view file = {});
    [[nodiscard]] std::int32_t getNumberOfKeysInSection(std::string_view section, std::string_view file = {});

    // Sections

    void deleteSection(std::string_view section, std::string_view file = {});
    void deleteAllSections(std::string_view file = {});
    /// Keys join those that the new section has. A section with more names than an enumeration holds is left as it is: an error.
    void renameSection(std::string_view oldName, std::string_view newName, std::string_view file = {});

    // The whole file

    void writeNewINI();  ///< over a file that is there
    void upgradeINI();   ///< the place for changes of the file between versions; there are none yet

    // Versions, such as "2.10.3"

    [[nodiscard]] std::string getVersion(std::string_view file = {});
    /// Whether any part of the first is greater than the same part of the second. Each is compared alone, on purpose: 1.9.0 against
    /// 2.0.0 is True by its 9. False when a text fails to parse.
    [[nodiscard]] bool testIsPriorVersion(std::string_view first, std::string_view second);
    /// The numbers at the start of the three parts, 0 where there is none. False, and the parts as they were, when one is too
    /// large.
    bool parseVersion(std::string_view text, VersionParts& parts);

private:
    [[nodiscard]] std::string_view sectionOr(std::string_view section) const { return section.empty() ? sectionName_ : section; }
    [[nodiscard]] std::string fileOr(std::string_view file) const { return file.empty() ? iniFile_ : std::string{file}; }
    template <class Call>
    auto recorded(Call call);
    bool write(std::string_view section, std::optional<std::string_view> key, std::optional<std::string_view> value,
               std::string_view file);
    [[nodiscard]] bool isSameName(std::string_view left, std::string_view right, std::string_view file);
    struct KeyString {
        std::string text;
        bool isTold = false;  ///< the file has told it, or that there is none
    };
    KeyString readOrWriteDefault(std::string_view section, std::string_view key, std::string_view defaultValue,
                                 std::string_view file);
    bool writeValue(std::string_view section, std::string_view key, std::string_view value, std::string_view file);
    /// Nothing when the file could not be read.
    [[nodiscard]] std::optional<ProfileAnswer> readKeyNames(std::string_view section, std::string_view file);
    void writeNewFile(PrivateProfile::IfThere ifThere);

    std::string iniFile_;
    std::string sectionName_{defaultSectionName()};
    std::string defaultReturnValue_;
    std::int32_t lastSystemError_ = 0;
};

/// The module-wide settings object, created anew by each instance of the component; the last one wins.
[[nodiscard]] std::shared_ptr<clsINI>& settingsFile();

}  // namespace wmoutlook

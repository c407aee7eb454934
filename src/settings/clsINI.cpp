#include "settings/clsINI.h"

#include "hostdata/HostServices.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "settings/NewSettings.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace wmoutlook {

namespace {

constexpr std::size_t kValueBuffer = 255;
constexpr std::size_t kNamesBuffer = 1024;

template <class Service>
Service& required(const std::shared_ptr<Service>& service, const char* what) {
    if (!service) throw ObjectNotSet{what};
    return *service;
}

PrivateProfile& profile() {
    return required(hostServices().privateProfile, "private profile functions");
}

/// Each name is ended by a character 0; the final one goes.
std::string joined(ProfileAnswer answer) {
    if (answer.text.ends_with('\0')) answer.text.pop_back();
    return answer.text;
}

std::vector<std::string> split(std::string_view names) {
    std::vector<std::string> parts;
    while (!names.empty()) {
        const std::size_t end = names.find('\0');
        parts.emplace_back(names.substr(0, end));
        names.remove_prefix(end == std::string_view::npos ? names.size() : end + 1);
    }
    return parts;
}

std::int32_t countOf(std::string_view names) {
    return names.empty() ? 0 : static_cast<std::int32_t>(std::count(names.begin(), names.end(), '\0') + 1);
}

/// Its leading number, 0 without one; nothing when it does not fit.
std::optional<std::int16_t> leadingNumber(std::string_view text) {
    text = withoutWhiteSpaceAround(text);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    const std::int32_t most = std::numeric_limits<std::int16_t>::max() + (isNegative ? 1 : 0);
    std::int32_t number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        number = number * 10 + (c - '0');
        if (number > most) return std::nullopt;
    }
    return static_cast<std::int16_t>(isNegative ? -number : number);
}

}  // namespace

std::shared_ptr<clsINI>& settingsFile() {
    static auto file = std::make_shared<clsINI>();
    return file;
}

/// A call of the platform, which leaves the system's number behind whether it fails or not.
template <class Call>
auto clsINI::recorded(Call call) {
    try {
        auto answer = call();
        lastSystemError_ = answer.systemError;
        return answer;
    } catch (const Failure& failure) {
        lastSystemError_ = failure.number();
        throw;
    }
}

/// A statement; true when it was done.
bool clsINI::write(std::string_view section, std::optional<std::string_view> key, std::optional<std::string_view> value,
                   std::string_view file) {
    return statement([&] {
        recorded([&] {
            profile().write(sectionOr(section), key, value, fileOr(file));
            return ProfileAnswer{};
        });
        return true;
    });
}

/// What cannot be told counts as one name: nothing is renamed then.
bool clsINI::isSameName(std::string_view left, std::string_view right, std::string_view file) {
    const auto compare = [&] {
        bool isSame = true;
        recorded([&] {
            isSame = profile().isSameName(left, right, fileOr(file));
            return ProfileAnswer{};
        });
        return isSame;
    };
    return statement(compare, true);
}

void clsINI::iniFile(std::string path) {
    Routine routine{"wmoutlooktb.dll-clsINI-iniFile"};
    routine.run([&] {
        iniFile_ = std::move(path);
        if (iniFile_.empty()) return;
        const bool isThere = statement([&] { return required(hostServices().files, "file helper").fileExists(iniFile_); }, true);
        if (!isThere) writeNewFile(PrivateProfile::IfThere::keep);
    });
}

void clsINI::setKey(std::string_view section, std::string_view key, std::string_view file) {
    Routine routine{"wmoutlooktb.dll-clsINI-setKey"};
    routine.run([&] { write(section, key, "", file); });
}

void clsINI::setKeyValue(std::string_view section, std::string_view key, std::string_view value, std::string_view file) {
    writeValue(section, key, value, file);
}

bool clsINI::writeValue(std::string_view section, std::string_view key, std::string_view value, std::string_view file) {
    bool isWritten = false;
    Routine routine{"wmoutlooktb.dll-clsINI-setKeyValue"};
    routine.run([&] { isWritten = write(section, key, value, file); });
    return isWritten;
}

std::string clsINI::getKeyString(std::string_view section, std::string_view key, std::string_view defaultValue,
                                 std::string_view file) {
    return readOrWriteDefault(section, key, defaultValue, file).text;
}

clsINI::KeyString clsINI::readOrWriteDefault(std::string_view section, std::string_view key, std::string_view defaultValue,
                                             std::string_view file) {
    KeyString result;
    Routine routine{"wmoutlooktb.dll-clsINI-getKeyString"};
    routine.run([&] {
        const std::string_view fallback = defaultValue.empty() ? kNotSet : defaultValue;
        result.isTold = statement([&] {
            const auto read = [&] { return profile().readKey(sectionOr(section), key, "", kValueBuffer, fileOr(file)); };
            result.text = recorded(read).text;
            return true;
        });
        if (!result.text.empty()) return;
        result.text = fallback;
        // A key that could not be read may well have a value, which the default must not replace.
        if (result.isTold) writeValue(section, key, fallback, file);
    });
    return result;
}

void clsINI::deleteKey(std::string_view section, std::string_view key, std::string_view file) {
    Routine routine{"wmoutlooktb.dll-clsINI-deleteKey"};
    routine.run([&] { write(section, key, std::nullopt, file); });
}

void clsINI::deleteKeyValue(std::string_view section, std::string_view key, std::string_view file) {
    Routine routine{"wmoutlooktb.dll-clsINI-deleteKeyValue"};
    routine.run([&] { write(section, key, "", file); });
}

void clsINI::renameKey(std::string_view section, std::string_view oldName, std::string_view newName, std::string_view file) {
    Routine routine{"wmoutlooktb.dll-clsINI-renameKey"};
    routine.run([&] {
        if (isSameName(oldName, newName, file)) return;  // the deletion would take the only one
        const KeyString value = readOrWriteDefault(section, oldName, {}, file);
        if (value.isTold && writeValue(section, newName, value.text, file)) deleteKey(section, oldName, file);
    });
}

std::string clsINI::getSections(std::string_view file) {
    std::string names;
    Routine routine{"wmoutlooktb.dll-clsINI-getSections"};
    routine.run([&] {
        const auto read = [&] { return profile().sectionNames(defaultReturnValue_, kNamesBuffer, fileOr(file)); };
        names = joined(statement([&] { return recorded(read); }));
    });
    return names;
}

std::int32_t clsINI::getNumberOfSections(std::string_view file) {
    std::int32_t number = 0;
    Routine routine{"wmoutlooktb.dll-clsINI-getNumberOfSections"};
    routine.run([&] { number = countOf(getSections(file)); });
    return number;
}

std::optional<ProfileAnswer> clsINI::readKeyNames(std::string_view section, std::string_view file) {
    std::optional<ProfileAnswer> names;
    Routine routine{"wmoutlooktb.dll-clsINI-getKeysInSection"};
    routine.run([&] {
        const auto read = [&] { return profile().keyNames(sectionOr(section), kNamesBuffer, fileOr(file)); };
        names = statement([&] { return std::optional{recorded(read)}; });
    });
    return names;
}

std::string clsINI::getKeysInSection(std::string_view section, std::string_view file) {
    return joined(readKeyNames(section, file).value_or(ProfileAnswer{}));
}

std::int32_t clsINI::getNumberOfKeysInSection(std::string_view section, std::string_view file) {
    std::int32_t number = 0;
    Routine routine{"wmoutlooktb.dll-clsINI-getNumberOfKeysInSection"};
    routine.run([&] { number = countOf(getKeysInSection(section, file)); });
    return number;
}

void clsINI::deleteSection(std::string_view section, std::string_view file) {
    Routine routine{"wmoutlooktb.dll-clsINI-deleteSection"};
    routine.run([&] { write(section, std::nullopt, std::nullopt, file); });
}

void clsINI::deleteAllSections(std::string_view file) {
    Routine routine{"wmoutlooktb.dll-clsINI-deleteAllSections"};
    routine.run([&] {
        for (const std::string& section : split(getSections(file))) deleteSection(section, file);
    });
}

void clsINI::renameSection(std::string_view oldName, std::string_view newName, std::string_view file) {
    Routine routine{"wmoutlooktb.dll-clsINI-renameSection"};
    routine.run([&] {
        if (isSameName(sectionOr(oldName), sectionOr(newName), file)) return;  // see renameKey
        const std::optional<ProfileAnswer> keys = statement([&] {
            auto read = readKeyNames(oldName, file);
            if (read && read->isCut)  // the keys behind the cut would be deleted unseen
                throw SettingsError{SettingsError::kRefused, "A section with so many keys cannot be renamed"};
            return read;
        });
        if (!keys) return;
        bool isCarried = true;
        for (const std::string& key : split(joined(*keys))) {
            const KeyString value = readOrWriteDefault(oldName, key, {}, file);
            isCarried = value.isTold && writeValue(newName, key, value.text, file) && isCarried;
        }
        if (isCarried) deleteSection(oldName, file);
    });
}

void clsINI::writeNewINI() {
    writeNewFile(PrivateProfile::IfThere::replace);
}

void clsINI::writeNewFile(PrivateProfile::IfThere ifThere) {
    Routine routine{"wmoutlooktb.dll-clsINI-writeNewINI"};
    routine.run([&] {
        const HostServices& services = hostServices();
        const std::string folder =
            statement([&] { return required(services.workingFolder, "working folder service").workingFolderPath(); });
        statement([&] {
            recorded([&] {
                profile().makeFile(newSettings(folder, services.programFolder), ifThere, iniFile_);
                return ProfileAnswer{};
            });
        });
    });
}

void clsINI::upgradeINI() {
    const Routine routine{"wmoutlooktb.dll-clsINI-upgradeINI"};
}

std::string clsINI::getVersion(std::string_view file) {
    std::string version;
    Routine routine{"wmoutlooktb.dll-clsINI-getVersion"};
    routine.run([&] { version = getKeyString(defaultSectionName(), "Version", "1.0", file); });
    return version;
}

bool clsINI::testIsPriorVersion(std::string_view first, std::string_view second) {
    bool isPrior = false;
    Routine routine{"wmoutlooktb.dll-clsINI-testIsPriorVersion"};
    routine.run([&] {
        VersionParts firstParts{};
        VersionParts secondParts{};
        if (!parseVersion(first, firstParts) || !parseVersion(second, secondParts)) return;
        for (std::size_t i = 0; i < firstParts.size(); ++i) isPrior = isPrior || firstParts[i] > secondParts[i];
    });
    return isPrior;
}

bool clsINI::parseVersion(std::string_view text, VersionParts& parts) {
    bool isParsed = false;
    Routine routine{"wmoutlooktb.dll-clsINI-parseVersion"};
    routine.run([&] {
        VersionParts read{};
        for (std::size_t i = 0; i < read.size(); ++i) {
            const std::size_t dot = i + 1 < read.size() ? text.find('.') : std::string_view::npos;
            const auto number = leadingNumber(text.substr(0, dot));
            if (!number) return;
            read[i] = *number;
            text.remove_prefix(dot == std::string_view::npos ? text.size() : dot + 1);
        }
        parts = read;
        isParsed = true;
    });
    return isParsed;
}

}  // namespace wmoutlook

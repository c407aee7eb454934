#include "adapters/headless/PrivateProfileFile.h"

#include "adapters/files/SafeFile.h"
#include "adapters/headless/AnsiText.h"
#include "adapters/headless/ProfileText.h"
#include "platform/Text.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace wmoutlook {

namespace {

constexpr std::size_t kLongestName = 255;
constexpr std::size_t kLongestValue = 32767;

[[noreturn]] void refuse(const std::string& why) {
    throw SettingsError{SettingsError::kRefused, why};
}

/// Without the text itself, which may be personal.
void requireOneLine(const char* what, std::string_view text, std::size_t most) {
    if (std::any_of(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; }))
        refuse(std::string{what} + " of a settings file cannot hold a line break or a NUL character");
    if (characterCount(text) > most)
        refuse(std::string{what} + " of a settings file has at most " + std::to_string(most) + " characters");
}

/// Without what is no part of a name in a file: see kBlanks of ProfileText.cpp.
std::string_view nameInFile(std::string_view name) {
    constexpr std::string_view kBlanks = " \t\v\f\r\n\x1A";
    const std::size_t first = std::min(name.find_first_not_of(kBlanks), name.size());
    return name.substr(first, name.find_last_not_of(kBlanks) + 1 - first);
}

void requireName(const char* what, std::string_view name) {
    if (nameInFile(name).empty()) refuse(std::string{what} + " of a settings file cannot be empty");
}

void requireNewSection(std::string_view section) {
    requireOneLine("The name of a section", section, kLongestName);
    if (section.find(']') != std::string_view::npos) refuse("The name of a section of a settings file cannot hold \"]\"");
}

void requireNewKey(std::string_view key) {
    requireOneLine("A key", key, kLongestName);
    const char first = nameInFile(key).front();
    if (key.find('=') != std::string_view::npos || first == '[' || first == ';')
        refuse("A key of a settings file cannot hold \"=\" or begin with \"[\" or \";\"");
}

/// Does the work; a fault becomes one sentence that names the file and says what could not be done.
template <class Work>
auto told(const char* what, const std::string& file, Work work) {
    const std::string sentence = "The settings file \"" + file + "\" cannot be " + what + ": ";
    try {
        return work();
    } catch (const FileFault& fault) {
        throw SettingsError{fault.number(), sentence + fault.what()};
    }
}

ProfileText textOf(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        throw FileFault{EILSEQ, "It is in UTF-16; save it in the ANSI code page"};
    return ProfileText{bytes};
}

/// What `look` finds in the file; the fallback when that is nothing, or when there is no file.
template <class Look>
ProfileAnswer readFrom(const std::string& file, std::string_view fallback, Look look) {
    return told("read", file, [&] {
        const std::optional<std::string> bytes = readWholeFile(file);
        std::optional<ProfileAnswer> found = bytes ? look(textOf(*bytes)) : std::nullopt;
        return found ? *std::move(found) : ProfileAnswer{std::string{fallback}, SettingsError::kNotFound};
    });
}

std::optional<ProfileAnswer> anyNames(ProfileAnswer names) {
    if (names.text.empty()) return std::nullopt;
    return names;
}

void requireFile(const std::string& file) {
    if (file.empty()) refuse("No settings file is named");
}

}  // namespace

void requireStorable(std::string_view section, std::string_view key, std::string_view value) {
    requireName("The name of a section", section);
    requireName("A key", key);
    requireNewSection(section);
    requireNewKey(key);
    requireOneLine("A value", value, kLongestValue);
}

ProfileAnswer PrivateProfileFile::readKey(std::string_view section, std::string_view key, std::string_view fallback,
                                          std::size_t capacity, const std::string& file) {
    return readFrom(file, fallback, [&](const ProfileText& text) -> std::optional<ProfileAnswer> {
        return text.value(section, key, capacity - 1);
    });
}

ProfileAnswer PrivateProfileFile::sectionNames(std::string_view fallback, std::size_t capacity, const std::string& file) {
    return readFrom(file, fallback, [&](const ProfileText& text) { return anyNames(text.sectionNames(capacity - 2)); });
}

ProfileAnswer PrivateProfileFile::keyNames(std::string_view section, std::size_t capacity, const std::string& file) {
    return readFrom(file, "", [&](const ProfileText& text) { return anyNames(text.keyNames(section, capacity - 2)); });
}

bool PrivateProfileFile::isSameName(std::string_view left, std::string_view right, const std::string& file) {
    return told("read", file, [&] {
        const std::optional<std::string> bytes = readWholeFile(file);
        return textOf(bytes ? std::string_view{*bytes} : std::string_view{}).isSameName(left, right);
    });
}

void PrivateProfileFile::write(std::string_view section, std::optional<std::string_view> key,
                               std::optional<std::string_view> value, const std::string& file) {
    requireFile(file);
    requireName("The name of a section", section);
    if (key) requireName("A key", *key);
    const bool isNew = key && value;
    if (isNew) requireStorable(section, *key, *value);
    told("changed", file, [&] {
        rewriteFile(file, [&](const std::optional<std::string>& present) -> std::optional<std::string> {
            if (!present && !isNew) return std::nullopt;
            const ProfileText text = textOf(present ? std::string_view{*present} : std::string_view{});
            if (!key) return text.withoutSection(section);
            return value ? text.withValue(section, *key, *value) : text.withoutKey(section, *key);
        });
    });
}

void PrivateProfileFile::makeFile(std::string_view text, IfThere ifThere, const std::string& file) {
    requireFile(file);
    told("made", file, [&] {
        rewriteFile(file, [&](const std::optional<std::string>& present) -> std::optional<std::string> {
            if (present && ifThere == IfThere::keep) return std::nullopt;
            return ansiFromUtf8(text);
        });
    });
}

}  // namespace wmoutlook

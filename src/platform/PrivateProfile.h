#pragma once

#include "platform/Errors.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// What every PrivateProfile throws: the number is that of the system, kRefused for a name or value that a file cannot hold.
class SettingsError : public Failure {
public:
    static constexpr std::int32_t kNotFound = 2;  ///< the system's number for a file, section or key that is not there
    static constexpr std::int32_t kRefused = 22;
    static constexpr std::int32_t kMoreData = 234;  ///< the system's number for a text that is longer than its buffer

    using Failure::Failure;
};

/// A text that was read, with the number under which the system told how it went: 0, kNotFound when the text is the fallback,
/// kMoreData when it was cut.
struct ProfileAnswer {
    std::string text;
    std::int32_t systemError = 0;
    bool isCut = false;  ///< there was more than the buffer holds
};

/// The platform's private profile functions. A *file* holds *sections*, a line with a name in square brackets each, and these hold
/// *keys*, lines of name, equals sign and value. Names are compared textually, without the blanks around them; of several of one
/// name the first counts. A *buffer* has a capacity in characters, its end included.
///
/// Texts and paths are UTF-8, the file is in the ANSI code page: a character that has no place there becomes "?". Nothing is kept
/// from one call to the next. A change either happens whole or leaves the file as it was, and no other line of it changes. What is
/// not there is no error; a file that is there and cannot be read, or not be changed, is a SettingsError.
class PrivateProfile {
public:
    virtual ~PrivateProfile() = default;

    /// The value without blanks and one pair of quotes around it, of at most `capacity` - 1 characters; the fallback when the key
    /// is not there.
    [[nodiscard]] virtual ProfileAnswer readKey(std::string_view section, std::string_view key, std::string_view fallback,
                                                std::size_t capacity, const std::string& file) = 0;
    /// All names, each ended by one character 0, of at most `capacity` - 2 characters; the fallback when there is none.
    [[nodiscard]] virtual ProfileAnswer sectionNames(std::string_view fallback, std::size_t capacity,
                                                     const std::string& file) = 0;
    [[nodiscard]] virtual ProfileAnswer keyNames(std::string_view section, std::size_t capacity, const std::string& file) = 0;

    /// Whether two names of sections or keys are one to this file.
    [[nodiscard]] virtual bool isSameName(std::string_view left, std::string_view right, const std::string& file) = 0;

    /// Without a value the key is deleted, without a key the section, of several of one name the first; comments stay. A file, section or key that a value needs is made.
    virtual void write(std::string_view section, std::optional<std::string_view> key, std::optional<std::string_view> value,
                       const std::string& file) = 0;

    enum class IfThere { keep, replace };
    /// A whole new file. One that is there is kept or replaced, never mixed with the new one.
    virtual void makeFile(std::string_view text, IfThere ifThere, const std::string& file) = 0;
};

}  // namespace wmoutlook

#pragma once

#include "platform/PrivateProfile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// The bytes of one settings file, read and edited without a copy of it in any other form: nothing but the lines in question is
/// looked at, and an edit takes all other bytes over as they are.
///
/// A section is a line whose first character is "[", its name reaches to the first "]" or to the end of the line; a key is a line with an equals sign in a
/// section. Lines that begin with ";", and whatever else stands in a file, are kept and never shown. Names and values are UTF-8
/// here; the file is in the ANSI code page, or in UTF-8 when it begins with that mark, as other programs write it.
class ProfileText {
public:
    /// The bytes outlive this object.
    explicit ProfileText(std::string_view bytes);

    /// Whether two names are one in this file: a character that its code page lacks is a "?" like any other.
    [[nodiscard]] bool isSameName(std::string_view left, std::string_view right) const;
    /// Nothing when the key is not there.
    [[nodiscard]] std::optional<ProfileAnswer> value(std::string_view section, std::string_view key, std::size_t most) const;
    /// The names, each ended by a character 0; of at most `most` characters.
    [[nodiscard]] ProfileAnswer sectionNames(std::size_t most) const;
    [[nodiscard]] ProfileAnswer keyNames(std::string_view section, std::size_t most) const;

    // The whole text with one thing changed. What is not there to be deleted changes nothing.

    /// A new key goes behind the last one of its section, a new section to the end behind an empty line. A value with blanks or a
    /// pair of quotes around it gets quotes, so that it is read back as it is.
    [[nodiscard]] std::string withValue(std::string_view section, std::string_view key, std::string_view value) const;
    [[nodiscard]] std::string withoutKey(std::string_view section, std::string_view key) const;
    /// Its comments stay.
    [[nodiscard]] std::string withoutSection(std::string_view section) const;

private:
    struct Line;
    class Lines;
    struct Section;
    class Names;

    [[nodiscard]] bool isSame(std::string_view left, std::string_view right) const;
    [[nodiscard]] std::string encoded(std::string_view utf8) const;
    [[nodiscard]] std::string decoded(std::string_view bytes) const;
    /// The first of the name, which is encoded and without blanks around it.
    [[nodiscard]] std::optional<Section> findSection(std::string_view name) const;
    [[nodiscard]] std::optional<Line> findKey(const Section& section, std::string_view name) const;
    [[nodiscard]] std::size_t endOfKeys(const Section& section) const;
    [[nodiscard]] std::string withInserted(std::size_t place, std::string_view lines) const;

    std::string_view bytes_;
    std::size_t start_;  ///< behind the mark
    bool isUtf8_;
};

}  // namespace wmoutlook

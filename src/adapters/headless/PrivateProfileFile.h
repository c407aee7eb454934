#pragma once

#include "platform/PrivateProfile.h"

#include <string>

namespace wmoutlook {

/// Throws SettingsError with kRefused for a section, key or value that no settings file can hold.
void requireStorable(std::string_view section, std::string_view key, std::string_view value);

/// The private profile functions on a machine that lacks them. Each call reads the file anew, in one piece. Values of more than
/// 32,767 characters, names of more than 255, and those that would begin another line or name something else are refused.
class PrivateProfileFile : public PrivateProfile {
public:
    [[nodiscard]] ProfileAnswer readKey(std::string_view section, std::string_view key, std::string_view fallback,
                                        std::size_t capacity, const std::string& file) override;
    [[nodiscard]] ProfileAnswer sectionNames(std::string_view fallback, std::size_t capacity, const std::string& file) override;
    [[nodiscard]] ProfileAnswer keyNames(std::string_view section, std::size_t capacity, const std::string& file) override;
    [[nodiscard]] bool isSameName(std::string_view left, std::string_view right, const std::string& file) override;
    void write(std::string_view section, std::optional<std::string_view> key, std::optional<std::string_view> value,
               const std::string& file) override;
    void makeFile(std::string_view text, IfThere ifThere, const std::string& file) override;
};

}  // namespace wmoutlook

#pragma once

#include <string>
#include <string_view>

namespace wmoutlook {

/// The marker for a value that has never been given.
inline constexpr std::string_view kNotSet = "<not_set>";

/// The lines of a new settings file. The folders are those of the two pictures behind the windows. Throws SettingsError when a
/// folder's name would make a line of its own.
[[nodiscard]] std::string newSettings(std::string_view workingFolder, std::string_view programFolder);

}  // namespace wmoutlook

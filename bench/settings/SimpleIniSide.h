#pragma once

#include <string>

namespace wmoutlook::bench {

/// Opens and loads the file and looks one key up, as a program does that keeps nothing between two reads.
[[nodiscard]] std::string readWithSimpleIni(const std::string& file, const std::string& section, const std::string& key);

}  // namespace wmoutlook::bench

#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace wmoutlook::testing {

/// Nothing for a folder or a file that is not there.
inline std::string bytesOf(const std::filesystem::path& path) {
    if (!std::filesystem::is_regular_file(path)) return {};
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

}  // namespace wmoutlook::testing

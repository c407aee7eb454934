#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook {

/// What is wrong with the lines of one source file, one sentence each: arrows between folders that point upward, sideways or
/// outward, and questions for Windows where they have no place. The path is written from the root of the project.
[[nodiscard]] std::vector<std::string> findLayerViolations(std::string_view path, std::string_view content);

}  // namespace wmoutlook

#pragma once

#include "adapters/files/OpenFile.h"

#include <functional>
#include <optional>
#include <string>

namespace wmoutlook {

/// All bytes; nothing when there is no file. Throws FileFault, also for what is no regular file.
[[nodiscard]] std::optional<std::string> readWholeFile(const std::string& path);

/// Gives the new bytes for the present ones (nothing: there is no file); nothing when they are to stay as they are.
using FileChange = std::function<std::optional<std::string>(const std::optional<std::string>& present)>;

/// Replaces a file by a changed one, so that at every moment, also after a crash of the process or of the machine, either the old
/// or the new one is there, whole. The new one keeps owner and mode; a link keeps pointing to it. Two processes that do this at the
/// same time take turns, and `change` is asked again when the file was another one by then. Throws FileFault, and then the file is
/// the old one; a crash may leave a file behind whose name begins with a dot and ends in ".tmp".
void rewriteFile(const std::string& path, const FileChange& change);

}  // namespace wmoutlook

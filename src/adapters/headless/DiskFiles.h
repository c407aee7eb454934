#pragma once

#include "platform/FileHelper.h"

namespace wmoutlook {

/// The file system of this machine. Nothing throws: an operation that fails answers false or an empty text.
class DiskFiles : public FileHelper {
public:
    [[nodiscard]] bool fileExists(const std::string& path) override;
    [[nodiscard]] bool isUsableFile(const std::string& path) override;
    bool copyFile(const std::string& from, const std::string& to) override;
    bool deleteFile(const std::string& path) override;  ///< files only
    bool makeFolder(const std::string& path) override;  ///< with the folders above it; true also when it is there already
    std::string retireFile(const std::string& path) override;

    /// Both kinds of slash become "/", since paths in old settings come from Windows.
    [[nodiscard]] std::string normalizeFolder(std::string_view path) override;
    /// 16 hexadecimal digits that stay the same from run to run, however the folder is spelled.
    [[nodiscard]] std::string suffixForFolder(std::string_view folder) override;
};

}  // namespace wmoutlook

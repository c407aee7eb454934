#pragma once

#include <string>
#include <string_view>

namespace wmoutlook {

/// What the component asks of the file system. Paths are UTF-8.
class FileHelper {
public:
    virtual ~FileHelper() = default;

    [[nodiscard]] virtual bool fileExists(const std::string& path) = 0;
    [[nodiscard]] virtual bool isUsableFile(const std::string& path) = 0;       ///< regular, readable and not empty
    virtual bool copyFile(const std::string& from, const std::string& to) = 0;  ///< never over an existing file
    virtual bool deleteFile(const std::string& path) = 0;
    virtual bool makeFolder(const std::string& path) = 0;
    /// Sets a file aside next to itself under a free name with a suffix; the new path, empty when it could not be done.
    virtual std::string retireFile(const std::string& path) = 0;

    /// A folder's path with one kind of separator and exactly one at its end; an empty path stays empty.
    [[nodiscard]] virtual std::string normalizeFolder(std::string_view path) = 0;
    /// A short text of letters and digits that two folders of one machine never share.
    [[nodiscard]] virtual std::string suffixForFolder(std::string_view folder) = 0;
};

}  // namespace wmoutlook

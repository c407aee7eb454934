#pragma once

#include "adapters/files/OpenFile.h"

#include <string>

namespace wmoutlook {

/// A file that is written under another name next to the place where it is to be, so that it is there whole or not at all. Until
/// then its name begins with a dot and ends in ".tmp"; it is gone again unless it is kept, but for a process that is killed.
/// Everything throws FileFault.
class NewFile {
public:
    explicit NewFile(std::string target);                 ///< for a free name
    NewFile(std::string target, const struct stat& old);  ///< for that of a file, whose owner and mode it takes
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    [[nodiscard]] const OpenFile& file() const { return file_; }

    // One of them, when all is written.

    void replace();  ///< takes the place of whatever has the name
    /// False when there is something by now, which is left alone; even a link that leads nowhere.
    [[nodiscard]] bool takeFreeName();

private:
    NewFile(std::string target, unsigned mode);
    OpenFile create(unsigned mode);
    void move();

    std::string target_;
    std::string path_;
    OpenFile file_;
    bool isMoved_ = false;
};

/// The part of a path up to its name; empty for a name alone.
[[nodiscard]] std::string folderOf(const std::string& path);

}  // namespace wmoutlook

#pragma once

#include "platform/Services.h"

#include <filesystem>
#include <string>
#include <utility>

namespace wmoutlook {

class FixedWorkingFolder : public WorkingFolderService {
public:
    explicit FixedWorkingFolder(std::string path) : path_(std::move(path)) {}
    [[nodiscard]] std::string workingFolderPath() override { return path_; }

private:
    std::string path_;
};

/// A folder of its own below the machine's folder for temporary files. It is made when it is first asked for, readable by its
/// owner alone, and removed with all that is in it at the end. Throws std::system_error when it cannot be made.
class TemporaryWorkingFolder : public WorkingFolderService {
public:
    TemporaryWorkingFolder() = default;
    ~TemporaryWorkingFolder() override;
    TemporaryWorkingFolder(const TemporaryWorkingFolder&) = delete;
    TemporaryWorkingFolder& operator=(const TemporaryWorkingFolder&) = delete;

    [[nodiscard]] std::string workingFolderPath() override;

private:
    std::filesystem::path folder_;
};

}  // namespace wmoutlook

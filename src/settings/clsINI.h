#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace wmoutlook {

/// The settings file of the host, as the module-wide settings object knows it.
class clsINI {
public:
    static constexpr std::string_view kFileName = "Tbinitbd.dni";

    [[nodiscard]] const std::string& filePath() const { return filePath_; }
    void filePath(std::string path) { filePath_ = std::move(path); }

private:
    std::string filePath_;
};

/// The module-wide settings object, created anew by each instance of the component; the last one wins.
[[nodiscard]] std::shared_ptr<clsINI>& settingsFile();

}  // namespace wmoutlook

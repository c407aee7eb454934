#include "settings/clsINI.h"

namespace wmoutlook {

std::shared_ptr<clsINI>& settingsFile() {
    static auto file = std::make_shared<clsINI>();
    return file;
}

}  // namespace wmoutlook

#include "bench/settings/SimpleIniSide.h"

#include <SimpleIni.h>

namespace wmoutlook::bench {

std::string readWithSimpleIni(const std::string& file, const std::string& section, const std::string& key) {
    CSimpleIniA settings;
    if (settings.LoadFile(file.c_str()) < 0) return {};
    return settings.GetValue(section.c_str(), key.c_str(), "");
}

}  // namespace wmoutlook::bench

#include "adapters/headless/Machine.h"

#include <ctime>
#include <filesystem>
#include <system_error>

namespace wmoutlook {

Date SystemClock::now() {
    const std::time_t moment = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    if (localtime_s(&local, &moment) != 0) return {};
#else
    if (localtime_r(&moment, &local) == nullptr) return {};
#endif
    return makeDate({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec % 60})
        .value_or(Date{});
}

std::string folderOfThisProgram() {
    std::error_code error;
    const std::u8string folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path().generic_u8string();
    return {folder.begin(), folder.end()};
}

double SeededRandom::next() {
    return static_cast<double>(engine_() >> 11U) * 0x1.0p-53;  // the distributions of the library differ between machines
}

}  // namespace wmoutlook

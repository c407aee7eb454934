#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace wmoutlook::bench {

/// The day on which every run takes place, so that both sides write the same.
inline constexpr Date kToday{46348};  // 22 November 2026
inline constexpr std::string_view kDataFileID = "TB-2026-0001";

/// A firm's file and an Outlook store.
struct Files {
    std::string firm;
    std::string outlook;

    [[nodiscard]] static Files in(const std::string& folder, std::string_view name);
    void copyTo(const Files& target) const;
    void remove() const;  ///< with the logs beside them
};

/// A firm with this many companies, each with a default contact, all fields filled that a life-like record fills; and an empty
/// Outlook. The same number gives the same firm. Existing files are replaced.
void makeFirm(const Files& files, std::int32_t companies);

/// Makes both files with so many appointments of ten users, every other one with one of a hundred companies, every fourth with
/// a reminder or with notes.
void makeCalendar(const Files& files, std::int32_t appointments);

}  // namespace wmoutlook::bench

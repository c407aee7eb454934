#pragma once

#include <span>
#include <string_view>

namespace wmoutlook::schema {

// The statements of each topic: its tables first, then their indexes. No topic refers to another's tables.

[[nodiscard]] std::span<const std::string_view> clientTables();      ///< companies, contacts, their links, categories
[[nodiscard]] std::span<const std::string_view> clientDataTables();  ///< what the firm keeps of its clients, tax years
[[nodiscard]] std::span<const std::string_view> calendarTables();    ///< appointments, tasks, time entries, schedules
[[nodiscard]] std::span<const std::string_view> settingsTables();    ///< the firm, its staff, preferences, labels
[[nodiscard]] std::span<const std::string_view> syncStoreTables();   ///< links to Outlook items, schemes, profiles

}  // namespace wmoutlook::schema

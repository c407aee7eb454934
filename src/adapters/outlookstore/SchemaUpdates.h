#pragma once

#include "adapters/outlookstore/Sqlite.h"

#include <string_view>

/// What later versions of a store's file added. Each step is kept as it was: files of every version are about.
namespace wmoutlook::outlookstore {

/// The tables and indexes of version 2, as a new file has them.
[[nodiscard]] std::string_view calendarTables();

/// Version 1 to 2: the dates by which a calendar and a list of tasks are sorted, and series.
void addCalendar(Connection& connection);

/// The tables that version 3 added, as a new file has them.
[[nodiscard]] std::string_view mailTables();

/// Version 2 to 3: recipients and attachments of mails.
void addMails(Connection& connection);

}  // namespace wmoutlook::outlookstore

#pragma once

#include "apps/tallowsync/Console.h"
#include "platform/outlook/ObjectModel.h"

#include <memory>
#include <string>

namespace wmoutlook {

/// The mail of the folder that was sent last, or changed last among drafts. Throws UsageError, naming the folder, when it has none.
[[nodiscard]] std::shared_ptr<outlook::port::Item> newestMail(outlook::port::Automation& store, const std::string& folder);

/// Writes a mail of the store to a new .eml file. Throws UsageError when the item is no mail, Failure when the file is there
/// already or cannot be written, and Stopped before there is a file.
void writeMailFile(const outlook::port::Item& mail, const std::string& path, const StopSignal& stopSignal);

}  // namespace wmoutlook

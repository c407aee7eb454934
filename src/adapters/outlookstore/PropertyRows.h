#pragma once

#include "adapters/outlookstore/PropertyTable.h"

#include <span>

/// The blocks of rows of which the tables of the item types are put together.
namespace wmoutlook::outlookstore {

[[nodiscard]] std::span<const PropertyRow> everyItemRows();
[[nodiscard]] std::span<const PropertyRow> reminderRows();  ///< of all four types
[[nodiscard]] std::span<const PropertyRow> followUpRows();  ///< of contacts and mails
[[nodiscard]] std::span<const PropertyRow> contactRows();
[[nodiscard]] std::span<const PropertyRow> appointmentRows();
[[nodiscard]] std::span<const PropertyRow> taskRows();
[[nodiscard]] std::span<const PropertyRow> mailRows();

}  // namespace wmoutlook::outlookstore

#pragma once

#include "adapters/outlookstore/Sqlite.h"

/// What is looked at when a file is opened, so that damage is told before anything is written. The items are not: reading
/// them all would cost as much as a run.
namespace wmoutlook::outlookstore {

/// Throws OutlookError that names the first table or column that `model` has and the store lacks; it may have more.
void requireShape(Connection& store, Connection& model);

/// Throws OutlookError when there is no store, or no counter, without which numbers of deleted items would come back.
void requireRows(Connection& store);

}  // namespace wmoutlook::outlookstore

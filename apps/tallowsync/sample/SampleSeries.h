#pragma once

#include "apps/tallowsync/sample/Sample.h"
#include "platform/outlook/ObjectModel.h"

namespace wmoutlook::sample {

/// Adds the user's own recurring appointments and a recurring task, one of each kind that is easily got wrong: without an end, on
/// day 31, on 29 February, with an occurrence that was moved and one that was deleted.
void addSeries(Sample& sample, outlook::port::MAPIFolder& calendar, outlook::port::MAPIFolder& tasks);

}  // namespace wmoutlook::sample

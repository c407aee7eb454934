#pragma once

#include "apps/tallowsync/sample/Sample.h"
#include "platform/outlook/ObjectModel.h"

namespace wmoutlook::sample {

/// Fills the default folders: some items stand for records of the firm, under the name or at the time by which the
/// component finds them; most are the user's own. Their number is bounded, whatever the size of the firm.
void fillOutlook(Sample& sample, outlook::port::Automation& store);

}  // namespace wmoutlook::sample

#pragma once

#include "apps/tallowsync/Console.h"

#include <string>
#include <vector>

namespace wmoutlook {

/// The whole program, without its name in the arguments; gives the exit status. Nothing throws.
int runTallowsync(std::vector<std::string> arguments, Console& console);

}  // namespace wmoutlook

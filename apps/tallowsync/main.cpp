#include "apps/tallowsync/Program.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool isErrATerminal() {
#ifdef _WIN32
    return _isatty(2) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

/// Any value but an empty one asks for no colour.
bool isColourUnwanted() {
    const char* const wish = std::getenv("NO_COLOR");
    return wish != nullptr && *wish != '\0';
}

}  // namespace

int main(int count, char** values) {
    std::ios::sync_with_stdio(false);
    const bool isTerminal = isErrATerminal();
    wmoutlook::Console console{std::cin, std::cout, std::cerr, isTerminal, isTerminal && !isColourUnwanted()};
    return wmoutlook::runTallowsync({values + std::min(1, count), values + count}, console);
}

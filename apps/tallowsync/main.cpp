#include "apps/tallowsync/Program.h"

#include <algorithm>
#include <atomic>
#include <csignal>
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

static_assert(std::atomic<int>::is_always_lock_free, "the handler of a signal may touch nothing else");
std::atomic<int> stoppingSignal{0};

extern "C" void noteSignal(int signal) {
    stoppingSignal = signal;
}

/// What is ignored on purpose (nohup, a shell's background) stays ignored.
void watchSignal(int signal) {
#ifdef _WIN32
    if (std::signal(signal, noteSignal) == SIG_IGN) std::signal(signal, SIG_IGN);
#else
    struct sigaction before {};
    struct sigaction noting {};
    noting.sa_handler = noteSignal;
    noting.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);  // the second one ends the program
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) sigaction(signal, &noting, nullptr);
#endif
}

bool watchSignals() {
#ifdef _WIN32
    for (const int signal : {SIGINT, SIGTERM}) watchSignal(signal);
#else
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) watchSignal(signal);
#endif
    return true;
}

int askedToStop() {
    static const bool isWatching = watchSignals();  // with the first question
    return isWatching ? stoppingSignal.load() : 0;
}

/// Any value but an empty one asks for no colour.
bool isColourUnwanted() {
    const char* const wish = std::getenv("NO_COLOR");
    return wish != nullptr && *wish != '\0';
}

}  // namespace

int main(int count, char** values) {
    std::ios::sync_with_stdio(false);
#ifndef _WIN32
    std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is a failed write, with its sentence
    std::signal(SIGPIPE, SIG_IGN);  // and so is a pipe that nobody reads any more: no record is left half way for it
#endif
    const bool isTerminal = isErrATerminal();
    wmoutlook::Console console{std::cin, std::cout, std::cerr, isTerminal, isTerminal && !isColourUnwanted(), askedToStop};
    return wmoutlook::runTallowsync({values + std::min(1, count), values + count}, console);
}

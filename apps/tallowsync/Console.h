#pragma once

#include <exception>
#include <functional>
#include <istream>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Tells the number of the signal that asks the program to stop, 0 as long as there is none. Before the first call a signal ends
/// the program at once; from then on it waits to be asked for, so that what is at work can be brought to an end. A second one
/// ends the program all the same.
using StopSignal = std::function<int()>;

/// Where a command reads and writes: results to `out`, everything else to `err`.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;
    bool mayColour = false;  ///< on a terminal without NO_COLOR
    StopSignal stopSignal = [] { return 0; };
};

enum class ExitStatus : int {
    done = 0,
    doneWithFailures = 1,
    wrongUsage = 2,
    badFile = 3,  ///< a file or server cannot be opened or is not what it should be
    ended = 4     ///< the error service ended the program
};

/// As shells show a program that a signal has ended: 130 for Ctrl-C, 143 for SIGTERM.
[[nodiscard]] constexpr ExitStatus stoppedBy(int signal) {
    return static_cast<ExitStatus>(128 + signal);
}

/// A signal has asked the program to stop. Whoever lets it pass has undone what it had begun.
class Stopped : public std::exception {
public:
    explicit Stopped(int signal) : signal_(signal) {}
    [[nodiscard]] int signal() const { return signal_; }
    [[nodiscard]] const char* what() const noexcept override { return "Stopped by a signal"; }

private:
    int signal_;
};

/// Throws Stopped once a signal asks for it.
void stopIfAsked(const StopSignal& stopSignal);

/// A command line that asks for what cannot be. One sentence that names the thing and, where there is one, the way out.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A file, or what came on standard input, that is not what it should be. One sentence.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// All of standard input. Throws InputError when it cannot be read.
[[nodiscard]] std::string wholeInput(std::istream& in);

/// Tells one failure on a line of its own, as a sentence. What it quotes cannot steer a terminal.
void tellFailure(Console& console, std::string_view sentence);

}  // namespace wmoutlook

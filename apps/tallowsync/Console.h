#pragma once

#include <istream>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Where a command reads and writes: results to `out`, everything else to `err`.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;
    bool mayColour = false;  ///< on a terminal without NO_COLOR
};

enum class ExitStatus : int {
    done = 0,
    doneWithFailures = 1,
    wrongUsage = 2,
    badFile = 3,  ///< a file or server cannot be opened or is not what it should be
    ended = 4     ///< the error service ended the program
};

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

/// Tells one failure on a line of its own, as a sentence.
void tellFailure(Console& console, std::string_view sentence);

}  // namespace wmoutlook

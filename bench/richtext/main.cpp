// How fast rich text becomes plain text, beside a bare look at each byte and beside a program of the system that does the same.
// See docs/performance.md and scripts/bench.sh.

#include "platform/richtext/RichText.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

extern char** environ;

namespace wmoutlook::bench {

namespace {

constexpr std::size_t kSize = 5'000'000;
constexpr double kLeastRate = 200;     // MB per second, or
constexpr double kLeastHardRate = 80;  // of documents that nobody writes, to see that none takes time out of proportion; or
constexpr double kMostRatio = 3;       // this many times a bare scan
constexpr double kMostEmptyShare = 0.01;

struct Document {
    const char* name = "";
    double leastRate = kLeastRate;
    std::string rtf;
};

/// The lines by turns, each with its number in it, until the document is as long as it has to be.
Document makeDocument(const char* name, double leastRate, const std::vector<std::string_view>& lines) {
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang4105{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fnil\\fcharset204 "
        "Arial;}}\r\n{\\colortbl ;\\red0\\green0\\blue255;}\r\n\\viewkind4\\uc1\\pard\\f0\\fs16 ";
    for (std::size_t i = 0; rtf.size() < kSize; ++i) {
        rtf += std::to_string(i);
        rtf += lines[i % lines.size()];
    }
    return {name, leastRate, rtf + "}"};
}

std::vector<Document> makeDocuments() {
    return {
        makeDocument(
            "mostly text", kLeastRate,
            {" Spoke with the client about the instalments for the third quarter; she will send the bank statements by\r\n",
             " Friday. The assessment for last year came with a change to the medical expenses, to be looked at again.\\par\r\n",
             " \\b Next step:\\b0  prepare the objection, due within ninety days, and call Fran\\'e7ois before that.\\par\r\n"}),
        makeDocument("mostly control words", kLeastRate,
                     {"\\pard\\plain\\ltrpar\\ql\\fi-1375\\li1375\\ri0\\sl276\\slmult1\\widctlpar\\itap0{"
                      "\\rtlch\\af0\\ltrch\\fs20\\lang4105 a}\r\n",
                      "\\b\\cf1\\f1\\fs16\\charscalex100\\expndtw0\\b0\\cf0\\f0{\\*\\bkmkstart m}\\ul\\ulnone\\tab\\par\r\n"}),
        makeDocument("mostly escapes", kLeastHardRate,
                     {"\\'e9\\'e8\\'ab\\'bb\\u8212?\\u233\\'e9\\'92\\'93\\'94\\u-10179?\\u-8704?\\~\\_\\{\\}"
                      "\\\\\\emdash\\bullet\\par\r\n"}),
        makeDocument("mostly braces", kLeastHardRate, {"{{{{{\\f1{{{\\uc2{{{a}}}}}}}}}}}{\\v{{}}}"}),
    };
}

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Of the processor, so that other work on the machine does not count.
double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

template <class Work>
double secondsFor(Work work) {
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

volatile std::size_t sink;  // keeps the compiler from leaving out what is measured

/// What no reader can do without: one look at each byte, here to count braces and backslashes.
std::size_t scan(std::string_view rtf) {
    static const std::array<bool, 256> isSpecial = [] {
        std::array<bool, 256> table{};
        for (const char c : {'{', '}', '\\'}) table[static_cast<unsigned char>(c)] = true;
        return table;
    }();
    std::size_t count = 0;
    for (const char c : rtf)
        if (isSpecial[static_cast<unsigned char>(c)]) ++count;
    return count;
}

/// A file in memory with the document in it.
class File {
public:
    explicit File(const Document& document) {
        const int file = mkstemp(path_.data());
        if (file < 0) throw std::runtime_error{"No file can be made in /dev/shm"};
        close(file);
        std::ofstream{path_, std::ios::binary} << document.rtf;
    }
    ~File() { unlink(path_.c_str()); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    [[nodiscard]] const char* path() const { return path_.c_str(); }

private:
    std::string path_ = "/dev/shm/richtext-bench-XXXXXX";
};

/// What the program takes from its start to its end, its output thrown away; -1 when it is not there.
double secondsOfProgram(const char* program, const char* path) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::array<std::string, 3> words{program, "--text", path};
    std::array<char*, 4> arguments{words[0].data(), words[1].data(), words[2].data(), nullptr};
    pid_t child = 0;
    const int error = posix_spawnp(&child, program, &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage used{};
    if (error != 0 || wait4(child, &status, 0, &used) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) return -1;
    return secondsOf(used.ru_utime) + secondsOf(used.ru_stime);
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return (values[(values.size() - 1) / 2] + values[values.size() / 2]) / 2;
}

/// Seconds, one entry per round.
struct Times {
    std::vector<double> read, scan, isEmpty, program;
};

Times measure(const Document& document, int rounds) {
    const File file{document};
    Times times;
    for (int round = 0; round < rounds; ++round) {
        times.scan.push_back(secondsFor([&] { sink = scan(document.rtf); }));
        times.read.push_back(secondsFor([&] { sink = RichText::plainText(document.rtf).size(); }));
        times.isEmpty.push_back(secondsFor([&] { sink = RichText::isEmpty(document.rtf) ? 1 : 0; }));
        if (times.program.size() < 3) times.program.push_back(secondsOfProgram("unrtf", file.path()));
    }
    return times;
}

double quotient(const std::vector<double>& dividends, const std::vector<double>& divisors) {
    std::vector<double> quotients;
    for (std::size_t i = 0; i < std::min(dividends.size(), divisors.size()); ++i) quotients.push_back(dividends[i] / divisors[i]);
    return median(quotients);
}

/// One line of the table; says what is too slow.
bool report(const Document& document, const Times& times) {
    const double megabytes = static_cast<double>(document.rtf.size()) / 1e6;
    const double rate = megabytes / median(times.read);
    const double ratio = quotient(times.read, times.scan);
    const double share = quotient(times.isEmpty, times.read);
    const bool hasProgram = median(times.program) > 0;
    std::printf("| %-20s | %6.0f | %6.0f | %5.2f | %7.5f | ", document.name, rate, megabytes / median(times.scan), ratio, share);
    if (hasProgram)
        std::printf("%.1f | %.0f |\n", megabytes / median(times.program), quotient(times.program, times.read));
    else
        std::printf("not there | |\n");
    std::fflush(stdout);
    const bool isFastEnough = rate >= document.leastRate || ratio <= kMostRatio;
    if (!isFastEnough)
        std::fprintf(stderr, "richtext_bench: %s: %.0f MB per second and %.2f times a bare scan.\n", document.name, rate, ratio);
    const bool isSoonEmpty = share <= kMostEmptyShare;
    if (!isSoonEmpty)
        std::fprintf(stderr, "richtext_bench: %s: isEmpty takes %.3f of the time of a whole reading.\n", document.name, share);
    return isFastEnough && isSoonEmpty;
}

int run(int rounds) {
    std::printf(
        "| document of 5 MB | plain text, MB/s | bare scan, MB/s | times the scan | isEmpty, of a reading | unrtf, MB/s | times "
        "as "
        "long |\n|---|---:|---:|---:|---:|---:|---:|\n");
    bool isGood = true;
    for (const Document& document : makeDocuments()) isGood = report(document, measure(document, rounds)) && isGood;
    return isGood ? 0 : 1;
}

}  // namespace

}  // namespace wmoutlook::bench

int main(int argc, char** argv) {
    const int rounds = argc == 3 && std::string_view{argv[1]} == "--rounds" ? std::atoi(argv[2]) : 11;
    if ((argc != 1 && argc != 3) || rounds < 1) {
        std::cerr << "usage: richtext_bench [--rounds N]\n";
        return 2;
    }
    try {
        return wmoutlook::bench::run(rounds);
    } catch (const std::exception& error) {
        std::cerr << "richtext_bench: " << error.what() << '\n';
        return 1;
    }
}

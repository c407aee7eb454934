// What the contact pass costs, beside a hand-written loop that does the same, and how the calendar pass grows. See docs/performance.md and scripts/bench.sh.

#include "bench/BenchFirm.h"
#include "bench/Measurement.h"
#include "bench/Pass.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::bench {

namespace {

constexpr double kMostRatio = 2.5;
constexpr double kMostGrowth = 1.3;
constexpr double kMostGuardGrowth = 1.4;
constexpr std::int32_t kGuardSmall = 1000;
constexpr std::int32_t kGuardLarge = 8000;
constexpr std::array<const char*, kRunKinds> kRunNames{"creating", "updating"};

struct Options {
    std::vector<std::int32_t> sizes{1000, 10000, 100000};
    int rounds = 5;
    std::string folder = "/dev/shm";
    enum class Task { table, calendar, guard, verify, make, carry } task = Task::table;
};

using Series = std::vector<PerRecord>;

/// One number per round.
std::vector<double> ofRounds(const Series& series, std::size_t kind) {
    std::vector<double> values;
    for (const PerRecord& round : series) values.push_back(round[kind]);
    return values;
}

std::vector<double> quotients(const Series& dividends, const Series& divisors, std::size_t kind) {
    std::vector<double> values;
    for (std::size_t i = 0; i < dividends.size(); ++i) values.push_back(dividends[i][kind] / divisors[i][kind]);
    return values;
}

/// Says in one sentence each what is not as it has to be.
class Verdict {
public:
    void require(bool isMet, const std::string& sentence) {
        if (isMet) return;
        std::cerr << "bench: " << sentence << '\n';
        exitCode_ = 1;
    }
    void requireNothingPrepared(const Measurement& measurement, const char* records = Pass::kRecords) {
        require(measurement.laterPrepared == 0, std::to_string(measurement.laterPrepared) +
                                                    " statements were prepared after the first record at " +
                                                    std::to_string(measurement.records) + " " + records + ".");
    }
    [[nodiscard]] int exitCode() const { return exitCode_; }

private:
    int exitCode_ = 0;
};

std::string rounded(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", number);
    return text;
}

void printRow(const Measurement& measurement, std::size_t kind, double growth) {
    const std::vector<double> ratios = quotients(measurement.pass, measurement.loop, kind);
    const auto [least, most] = std::minmax_element(ratios.begin(), ratios.end());
    std::printf("| %9d | %s | %9.1f | %17.1f | %s (%s to %s) | %s | %lld |\n", measurement.records, kRunNames[kind],
                median(ofRounds(measurement.pass, kind)), median(ofRounds(measurement.loop, kind)),
                rounded(median(ratios)).c_str(), rounded(*least).c_str(), rounded(*most).c_str(), rounded(growth).c_str(),
                static_cast<long long>(measurement.laterPrepared));
    std::fflush(stdout);
}

int printTable(const Options& options) {
    Verdict verdict;
    Workshop workshop{options.folder};
    std::printf(
        "| companies | run | pass, µs per record | hand-written, µs per record | ratio (least to most) | growth | prepared "
        "later |\n|---:|---|---:|---:|---|---:|---:|\n");
    PerRecord smallest{};
    for (const std::int32_t size : options.sizes) {
        const Measurement measurement = workshop.measure(size, options.rounds);
        for (std::size_t kind = 0; kind < kRunKinds; ++kind) {
            const double cost = median(ofRounds(measurement.pass, kind));
            if (size == options.sizes.front()) smallest[kind] = cost;
            const double growth = cost / smallest[kind];
            printRow(measurement, kind, growth);
            const std::string where = std::string{" when "} + kRunNames[kind] + " " + std::to_string(size) + " companies";
            const double ratio = median(quotients(measurement.pass, measurement.loop, kind));
            verdict.require(ratio <= kMostRatio,
                            "The pass costs " + rounded(ratio) + " times the hand-written loop" + where + ".");
            verdict.require(growth <= kMostGrowth, "A record costs " + rounded(growth) + " times as much" + where + " as when " +
                                                       kRunNames[kind] + " " + std::to_string(options.sizes.front()) + ".");
        }
        verdict.requireNothingPrepared(measurement);
    }
    return verdict.exitCode();
}

/// A pass by itself: what a record costs, and how that grows.
template <class AnyPass>
void measureGrowth(Workshop& workshop, const std::vector<std::int32_t>& sizes, const Options& options, double most,
                   Verdict& verdict) {
    const std::vector<Measurement> measurements = workshop.measurePass<AnyPass>(sizes, options.rounds);
    std::printf("| %s | run | pass, µs per record | growth | prepared later |\n|---:|---|---:|---:|---:|\n", AnyPass::kRecords);
    for (const Measurement& measurement : measurements) {
        for (std::size_t kind = 0; kind < kRunKinds; ++kind) {
            const double growth = median(quotients(measurement.pass, measurements.front().pass, kind));
            std::printf("| %9d | %s | %9.1f | %s | %lld |\n", measurement.records, kRunNames[kind],
                        median(ofRounds(measurement.pass, kind)), rounded(growth).c_str(),
                        static_cast<long long>(measurement.laterPrepared));
            verdict.require(growth <= most, std::string{"When "} + kRunNames[kind] + ", a record costs " + rounded(growth) +
                                                " times as much at " + std::to_string(measurement.records) + " " +
                                                AnyPass::kRecords + " as at " + std::to_string(sizes.front()) + "; at most " +
                                                rounded(most) + " is allowed.");
        }
        verdict.requireNothingPrepared(measurement, AnyPass::kRecords);
    }
    std::fflush(stdout);
}

/// Quick enough for every change: a look-up that has lost its index makes a record several times as dear here.
int guard(const Options& options) {
    Verdict verdict;
    const std::vector<std::int32_t> sizes{kGuardSmall, kGuardLarge};
    {
        Workshop workshop{options.folder};
        measureGrowth<Pass>(workshop, sizes, options, kMostGuardGrowth, verdict);
    }
    Workshop workshop{options.folder};
    measureGrowth<CalendarPass>(workshop, sizes, options, kMostGuardGrowth, verdict);
    return verdict.exitCode();
}

int calendar(const Options& options) {
    Verdict verdict;
    Workshop workshop{options.folder};
    measureGrowth<CalendarPass>(workshop, options.sizes, options, kMostGrowth, verdict);
    return verdict.exitCode();
}

int verify(const Options& options) {
    Verdict verdict;
    Workshop workshop{options.folder};
    for (const std::int32_t size : options.sizes) {
        verdict.requireNothingPrepared(workshop.measure(size, 1));
        std::cout << size << " companies: both sides leave the same items and links.\n";
    }
    return verdict.exitCode();
}

/// The two parts of a run whose system calls are counted from outside.
int make(const Options& options) {
    makeFirm(Files::in(options.folder, "counted"), options.sizes.front());
    return 0;
}

int carry(const Options& options) {
    Pass pass{Files::in(options.folder, "counted"), options.sizes.front()};
    for (int round = 0; round < options.rounds; ++round) static_cast<void>(pass.run());
    return 0;
}

std::int32_t numberIn(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 1)
        throw std::invalid_argument{"\"" + std::string{text} + "\" is no positive number"};
    return number;
}

std::vector<std::int32_t> numbersIn(std::string_view text) {
    std::vector<std::int32_t> numbers;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos; comma = text.find(',')) {
        numbers.push_back(numberIn(text.substr(0, comma)));
        text.remove_prefix(comma + 1);
    }
    numbers.push_back(numberIn(text));
    return numbers;
}

Options readOptions(const std::vector<std::string_view>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view name = arguments[i];
        const auto value = [&] {
            if (++i == arguments.size()) throw std::invalid_argument{std::string{name} + " needs a value"};
            return arguments[i];
        };
        if (name == "--sizes")
            options.sizes = numbersIn(value());
        else if (name == "--rounds")
            options.rounds = numberIn(value());
        else if (name == "--folder")
            options.folder = value();
        else if (name == "--calendar")
            options.task = Options::Task::calendar;
        else if (name == "--guard")
            options.task = Options::Task::guard;
        else if (name == "--verify")
            options.task = Options::Task::verify;
        else if (name == "--make")
            options.task = Options::Task::make;
        else if (name == "--carry")
            options.task = Options::Task::carry;
        else
            throw std::invalid_argument{"\"" + std::string{name} + "\" is no option"};
    }
    return options;
}

int runTask(const Options& options) {
    switch (options.task) {
        case Options::Task::calendar: return calendar(options);
        case Options::Task::guard: return guard(options);
        case Options::Task::verify: return verify(options);
        case Options::Task::make: return make(options);
        case Options::Task::carry: return carry(options);
        case Options::Task::table: break;
    }
    return printTable(options);
}

}  // namespace

}  // namespace wmoutlook::bench

int main(int argc, char** argv) {
    using namespace wmoutlook::bench;
    try {
        return runTask(readOptions({argv + 1, argv + argc}));
    } catch (const std::invalid_argument& error) {
        std::cerr
            << "bench: " << error.what()
            << "\nusage: wmoutlook_bench [--calendar | --guard | --verify | --make | --carry] [--sizes N,N,...] [--rounds N] "
               "[--folder FOLDER]\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "bench: " << error.what() << '\n';
        return 1;
    }
}

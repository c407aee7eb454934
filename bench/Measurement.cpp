#include "bench/Measurement.h"

#include "bench/BenchFirm.h"
#include "bench/Comparison.h"
#include "bench/HandWrittenLoop.h"
#include "bench/Pass.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace wmoutlook::bench {

namespace {

/// A round of few records is too short to be told from noise: it is done several times over.
constexpr std::int32_t kFewestRecords = 10000;

constexpr const char* kTemplate = "template";
constexpr const char* kPass = "pass";
constexpr const char* kLoop = "loop";

std::string templateOf(std::int32_t companies) {
    return kTemplate + std::to_string(companies);
}

}  // namespace

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Workshop::Workshop(const std::string& parent) {
    std::string pattern = parent + "/wmoutlook-bench-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error{"No folder can be made in " + parent};
    folder_ = pattern;
}

Workshop::~Workshop() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

template <class Side>
PerRecord Workshop::carry(std::int32_t records, std::int32_t times, const char* name, std::int64_t& laterPrepared) {
    const Files files = Files::in(folder_, name);
    PerRecord seconds{};
    for (std::int32_t i = 0; i < times; ++i) {
        Files::in(folder_, templateOf(records)).copyTo(files);
        Side side{files, records};
        for (double& total : seconds) {
            const Cost cost = side.run();
            total += cost.seconds;
            laterPrepared += cost.laterPrepared;
        }
    }
    for (double& total : seconds) total *= 1e6 / (static_cast<double>(records) * times);
    return seconds;
}

Measurement Workshop::measure(std::int32_t companies, int rounds) {
    const Files original = Files::in(folder_, templateOf(companies));
    makeFirm(original, companies);
    const std::int32_t times = std::max(1, kFewestRecords / companies);
    Measurement result;
    result.records = companies;
    std::int64_t ofLoop = 0;
    for (int round = 0; round < rounds; ++round) {
        const bool isPassFirst = round % 2 == 0;
        if (isPassFirst) result.pass.push_back(carry<Pass>(companies, times, kPass, result.laterPrepared));
        result.loop.push_back(carry<HandWrittenLoop>(companies, times, kLoop, ofLoop));
        if (!isPassFirst) result.pass.push_back(carry<Pass>(companies, times, kPass, result.laterPrepared));
        requireSameResults(Files::in(folder_, kPass), Files::in(folder_, kLoop), companies);
    }
    for (const Files& files : {original, Files::in(folder_, kPass), Files::in(folder_, kLoop)}) files.remove();
    return result;
}

template <class AnyPass>
std::vector<Measurement> Workshop::measurePass(const std::vector<std::int32_t>& sizes, int rounds) {
    std::vector<Measurement> results;
    for (const std::int32_t records : sizes) {
        AnyPass::makeFiles(Files::in(folder_, templateOf(records)), records);
        results.emplace_back().records = records;
    }
    for (int round = 0; round < rounds; ++round)
        for (Measurement& result : results) {
            const std::int32_t times = std::max(1, std::min(sizes.back(), kFewestRecords) / result.records);
            result.pass.push_back(carry<AnyPass>(result.records, times, kPass, result.laterPrepared));
        }
    return results;
}

template std::vector<Measurement> Workshop::measurePass<Pass>(const std::vector<std::int32_t>&, int);
template std::vector<Measurement> Workshop::measurePass<CalendarPass>(const std::vector<std::int32_t>&, int);

}  // namespace wmoutlook::bench

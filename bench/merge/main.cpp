// How many templates a second become text, beside a template library and a bare scan. See docs/performance.md and scripts/bench.sh.

#include "merge/FieldTables.h"
#include "merge/RecentTemplates.h"
#include "platform/Services.h"

#include <ctemplate/template.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wmoutlook::bench {

namespace {

using namespace merge;

constexpr double kMostGrowth = 1.5;  // of the cost of a byte from the short template to the long one, both new
constexpr double kMostScans = 4;
constexpr int kRounds = 5;
constexpr double kSecondsAtLeast = 0.15;

/// The placeholders of a company and its contact, as a firm in Ontario has them, without a database.
struct Fields {
    FieldList list;
    std::vector<std::string> names;  ///< by row, from 1

    Fields() : names(1) {
        const ListTerms terms{country::kCanada, province::kOntario, true, false};
        for (const auto rows : {companyRows(), contactNameRows(), clientRows(), softwareRows(), moreContactRows(), firmRows()})
            for (const FieldRow& row : rows) {
                if (!standsIn(row, terms)) continue;
                const Field field = fieldOf(row, SourceKind::company, terms);
                names.push_back(field.displayName);
                list.addField(field);
            }
    }
};

/// Twelve fields, spread over a letter.
const std::vector<std::string> kUsed{
    "Contact Display Name", "Company Name",       "Address",  "City",      "Province",         "Postal Code", "Business Number",
    "Office Number",        "Contact First Name", "Web Site", "Client ID", "Your Company Name"};

constexpr std::string_view kProse = " and the return for last year, which we prepared, ";

std::string valueOf(const std::string& name) {
    return "the " + name;
}

/// A text with each of the twelve in it once, or again every 600 bytes, with marks of either kind of template.
std::string makeText(std::size_t size, std::string_view open, std::string_view close, bool isForLibrary) {
    std::string text;
    for (std::size_t i = 0; text.size() < size || i < kUsed.size(); ++i) {
        std::string name = kUsed[i % kUsed.size()];
        if (isForLibrary) std::replace(name.begin(), name.end(), ' ', '_');
        text.append("Dear").append(kProse.substr(0, 28)).append(open).append(name).append(close);
    }
    return text;
}

double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

volatile std::size_t sink;

double rateOf(const std::function<std::string()>& work) {
    for (long count = 1;; count *= 4) {
        const double start = processorSeconds();
        for (long i = 0; i < count; ++i) sink = work().size();
        const double seconds = processorSeconds() - start;
        if (seconds >= kSecondsAtLeast) return static_cast<double>(count) / seconds;
    }
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return (values[(values.size() - 1) / 2] + values[values.size() / 2]) / 2;
}

/// All that a merge does with a text: old names, both kinds of marks, what is left of placeholders. The component keeps the last templates,
/// as the library does, and finds this one among them anew each time.
std::string merged(const std::string& text, const Fields& fields) {
    const Naming naming{RenameLocale{country::kCanada, province::kOntario, true}};
    const auto prepared = recentTemplates().of(text, naming, fields.list, [&] { return renamesFor(naming.locale).apply(text); });
    return prepared->merged(TextKind::plain, [&](std::int32_t rank) {
        return valueOf(fields.names[static_cast<std::size_t>(PlaceholderRank::row(rank))]);
    });
}

/// From mark to mark, each name in a table of values: what no merge can do without.
std::string scanned(const std::string& text, const std::unordered_map<std::string, std::string>& values) {
    std::string result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (std::size_t open = text.find(kPlainMarks.open); open != std::string::npos; open = text.find(kPlainMarks.open, done)) {
        const std::size_t start = open + kPlainMarks.open.size();
        const std::size_t close = text.find(kPlainMarks.close, start);
        if (close == std::string::npos) break;
        result.append(text, done, open - done);
        if (const auto value = values.find(text.substr(start, close - start)); value != values.end()) result += value->second;
        done = close + kPlainMarks.close.size();
    }
    return result.append(text, done);
}

std::string expandedByLibrary(const std::string& name) {
    ctemplate::TemplateDictionary dictionary{"bench"};
    for (const std::string& used : kUsed) {
        std::string key = used;
        std::replace(key.begin(), key.end(), ' ', '_');
        dictionary.SetValue(key, valueOf(used));
    }
    std::string result;
    if (!ctemplate::ExpandTemplate(name, ctemplate::DO_NOT_STRIP, &dictionary, &result))
        throw std::runtime_error{"ctemplate cannot expand"};
    return result;
}

struct Figures {
    double timesLibrary = 0, timesScan = 0;
    double bytesASecondAtFirst = 0;
};

Figures measure(std::size_t size) {
    static const Fields fields;
    const std::string text = makeText(size, kPlainMarks.open, kPlainMarks.close, false);
    const std::string name = "text of " + std::to_string(size);
    ctemplate::StringToTemplateCache(name, makeText(size, "{{", "}}", true), ctemplate::DO_NOT_STRIP);
    std::unordered_map<std::string, std::string> values;
    for (const std::string& used : kUsed) values[used] = valueOf(used);
    if (merged(text, fields) != scanned(text, values) || scanned(text, values) != expandedByLibrary(name))
        throw std::runtime_error{"the three do not give the same text"};

    std::vector<double> own, library, scan, first, timesLibrary, timesScan, timesScanAtFirst;
    for (int round = 0; round < kRounds; ++round) {
        own.push_back(rateOf([&] { return merged(text, fields); }));
        library.push_back(rateOf([&] { return expandedByLibrary(name); }));
        scan.push_back(rateOf([&] { return scanned(text, values); }));
        first.push_back(rateOf([&] {
            recentTemplates().clear();
            return merged(text, fields);
        }));
        timesLibrary.push_back(own.back() / library.back());
        timesScan.push_back(scan.back() / own.back());
        timesScanAtFirst.push_back(scan.back() / first.back());
    }
    std::printf("| %7zu | %8.0f | %8.0f | %8.0f | %5.2f | %5.2f | %5.2f |\n", text.size(), median(own), median(library),
                median(scan), median(timesLibrary), median(timesScan), median(timesScanAtFirst));
    return {median(timesLibrary), median(timesScan), median(first) * static_cast<double>(text.size())};
}

/// Says what is not kept.
int judge(const Figures& ofShort, const Figures& ofLong) {
    int failures = 0;
    const auto require = [&](bool holds, const char* bound, double figure) {
        if (holds) return;
        std::fprintf(stderr, "merge_bench: %s: %.2f\n", bound, figure);
        ++failures;
    };
    for (const Figures& figures : {ofShort, ofLong}) {
        require(figures.timesLibrary > 1, "a merge is to be ahead of ctemplate, times ctemplate", figures.timesLibrary);
        require(figures.timesScan <= kMostScans, "a merge is to take four bare scans at most", figures.timesScan);
    }
    const double growth = ofShort.bytesASecondAtFirst / ofLong.bytesASecondAtFirst;
    require(growth <= kMostGrowth, "a byte of a long new template is to cost what one of a short one costs, times", growth);
    return failures == 0 ? 0 : 1;
}

}  // namespace

}  // namespace wmoutlook::bench

int main() {
    try {
        std::printf(
            "| bytes | merges a second | ctemplate | bare scan | times ctemplate | scans as long | for the first time |\n"
            "|---:|---:|---:|---:|---:|---:|---:|\n");
        const wmoutlook::bench::Figures ofShort = wmoutlook::bench::measure(600);
        return wmoutlook::bench::judge(ofShort, wmoutlook::bench::measure(100'000));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "merge_bench: %s\n", error.what());
        return 1;
    }
}

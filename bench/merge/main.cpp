// How many templates a second become text, beside a template library and a bare scan. See docs/performance.md and scripts/bench.sh.

#include "merge/FieldTables.h"
#include "merge/MergeText.h"
#include "merge/PlaceholderRenames.h"
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

constexpr double kMostGrowth = 1.5;  // of the cost of a byte from the short template to the long one
constexpr int kRounds = 5;
constexpr double kSecondsAtLeast = 0.15;

/// The placeholders of a company and its contact, as a firm in Ontario has them, without a database.
struct Fields {
    Placeholders placeholders;
    std::vector<std::string> names;  ///< by row, from 1

    Fields() : names(1) {
        const ListTerms terms{country::kCanada, province::kOntario, true, false};
        for (const auto rows : {companyRows(), contactNameRows(), clientRows(), softwareRows(), moreContactRows(), firmRows()})
            for (const FieldRow& row : rows) {
                if (!standsIn(row, terms)) continue;
                const Field field = fieldOf(row, SourceKind::company, terms);
                placeholders.add(field.displayName, field.type == DataType::date);
                names.push_back(field.displayName);
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

/// All that a merge does with a text: old names, both kinds of marks, what is left of placeholders.
std::string merged(const std::string& text, const PlaceholderRenames& renames, const Fields& fields) {
    std::string result = renames.apply(text);
    for (const Marks& marks : kAllMarks)
        result = expandPlaceholders(std::move(result), marks, fields.placeholders, TextKind::plain, [&](std::int32_t rank) {
            return valueOf(fields.names[static_cast<std::size_t>(PlaceholderRank::row(rank))]);
        });
    replaceUnfoundMergeFieldsWithBlanks(result);
    return result;
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

/// Merges a second, times the bytes of the text.
double measure(std::size_t size) {
    static const Fields fields;
    static const PlaceholderRenames renames{{country::kCanada, province::kOntario, true}};
    const std::string text = makeText(size, kPlainMarks.open, kPlainMarks.close, false);
    const std::string name = "text of " + std::to_string(size);
    ctemplate::StringToTemplateCache(name, makeText(size, "{{", "}}", true), ctemplate::DO_NOT_STRIP);
    std::unordered_map<std::string, std::string> values;
    for (const std::string& used : kUsed) values[used] = valueOf(used);
    if (merged(text, renames, fields) != scanned(text, values) || scanned(text, values) != expandedByLibrary(name))
        throw std::runtime_error{"the three do not give the same text"};

    std::vector<double> own, library, scan, timesLibrary, timesScan;
    for (int round = 0; round < kRounds; ++round) {
        own.push_back(rateOf([&] { return merged(text, renames, fields); }));
        library.push_back(rateOf([&] { return expandedByLibrary(name); }));
        scan.push_back(rateOf([&] { return scanned(text, values); }));
        timesLibrary.push_back(own.back() / library.back());
        timesScan.push_back(scan.back() / own.back());
    }
    std::printf("| %7zu | %8.0f | %8.0f | %8.0f | %5.2f | %5.2f |\n", text.size(), median(own), median(library), median(scan),
                median(timesLibrary), median(timesScan));
    return median(own) * static_cast<double>(text.size());
}

}  // namespace

}  // namespace wmoutlook::bench

int main() {
    try {
        std::printf(
            "| bytes | merges a second | ctemplate | bare scan | times ctemplate | scans as long |\n"
            "|---:|---:|---:|---:|---:|---:|\n");
        const double ofShort = wmoutlook::bench::measure(600);
        const double ofLong = wmoutlook::bench::measure(100'000);
        if (ofShort / ofLong <= wmoutlook::bench::kMostGrowth) return 0;
        std::fprintf(stderr, "merge_bench: a byte of the long template costs %.2f times one of the short one.\n",
                     ofShort / ofLong);
        return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "merge_bench: %s\n", error.what());
        return 1;
    }
}

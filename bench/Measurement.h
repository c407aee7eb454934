#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace wmoutlook::bench {

/// The first run creates each item and link, the second updates each.
enum RunKind : std::size_t { creating, updating, kRunKinds };

/// Of one round: microseconds per record, by kind of run.
using PerRecord = std::array<double, kRunKinds>;

struct Measurement {
    std::int32_t records = 0;
    std::vector<PerRecord> pass;  ///< one entry per round
    std::vector<PerRecord> loop;
    std::int64_t laterPrepared = 0;  ///< by the pass, in all rounds
};

[[nodiscard]] double median(std::vector<double> values);

/// A folder in memory or elsewhere, and the firms that were made in it. Removed at the end.
class Workshop {
public:
    explicit Workshop(const std::string& parent);
    ~Workshop();
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    /// Both sides by turns on copies of the same firm; each round ends with a comparison of what they have left behind.
    [[nodiscard]] Measurement measure(std::int32_t companies, int rounds);
    /// A pass (Pass.h) alone at several sizes by turns, each as often as the largest, which is the last, contains it.
    template <class AnyPass>
    [[nodiscard]] std::vector<Measurement> measurePass(const std::vector<std::int32_t>& sizes, int rounds);

private:
    template <class Side>
    PerRecord carry(std::int32_t records, std::int32_t times, const char* name, std::int64_t& laterPrepared);

    std::string folder_;
};

}  // namespace wmoutlook::bench

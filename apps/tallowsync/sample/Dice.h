#pragma once

#include "platform/Platform.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace wmoutlook::sample {

/// The sample's chance: the same picks for the same random source. Two throws never stand in one list of arguments, since
/// compilers evaluate these in different orders.
class Dice {
public:
    explicit Dice(RandomSource& random) : random_(&random) {}

    /// From 0 up to, but not including, the bound.
    [[nodiscard]] std::int32_t below(std::int32_t bound) {
        return static_cast<std::int32_t>(random_->next() * static_cast<double>(bound));
    }
    [[nodiscard]] std::int32_t between(std::int32_t least, std::int32_t most) { return least + below(most - least + 1); }
    [[nodiscard]] bool chance(std::int32_t percent) { return below(100) < percent; }

    /// A container that is not empty.
    template <class Container>
    [[nodiscard]] const auto& pick(const Container& items) {
        return items[static_cast<std::size_t>(below(static_cast<std::int32_t>(std::size(items))))];
    }

private:
    RandomSource* random_;
};

}  // namespace wmoutlook::sample

#pragma once

#include "bench/BenchFirm.h"
#include "bench/Cost.h"

#include <cstdint>
#include <memory>

namespace wmoutlook::bench {

/// The component, wired up as a host does it, on the embedded adapters: no progress dialog, an error service that only counts.
class Pass {
public:
    explicit Pass(const Files& files, std::int32_t companies);
    ~Pass();
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;

    /// Carries all companies to Outlook. Throws when the error service was told of a failure or a record was left out.
    Cost run();

private:
    struct Host;
    std::unique_ptr<Host> host_;
};

}  // namespace wmoutlook::bench

#pragma once

#include <array>
#include <cstddef>
#include <functional>

namespace wmoutlook {

/// Steps that the upgrade of a legacy store leaves for the next start of Outlook, since filling its new columns needs a
/// logged-on session. Each that was asked for runs once, in the order of the enumeration.
class DeferredSteps {
public:
    enum class Step : std::size_t {
        populateFolderStoreIDField,
        populateNewInfoTypeFields,
        populateNewCompanyContactTypeFields,
        populateOutlookSchemeItemsTable,
        populateNewUseAppointmentDateRangeFields,
        populateNewImportTallowbrookLocationFields,
    };
    static constexpr std::size_t kCount = 6;

    void ask(Step step, std::function<void()> routine) { asked_[static_cast<std::size_t>(step)] = std::move(routine); }
    [[nodiscard]] bool isAsked(Step step) const { return asked_[static_cast<std::size_t>(step)] != nullptr; }

    void run() {
        for (auto& routine : asked_) {
            if (!routine) continue;
            routine();
            routine = nullptr;
        }
    }

private:
    std::array<std::function<void()>, kCount> asked_;
};

}  // namespace wmoutlook

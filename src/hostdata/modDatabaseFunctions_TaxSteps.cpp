#include "hostdata/modDatabaseFunctions.h"

#include "hostdata/CategoryTables.h"
#include "hostdata/HostServices.h"
#include "hostdata/TaxSteps.h"
#include "platform/Routine.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace wmoutlook::modDatabaseFunctions {

namespace {

using namespace categories;

constexpr std::array<std::string_view, 5> kStepFields{"StepName", "StepDescription", "ColumnName", "DefaultWidth", "SortIndex"};
constexpr std::size_t kStepName = 0;
constexpr std::size_t kSortIndex = 4;
using Step = std::array<std::string, kStepFields.size()>;

std::optional<Step> readStep(const Recordset& row) {
    Step step;
    for (std::size_t i = 0; i < step.size(); ++i) {
        auto text = row.textIfRead(kStepFields[i]);
        if (!text) return std::nullopt;
        step[i] = *std::move(text);
    }
    return step;
}

/// Nothing when not all of them could be read: a walk that a failing call ends looks like one of fewer steps.
std::optional<std::vector<Step>> stepsOfYear(std::int32_t year) {
    Recordset rows{"SELECT PersonalTaxSteps.* FROM PersonalTaxSteps WHERE PersonalTaxSteps.TaxYear=" + toText(year) +
                   " ORDER BY PersonalTaxSteps.SortIndex;"};
    const auto hasRows = rows.hasRowsIfTold();
    if (!hasRows) return std::nullopt;
    std::vector<Step> steps;
    if (!*hasRows) return steps;
    for (rows.moveFirst(); !rows.isAtEnd(); rows.moveNext()) {
        auto step = readStep(rows);
        if (!step) return std::nullopt;
        steps.push_back(*std::move(step));
    }
    if (steps.empty() || static_cast<std::size_t>(rows.recordCount()) != steps.size()) return std::nullopt;
    return steps;
}

std::vector<Step> defaultSteps() {
    std::vector<Step> steps;
    std::int32_t number = 0;
    for (const TaxStep& step : kDefaultTaxSteps)
        steps.push_back({std::string{step.name}, std::string{step.description}, std::string{step.columnName},
                         std::string{kDefaultStepWidth}, toText(++number)});
    return steps;
}

bool addStep(const Recordset& rows, std::int32_t year, const Step& step) {
    if (!rows.addNew() || !rows.set("TaxYear", toText(year))) return false;
    for (std::size_t i = 0; i < step.size(); ++i)
        if (!rows.set(kStepFields[i], step[i])) return false;
    return rows.set("OldSortIndex", step[kSortIndex]) && rows.save();
}

/// Adds the steps that an earlier attempt has not brought in yet. False when one is still wanting.
bool addSteps(std::int32_t year, const std::vector<Step>& wanted, std::vector<Step> present) {
    const Recordset rows{"SELECT PersonalTaxSteps.* FROM PersonalTaxSteps;", LockCode::updatable};
    for (const Step& step : wanted) {
        const auto known =
            std::find_if(present.begin(), present.end(), [&](const Step& other) { return other[kStepName] == step[kStepName]; });
        if (known != present.end())
            present.erase(known);
        else if (!addStep(rows, year, step))
            return false;
    }
    return true;
}

bool addDefaultSteps(std::int32_t year, const std::vector<Step>& present) {
    bool isComplete = false;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-createDefaultPersonalTaxSteps"};
    routine.run([&] {
        if (isDatabaseOpen()) isComplete = addSteps(year, defaultSteps(), present);
    });
    return isComplete;
}

}  // namespace

bool completeTaxSteps(std::int32_t year) {
    const auto present = stepsOfYear(year);
    const auto before = stepsOfYear(year - 1);
    if (!present || !before) return false;
    return before->empty() ? addDefaultSteps(year, *present) : addSteps(year, *before, *present);
}

void createDefaultPersonalTaxSteps(std::int32_t year) {
    addDefaultSteps(year, {});
}

}  // namespace wmoutlook::modDatabaseFunctions

#include "merge/PlaceholderRenames.h"

#include "merge/MarkScan.h"
#include "merge/RenameTables.h"
#include "platform/Text.h"
#include "platform/TextSearch.h"

#include <algorithm>
#include <utility>

namespace wmoutlook::merge {

namespace {

const ProvinceNames& namesOf(std::int32_t province) {
    const auto* const row = std::find_if(kProvinceNames.begin(), kProvinceNames.end(),
                                         [&](const ProvinceNames& names) { return names.province == province; });
    return row != kProvinceNames.end() ? *row : kOntarioNames;
}

bool isWithinMarks(std::string_view text, const Marks& marks) {
    return text.starts_with(marks.open) && text.ends_with(marks.close);
}

void takeLower(std::optional<std::size_t>& first, std::size_t rule) {
    if (!first || rule < *first) first = rule;
}

}  // namespace

bool isHarmonizedOn(Date day) {
    return !isEarlier(day, makeDay(2010, 7, 1));
}

PlaceholderRenames::PlaceholderRenames(const RenameLocale& locale) : locale_(locale) {
    for (const Rename& rename : kGeneralRenames) add(std::string{rename.from}, std::string{rename.to});
    for (const Marks& marks : kAllMarks)
        for (const Rename& rename : kOldTaskNames) addNames(rename.from, rename.to, marks);
    if (locale.country == country::kUnitedStates)
        for (const Rename& rename : kCountryNames) addNames(rename.from, rename.to, kPlainMarks);
    if (locale.country != country::kCanada) return;
    addProvince();
    for (const Rename& rename : kCountryNames) addNames(rename.to, rename.from, kPlainMarks);
}

void PlaceholderRenames::addProvince() {
    const ProvinceNames& names = namesOf(locale_.province);
    for (const Rename& rename : names.safetyBoard) addNames(rename.from, rename.to, kPlainMarks);
    const bool isToHst =
        names.salesTax == SalesTaxNames::toHst || (names.salesTax == SalesTaxNames::toHstAndBack && locale_.isHarmonized);
    if (isToHst) addNames(kToHst.from, kToHst.to, kPlainMarks);
    if (names.salesTax != SalesTaxNames::toHst) addNames(kToGst.from, kToGst.to, kPlainMarks);
    const std::string own = std::string{names.corporateTax}.append(kCorporateTaxEnd);
    for (const std::string_view tax : kCorporateTaxes)
        if (tax != names.corporateTax) addNames(std::string{tax}.append(kCorporateTaxEnd), own, kPlainMarks);
}

void PlaceholderRenames::addNames(std::string_view from, std::string_view to, const Marks& marks) {
    const auto between = [&](std::string_view name) { return std::string{marks.open}.append(name).append(marks.close); };
    add(between(from), between(to));
}

void PlaceholderRenames::add(std::string from, std::string to) {
    rules_.push_back({std::move(from), std::move(to)});
    index(rules_.size() - 1);
}

void PlaceholderRenames::index(std::size_t rule) {
    const std::string_view from = rules_[rule].from;
    for (std::size_t kind = 0; kind < kAllMarks.size(); ++kind) {
        const Marks& marks = kAllMarks[kind];
        if (!from.starts_with(marks.open)) continue;
        const std::size_t start = marks.open.size();
        if (isWithinMarks(from, marks)) {
            const std::string_view name = from.substr(start, from.size() - start - marks.close.size());
            names_[kind][lowerCase(name)].push_back(rule);
        } else
            beginnings_[kind].push_back(rule);
        return;
    }
    bareWords_.push_back(rule);
}

/// A placeholder's name holds no marks, so its closing mark is the next mark behind the opening one.
void PlaceholderRenames::lookBetween(const Marks& marks, std::string_view text, std::size_t from,
                                     std::optional<std::size_t>& first) const {
    const auto kind = static_cast<std::size_t>(&marks - kAllMarks.data());
    MarkScan scan{text, marks, MarkScan::Case::either};
    for (FoundMark mark = scan.next(), open; mark.kind != MarkKind::none; open = std::exchange(mark, scan.next())) {
        const bool isBeginning = mark.kind == MarkKind::open && text.substr(mark.position + marks.open.size()).starts_with('(');
        if (isBeginning)
            for (const std::size_t rule : beginnings_[kind])
                if (rule >= from && startsTextually(text.substr(mark.position), rules_[rule].from)) takeLower(first, rule);
        if (mark.kind != MarkKind::close || open.kind != MarkKind::open) continue;
        const std::size_t start = open.position + marks.open.size();
        const std::string_view name = text.substr(start, mark.position - start);
        const auto rules = names_[kind].find(FoldedName{name}.text());
        if (rules == names_[kind].end()) continue;
        const auto rule = std::lower_bound(rules->second.begin(), rules->second.end(), from);
        if (rule != rules->second.end()) takeLower(first, *rule);
    }
}

std::optional<std::size_t> PlaceholderRenames::firstPresent(std::string_view text, std::size_t from) const {
    std::optional<std::size_t> first;
    for (const Marks& marks : kAllMarks) lookBetween(marks, text, from, first);
    lookForBareWords(text, from, first);
    return first;
}

void PlaceholderRenames::lookForBareWords(std::string_view text, std::size_t from, std::optional<std::size_t>& first) const {
    for (const std::size_t rule : bareWords_)
        if (rule >= from && (!first || rule < *first) && findTextually(text, rules_[rule].from)) first = rule;
}

std::string PlaceholderRenames::apply(std::string text) const {
    for (auto rule = firstPresent(text, 0); rule; rule = firstPresent(text, *rule + 1))
        text = replaceTextually(text, rules_[*rule].from, rules_[*rule].to);
    return text;
}

const PlaceholderRenames& renamesFor(const RenameLocale& locale) {
    thread_local std::optional<PlaceholderRenames> renames;
    if (!renames || renames->locale() != locale) renames.emplace(locale);
    return *renames;
}

}  // namespace wmoutlook::merge

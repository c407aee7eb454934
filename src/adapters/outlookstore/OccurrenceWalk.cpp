#include "adapters/outlookstore/OccurrenceWalk.h"

#include "adapters/outlookstore/ItemBlob.h"
#include "adapters/outlookstore/SeriesItem.h"
#include "platform/Errors.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace wmoutlook::outlookstore {

namespace {

constexpr std::int64_t kSecondsOfDay = 86400;
constexpr std::size_t kDaysAtOnce = 16;
constexpr ItemPlace kBeforeAll{SecondsRange{}.low, SecondsRange{}.low};

std::int64_t floorDays(std::int64_t seconds) {
    return seconds / kSecondsOfDay - (seconds % kSecondsOfDay < 0 ? 1 : 0);
}

DayNumber clampedDay(std::int64_t day, DayNumber least, DayNumber most) {
    return static_cast<DayNumber>(std::clamp<std::int64_t>(day, least, most));
}

/// In front of the advice, if there is one; nothing new for a message that begins with it.
std::string named(std::string message, const std::string& what) {
    if (message.find(what.substr(1) + " ") == 1) return message;
    return message.insert(std::min(message.find("; "), message.size()), " (" + what + ")");
}

/// Tells what it is that cannot be read.
template <class Read>
auto naming(const std::string& what, Read read) {
    try {
        return read();
    } catch (const OutlookError& error) {
        throw OutlookError{error.number(), named(error.what(), what)};
    }
}

std::string itemOf(std::int64_t number) {
    return "item " + std::to_string(number);
}

/// A recurring task is one item here too: it has no start from which it could be expanded.
bool isExpanded(const LoadedItem& item) {
    return item.head.type == outlook::ItemType::appointment && isSeries(item.data);
}

}  // namespace

SeriesWalk::SeriesWalk(SeriesStorage& series, const LoadedItem& master, SecondsRange range)
    : pattern_(series.pattern(master.head.number).value_or(Recurrence{})) {
    const std::int64_t start = sortKeyOf(master.data, "Start").value();
    startDay_ = clampedDay(floorDays(start), std::numeric_limits<DayNumber>::min(), std::numeric_limits<DayNumber>::max());
    timeOfDay_ = start - std::int64_t{startDay_} * kSecondsOfDay;
    const DayNumber end = pattern_.patternEndDate ? dayNumberOf(*pattern_.patternEndDate) : lastDayOfAll();
    lastDay_ = clampedDay(floorDays(range.high), startDay_ - 1, std::max(end, startDay_ - 1));
    nextDay_ = clampedDay(floorDays(range.low), startDay_, std::max(lastDay_, startDay_));
    for (const ExceptionPlace& place : series.exceptionPlaces(master.head.number)) {
        exceptions_.push_back(place.originalDay);
        if (place.start && *place.start >= range.low && *place.start <= range.high)
            moved_.push_back({*place.start, place.originalDay});
    }
    std::sort(moved_.begin(), moved_.end(), std::greater<>{});
    regular_ = nextRegular();
    advance();
}

void SeriesWalk::readDays() {
    days_ = patternDays(pattern_, startDay_, nextDay_, lastDay_, kDaysAtOnce);
    nextDay_ = days_.empty() ? lastDay_ + 1 : days_.back() + 1;
    std::reverse(days_.begin(), days_.end());
}

bool SeriesWalk::isExceptional(DayNumber day) const {
    return std::binary_search(exceptions_.begin(), exceptions_.end(), day);
}

std::optional<SeriesWalk::Occurrence> SeriesWalk::nextRegular() {
    while (true) {
        if (days_.empty()) readDays();
        if (days_.empty()) return std::nullopt;
        const DayNumber day = days_.back();
        days_.pop_back();
        if (!isExceptional(day)) return Occurrence{std::int64_t{day} * kSecondsOfDay + timeOfDay_, day};
    }
}

void SeriesWalk::advance() {
    const bool isMovedNext = !moved_.empty() && (!regular_ || moved_.back() < *regular_);
    if (!isMovedNext) {
        current_ = std::exchange(regular_, regular_ ? nextRegular() : std::nullopt);
        return;
    }
    current_ = moved_.back();
    moved_.pop_back();
}

OccurrenceWalk::OccurrenceWalk(StoreFile& file, const ViewTerms& terms)
    : file_(file),
      terms_(terms),
      range_(terms.rangeOf("Start", true)),
      singles_(file.items(), 0, terms.folder, false, range_),
      single_(singles_.next()),
      unopened_(file.series().next(terms.folder, kBeforeAll, range_.low)) {}

/// Those that begin before whatever is next.
void OccurrenceWalk::openSeries() {
    while (unopened_ && unopened_->key <= range_.high) {
        const ItemPlace place = *unopened_;
        if ((single_ && single_->key < place.key) || (!open_.empty() && open_.begin()->first.key < place.key)) return;
        unopened_ = file_.series().next(terms_.folder, place, range_.low);
        auto walk = naming(itemOf(place.number), [&] { return walkOf(place.number); });
        if (!walk || !walk->current()) continue;
        const ItemPlace first{walk->current()->start, place.number};
        open_.emplace(first, *std::move(walk));
    }
}

/// Nothing when it is no series any more.
std::optional<SeriesWalk> OccurrenceWalk::walkOf(std::int64_t number) {
    const auto master = file_.items().loadIf(number, terms_.folder, {});
    if (!master || !isExpanded(*master)) return std::nullopt;
    return SeriesWalk{file_.series(), *master, range_};
}

std::optional<WalkedItem> OccurrenceWalk::next() {
    while (true) {
        openSeries();
        if (!single_ && open_.empty()) return std::nullopt;
        const bool isSingleNext = single_ && (open_.empty() || *single_ < open_.begin()->first);
        if (auto item = isSingleNext ? takeSingle() : takeOccurrence()) return item;
    }
}

std::optional<WalkedItem> OccurrenceWalk::takeSingle() {
    const ItemPlace place = std::exchange(single_, singles_.next()).value();
    const auto passes = [&](const ItemHead& head, std::string_view bytes) { return terms_.pass(head, bytes); };
    auto item = naming(itemOf(place.number), [&] { return file_.items().loadIf(place.number, terms_.folder, passes); });
    if (!item || isExpanded(*item)) return std::nullopt;
    return WalkedItem{std::move(*item), std::nullopt};
}

std::optional<WalkedItem> OccurrenceWalk::takeOccurrence() {
    auto node = open_.extract(open_.begin());
    const std::int64_t number = node.key().number;
    const SeriesWalk::Occurrence occurrence = node.mapped().current().value();
    node.mapped().advance();
    if (node.mapped().current()) {
        node.key().key = node.mapped().current()->start;
        open_.insert(std::move(node));
    }
    const std::string day = toIsoText(Date{static_cast<double>(occurrence.originalDay)});
    return naming(itemOf(number) + " on " + day, [&] { return load(number, occurrence.originalDay); });
}

std::optional<WalkedItem> OccurrenceWalk::load(std::int64_t number, DayNumber day) {
    const auto master = file_.items().loadIf(number, terms_.folder, {});
    if (!master || !isExpanded(*master)) return std::nullopt;
    auto data = occurrenceOf(file_.series(), *master, day);
    if (!data || !passes(*master, *data)) return std::nullopt;
    return WalkedItem{{master->head, std::move(*data)}, day};
}

/// A restriction from before the expansion looks at the series' own item.
bool OccurrenceWalk::passes(const LoadedItem& master, const ItemData& occurrence) {
    for (const Restriction& restriction : terms_.restrictions) {
        encodeItem(restriction.isOnOccurrences ? occurrence : master.data, bytes_);
        if (!restriction.filter.matches(master.head, bytes_)) return false;
    }
    return true;
}

}  // namespace wmoutlook::outlookstore

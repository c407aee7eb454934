#pragma once

#include "adapters/outlookstore/DateOrder.h"
#include "adapters/outlookstore/ItemWalk.h"

#include <map>
#include <vector>

namespace wmoutlook::outlookstore {

/// The occurrences of one series in order of their start. A few days of its pattern are in memory at a time.
class SeriesWalk {
public:
    SeriesWalk(SeriesStorage& series, const LoadedItem& master, SecondsRange range);

    struct Occurrence {
        std::int64_t start = 0;
        DayNumber originalDay = 0;
        friend auto operator<=>(const Occurrence&, const Occurrence&) = default;
    };
    [[nodiscard]] const std::optional<Occurrence>& current() const { return current_; }
    void advance();

private:
    void readDays();
    [[nodiscard]] bool isExceptional(DayNumber day) const;
    [[nodiscard]] std::optional<Occurrence> nextRegular();

    Recurrence pattern_;
    std::int64_t timeOfDay_;
    DayNumber startDay_, nextDay_, lastDay_;
    std::vector<DayNumber> days_;  ///< the next ones of the pattern, the last one first
    std::vector<DayNumber> exceptions_;
    std::vector<Occurrence> moved_;  ///< occurrences that are exceptions, the last one first
    std::optional<Occurrence> regular_, current_;
};

/// A calendar in order of start, each occurrence of a series for itself. Series are opened when the walk reaches them.
class OccurrenceWalk : public ItemWalk {
public:
    OccurrenceWalk(StoreFile& file, const ViewTerms& terms);

    [[nodiscard]] std::optional<WalkedItem> next() override;

private:
    void openSeries();
    [[nodiscard]] std::optional<WalkedItem> takeSingle();
    [[nodiscard]] std::optional<WalkedItem> takeOccurrence();
    [[nodiscard]] std::optional<SeriesWalk> walkOf(std::int64_t number);
    [[nodiscard]] std::optional<WalkedItem> load(std::int64_t number, DayNumber day);
    [[nodiscard]] bool passes(const LoadedItem& master, const ItemData& occurrence);

    StoreFile& file_;
    const ViewTerms& terms_;
    SecondsRange range_;
    DateOrder singles_;
    std::optional<ItemPlace> single_;    ///< the next one that is no occurrence
    std::optional<ItemPlace> unopened_;  ///< the next series
    std::map<ItemPlace, SeriesWalk> open_;
    std::string bytes_;
};

}  // namespace wmoutlook::outlookstore

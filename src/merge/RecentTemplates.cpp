#include "merge/RecentTemplates.h"

#include <algorithm>

namespace wmoutlook::merge {

namespace {

template <typename T>
void moveToFront(std::list<T>& list, typename std::list<T>::iterator item) {
    list.splice(list.begin(), list, item);
}

}  // namespace

std::shared_ptr<const Placeholders> RecentTemplates::placeholdersOf(const FieldList& list) {
    const auto known =
        std::find_if(lists_.begin(), lists_.end(), [&](const auto& placeholders) { return list.has(*placeholders); });
    if (known != lists_.end())
        moveToFront(lists_, known);
    else
        lists_.push_front(std::make_shared<const Placeholders>(list.placeholders()));
    if (lists_.size() > kLists) lists_.pop_back();
    return lists_.front();
}

std::shared_ptr<const MergeTemplate> RecentTemplates::of(std::string_view text, const Naming& naming, const FieldList& list,
                                                         const std::function<std::string()>& current) {
    auto placeholders = placeholdersOf(list);
    const auto known = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.placeholders == placeholders && entry.naming == naming && entry.text == text;
    });
    if (known != entries_.end())
        moveToFront(entries_, known);
    else {
        auto prepared = std::make_shared<const MergeTemplate>(current(), placeholders);
        entries_.push_front({std::string{text}, naming, std::move(placeholders), std::move(prepared)});
        dropOldest();
    }
    return entries_.front().prepared;
}

void RecentTemplates::dropOldest() {
    std::size_t bytes = 0;
    std::size_t count = 0;
    auto entry = entries_.begin();
    for (; entry != entries_.end(); ++entry) {
        bytes += entry->text.size();
        if (++count > 1 && (count > kTemplates || bytes > kBytes)) break;
    }
    entries_.erase(entry, entries_.end());
}

RecentTemplates& recentTemplates() {
    thread_local RecentTemplates templates;
    return templates;
}

}  // namespace wmoutlook::merge

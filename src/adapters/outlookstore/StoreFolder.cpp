#include "adapters/outlookstore/StoreFolder.h"

#include "adapters/outlookstore/Identifiers.h"
#include "adapters/outlookstore/StoreItem.h"
#include "platform/Errors.h"

#include <algorithm>
#include <utility>

namespace wmoutlook::outlookstore {

namespace {

class StoreFolders : public outlook::port::Folders {
public:
    StoreFolders(std::shared_ptr<Instance> instance, std::optional<FolderRow> parent)
        : instance_(std::move(instance)), parent_(std::move(parent)) {}

    std::int32_t count() override { return static_cast<std::int32_t>(storage().childCount(parentNumber())); }

    std::shared_ptr<outlook::port::MAPIFolder> item(std::int32_t index) override {
        auto row = index < 1 ? std::nullopt : storage().childAt(parentNumber(), index - 1);
        if (!row) throw OutlookError{-1, "There is no folder with this index"};
        return std::make_shared<StoreFolder>(instance_, std::move(*row));
    }

    std::shared_ptr<outlook::port::MAPIFolder> add(std::string_view name, outlook::DefaultFolder kind) override {
        if (!parent_) throw OutlookError{-1, "A store cannot be added as a folder"};
        return std::make_shared<StoreFolder>(instance_, storage().add(*parent_, name, kind));
    }

private:
    [[nodiscard]] FolderStorage& storage() { return instance_->session().folders(); }
    [[nodiscard]] std::int64_t parentNumber() const { return parent_ ? parent_->number : kNoParent; }

    std::shared_ptr<Instance> instance_;
    std::optional<FolderRow> parent_;
};

std::optional<KeySearch> keySearchOf(const std::vector<Filter>& filters) {
    for (const Filter& filter : filters)
        if (auto search = filter.keySearch()) return search;
    return std::nullopt;
}

}  // namespace

const FolderRow& StoreFolder::row() const {
    static_cast<void>(instance_->file());
    return row_;
}

std::string StoreFolder::entryID() const {
    return entryIDOf(row().store->key, EntryKind::folder, row_.number);
}

std::string StoreFolder::storeID() const {
    return storeIDOf(row().store->key);
}

std::shared_ptr<outlook::port::Items> StoreFolder::items() {
    return std::make_shared<StoreItems>(instance_, row(), std::vector<Filter>{});
}

std::shared_ptr<outlook::port::Folders> StoreFolder::folders() {
    return foldersBelow(instance_, row());
}

std::shared_ptr<outlook::port::Folders> foldersBelow(std::shared_ptr<Instance> instance, std::optional<FolderRow> parent) {
    return std::make_shared<StoreFolders>(std::move(instance), std::move(parent));
}

std::shared_ptr<outlook::port::Item> StoreItems::add(std::optional<outlook::ItemType> type) {
    static_cast<void>(instance_->session());
    return std::make_shared<StoreItem>(instance_, folder_.store, folder_.number, type.value_or(folder_.itemType));
}

std::shared_ptr<outlook::port::Item> StoreItems::next(std::int64_t& position, const std::vector<Filter>& filters) {
    const auto search = keySearchOf(filters);
    RowTest test;
    if (!filters.empty())
        test = [&](const ItemHead& head, std::string_view bytes) {
            return std::all_of(filters.begin(), filters.end(), [&](const Filter& filter) { return filter.matches(head, bytes); });
        };
    auto loaded = instance_->session().items().next(folder_.number, position, search ? &*search : nullptr, test);
    if (!loaded) return nullptr;
    return std::make_shared<StoreItem>(instance_, folder_.store, std::move(*loaded));
}

std::shared_ptr<outlook::port::Item> StoreItems::find(std::string_view filter) {
    std::vector<Filter> filters = filters_;
    filters.push_back(Filter::parse(filter));
    std::int64_t fromStart = 0;
    return next(fromStart, filters);
}

std::shared_ptr<outlook::port::Items> StoreItems::restrict(std::string_view filter) {
    std::vector<Filter> filters = filters_;
    filters.push_back(Filter::parse(filter));
    return std::make_shared<StoreItems>(instance_, folder_, std::move(filters));
}

void StoreItems::sort(std::string_view, bool) {
    throw OutlookError{-1, "The Outlook store cannot sort yet"};
}

void StoreItems::setIncludeRecurrences(bool) {
    throw OutlookError{-1, "The Outlook store cannot expand series yet"};
}

std::int32_t StoreItems::count() {
    if (filters_.empty()) return static_cast<std::int32_t>(instance_->session().items().count(folder_.number));
    std::int32_t count = 0;
    for (std::int64_t position = 0; next(position, filters_) != nullptr;) ++count;
    return count;
}

std::shared_ptr<outlook::port::Item> StoreItems::getFirst() {
    position_ = 0;
    return getNext();
}

std::shared_ptr<outlook::port::Item> StoreItems::getNext() {
    return next(position_, filters_);
}

}  // namespace wmoutlook::outlookstore

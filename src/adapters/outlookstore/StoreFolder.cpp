#include "adapters/outlookstore/StoreFolder.h"

#include "adapters/outlookstore/Identifiers.h"
#include "adapters/outlookstore/StoreItem.h"
#include "platform/Errors.h"

#include <limits>
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
    return std::make_shared<StoreItems>(instance_, row(), ViewTerms{row().number, {}, std::nullopt, false});
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

std::shared_ptr<outlook::port::Item> StoreItems::itemOf(std::optional<WalkedItem> walked) const {
    if (!walked) return nullptr;
    return std::make_shared<StoreItem>(instance_, folder_.store, std::move(walked->item), walked->occurrenceDay);
}

ViewTerms StoreItems::restrictedBy(std::string_view filter) const {
    ViewTerms terms = terms_;
    terms.restrictions.push_back({Filter::parse(filter), terms.isExpanded()});
    return terms;
}

std::shared_ptr<outlook::port::Item> StoreItems::find(std::string_view filter) {
    const ViewTerms terms = restrictedBy(filter);
    return itemOf(makeWalk(instance_->session(), terms)->next());
}

std::shared_ptr<outlook::port::Items> StoreItems::restrict(std::string_view filter) {
    return std::make_shared<StoreItems>(instance_, folder_, restrictedBy(filter));
}

void StoreItems::sort(std::string_view property, bool descending) {
    static_cast<void>(instance_->session());
    terms_.order = sortOrder(property, descending);
    walk_.reset();
}

void StoreItems::setIncludeRecurrences(bool include) {
    static_cast<void>(instance_->session());
    terms_.includesRecurrences = include;
    walk_.reset();
}

std::int32_t StoreItems::count() {
    StoreFile& file = instance_->session();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const bool isUnbounded = terms_.isExpanded() && terms_.rangeOf("Start", true).high == SecondsRange{}.high;
    if (isUnbounded && file.series().hasEndless(folder_.number)) return kMost;
    if (!terms_.isExpanded() && terms_.restrictions.empty()) return static_cast<std::int32_t>(file.items().count(folder_.number));
    const auto walk = makeWalk(file, terms_);
    std::int32_t count = 0;
    while (count < kMost && walk->next()) ++count;
    return count;
}

std::shared_ptr<outlook::port::Item> StoreItems::getFirst() {
    walk_.reset();
    return getNext();
}

std::shared_ptr<outlook::port::Item> StoreItems::getNext() {
    StoreFile& file = instance_->session();
    if (!walk_) walk_ = makeWalk(file, terms_);
    return itemOf(walk_->next());
}

}  // namespace wmoutlook::outlookstore

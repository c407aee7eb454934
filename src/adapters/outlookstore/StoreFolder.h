#pragma once

#include "adapters/outlookstore/ItemWalk.h"
#include "adapters/outlookstore/StoreFile.h"
#include "platform/outlook/ObjectModel.h"

#include <cstdint>
#include <memory>
#include <string>

namespace wmoutlook::outlookstore {

class StoreFolder : public outlook::port::MAPIFolder {
public:
    StoreFolder(std::shared_ptr<Instance> instance, FolderRow row) : instance_(std::move(instance)), row_(std::move(row)) {}

    [[nodiscard]] std::string name() const override { return row().name; }
    [[nodiscard]] std::string entryID() const override;
    [[nodiscard]] std::string storeID() const override;
    [[nodiscard]] outlook::ItemType defaultItemType() const override { return row().itemType; }
    [[nodiscard]] std::shared_ptr<outlook::port::Items> items() override;
    [[nodiscard]] std::shared_ptr<outlook::port::Folders> folders() override;

private:
    /// An error when Outlook has been quit.
    [[nodiscard]] const FolderRow& row() const;

    std::shared_ptr<Instance> instance_;
    FolderRow row_;
};

/// A view of a folder. But for an order that no index gives it keeps its place and nothing else, so that a walk costs the same
/// memory in a folder of any size and sees items that are added behind its place.
class StoreItems : public outlook::port::Items {
public:
    StoreItems(std::shared_ptr<Instance> instance, FolderRow folder, ViewTerms terms)
        : instance_(std::move(instance)), folder_(std::move(folder)), terms_(std::move(terms)) {}

    [[nodiscard]] std::shared_ptr<outlook::port::Item> add(std::optional<outlook::ItemType> type) override;
    [[nodiscard]] std::shared_ptr<outlook::port::Item> find(std::string_view filter) override;
    [[nodiscard]] std::shared_ptr<outlook::port::Items> restrict(std::string_view filter) override;
    void sort(std::string_view property, bool descending) override;
    void setIncludeRecurrences(bool include) override;
    [[nodiscard]] std::int32_t count() override;
    [[nodiscard]] std::shared_ptr<outlook::port::Item> getFirst() override;
    [[nodiscard]] std::shared_ptr<outlook::port::Item> getNext() override;

private:
    [[nodiscard]] ViewTerms restrictedBy(std::string_view filter) const;
    [[nodiscard]] std::shared_ptr<outlook::port::Item> itemOf(std::optional<WalkedItem> walked) const;

    std::shared_ptr<Instance> instance_;
    FolderRow folder_;
    ViewTerms terms_;
    std::unique_ptr<ItemWalk> walk_;  ///< from the first item that was asked for on
};

/// The folders below `parent`; of the namespace, the roots of the stores.
[[nodiscard]] std::shared_ptr<outlook::port::Folders> foldersBelow(std::shared_ptr<Instance> instance,
                                                                   std::optional<FolderRow> parent);

}  // namespace wmoutlook::outlookstore

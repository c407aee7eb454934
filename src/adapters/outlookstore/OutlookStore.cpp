#include "adapters/outlookstore/OutlookStore.h"

#include "adapters/outlookstore/FolderStorage.h"
#include "adapters/outlookstore/Schema.h"
#include "adapters/outlookstore/StoreAutomation.h"
#include "adapters/outlookstore/StoreFile.h"

namespace wmoutlook {

namespace {

using namespace outlookstore;

constexpr std::string_view kDefaultStoreName = "Personal Folders";

std::string drawStoreKey(RandomSource& random) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string key;
    for (int i = 0; i < 32; ++i) key += kDigits[static_cast<std::size_t>(random.next() * 16) % 16];
    return key;
}

}  // namespace

std::shared_ptr<outlook::port::Automation> openOutlookStore(const std::string& path, const OutlookStoreOptions& options) {
    return std::make_shared<StoreAutomation>(std::make_shared<StoreFile>(path, options), options);
}

void createOutlookStore(const std::string& path, RandomSource& random) {
    createStoreFile(path,
                    [&](Connection& connection) { FolderStorage{connection}.addStore(drawStoreKey(random), kDefaultStoreName); });
}

void addOutlookStore(const std::string& path, std::string_view name, RandomSource& random) {
    StoreFile file{path, {}};
    std::string key = drawStoreKey(random);
    // A random source that begins as it did for the first store gives the same key first.
    for (int i = 0; i < 1000 && file.folders().hasStoreKey(key); ++i) key = drawStoreKey(random);
    file.folders().addStore(key, name);
}

}  // namespace wmoutlook

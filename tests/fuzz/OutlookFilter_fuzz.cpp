#include "adapters/outlookstore/Filter.h"
#include "adapters/outlookstore/ItemBlob.h"
#include "platform/Errors.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

/// The input up to the first zero byte is a filter, what follows is an item as it lies in a file. A filter that is taken is
/// evaluated on that item and on a sound one; an item that is read keeps its bytes' meaning when it is written again.
namespace {

using namespace wmoutlook;

std::string soundItem() {
    outlookstore::ItemData item{outlook::ItemType::contact};
    const auto set = [&](std::string_view name, Variant value) { item.set(item.table().find(name).value(), std::move(value)); };
    set("FileAs", "O'Brien, Émile \"Milou\"");
    set("LastName", "O'Brien");
    set("Gender", 2);
    set("Journal", true);
    set("Birthday", makeDay(1961, 3, 5));
    std::string bytes;
    outlookstore::encodeItem(item, bytes);
    return bytes;
}

void checkItem(outlook::ItemType type, std::string_view bytes) {
    try {
        std::string once;
        std::string twice;
        outlookstore::encodeItem(outlookstore::decodeItem(type, bytes), once);
        outlookstore::encodeItem(outlookstore::decodeItem(type, once), twice);
        if (once != twice) std::abort();
    } catch (const OutlookError&) {  // no item
    }
}

void checkFilter(std::string_view text, std::string_view bytes) {
    try {
        const auto filter = outlookstore::Filter::parse(text);
        static_cast<void>(filter.keySearch());
        static const std::string sound = soundItem();
        const outlookstore::ItemHead head{1, 1, outlook::ItemType::contact, 1, makeDay(2026, 11, 22), makeDay(2026, 11, 22)};
        static_cast<void>(filter.matches(head, sound));
        static_cast<void>(filter.matches(head, bytes));
    } catch (const OutlookError& error) {
        // The message stays one sentence of ours, whatever the text was.
        if (std::string_view{error.what()}.size() > 200) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input{data, data + size};
    const std::size_t end = input.find('\0');
    const std::string_view filter = std::string_view{input}.substr(0, end);
    const std::string_view bytes = end == std::string::npos ? std::string_view{} : std::string_view{input}.substr(end + 1);
    checkFilter(filter, bytes);
    for (const auto type :
         {outlook::ItemType::mail, outlook::ItemType::appointment, outlook::ItemType::contact, outlook::ItemType::task})
        checkItem(type, bytes);
    return 0;
}

#include "platform/ValueHelper.h"

#include "platform/Text.h"

namespace wmoutlook::ValueHelper {

bool isNullOrEmpty(const Variant& value) {
    if (value.isNull()) return true;
    const std::string* text = value.text();
    return text != nullptr && isNullOrEmpty(std::string_view{*text});
}

bool isNullOrEmpty(const std::string& text) {
    return isNullOrEmpty(std::string_view{text});
}

bool isNullOrEmpty(std::string_view text) {
    return withoutWhiteSpaceAround(text).empty();
}

}  // namespace wmoutlook::ValueHelper

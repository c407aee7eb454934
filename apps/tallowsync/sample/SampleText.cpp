#include "apps/tallowsync/sample/SampleText.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstdint>

namespace wmoutlook::sample {

namespace {

constexpr std::string_view kHeader =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang4105{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\\viewkind4\\uc1\\pard\\f0\\fs16";
constexpr std::string_view kHexDigits = "0123456789abcdef";

/// The code point of a character of two bytes, which is all that French needs beyond ASCII.
void appendAccented(std::string& rich, unsigned char first, unsigned char second) {
    const std::uint32_t codePoint = (static_cast<std::uint32_t>(first & 0x1FU) << 6U) | (second & 0x3FU);
    if (codePoint > 0xFF) {
        rich += "\\u" + std::to_string(codePoint) + "?";
        return;
    }
    rich += "\\'";
    rich += kHexDigits[codePoint >> 4U];
    rich += kHexDigits[codePoint & 0xFU];
}

void appendEscaped(std::string& rich, std::string_view plain) {
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const char c = plain[i];
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0xC0 && byte < 0xE0 && i + 1 < plain.size()) {
            appendAccented(rich, byte, static_cast<unsigned char>(plain[++i]));
        } else {
            if (c == '\\' || c == '{' || c == '}') rich += '\\';
            rich += c;
        }
    }
}

}  // namespace

std::string richText(std::string_view plain) {
    std::string rich{kHeader};
    rich += ' ';
    appendEscaped(rich, plain);
    return rich + "\\par\r\n}";
}

std::string richSummary(std::initializer_list<std::pair<std::string_view, std::string_view>> lines) {
    std::string rich{kHeader};
    for (const auto& [label, value] : lines) {
        if (value.empty()) continue;
        rich.append("\\b\\pard\\fi-1425\\li1425\\ri0 ").append(label).append(":\\b0  ");
        appendEscaped(rich, value);
        rich += "\\par\r\n";
    }
    return rich + "}";
}

std::string addressPart(std::string_view name) {
    std::string part = foldedForMatching(name);
    const auto isOther = [](char c) { return (c < 'a' || c > 'z') && (c < '0' || c > '9'); };
    part.erase(std::remove_if(part.begin(), part.end(), isOther), part.end());
    return part;
}

}  // namespace wmoutlook::sample

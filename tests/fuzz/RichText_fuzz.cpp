#include "platform/richtext/RichText.h"

#include "platform/Text.h"
#include "platform/richtext/Tokenizer.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

/// The input is a text of the host, rich or not, and once more what stands inside a document. Tokens lose nothing of it; rich text
/// gives valid UTF-8 that is not out of proportion, other text itself; a text is empty when its plain text is.
namespace {

using namespace wmoutlook;

void require(bool holds) {
    if (!holds) std::abort();
}

void checkTokens(std::string_view text) {
    RichText::Tokenizer tokenizer{text};
    std::size_t read = 0;
    for (auto token = tokenizer.next(); token.kind != RichText::TokenKind::end; token = tokenizer.next()) {
        require(!token.source.empty() && token.source.data() == text.data() + read);
        read += token.source.size();
    }
    require(read == text.size());
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::string_view first = firstCharacters(text, 1);
        if (first.size() == 1 && static_cast<unsigned char>(first[0]) >= 0x80) return false;
        text.remove_prefix(first.size());
    }
    return true;
}

void check(std::string_view text) {
    const std::string plain = RichText::plainText(text);
    if (!RichText::isRichText(text)) return require(plain == text);
    require(isUtf8(plain));
    require(plain.size() <= 3 * text.size());
    const bool looksRich = RichText::isRichText(plain);  // braces that were escaped: something to see
    require(RichText::isEmpty(text) == (!looksRich && RichText::isEmpty(plain)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text{data, data + size};
    checkTokens(text);
    check(text);
    check("{\\rtf1\\ansi " + text);
    return 0;
}

#include "platform/richtext/Tokenizer.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace wmoutlook {
namespace {

using RichText::Token;
using RichText::Tokenizer;
using enum RichText::TokenKind;

/// One line per kind of token: "w:par=1" and the like.
std::string written(const Token& token) {
    const auto with = [&](const char* mark) { return mark + std::string{token.name}; };
    const std::string number = token.number ? "=" + std::to_string(*token.number) : "";
    switch (token.kind) {
        case groupStart: return "{";
        case groupEnd: return "}";
        case word: return with("w:") + number;
        case symbol: return with("s:");
        case byte: return "byte" + number;
        case binary: return with("bin:");
        case text: return with("t:");
        case ignored: return "-";
        case end: return "end";
    }
    return "?";
}

TEST(RichTextTokenizer, CutsATextIntoTokensAndLosesNothing) {
    struct Case {
        std::string_view source, tokens;
    };
    using namespace std::string_view_literals;
    for (const Case& c : {
             Case{"{\\b Ann}", "{|w:b|t:Ann|}"},
             Case{"\\par  two\\li-20x", "w:par|t: two|w:li=-20|t:x"},  // one blank ends the word
             Case{"\\b-x\\b- ", "w:b|t:-x|w:b|t:- "},                  // a minus sign alone is text
             Case{"\\~\\*\\\\\\{\\}\\", "s:~|s:*|s:\\|s:{|s:}|s:"},
             Case{"\\'e9\\'E9\\'g1\\'1", "byte=233|byte=233|s:'|t:g1|s:'|t:1"},
             Case{"a\r\n\0b\\\r\nc"sv, "t:a|-|t:b|s:\r|-|t:c"},
             Case{"\\fs99999999999999999999\\u-99999999999", "w:fs=2147483647|w:u=-2147483647"},
             Case{"\\bin3 }}}x\\bin3}}}x", "bin:}}}|t:x|bin:}}}|t:x"},
             Case{"\\bin0 x\\bin-3 x\\bin x", "w:bin=0|t:x|w:bin=-3|t:x|w:bin|t:x"},
             Case{"\\bin9999999999 x}", "bin:x}"},
             Case{"\xE9\xFF", "t:\xE9\xFF"},
         }) {
        SCOPED_TRACE(c.source);
        std::string tokens, sources;
        Tokenizer tokenizer{c.source};
        for (Token token = tokenizer.next(); token.kind != end; token = tokenizer.next()) {
            tokens += (tokens.empty() ? "" : "|") + written(token);
            sources += token.source;
        }
        EXPECT_EQ(tokens, c.tokens);
        EXPECT_EQ(sources, c.source);
    }
}

}  // namespace
}  // namespace wmoutlook

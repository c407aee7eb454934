#include "platform/richtext/RichText.h"

#include <gtest/gtest.h>

#include <string>

namespace wmoutlook {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

struct Case {
    std::string_view body, text;  // of {\rtf1\ansi\ansicpg1252 ...}
};

std::string document(std::string_view body) {
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0" + std::string{body} + "}";
}

template <class Cases>
void expectTexts(const Cases& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.body);
        EXPECT_EQ(RichText::plainText(document(c.body)), c.text);
    }
}

TEST(RichText, ANoteOfTheHostIsReadAsItShows) {
    const std::string note =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang4105{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fnil Calibri;}}\r\n"
        "{\\colortbl ;\\red0\\green0\\blue255;}\r\n{\\*\\generator Riched20 10.0;}\\viewkind4\\uc1\\pard\\f0\\fs16"
        "\\b\\pard\\fi-1375\\li1375\\ri0 Company Name:\\b0  Chez \\'c9mile\\par\r\n"
        "Dear \\'abFirst Name\\'bb,\\tab see \\ldblquote T2\\rdblquote\\u8212?soon\\par\r\n}\r\n\0"s;
    EXPECT_EQ(RichText::plainText(note), "Company Name: Chez Émile\r\nDear «First Name»,\tsee “T2”—soon");
}

TEST(RichText, WordsAndSymbolsThatStandForCharacters) {
    expectTexts(std::initializer_list<Case>{
        {"\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet", "—–‘’“”•"},
        {" a\\~b\\_c\\-d\\|\\:", "a\u00A0b\u2011c\u00ADd"},
        {" \\\\ \\{x\\}", "\\ {x}"},
        {" a\\line b\\page c\\sect d\\\r\ne\\\nf", "a\r\nb\r\nc\r\nd\r\ne\r\nf"},
        {"\\trowd a\\cell\\cell b\\cell\\row c\\cell\\row", "a\t\tb\r\nc\r\n"},
        {" one\r\ntwo\0 three"sv, "onetwo three"},
    });
}

TEST(RichText, TheMarkOfTheLastParagraphBeginsNoOther) {
    expectTexts(std::initializer_list<Case>{
        {"\\par", ""},
        {" a\\par", "a"},
        {" a\\par\\par\r\n", "a\r\n"},
        {" a\\line", "a\r\n"},
        {" a{\\v\\par}", "a"},
        {" a{\\v\\cell}\\row", "a\r\n"},
    });
}

TEST(RichText, BytesAreReadInTheCodePage) {
    expectTexts(std::initializer_list<Case>{
        {"\\'80\\'8a\\'9f\\'a0\\'ff\\'41", "€ŠŸ\u00A0ÿA"},
        {"\\'81\\'00", "\u0081"},          // undefined in 1252; zero is no character
        {" \xE9 \xC3\xA9 \xC3", "é é Ã"},  // raw: of the code page, or UTF-8 that was merged in
        {"\\ansicpg437\\'82\\'e1", "éß"},
        {"\\pca\\'82\\'d5", "éı"},
        {"\\mac\\'8e", "é"},
        {"\\ansicpg1250\\'b9\\ansicpg1251\\'c6\\ansicpg1257\\'c0", "ąЖĄ"},
        {"\\ansicpg1253\\'e1\\'aa\\ansicpg1254\\'fd\\ansicpg1258\\'fe", "α\uFFFDı₫"},
        {"\\ansicpg1255\\'e0\\ansicpg1256\\'c7\\ansicpg874\\'a1", "אاก"},
        {"\\ansicpg4711\\'e9", "é"},
        {"\\ansicpg932\\'83a\\uc2\\u12450\\'83\\'41", "\uFFFDaア"},  // no table: only \u tells what it is
        {"{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset204{\\*\\falt X}Y;}{\\f2\\fcharset161\\cpg1250 "
         "Z;}}\\f1\\'c6{\\f2\\'b9}\\'c6\\f0\\'c6\\f1\\plain\\'c6",
         "ЖąЖÆÆ"},
        {"\\deff1{\\fonttbl{\\f1\\fcharset204 Y;}{\\f70000\\fcharset204;}{\\f-1\\cpg1}}\\'c6\\f70000\\'c6\\f-1\\'c6\\plain\\'c6",
         "ЖÆÆЖ"},
    });
}

TEST(RichText, UnicodeComesOnceAndItsFallbackNot) {
    expectTexts(std::initializer_list<Case>{
        {"\\u233e\\u233 \\'e9\\u8211\\endash .", "éé–."},
        {"\\uc0\\u233e", "ée"},
        {"\\uc2\\u233xyz{\\uc3\\u233abcd}\\u233ab.",
         "ézéd"
         "é."},  // \uc ends with its group
        {"\\uc2\\u233\xC3\xA9"
         "ez",
         "éz"},                                // a fallback is counted in characters
        {"\\uc2\\u233a{b}\\u233a}", "ébé"},    // and ends at a brace
        {"\\u233\\b x\\u233\\u234?", "éxéê"},  // or at a word, so that a forgotten one takes nothing
        {"\\u233\\~x\\u233\\{x", "éxéx"},
        {"\\u-10179?\\u-8704?\\u55357?{\\u56832?}\\u128512?", "😀😀😀"},
        {"\\u-10179?x\\u-8704?\\u-10179?\\u-10179?", "\uFFFDx\uFFFD\uFFFD\uFFFD"},
        {"\\u99999999?\\u-99999999?\\u0?\\u?", "\uFFFD\uFFFD"},
        {"\\uc-1\\u233x\\uc99999999\\u233 all of this", "éxé"},
    });
}

TEST(RichText, WhatIsNoTextOfTheDocumentIsLeftOut) {
    expectTexts(std::initializer_list<Case>{
        {" a{\\*\\unknown b{c}\\par}d{\\*\r\n\\new e}f", "adf"},
        {" a{\\info{\\title Secret}{\\author Ann}}{\\header Top}{\\footerl Foot}{\\stylesheet{\\s0 Normal;}}b", "ab"},
        {" a{\\pict\\wmetafile8 0102}{\\pict\\bin4 }}{\\}b\\bin3 }{}c", "abc"},
        {" a{\\object\\objemb{\\*\\objdata 0102}{\\result{shown}}}b", "ashownb"},
        {" a{\\field{\\*\\fldinst{HYPERLINK \"http://x\"}}{\\fldrslt{\\ul here}}}b", "ahereb"},
        {"{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt}one{\\listtext 2.\\tab}", "one"},
        {" a{\\v secret\\u233?\\'e9\\tab\\par}b\\v c{\\v0 d}\\plain e\\v1\\v0 f", "abdef"},
        {"\\unknown7 a\\fonttblx b\\PAR c", "abc"},
    });
}

TEST(RichText, OfADamagedDocumentTheTextBeforeTheDamageRemains) {
    const std::string deep(1'000'000, '{');
    std::string changing;  // each group differs from the one around it
    for (int i = 0; i < 200'000; ++i) changing += i % 2 == 0 ? "{\\uc2" : "{\\uc3";
    const Case cases[] = {
        {"{\\rtf1 a\\b", "a"},
        {"{\\rtf1 a\\", "a"},
        {"{\\rtf1 a\\'e", "ae"},
        {"{\\rtf1 a{\\pict 0102", "a"},
        {"{\\rtf1 a{\\fonttbl{\\f0", "a"},
        {"{\\rtf1 a\\par", "a"},
        {"{\\rtf1 a\\u-10179", "a\uFFFD"},
        {"{\\rtf1 a\\bin99999999999 b}", "a"},
        {"{\\rtf1 a}b}c", "a"},
        {"{\\rtf", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.body);
        EXPECT_EQ(RichText::plainText(c.body), c.text);
    }
    for (const std::string& braces : {deep, changing}) {
        EXPECT_EQ(RichText::plainText("{\\rtf1 a" + braces + "\\uc1 b"), "ab");
        EXPECT_TRUE(RichText::isEmpty("{\\rtf1{\\pict" + braces));
    }
    const std::string closed = "{\\rtf1\\uc0" + changing + "\\u233xyz" + std::string(200'000, '}') + "\\u233x}";
    EXPECT_EQ(RichText::plainText(closed), "\u00E9\u00E9x");
}

TEST(RichText, TextThatIsNotRichComesBackAsItIs) {
    for (const std::string_view text : {""sv, "Plain «é» {\\b}\r\n"sv, "\0\xFF"sv, "\\rtf1"sv, "x{\\rtf1 y}"sv, " {rtf"sv}) {
        EXPECT_FALSE(RichText::isRichText(text));
        EXPECT_EQ(RichText::plainText(text), text);
    }
    for (const std::string_view before : {"", " \r\n\t", "\xEF\xBB\xBF"})
        EXPECT_EQ(RichText::plainText(std::string{before} + "{\\rtf1 a}"), "a") << before;
}

TEST(RichText, OnlyACharacterThatShowsMakesATextOtherThanEmpty) {
    for (const std::string_view body : {""sv, "\\b\\par\\line\\tab\\~\\emspace  \\-"sv, "{\\pict 0102}"sv, "{\\v x}"sv,
                                        "{\\header x}"sv, "\\u8203?"sv, "\\'a0\\'81"sv})
        EXPECT_TRUE(RichText::isEmpty(document(body))) << body;
    for (const std::string_view body : {" x"sv, "\\par{\\b{\\'ab}}"sv, "\\bullet"sv, "\\u-10179?"sv, "\\{"sv, " \xE9"sv})
        EXPECT_FALSE(RichText::isEmpty(document(body))) << body;
    for (const std::string_view text : {""sv, " \t\r\n\0"sv, "\u00A0\u3000\uFEFF"sv})
        EXPECT_TRUE(RichText::isEmpty(text)) << text;
    for (const std::string_view text : {" x"sv, "é"sv, "\u00A0\xA0"sv, "{}"sv}) EXPECT_FALSE(RichText::isEmpty(text)) << text;
}

}  // namespace
}  // namespace wmoutlook

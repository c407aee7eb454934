#include "platform/richtext/Reader.h"

#include "platform/Text.h"

#include <algorithm>

namespace wmoutlook::RichText {

namespace {

constexpr std::string_view kNewline = "\r\n";
constexpr char32_t kReplacement = 0xFFFD;
constexpr std::int32_t kMostFonts = 0x8000;  // a font's number has 15 bits

bool isFirstHalf(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isSecondHalf(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

void append(std::string& text, char32_t c) {
    const auto byte = [](unsigned lead, char32_t bits) { return static_cast<char>(lead | bits); };
    const auto tail = [&](unsigned shift) { return byte(0x80u, (c >> shift) & 0x3Fu); };
    if (c < 0x80)
        text += static_cast<char>(c);
    else if (c < 0x800)
        text.append({byte(0xC0u, c >> 6), tail(0)});
    else if (c < 0x10000)
        text.append({byte(0xE0u, c >> 12), tail(6), tail(0)});
    else
        text.append({byte(0xF0u, c >> 18), tail(12), tail(6), tail(0)});
}

}  // namespace

bool Reader::readOn() {
    const Token token = tokens_.next();
    switch (token.kind) {
        case TokenKind::groupStart: groups_.open(); break;
        case TokenKind::groupEnd: groups_.close(); break;
        case TokenKind::word: readWord(token); return true;
        case TokenKind::symbol: readSymbol(token.name); return true;
        case TokenKind::byte: putCharacter(decoded(static_cast<std::uint8_t>(token.number.value_or(0)))); return true;
        case TokenKind::text: readText(token.name); return true;
        case TokenKind::binary:
        case TokenKind::ignored: return true;
        case TokenKind::end: break;
    }
    fallbackLeft_ = 0;  // a fallback never goes on behind a brace
    isMarkedOptional_ = false;
    if (token.kind != TokenKind::end && !groups_.isNoneOpen()) return true;
    finish();
    return false;
}

void Reader::dropText() {
    text_.clear();
    endOfParagraph_ = 0;
    endOfCell_ = 0;
}

/// The mark that ends the last paragraph begins no other one: a rich-text control writes it always and reads it back as nothing.
void Reader::finish() {
    flushHalf();
    if (endOfParagraph_ > 0 && endOfParagraph_ == text_.size()) text_.resize(text_.size() - kNewline.size());
}

void Reader::readText(std::string_view run) {
    if (fallbackLeft_ > 0) {
        const std::string_view passedOver = firstCharacters(run, fallbackLeft_);
        fallbackLeft_ -= characterCount(passedOver);
        run.remove_prefix(passedOver.size());
    }
    if (run.empty() || isHidden()) return;
    flushHalf();
    while (!run.empty()) {
        const auto length = static_cast<std::size_t>(std::ranges::find_if_not(run, isAscii) - run.begin());
        text_ += run.substr(0, length);
        run.remove_prefix(length);
        if (run.empty()) return;
        // The host's texts are UTF-8 by now, values merged into a document too; anything else is a byte of its code page.
        const std::string_view first = firstCharacters(run, 1);
        if (first.size() > 1)
            text_ += first;
        else
            append(text_, decoded(static_cast<std::uint8_t>(first[0])));
        run.remove_prefix(first.size());
    }
}

void Reader::readSymbol(std::string_view name) {
    switch (name.empty() ? '\0' : name[0]) {
        case '\\':
        case '{':
        case '}': putCharacter(static_cast<char32_t>(name[0])); break;
        case '~': putCharacter(0xA0); break;
        case '_': putCharacter(0x2011); break;
        case '-': putCharacter(0xAD); break;
        case '\t': putCharacter('\t'); break;
        case '\r':
        case '\n': endParagraph(); break;
        case '*': isMarkedOptional_ = true; break;
        default: break;
    }
}

void Reader::readWord(const Token& token) {
    if (isMarkedOptional_) return skipGroup();
    const Word& word = findWord(token.name);
    // Any other word ends the fallback of a \u: with a writer that forgot it, nothing is lost.
    if (word.action != WordAction::character) fallbackLeft_ = 0;
    const std::int32_t number = token.number.value_or(0);
    switch (word.action) {
        case WordAction::none: break;
        case WordAction::character: putCharacter(static_cast<char32_t>(word.value)); break;
        case WordAction::paragraph: endParagraph(); break;
        case WordAction::lineBreak: putNewline(); break;
        case WordAction::cellEnd: endCell(); break;
        case WordAction::rowEnd: endRow(); break;
        case WordAction::unicode: readUnicode(number); break;
        case WordAction::fallback: readFallbackLength(token.number.value_or(1)); break;
        case WordAction::hidden: setHidden(token.number.value_or(1) != 0); break;
        case WordAction::plain: setPlain(); break;
        case WordAction::codePage: documentPage_ = codePageOf(word.value != 0 ? word.value : number); break;
        case WordAction::defaultFont: defaultFont_ = number; break;
        case WordAction::font: setFont(number); break;
        case WordAction::fontTable: readFontTable(); break;
        case WordAction::skipGroup: skipGroup(); break;
    }
}

void Reader::readUnicode(std::int32_t number) {
    const std::int32_t unit = number < 0 ? number + 0x10000 : number;
    const bool isCharacter = unit >= 0 && unit <= 0x10FFFF;
    if (!isHidden()) putUnit(isCharacter ? static_cast<char32_t>(unit) : kReplacement);
    fallbackLeft_ = groups_.current().fallbackLength;
}

void Reader::readFallbackLength(std::int32_t number) {
    GroupState state = groups_.current();
    state.fallbackLength = static_cast<std::uint16_t>(std::clamp(number, 0, 0xFFFF));
    groups_.change(state);
}

template <class OnWord>
void Reader::readToGroupEnd(OnWord onWord) {
    fallbackLeft_ = 0;
    isMarkedOptional_ = false;
    for (std::size_t depth = 1; depth > 0;) {
        const Token token = tokens_.next();
        if (token.kind == TokenKind::end) return;
        if (token.kind == TokenKind::groupStart) ++depth;
        if (token.kind == TokenKind::groupEnd) --depth;
        if (token.kind == TokenKind::word) onWord(token.name, token.number.value_or(0));
    }
    groups_.close();
}

void Reader::skipGroup() {
    readToGroupEnd([](std::string_view, std::int32_t) {});
}

void Reader::readFontTable() {
    std::int32_t font = 0;
    readToGroupEnd([&](std::string_view name, std::int32_t number) {
        if (name == "f") font = number;
        if (name == "fcharset") rememberPage(font, codePageOfCharset(number));
        if (name == "cpg") rememberPage(font, codePageOf(number));
    });
    setFont(defaultFont_);
}

void Reader::rememberPage(std::int32_t font, CodePage page) {
    if (font < 0 || font >= kMostFonts) return;
    const auto at = static_cast<std::size_t>(font);
    if (at >= pageOfFont_.size()) pageOfFont_.resize(at + 1, CodePage::ofDocument);
    pageOfFont_[at] = page;
}

CodePage Reader::pageOfFont(std::int32_t number) const {
    const bool isKnown = number >= 0 && static_cast<std::size_t>(number) < pageOfFont_.size();
    return isKnown ? pageOfFont_[static_cast<std::size_t>(number)] : CodePage::ofDocument;
}

void Reader::setFont(std::int32_t number) {
    GroupState state = groups_.current();
    state.page = pageOfFont(number);
    groups_.change(state);
}

void Reader::setHidden(bool toHidden) {
    GroupState state = groups_.current();
    state.isHidden = toHidden;
    groups_.change(state);
}

void Reader::setPlain() {
    setHidden(false);
    setFont(defaultFont_);
}

char32_t Reader::decoded(std::uint8_t byte) const {
    const CodePage page = groups_.current().page;
    return characterOf(page == CodePage::ofDocument ? documentPage_ : page, byte);
}

void Reader::putCharacter(char32_t c) {
    if (fallbackLeft_ > 0)
        --fallbackLeft_;
    else if (!isHidden())
        putUnit(c);
}

/// A character, or half a surrogate pair, which waits for the other one; a half alone is no character. Zero is none either.
void Reader::putUnit(char32_t unit) {
    if (isSecondHalf(unit)) {
        unit = half_ == 0 ? kReplacement : 0x10000 + ((half_ - 0xD800) << 10) + (unit - 0xDC00);
        half_ = 0;
    }
    flushHalf();
    if (isFirstHalf(unit))
        half_ = unit;
    else if (unit != 0)
        append(text_, unit);
}

void Reader::flushHalf() {
    if (half_ != 0) append(text_, kReplacement);
    half_ = 0;
}

void Reader::putNewline() {
    if (isHidden()) return;
    flushHalf();
    text_ += kNewline;
}

void Reader::endParagraph() {
    if (isHidden()) return;
    putNewline();
    endOfParagraph_ = text_.size();
}

void Reader::endCell() {
    if (isHidden()) return;
    putUnit('\t');
    endOfCell_ = text_.size();
}

/// Tabs stand between the cells of a row, none behind the last.
void Reader::endRow() {
    if (isHidden()) return;
    if (endOfCell_ > 0 && endOfCell_ == text_.size()) text_.pop_back();
    putNewline();
}

}  // namespace wmoutlook::RichText

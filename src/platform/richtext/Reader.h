#pragma once

#include "platform/richtext/Groups.h"
#include "platform/richtext/Tokenizer.h"
#include "platform/richtext/Words.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wmoutlook::RichText {

/// Reads a document from its first brace on and gathers its plain text, token by token. Nothing that stands in a document makes
/// it fail: what has no meaning is passed over, and what is cut off ends there.
class Reader {
public:
    explicit Reader(std::string_view document) : tokens_(document) {}

    /// Reads one token more. False when the document is at its end; its text is complete then.
    bool readOn();

    /// What was gathered, always whole characters of UTF-8.
    [[nodiscard]] const std::string& text() const { return text_; }
    [[nodiscard]] std::string takeText() { return std::move(text_); }
    /// What was gathered is not needed any more.
    void dropText();

private:
    void readText(std::string_view run);
    void readSymbol(std::string_view name);
    void readWord(const Token& token);
    void readUnicode(std::int32_t number);
    void readFallbackLength(std::int32_t number);
    void readFontTable();
    void skipGroup();
    template <class OnWord>
    void readToGroupEnd(OnWord onWord);
    void finish();

    void setFont(std::int32_t number);
    void setHidden(bool toHidden);
    void setPlain();
    void rememberPage(std::int32_t font, CodePage page);
    [[nodiscard]] CodePage pageOfFont(std::int32_t number) const;
    [[nodiscard]] char32_t decoded(std::uint8_t byte) const;

    [[nodiscard]] bool isHidden() const { return groups_.current().isHidden; }
    void putCharacter(char32_t c);
    void putUnit(char32_t unit);
    void putNewline();
    void endParagraph();
    void endCell();
    void endRow();
    void flushHalf();

    Tokenizer tokens_;
    Groups groups_;
    std::string text_;
    std::vector<CodePage> pageOfFont_;  ///< by the font's number
    std::int32_t defaultFont_ = 0;
    CodePage documentPage_ = CodePage::western;
    std::size_t fallbackLeft_ = 0;    ///< characters behind a \u that repeat it for older readers
    char32_t half_ = 0;               ///< the first half of a surrogate pair that waits for the second
    bool isMarkedOptional_ = false;   ///< behind \*: the word that follows is a destination that may be skipped
    std::size_t endOfParagraph_ = 0;  ///< where the text ended when the last mark of a paragraph was read
    std::size_t endOfCell_ = 0;       ///< the same for a cell
};

}  // namespace wmoutlook::RichText

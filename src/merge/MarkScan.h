#pragma once

#include "merge/Marks.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace wmoutlook::merge {

enum class MarkKind { none, open, close };

struct FoundMark {
    MarkKind kind = MarkKind::none;
    std::size_t position = 0;
};

/// Goes from mark to mark. Both marks of a pair begin with the same byte.
class MarkScan {
public:
    enum class Case { asWritten, either };

    MarkScan(std::string_view text, const Marks& marks, Case letters, std::size_t from = 0)
        : text_(text), marks_(marks), letters_(letters), at_(from) {}

    /// The next mark, none at the end of the text.
    FoundMark next() {
        while (at_ < text_.size()) {
            const void* const hit = std::memchr(text_.data() + at_, marks_.open[0], text_.size() - at_);
            if (hit == nullptr) break;
            const auto position = static_cast<std::size_t>(static_cast<const char*>(hit) - text_.data());
            if (isAt(position, marks_.open)) return found(MarkKind::open, position, marks_.open.size());
            if (isAt(position, marks_.close)) return found(MarkKind::close, position, marks_.close.size());
            at_ = position + 1;
        }
        at_ = text_.size();
        return {};
    }

private:
    [[nodiscard]] bool isAt(std::size_t position, std::string_view mark) const {
        const std::string_view there = text_.substr(position, mark.size());
        if (there.size() < mark.size()) return false;
        for (std::size_t i = 1; i < mark.size(); ++i) {
            const bool isLetter = letters_ == Case::either && mark[i] >= 'a' && mark[i] <= 'z';
            if ((isLetter ? there[i] | ' ' : there[i]) != mark[i]) return false;
        }
        return true;
    }
    FoundMark found(MarkKind kind, std::size_t position, std::size_t length) {
        at_ = position + length;
        return {kind, position};
    }

    std::string_view text_;
    const Marks& marks_;
    Case letters_;
    std::size_t at_;
};

/// Whether a mark could begin in the last bytes of the text and end behind it.
[[nodiscard]] inline bool endsInsideOfMark(std::string_view text, const Marks& marks) {
    for (const std::string_view mark : {marks.open, marks.close})
        for (std::size_t length = 1; length < mark.size(); ++length) {
            if (text.size() < length) break;
            const std::string_view tail = text.substr(text.size() - length);
            bool isSame = true;
            for (std::size_t i = 0; i < length && isSame; ++i)
                isSame = tail[i] == mark[i] || (mark[i] >= 'a' && mark[i] <= 'z' && (tail[i] | ' ') == mark[i]);
            if (isSame) return true;
        }
    return false;
}

}  // namespace wmoutlook::merge

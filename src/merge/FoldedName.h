#pragma once

#include "platform/Text.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace wmoutlook::merge {

/// A name in lower case, without an allocation for a usual one.
class FoldedName {
public:
    explicit FoldedName(std::string_view name) {
        if (name.size() <= kUsualLength && copyAscii(name)) {
            text_ = {usual_.data(), name.size()};
            return;
        }
        other_ = lowerCase(name);
        text_ = other_;
    }
    FoldedName(const FoldedName&) = delete;
    FoldedName& operator=(const FoldedName&) = delete;
    [[nodiscard]] std::string_view text() const { return text_; }

private:
    static constexpr std::size_t kUsualLength = 64;

    bool copyAscii(std::string_view name) {
        unsigned char all = 0;
        for (std::size_t i = 0; i < name.size(); ++i) {
            const char c = name[i];
            all |= static_cast<unsigned char>(c);
            usual_[i] = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
        }
        return all < 0x80;
    }

    std::array<char, kUsualLength> usual_{};
    std::string other_;
    std::string_view text_;
};

/// For tables that are asked with a view.
struct HashOfName {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

}  // namespace wmoutlook::merge

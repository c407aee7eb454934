#pragma once

#include <cstdint>
#include <string_view>

namespace wmoutlook::merge {

/// A hash of a text that is made from those of its parts: a polynomial of its bytes modulo 2^61 - 1. A sequence of texts has one that is
/// made of theirs.
class TextDigest {
public:
    TextDigest() = default;
    explicit TextDigest(std::string_view text) {
        for (const char c : text) {
            hash_ = added(multiplied(hash_, kBase), static_cast<unsigned char>(c) + std::uint64_t{1});
            power_ = multiplied(power_, kBase);
        }
    }

    /// A sequence of one text.
    [[nodiscard]] static TextDigest ofElement(const TextDigest& text) {
        TextDigest sequence;
        sequence.hash_ = added(text.hash_, 1);
        sequence.power_ = kBaseOfSequences;
        return sequence;
    }

    [[nodiscard]] std::uint64_t hash() const { return hash_; }

    [[nodiscard]] friend TextDigest joined(const TextDigest& front, const TextDigest& back) {
        TextDigest both;
        both.hash_ = added(multiplied(front.hash_, back.power_), back.hash_);
        both.power_ = multiplied(front.power_, back.power_);
        return both;
    }

    /// Of all but the front, which is as long as a third one.
    [[nodiscard]] friend TextDigest withoutFront(const TextDigest& all, const TextDigest& front, const TextDigest& asLong) {
        TextDigest back;
        back.hash_ = added(all.hash_, kPrime - multiplied(front.hash_, asLong.power_));
        back.power_ = asLong.power_;
        return back;
    }

private:
    static constexpr std::uint64_t kPrime = (std::uint64_t{1} << 61U) - 1;
    static constexpr std::uint64_t kBase = 0x1F3D5B79A2C4E6F;
    static constexpr std::uint64_t kBaseOfSequences = 0x0C6A4E93D1B7258F;

    static std::uint64_t multiplied(std::uint64_t left, std::uint64_t right) {
        __extension__ using Wide = unsigned __int128;
        const Wide product = Wide{left} * right;
        return added(static_cast<std::uint64_t>(product & kPrime), static_cast<std::uint64_t>(product >> 61U));
    }
    static std::uint64_t added(std::uint64_t left, std::uint64_t right) {
        const std::uint64_t sum = left + right;
        return sum >= kPrime ? sum - kPrime : sum;
    }

    std::uint64_t hash_ = 0;
    std::uint64_t power_ = 1;  ///< of the base, by the length
};

}  // namespace wmoutlook::merge

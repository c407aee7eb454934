#pragma once

#include "platform/Variant.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace wmoutlook {

enum class LookAt { activeOnly, all };

/// A record of the host.
struct HostRecord {
    std::int32_t number = kNoRecord;
    bool isInactive = false;
};

/// The lowest number among all records, and among the active ones, of one key.
struct LowestNumber {
    std::int32_t ofAll = kNoRecord;
    std::int32_t ofActive = kNoRecord;

    [[nodiscard]] std::int32_t among(LookAt lookAt) const { return lookAt == LookAt::all ? ofAll : ofActive; }

    void add(const HostRecord& record) {
        lower(ofAll, record.number);
        if (!record.isInactive) lower(ofActive, record.number);
    }

private:
    static void lower(std::int32_t& lowest, std::int32_t number) {
        if (lowest == kNoRecord || number < lowest) lowest = number;
    }
};

/// The lower of two found numbers, either of which may be none.
[[nodiscard]] inline std::int32_t lowerNumber(std::int32_t one, std::int32_t other) {
    if (one == kNoRecord) return other;
    return other == kNoRecord ? one : std::min(one, other);
}

/// Records by the exact text of a key, at the cost of one hash. An empty key is none. Adding a record again changes nothing.
class NumbersByKey {
public:
    struct Added {
        std::string_view key;  ///< lives as long as this object
        const LowestNumber* numbers = nullptr;
        bool isNewKey = false;
    };

    Added add(std::string key, const HostRecord& record) {
        if (key.empty()) return {};
        const auto [place, isNewKey] = byKey_.try_emplace(std::move(key));
        place->second.add(record);
        return {place->first, &place->second, isNewKey};
    }

    [[nodiscard]] std::int32_t find(std::string_view key, LookAt lookAt) const {
        if (key.empty()) return kNoRecord;
        const auto place = byKey_.find(key);
        return place == byKey_.end() ? kNoRecord : place->second.among(lookAt);
    }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
    };

    std::unordered_map<std::string, LowestNumber, Hash, std::equal_to<>> byKey_;
};

}  // namespace wmoutlook

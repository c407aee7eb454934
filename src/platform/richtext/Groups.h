#pragma once

#include "platform/richtext/CodePages.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wmoutlook::RichText {

/// What a group hands on to the groups inside it, and takes back at its end.
struct GroupState {
    std::uint16_t fallbackLength = 1;  ///< characters behind each \u
    CodePage page = CodePage::ofDocument;
    bool isHidden = false;

    friend bool operator==(const GroupState&, const GroupState&) = default;
};

/// The open groups. Those that are alike share one entry, so that a million braces in a row cost no memory.
class Groups {
public:
    void open() {
        if (levels_.empty()) levels_.push_back({{}, 0});
        ++levels_.back().count;
    }
    void close() {
        if (!levels_.empty() && --levels_.back().count == 0) levels_.pop_back();
    }
    [[nodiscard]] bool isNoneOpen() const { return levels_.empty(); }
    [[nodiscard]] GroupState current() const { return levels_.empty() ? GroupState{} : levels_.back().state; }

    /// For the innermost group; without one nothing happens.
    void change(GroupState state) {
        if (levels_.empty() || levels_.back().state == state) return;
        if (levels_.back().count == 1) {
            levels_.back().state = state;
        } else {
            --levels_.back().count;
            levels_.push_back({state, 1});
        }
    }

private:
    struct Level {
        GroupState state;
        std::size_t count = 0;
    };
    std::vector<Level> levels_;
};

}  // namespace wmoutlook::RichText

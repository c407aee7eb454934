#pragma once

#include "apps/tallowsync/Json.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace wmoutlook {

/// What a run wrote on one side, in the order in which it was first written; each record stands in a list once. A record that the
/// run created and then wrote again counts as created.
class WrittenRecords {
public:
    void created(const Json& identifier) { note(created_, createdKeys_, identifier); }
    void updated(const Json& identifier) {
        if (!createdKeys_.contains(identifier.dump())) note(updated_, updatedKeys_, identifier);
    }
    void deleted(const Json& identifier) { note(deleted_, deletedKeys_, identifier); }

    [[nodiscard]] const std::vector<Json>& created() const { return created_; }
    [[nodiscard]] const std::vector<Json>& updated() const { return updated_; }
    [[nodiscard]] const std::vector<Json>& deleted() const { return deleted_; }
    [[nodiscard]] Json toJson() const { return {{"created", created_}, {"updated", updated_}, {"deleted", deleted_}}; }

private:
    using Keys = std::unordered_set<std::string>;

    static void note(std::vector<Json>& list, Keys& keys, const Json& identifier) {
        if (keys.insert(identifier.dump()).second) list.push_back(identifier);
    }

    std::vector<Json> created_, updated_, deleted_;
    Keys createdKeys_, updatedKeys_, deletedKeys_;
};

}  // namespace wmoutlook

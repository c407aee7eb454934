#include "apps/tallowsync/items/ItemText.h"

#include "apps/tallowsync/Console.h"
#include "apps/tallowsync/PlainText.h"
#include "platform/Text.h"

#include <set>
#include <string>
#include <vector>

namespace wmoutlook {

namespace {

/// Looks at the keys while they are read: a document that is read has lost one of two alike.
class KeyWatch {
public:
    void see(Json::parse_event_t event, const Json& parsed) {
        if (event == Json::parse_event_t::object_start) open_.emplace_back();
        if (event == Json::parse_event_t::object_end) open_.pop_back();
        if (event == Json::parse_event_t::key) seeKey(parsed.get<std::string>());
    }

private:
    void seeKey(const std::string& key) {
        if (!open_.back().insert(lowerCase(key)).second)
            throw InputError{"Standard input has " + inQuotes(key) + " twice in one object; leave one of them"};
    }

    std::vector<std::set<std::string>> open_;
};

}  // namespace

Json readItemText(std::istream& in) {
    KeyWatch keys;
    try {
        return Json::parse(in, [&](int, Json::parse_event_t event, const Json& parsed) {
            keys.see(event, parsed);
            return true;
        });
    } catch (const Json::parse_error& error) {  // its own text would show what was read
        throw InputError{"Standard input is no valid JSON, at byte " + std::to_string(error.byte) +
                         "; 'tallowsync outlook FILE list --json' shows the shape"};
    }
}

}  // namespace wmoutlook

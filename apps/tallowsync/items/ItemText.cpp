#include "apps/tallowsync/items/ItemText.h"

#include "apps/tallowsync/Console.h"
#include "apps/tallowsync/PlainText.h"
#include "platform/Text.h"

#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace wmoutlook {

namespace {

/// Looks at the keys alone: a document that has been read has lost one of two alike. A pass of its own, since a parser that asks back for
/// each value takes the square of the time for a long list.
class KeyWatch : public nlohmann::json_sax<Json> {
public:
    bool start_object(std::size_t) override {
        open_.emplace_back();
        return true;
    }
    bool end_object() override {
        open_.pop_back();
        return true;
    }
    bool key(string_t& key) override {
        if (!open_.back().insert(lowerCase(key)).second)
            throw InputError{"Standard input has " + inQuotes(key) + " twice in one object; leave one of them"};
        return true;
    }
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override { return false; }

private:
    std::vector<std::set<std::string>> open_;
};

}  // namespace

Json readItemText(std::istream& in) {
    const std::string text = wholeInput(in);
    KeyWatch keys;
    Json::sax_parse(text, &keys);
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {  // its own text would show what was read
        throw InputError{"Standard input is no valid JSON, at byte " + std::to_string(error.byte) +
                         "; 'tallowsync outlook FILE list --json' shows the shape"};
    } catch (const Json::exception&) {
        throw InputError{"Standard input holds a number that is too large"};
    }
}

}  // namespace wmoutlook

#include "merge/MergeTemplate.h"
#include "merge/PlaceholderRenames.h"
#include "platform/Services.h"
#include "tests/merge/WordForWord.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

/// The input is a switch, a value (a line) and then a template. A merge comes to the same as one replacement after the other.
namespace {

using namespace wmoutlook;

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kLongest = 4096;  // the word-for-word side takes the square of it
    if (size < 2 || size > kLongest) return 0;
    static const std::vector<testing::NamedField> fields{{"A"}, {"Due", true}, {"City"}, {"A"}, {""}};
    static const auto placeholders = [] {
        merge::Placeholders all;
        for (const auto& field : fields) all.add(field.name, field.isDate);
        return std::make_shared<const merge::Placeholders>(std::move(all));
    }();
    const std::string_view input{reinterpret_cast<const char*>(data), size};
    const auto kind = (input[0] & 1) != 0 ? merge::TextKind::rich : merge::TextKind::plain;
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string value{input.substr(1, end - 1)};
    const std::string text{input.substr(std::min(end + 1, input.size()))};
    if (value.size() > 40) return 0;

    static const merge::PlaceholderRenames renames{{country::kCanada, province::kOntario, true}};
    static_cast<void>(renames.apply(text));

    const merge::ValueOf valueOf = [&](std::int32_t rank) { return rank % 3 == 0 ? value : std::to_string(rank); };
    std::string expected = text;
    for (const merge::Marks& marks : merge::kAllMarks) {
        expected = testing::expandedWordForWord(expected, marks, fields, kind, valueOf);
        if (expected.size() > 16 * kLongest) return 0;
    }
    if (expected.find("\xC2«") != std::string::npos) return 0;  // bytes of a mark that a removal brings together are none
    testing::removeUnfoundWordForWord(expected);
    require(merge::MergeTemplate{text, placeholders}.merged(kind, valueOf) == expected);
    return 0;
}

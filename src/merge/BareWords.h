#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace wmoutlook::merge {

/// Where one of the words of the general renames that stand without marks ("<<", "Docket", "Long Date", ...) could be: `look` is called
/// with each place at which a word can begin, from the first to the last. Goes through long texts a block at a time.
void eachPlaceOfBareWord(std::string_view text, const std::function<void(std::size_t place)>& look);

}  // namespace wmoutlook::merge

#pragma once

#include <span>
#include <string_view>

namespace orv::cli {

/// The word that takes the fewest single characters to add, drop or exchange; of several the first,
/// empty for none. Only the first 64 characters count.
[[nodiscard]] std::string_view NearestWord(std::string_view word,
                                           std::span<const std::string_view> words);

}  // namespace orv::cli

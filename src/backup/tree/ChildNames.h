#pragma once

#include <optional>
#include <string_view>

#include "backup/tree/NodeArena.h"

namespace orv {

/// As two texts are sorted without regard to case: negative, 0 or positive.
[[nodiscard]] int CompareWithoutCase(std::string_view left, std::string_view right);

/// The position of the child with exactly that name, else of one that differs in case alone. Long
/// lists get an index by name.
[[nodiscard]] std::optional<std::size_t> FindChildByName(ChildList& list, std::string_view name);

}  // namespace orv

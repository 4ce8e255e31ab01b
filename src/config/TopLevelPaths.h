#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Value.h"

namespace orv {

// The rows of the backup selection: arrays of an absolute path and a flag, true when the path is
// selected. What is no such row is ignored. A path covers itself and what lies below it, byte for
// byte; but "/" does not cover the folders of mounted volumes, which are roots of their own.

struct SelectionRow {
    /// Borrowed from the value.
    std::string_view path;
    bool isSelected = false;
};
/// A flag that is no boolean counts as false.
[[nodiscard]] std::optional<SelectionRow> SelectionRowOf(const quelm::Value& row);

/// The selected paths that no other selected path covers, each once, in the order in which they
/// were last selected.
[[nodiscard]] std::vector<std::string> TopLevelPaths(const quelm::Array& rows);

/// Removes the rows that the path covers; "/" also those that are relative.
void RemoveTopLevelPath(quelm::Array& rows, std::string_view path);

}  // namespace orv

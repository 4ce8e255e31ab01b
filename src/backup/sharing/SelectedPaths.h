#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "backup/scanner/ScannerFilters.h"
#include "platform/Value.h"

namespace orv {

/// Answers which folders the rows of a selection (TopLevelPaths.h) select: of the rows that cover
/// a path, the one with the longest path decides, of equal ones the last.
class SelectedPaths {
 public:
    explicit SelectedPaths(const quelm::Array& rows);

    [[nodiscard]] bool contains(std::string_view path) const;

 private:
    std::unordered_map<std::string, bool, PathHash, std::equal_to<>> flags_;
};

}  // namespace orv

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orv {

/// A range of text in one style, in bytes.
struct StyleRun {
    std::size_t begin = 0;
    std::size_t length = 0;
    /// Whatever tells styles apart where the text comes from.
    int style = 0;
    bool operator==(const StyleRun&) const = default;
};

/// A text with styles. Runs are in any order; what no run covers is plain.
struct StyledText {
    std::string text;
    std::vector<StyleRun> runs;
    bool operator==(const StyledText&) const = default;
};

}  // namespace orv

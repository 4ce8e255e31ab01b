#pragma once

// Distances in one place, in device-independent pixels.

namespace orv::spacing {

/// Between what belongs together.
inline constexpr int tight = 6;
/// Between elements.
inline constexpr int usual = 10;
/// Between groups, and around what a page holds.
inline constexpr int wide = 20;

/// Of the corners of buttons and fields.
inline constexpr int radius = 6;
/// Above and below the text of a button or a field together.
inline constexpr int fieldPadding = 14;
/// Left and right of the title of a button together.
inline constexpr int buttonPadding = 28;
inline constexpr int leastButton = 84;
/// Above and below the text of a table's row together.
inline constexpr int rowPadding = 14;
/// Left and right of the text of a table's cell.
inline constexpr int cellPadding = 8;
inline constexpr int leastColumn = 80;

/// Of icons in the rows of a tree.
inline constexpr int rowIcon = 20;
/// Of icons in buttons, tabs and beside a line of text.
inline constexpr int smallIcon = 18;

}  // namespace orv::spacing

#pragma once

#include <QColor>
#include <QPalette>

namespace orv {

/// What a colour says beside text or an image that says the same.
enum class Status {
    Notice,
    Refused,
};

/// To be read on the palette's window colour.
[[nodiscard]] QColor StatusColor(Status status, const QPalette& palette);

}  // namespace orv

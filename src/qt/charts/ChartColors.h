#pragma once

#include <QColor>
#include <QPalette>

#include "widgets/PieChart.h"

namespace orv {

/// The colour of a part of the storage, on windows of the palette.
[[nodiscard]] QColor ChartColor(StorageRole role, const QPalette& palette);

}  // namespace orv

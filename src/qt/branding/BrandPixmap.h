#pragma once

#include <QPixmap>
#include <optional>

#include "support/BrandImages.h"

namespace orv {

/// The picture that a brand gives. Files of this computer are read at once, within bounds; none,
/// with a line in the log, for what cannot be read and for addresses elsewhere.
[[nodiscard]] std::optional<QPixmap> LoadBrandPixmap(const BrandImage& image);

}  // namespace orv

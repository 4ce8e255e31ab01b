#pragma once

#include "foundation/system/LocalizedString.h"
#include "qt/elements/TableColumns.h"

namespace orv {

/// A column with the text as its title.
[[nodiscard]] TableColumn LocalizedColumn(const char* identifier, quelm::LocalizedText title,
                                          ColumnWidth width, Qt::TextElideMode elide);

}  // namespace orv

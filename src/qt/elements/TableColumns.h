#pragma once

#include <QString>
#include <Qt>
#include <string>
#include <vector>

namespace orv {

/// How a column takes its share of the table's width.
enum class ColumnWidth {
    /// As wide as what is seen of it.
    Contents,
    /// What the others leave.
    Rest,
};

struct TableColumn {
    /// As the data source knows it.
    std::string identifier;
    QString title;
    ColumnWidth width = ColumnWidth::Contents;
    /// Where a text that does not fit is cut.
    Qt::TextElideMode elide = Qt::ElideRight;
};

}  // namespace orv

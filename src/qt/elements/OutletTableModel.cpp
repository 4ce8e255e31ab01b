#include "qt/elements/OutletTableModel.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "qt/binding/ShownText.h"

namespace orv {

OutletTableModel::OutletTableModel(std::vector<TableColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

void OutletTableModel::setOutlet(const TableView* outlet) {
    outlet_ = outlet;
    reload();
}

void OutletTableModel::reload() {
    constexpr std::size_t mostRows = std::numeric_limits<int>::max();
    const std::size_t rows = outlet_ ? outlet_->numberOfRows() : 0;
    // rows come and go at the end, so that the person's place in the table stays
    changeRowCount(static_cast<int>(std::min(rows, mostRows)));
    if (rows_ > 0) Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
}

void OutletTableModel::changeRowCount(int rows) {
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
}

int OutletTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int OutletTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant OutletTableModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid() || !outlet_) return {};
    const TableColumn& column = columns_[static_cast<std::size_t>(index.column())];
    return ShownLine(outlet_->textAt(column.identifier, static_cast<std::size_t>(index.row())));
}

QVariant OutletTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    if (role == Qt::DisplayRole) return columns_[static_cast<std::size_t>(section)].title;
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

bool OutletTableModel::setHeaderData(int section, Qt::Orientation orientation,
                                     const QVariant& value, int role) {
    const bool isTitle = role == Qt::EditRole || role == Qt::DisplayRole;
    if (orientation != Qt::Horizontal || !isTitle || section < 0 || section >= columnCount())
        return false;
    columns_[static_cast<std::size_t>(section)].title = value.toString();
    Q_EMIT headerDataChanged(orientation, section, section);
    return true;
}

}  // namespace orv

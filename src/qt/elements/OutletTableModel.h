#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "qt/elements/TableColumns.h"
#include "widgets/TableView.h"

namespace orv {

/// The rows of an outlet, read from its data source when they are drawn. Without an outlet there
/// are columns only.
class OutletTableModel final : public QAbstractTableModel {
    Q_OBJECT

 public:
    OutletTableModel(std::vector<TableColumn> columns, QObject* parent);

    /// Null to forget it.
    void setOutlet(const TableView* outlet);
    /// The data source's answers have changed.
    void reload();

    [[nodiscard]] const std::vector<TableColumn>& columns() const { return columns_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    /// A column's title.
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                       int role) override;

 private:
    void changeRowCount(int rows);

    std::vector<TableColumn> columns_;
    const TableView* outlet_ = nullptr;
    int rows_ = 0;
};

}  // namespace orv

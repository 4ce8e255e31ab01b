#pragma once

#include <QTableView>
#include <vector>

#include "qt/elements/OutletTableModel.h"

namespace orv {

/// A table of whole rows, read only, that says in its middle why it is empty. Texts that do not
/// fit are shown by a tool tip; copying takes the selected rows.
class RowTable final : public QTableView {
    Q_OBJECT
    Q_PROPERTY(QString emptyText READ emptyText WRITE setEmptyText)

 public:
    explicit RowTable(QWidget* parent = nullptr);

    void setColumns(std::vector<TableColumn> columns);
    /// Null before it has columns.
    [[nodiscard]] OutletTableModel* rows() const { return rows_; }

    [[nodiscard]] const QString& emptyText() const { return emptyText_; }
    void setEmptyText(const QString& text);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;

 private:
    void copySelection() const;
    void fitColumns();
    void tellWhyEmpty();
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool isCut(const QModelIndex& index) const;

    OutletTableModel* rows_ = nullptr;
    QString emptyText_;
};

}  // namespace orv

#include "qt/elements/RowTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "qt/binding/ShownText.h"
#include "qt/elements/MakeChild.h"
#include "qt/looks/Spacing.h"

namespace orv {

namespace {

class CellDelegate final : public QStyledItemDelegate {
 public:
    CellDelegate(const std::vector<TableColumn>& columns, QObject* parent)
        : QStyledItemDelegate(parent), columns_(&columns) {}

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = (*columns_)[static_cast<std::size_t>(index.column())].elide;
        // a row is what has the focus
        option->state &= ~QStyle::State_HasFocus;
    }

 private:
    const std::vector<TableColumn>* columns_;
};

}  // namespace

RowTable::RowTable(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + spacing::rowPadding);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setResizeContentsPrecision(0);
}

void RowTable::setColumns(std::vector<TableColumn> columns) {
    rows_ = MakeChild<OutletTableModel>(this, std::move(columns));
    setModel(rows_);
    setItemDelegate(MakeChild<CellDelegate>(this, rows_->columns()));
    connect(rows_, &QAbstractItemModel::dataChanged, this, &RowTable::fitColumns);
    connect(rows_, &QAbstractItemModel::rowsInserted, this, &RowTable::tellWhyEmpty);
    connect(rows_, &QAbstractItemModel::rowsRemoved, this, &RowTable::tellWhyEmpty);
    for (int i = 0; i < rows_->columnCount(); ++i) {
        const bool isRest =
            rows_->columns()[static_cast<std::size_t>(i)].width == ColumnWidth::Rest;
        horizontalHeader()->setSectionResizeMode(
            i, isRest ? QHeaderView::Stretch : QHeaderView::Fixed);
    }
}

void RowTable::setEmptyText(const QString& text) {
    emptyText_ = text;
    tellWhyEmpty();
    viewport()->update();
}

bool RowTable::isEmpty() const {
    return !rows_ || rows_->rowCount() == 0;
}

void RowTable::tellWhyEmpty() {
    setAccessibleDescription(isEmpty() ? emptyText_ : QString());
}

/// What is seen decides the widths, however many rows there are; no column takes so much that the
/// others cannot be read.
void RowTable::fitColumns() {
    constexpr double mostOfWidth = 0.4;
    if (!rows_ || !isVisible()) return;
    const int most =
        std::max(spacing::leastColumn, static_cast<int>(viewport()->width() * mostOfWidth));
    for (int i = 0; i < rows_->columnCount(); ++i) {
        if (horizontalHeader()->sectionResizeMode(i) != QHeaderView::Fixed) continue;
        const int wanted = std::max(sizeHintForColumn(i), horizontalHeader()->sectionSizeHint(i));
        setColumnWidth(i, std::min(wanted + spacing::cellPadding, most));
    }
}

void RowTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

void RowTable::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    fitColumns();
}

void RowTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = spacing::wide;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void RowTable::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void RowTable::copySelection() const {
    QModelIndexList selected = selectionModel()->selectedRows();
    std::ranges::sort(selected, {}, &QModelIndex::row);
    QString text;
    for (const QModelIndex& row : selected) {
        for (int column = 0; column < model()->columnCount(); ++column) {
            if (column > 0) text += u'\t';
            text += row.siblingAtColumn(column).data().toString();
        }
        text += u'\n';
    }
    if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

bool RowTable::isCut(const QModelIndex& index) const {
    return sizeHintForIndex(index).width() > visualRect(index).width();
}

bool RowTable::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* help = static_cast<const QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    if (!index.isValid() || !isCut(index)) return QTableView::viewportEvent(event);
    QToolTip::showText(help->globalPos(), PlainToolTip(index.data().toString()), viewport(),
                       visualRect(index));
    return true;
}

}  // namespace orv

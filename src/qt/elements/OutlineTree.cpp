#include "qt/elements/OutlineTree.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

#include "qt/binding/ShownText.h"
#include "qt/elements/MakeChild.h"
#include "qt/looks/Spacing.h"

namespace orv {

namespace {

class RowDelegate final : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem placed = option;
        const int space = spaceBefore(option, index);
        const bool isMirrored = option.direction == Qt::RightToLeft;
        placed.rect.adjust(isMirrored ? 0 : space, 0, isMirrored ? -space : 0, 0);
        QStyledItemDelegate::paint(painter, placed, index);
    }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(spaceBefore(option, index), 0);
    }

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state &= ~QStyle::State_HasFocus;  // what is selected has it
        if (!index.data(OutlineModel::faintRole).toBool()) return;
        const QColor faint = option->palette.color(QPalette::PlaceholderText);
        option->palette.setColor(QPalette::Text, faint);
    }

 private:
    /// The place of a check box, where there is none.
    static int spaceBefore(const QStyleOptionViewItem& option, const QModelIndex& index) {
        if (index.data(Qt::CheckStateRole).isValid()) return 0;
        const QStyle& style = *option.widget->style();
        const auto metric = [&](QStyle::PixelMetric each) {
            return style.pixelMetric(each, &option, option.widget);
        };
        return metric(QStyle::PM_IndicatorWidth) + 2 * (metric(QStyle::PM_FocusFrameHMargin) + 1);
    }
};

}  // namespace

OutlineTree::OutlineTree(QWidget* parent)
    : QTreeView(parent), rows_(MakeChild<OutlineModel>(this)) {
    setModel(rows_);
    setItemDelegate(MakeChild<RowDelegate>(this));
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);  // sizes stand at the end
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setIconSize({spacing::rowIcon, spacing::rowIcon});
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->setMinimumSectionSize(0);
    // after the view's own, which lays the rows out
    connect(rows_, &QAbstractItemModel::layoutAboutToBeChanged, this, &OutlineTree::keepPlace);
    connect(rows_, &QAbstractItemModel::layoutChanged, this, &OutlineTree::returnToPlace);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (OutlineDataSource* source = rows_->source())
            source->itemWillExpand(rows_->itemAt(index));
        openAndFetch();
    });
    connect(this, &QTreeView::collapsed, this, &OutlineTree::openAndFetch);
}

void OutlineTree::setOutlet(const OutlineView* outlet, const Icons* icons) {
    rows_->setOutlet(outlet, icons);
    openAndFetch();
}

void OutlineTree::refresh() {
    rows_->update();
    openAndFetch();
    tellChanges();
}

OutlineItem OutlineTree::selectedItem() const {
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? nullptr : rows_->itemAt(selected.front());
}

QModelIndex OutlineTree::outermostClosed(const QModelIndex& index) const {
    QModelIndex closed;
    for (QModelIndex around = index.parent(); around.isValid(); around = around.parent())
        if (!isExpanded(around)) closed = around;
    return closed;
}

void OutlineTree::selectItem(OutlineItem item) {
    const QPersistentModelIndex index = rows_->indexOfItem(item);
    for (QModelIndex closed = outermostClosed(index); closed.isValid();
         closed = outermostClosed(index)) {
        expand(closed);
        rows_->update();  // what is opened may bring rows
    }
    if (index.isValid()) {
        setCurrentIndex(index);
    } else {
        clearSelection();
    }
}

void OutlineTree::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    Q_EMIT selectedItemChanged();
}

void OutlineTree::keepPlace() {
    place_ = indexAt({0, 0});
    placeTop_ = visualRect(place_).top();
}

void OutlineTree::returnToPlace() {
    if (place_.isValid()) {
        QScrollBar* bar = verticalScrollBar();
        bar->setValue(bar->value() + visualRect(place_).top() - placeTop_);
    }
    place_ = QPersistentModelIndex();
    Q_EMIT selectedItemChanged();
}

/// Rows that want to be open are opened when they are seen, and more rows are taken where a
/// folder's last one is.
void OutlineTree::openAndFetch() {
    constexpr int mostSteps = 500;
    if (isOpening_ || !isVisible()) return;
    isOpening_ = true;
    for (int step = 0; step < mostSteps && openOrFetchOnce(); ++step) {
    }
    isOpening_ = false;
}

bool OutlineTree::openOrFetchOnce() {
    for (const QModelIndex& index : seenRows()) {
        OutlineDataSource* source = rows_->source();
        const bool opens = source && source->takeShouldExpand(rows_->itemAt(index));
        if (opens && !isExpanded(index)) {
            expand(index);
            return true;
        }
        if (fetchInto(index) || fetchBehind(index)) return true;
    }
    return false;
}

bool OutlineTree::fetchInto(const QModelIndex& index) {
    const bool wants = isExpanded(index) && rows_->canFetchMore(index);
    if (wants) rows_->fetchMore(index);
    return wants;
}

/// If it is the last row of what is around it.
bool OutlineTree::fetchBehind(const QModelIndex& index) {
    for (QModelIndex last = index; last.isValid(); last = last.parent()) {
        const QModelIndex parent = last.parent();
        if (last.row() + 1 < rows_->rowCount(parent)) return false;
        if (rows_->fetchNextBlock(parent)) return true;
    }
    return false;
}

/// Draws what has changed of what is seen, and tells those who do not see it.
void OutlineTree::tellChanges() {
    if (!isVisible()) return;
    const Seen before = std::exchange(seen_, {});
    for (const QModelIndex& index : seenRows()) {
        seen_.emplace_back(rows_->itemAt(index), rows_->cellAt(index));
        const auto& [item, cell] = seen_.back();
        const auto was = std::ranges::find(before, item, &Seen::value_type::first);
        if (was == before.end() || was->second != cell) rows_->cellDidChange(index);
    }
}

std::vector<QModelIndex> OutlineTree::seenRows() const {
    std::vector<QModelIndex> seen;
    for (QModelIndex index = indexAt({0, 0}); index.isValid();) {
        seen.push_back(index);
        const QRect place = visualRect(index);
        if (place.height() <= 0 || place.bottom() >= viewport()->height()) break;
        index = indexAt({0, place.bottom() + 1});
    }
    return seen;
}

bool OutlineTree::isCut(const QModelIndex& index) const {
    return sizeHintForIndex(index).width() > visualRect(index).width();
}

bool OutlineTree::viewportEvent(QEvent* event) {
    // nothing is drawn or clicked that has gone
    rows_->update();
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    const auto* help = static_cast<const QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const bool hasOwn = !index.data(Qt::ToolTipRole).toString().isEmpty();
    if (!index.isValid() || hasOwn || !isCut(index)) return QTreeView::viewportEvent(event);
    QToolTip::showText(help->globalPos(), PlainToolTip(index.data().toString()), viewport(),
                       visualRect(index));
    return true;
}

/// A click on a check box selects its row too. Nothing scrolls under the pointer.
void OutlineTree::mousePressEvent(QMouseEvent* event) {
    QTreeView::mousePressEvent(event);
    const QPoint place = event->position().toPoint();
    const QModelIndex index = indexAt(place);
    if (event->button() != Qt::LeftButton || !visualRect(index).contains(place)) return;
    setAutoScroll(false);
    setCurrentIndex(index);
    setAutoScroll(true);
}

void OutlineTree::keyPressEvent(QKeyEvent* event) {
    rows_->update();
    // opening all that is below would read the whole disk
    if (event->key() != Qt::Key_Asterisk) QTreeView::keyPressEvent(event);
}

void OutlineTree::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    const bool byKey =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byKey && !selectionModel()->hasSelection()) setCurrentIndex(rows_->index(0, 0));
}

void OutlineTree::showEvent(QShowEvent* event) {
    QTreeView::showEvent(event);
    refresh();
}

void OutlineTree::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    openAndFetch();
}

void OutlineTree::scrollContentsBy(int dx, int dy) {
    QTreeView::scrollContentsBy(dx, dy);
    openAndFetch();
}

}  // namespace orv

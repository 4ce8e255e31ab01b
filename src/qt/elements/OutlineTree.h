#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>
#include <utility>
#include <vector>

#include "qt/elements/OutlineModel.h"

namespace orv {

/// A tree of rows with check boxes that an outlet's data source answers for. It asks for what is
/// seen only, however many rows there are, and keeps what is open, what is selected and the
/// person's place when rows come and go.
class OutlineTree final : public QTreeView {
    Q_OBJECT

 public:
    explicit OutlineTree(QWidget* parent = nullptr);

    /// Both outlive it or are replaced by null.
    void setOutlet(const OutlineView* outlet, const Icons* icons);
    /// The data source's answers may have changed.
    void refresh();

    /// Null for none.
    [[nodiscard]] OutlineItem selectedItem() const;
    /// Scrolls to it, and opens what it is in. Null selects nothing.
    void selectItem(OutlineItem item);

 Q_SIGNALS:
    /// By the person, or because the selected row has gone.
    void selectedItemChanged();

 protected:
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

 private:
    using Seen = std::vector<std::pair<OutlineItem, OutlineCell>>;

    [[nodiscard]] QModelIndex outermostClosed(const QModelIndex& index) const;
    void keepPlace();
    void returnToPlace();
    void openAndFetch();
    [[nodiscard]] bool openOrFetchOnce();
    [[nodiscard]] bool fetchInto(const QModelIndex& index);
    [[nodiscard]] bool fetchBehind(const QModelIndex& index);
    void tellChanges();
    [[nodiscard]] std::vector<QModelIndex> seenRows() const;
    [[nodiscard]] bool isCut(const QModelIndex& index) const;

    OutlineModel* rows_;
    /// What was seen last.
    Seen seen_;
    // the topmost row while rows come and go
    QPersistentModelIndex place_;
    int placeTop_ = 0;
    bool isOpening_ = false;
};

}  // namespace orv

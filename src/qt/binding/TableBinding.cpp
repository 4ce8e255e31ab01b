#include "qt/binding/TableBinding.h"

#include <QItemSelectionModel>
#include <set>

namespace orv {

namespace {

std::set<std::size_t> selectedRows(const RowTable& table) {
    std::set<std::size_t> rows;
    for (const QModelIndex& index : table.selectionModel()->selectedRows())
        rows.insert(static_cast<std::size_t>(index.row()));
    return rows;
}

}  // namespace

TableBinding::TableBinding(FrameUpdates& updates, TableView& outlet, RowTable& table)
    : ViewBinding(updates, outlet, table), revision_(outlet.revision()) {
    table.rows()->setOutlet(&outlet);
    QObject::connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, &receiver(),
                     [this] { chosen(); });
}

TableBinding::~TableBinding() {
    isShowing_ = true;  // the rows that go take no selection with them
    widget().rows()->setOutlet(nullptr);
}

void TableBinding::chosen() {
    if (!isShowing_) outlet().selectRows(selectedRows(widget()));
}

void TableBinding::show() {
    isShowing_ = true;
    if (revision_ != outlet().revision()) {
        revision_ = outlet().revision();
        widget().rows()->reload();
    }
    showSelection();
    isShowing_ = false;
}

void TableBinding::showSelection() {
    const std::set<std::size_t>& wanted = outlet().selectedRows();
    if (wanted == selectedRows(widget())) return;
    QItemSelection selection;
    for (const std::size_t row : wanted) {
        const QModelIndex index = widget().rows()->index(static_cast<int>(row), 0);
        selection.select(index, index);
    }
    using Model = QItemSelectionModel;
    widget().selectionModel()->select(selection, Model::ClearAndSelect | Model::Rows);
}

}  // namespace orv

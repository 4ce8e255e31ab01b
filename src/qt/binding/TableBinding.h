#pragma once

#include "qt/binding/ViewBinding.h"
#include "qt/elements/RowTable.h"
#include "widgets/TableView.h"

namespace orv {

/// The table has its columns already.
class TableBinding final : public ViewBinding<TableView, RowTable> {
 public:
    TableBinding(FrameUpdates& updates, TableView& outlet, RowTable& table);
    ~TableBinding() override;

 private:
    void show() override;
    void showSelection();
    void chosen();

    std::size_t revision_;
    bool isShowing_ = false;
};

}  // namespace orv

#include "qt/windows/LeftOutWindow.h"

#include <ui_LeftOut.h>

#include "backup/sharing/SharingOutlets.h"
#include "qt/binding/Mnemonics.h"
#include "qt/windows/LocalizedColumn.h"
#include "qt/windows/PrepareWindow.h"

namespace orv {

namespace {

std::vector<TableColumn> leftOutColumns() {
    return {LocalizedColumn("name", {"LeftOut.NameColumn", "Name"}, ColumnWidth::Contents,
                            Qt::ElideMiddle),
            LocalizedColumn("reason", {"LeftOut.ReasonColumn", "Why"}, ColumnWidth::Rest,
                            Qt::ElideRight)};
}

}  // namespace

LeftOutWindow::LeftOutWindow(const WindowContext& context, LeftOutOutlets& outlets, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::LeftOut>()) {
    ui_->setupUi(this);
    ui_->_leftOutTable->setColumns(leftOutColumns());
    PrepareWindow(*this, context);
    bindings_ = std::make_unique<Bindings>(context, *this);
    bindings_->bind(outlets._leftOutTitle, ui_->_leftOutTitle);
    bindings_->bind(outlets._leftOutTable, ui_->_leftOutTable);
    bindings_->bind(outlets._indicator, ui_->_indicator);
    bindings_->bind(outlets._closeButton, ui_->_closeButton);
    AssignMnemonics(*this);
    bindings_->bind(outlets._leftOutWindow, this);
}

LeftOutWindow::~LeftOutWindow() = default;

}  // namespace orv

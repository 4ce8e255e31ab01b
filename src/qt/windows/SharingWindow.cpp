#include "qt/windows/SharingWindow.h"

#include <ui_SharingWindow.h>

#include "backup/sharing/SharingOutlets.h"
#include "qt/binding/Mnemonics.h"
#include "qt/windows/PrepareWindow.h"

namespace orv {

SharingWindow::SharingWindow(const WindowContext& context, SharingOutlets& outlets, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::SharingWindow>()) {
    ui_->setupUi(this);
    ui_->buttons->addButton(ui_->_okButton, QDialogButtonBox::AcceptRole);
    ui_->buttons->addButton(ui_->_cancelButton, QDialogButtonBox::RejectRole);
    PrepareWindow(*this, context);
    bindings_ = std::make_unique<Bindings>(context, *this);
    bindings_->bind(outlets._folderTree, ui_->_folderTree);
    bindings_->bind(outlets._notice, ui_->_notice);
    bindings_->bind(outlets._allFilesButton, ui_->_allFilesButton);
    bindings_->bind(outlets._onlyTheseButton, ui_->_onlyTheseButton);
    bindings_->bind(outlets._documentsButton, ui_->_documentsButton);
    bindings_->bind(outlets._financialButton, ui_->_financialButton);
    bindings_->bind(outlets._imagesButton, ui_->_imagesButton);
    bindings_->bind(outlets._archivesButton, ui_->_archivesButton);
    bindings_->bind(outlets._databasesButton, ui_->_databasesButton);
    bindings_->bind(outlets._musicButton, ui_->_musicButton);
    bindings_->bind(outlets._videoButton, ui_->_videoButton);
    bindings_->bind(outlets._excludeButton, ui_->_excludeButton);
    bindings_->bind(outlets._excludeInfo, ui_->_excludeInfo);
    bindings_->bind(outlets._leftOutInfo, ui_->_leftOutInfo);
    bindings_->bind(outlets._leftOutButton, ui_->_leftOutButton);
    bindings_->bind(outlets._pieChartView, ui_->_pieChartView);
    bindings_->bind(outlets._summaryPanelView, ui_->_summaryPanelView);
    bindings_->bind(outlets._summaryLabel, ui_->_summaryLabel);
    bindings_->bind(outlets._spinner, ui_->_spinner);
    bindings_->bind(outlets._progressText, ui_->_progressText);
    bindings_->bind(outlets._okButton, ui_->_okButton);
    bindings_->bind(outlets._cancelButton, ui_->_cancelButton);
    AssignMnemonics(*this);
    bindings_->bind(outlets._sharingWindow, this);
}

SharingWindow::~SharingWindow() = default;

}  // namespace orv

#include "qt/windows/ExcludeFiltersWindow.h"

#include <ui_ExcludeFilters.h>

#include "backup/sharing/SharingOutlets.h"
#include "qt/binding/Mnemonics.h"
#include "qt/windows/LocalizedColumn.h"
#include "qt/windows/PrepareWindow.h"

namespace orv {

namespace {

std::vector<TableColumn> previewColumns() {
    return {LocalizedColumn("name", {"ExcludeFilters.NameColumn", "Name"}, ColumnWidth::Contents,
                            Qt::ElideMiddle),
            LocalizedColumn("size", {"ExcludeFilters.SizeColumn", "Size"}, ColumnWidth::Contents,
                            Qt::ElideRight),
            LocalizedColumn("folder", {"ExcludeFilters.FolderColumn", "Folder"}, ColumnWidth::Rest,
                            Qt::ElideMiddle)};
}

std::vector<TableColumn> filterColumns() {
    return {LocalizedColumn("filter", {"ExcludeFilters.FilterColumn", "Pattern"}, ColumnWidth::Rest,
                            Qt::ElideMiddle)};
}

std::vector<TableColumn> excludedFileColumns() {
    return {LocalizedColumn("path", {"ExcludeFilters.PathColumn", "File"}, ColumnWidth::Rest,
                            Qt::ElideMiddle)};
}

}  // namespace

ExcludeFiltersWindow::ExcludeFiltersWindow(const WindowContext& context, ExcludeOutlets& outlets,
                                           QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::ExcludeFilters>()) {
    ui_->setupUi(this);
    ui_->_previewTable->setColumns(previewColumns());
    ui_->_excludeFiltersTable->setColumns(filterColumns());
    ui_->_excludedFilesTable->setColumns(excludedFileColumns());
    PrepareWindow(*this, context);
    bindings_ = std::make_unique<Bindings>(context, *this);
    bindings_->bind(outlets._filterField, ui_->_filterField);
    bindings_->bind(outlets._addFilterButton, ui_->_addFilterButton);
    bindings_->bind(outlets._previewInfo, ui_->_previewInfo);
    bindings_->bind(outlets._previewTable, ui_->_previewTable);
    bindings_->bind(outlets._excludeFiltersTable, ui_->_excludeFiltersTable);
    bindings_->bind(outlets._removeFilterButton, ui_->_removeFilterButton);
    bindings_->bind(outlets._excludedFilesTable, ui_->_excludedFilesTable);
    bindings_->bind(outlets._addFileButton, ui_->_addFileButton);
    bindings_->bind(outlets._removeFileButton, ui_->_removeFileButton);
    bindings_->bind(outlets._okButton, ui_->_okButton);
    AssignMnemonics(*this);
    bindings_->bind(outlets._excludeWindow, this);
}

ExcludeFiltersWindow::~ExcludeFiltersWindow() = default;

}  // namespace orv

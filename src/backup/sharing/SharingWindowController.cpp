#include "backup/sharing/SharingWindowController.h"

#include <utility>

#include "backup/sharing/CategoryBoxes.h"
#include "foundation/system/LocalizedString.h"

namespace orv {

using quelm::GetLocalizedString;

orv_SharingWindowController::orv_SharingWindowController(const SharingEnvironment& environment,
                                                         const Account& account,
                                                         const StorageFigures& storage)
    : environment_(environment),
      agentID_(account.agentID()),
      facts_(std::make_shared<SharingRecords>(account.accountFolderPath())),
      outline_({.wantsChildren = [this](orv_FileSystemItem& item) { loadChildren(item); },
                .expanded = [this](orv_FileSystemItem& item) { itemExpanded(item); },
                .toggled = [this](orv_FileSystemItem& item) { toggle(item); },
                .wantsScan = [this](orv_FileSystemItem& item) { scanWhenShown(item); }}),
      ledger_(environment.scanBackground),
      leftOut_(outlets_.leftOut, environment.folderBackground),
      folderScanner(*environment.services.runLoop, *this) {
    storage_.setFigures(storage);
    storage_.setBackupEnabled(true);
    storage_.setSyncEnabled(storage.syncEnabled);
    wireActions();
}

orv_SharingWindowController::~orv_SharingWindowController() {
    hiddenCount_.request_stop();
    unwireActions();
    environment_.windows.release(outlets_);
}

void orv_SharingWindowController::wireActions() {
    using Controller = orv_SharingWindowController;
    const std::pair<Button*, void (Controller::*)()> actions[] = {
        {&outlets_._okButton, &Controller::okSharingWindow},
        {&outlets_._cancelButton, &Controller::cancelSharingWindow},
        {&outlets_._allFilesButton, &Controller::allFilesButtonPressed},
        {&outlets_._onlyTheseButton, &Controller::onlyTheseButtonPressed},
        {&outlets_._excludeButton, &Controller::excludeButtonPressed},
        {&outlets_._leftOutButton, &Controller::leftOutButtonPressed},
    };
    for (const auto& [button, action] : actions)
        button->setAction([this, action = action] { (this->*action)(); });
    for (CheckBox* box : CategoryBoxes(outlets_))
        box->setAction([this] { includeFilterSelectionChanged(); });
    outlets_._sharingWindow.setCloseAction([this] { cancelSharingWindow(); });
    outlets_._folderTree.setSelectionDidChange([this] {
        outlets_._leftOutButton.setEnabled(outlets_._folderTree.selectedItem() != nullptr);
    });
    outlets_._leftOutButton.setEnabled(false);
}

void orv_SharingWindowController::unwireActions() {
    outlets_._folderTree.setDataSource(nullptr);
    outlets_._folderTree.setSelectionDidChange({});
    outlets_._sharingWindow.setCloseAction({});
}

void orv_SharingWindowController::openSharingWindowWithDelegate(SharingDelegate* delegate) {
    delegate_ = delegate;
    if (outlets_._sharingWindow.isOpen()) return outlets_._sharingWindow.orderFront();
    outlets_._okButton.setEnabled(false);
    outlets_._excludeButton.setEnabled(false);
    outlets_._spinner.startAnimation();
    outlets_._progressText.setStringValue("");
    showNotice(GetLocalizedString("Sharing.Reading", "Looking at the folders of this computer…"));
    environment_.windows.showSharing(outlets_);
    outlets_._sharingWindow.orderFront();
    loadRecords();
}

void orv_SharingWindowController::showNotice(std::string text) {
    outlets_._notice.setHidden(text.empty());
    outlets_._notice.setStringValue(std::move(text));
}

void orv_SharingWindowController::loadRecords() {
    environment_.background.perform([facts = facts_] { facts->load(); },
                                    [this, life = std::weak_ptr(life_)] {
                                        if (!life.expired() && !isClosed_) buildTree();
                                    });
}

void orv_SharingWindowController::buildTree() {
    auto made = std::make_shared<SharingTree>();
    environment_.folderBackground.perform(
        [made, facts = facts_, &services = environment_.services] {
            *made = BuildSharingTree(*facts, services);
        },
        [this, life = std::weak_ptr(life_), made] {
            if (!life.expired() && !isClosed_) awakeFromNib(std::move(*made));
        });
}

void orv_SharingWindowController::awakeFromNib(SharingTree made) {
    tree_ = std::move(made);
    facts_->filters.unscannedFolders = tree_.unscannedFolders;
    initStorageQuotaSettings();
    exclude_ = std::make_unique<ExcludeSheet>(
        outlets_.exclude, ExcludeSheet::Environment{
                              filterSettings(), facts_->excludedFiles, ledger_, environment_.alerts,
                              environment_.filePanels, [this] { return selection(); },
                              [this](bool changed) { excludeSheetClosed(changed); }});
    outlets_._excludeButton.setEnabled(true);
    folderScanner.setFilters(facts_->filters);
    folderScanner.start();
    initializeTreeAndFilterSettings();
}

void orv_SharingWindowController::initializeTreeAndFilterSettings() {
    initializeFolderTree();
    outlets_._allFilesButton.setOn(filterSettings().includeAllFiles());
    outlets_._onlyTheseButton.setOn(!filterSettings().includeAllFiles());
    const auto boxes = CategoryBoxes(outlets_);
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i]->setOn(filterSettings().predefIncludeFilterValue(CategoryOfBox(i)));
    setVisibilityOfBackupSets();
}

void orv_SharingWindowController::initializeFolderTree() {
    showNotice(facts_->problem);
    outline_.setTree(tree_.tree.get());
    outlets_._folderTree.setDataSource(&outline_);
    outlets_._spinner.stopAnimation();
    startScanTopLevelFolders();
    computationInProgress_ ? showStorage() : refreshStorageSummary();
}

void orv_SharingWindowController::okSharingWindow() {
    if (!tree_.tree || computationInProgress_ || isSaving_) return;
    saveSettings();
}

void orv_SharingWindowController::cancelSharingWindow() {
    if (!isSaving_) closeDialogWithReturnCode(0);
}

void orv_SharingWindowController::excludeButtonPressed() {
    if (exclude_) exclude_->open();
}

void orv_SharingWindowController::leftOutButtonPressed() {
    const auto* const item = outline_.itemOf(outlets_._folderTree.selectedItem());
    if (item) leftOut_.open(item->fullPath(), facts_->filters);
}

void orv_SharingWindowController::closeDialogWithReturnCode(int code) {
    if (std::exchange(isClosed_, true)) return;
    const std::uint64_t size = tree_.tree ? tree_.tree->getSelectionSize() : 0;
    if (exclude_) exclude_->close();
    leftOut_.close();
    hiddenCount_.request_stop();
    folderScanner.cancelAllRequests();
    folderScanner.stop();
    outlets_._sharingWindow.close();
    outlets_._folderTree.setDataSource(nullptr);
    outline_.setTree(nullptr);
    if (tree_.tree) tree_.tree->releaseRootItems();
    outlets_._pieChartView.setModel({});
    sharingSheetDidEnd(code, size);
}

void orv_SharingWindowController::sharingSheetDidEnd(int code, std::uint64_t size) {
    if (!delegate_) return;
    if (code == 0) return delegate_->sharingDialogCancelled();
    delegate_->sharingDialogDidFinishWithSize(size, agentID_);
}

}  // namespace orv

#include "backup/sharing/CategoryBoxes.h"
#include "backup/sharing/SharingWindowController.h"
#include "foundation/system/LocalizedString.h"

// Which files of the chosen folders the window counts.

namespace orv {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

void orv_SharingWindowController::allFilesButtonPressed() {
    outlets_._allFilesButton.setOn(true);
    outlets_._onlyTheseButton.setOn(false);
    includeFilterSelectionChanged();
}

void orv_SharingWindowController::onlyTheseButtonPressed() {
    outlets_._allFilesButton.setOn(false);
    outlets_._onlyTheseButton.setOn(true);
    includeFilterSelectionChanged();
}

void orv_SharingWindowController::includeFilterSelectionChanged() {
    if (!tree_.tree || isSaving_) return;
    setVisibilityOfBackupSets();
    filtersChanged();
}

void orv_SharingWindowController::setIncludeFilters() {
    filterSettings().setIncludeAllFiles(outlets_._allFilesButton.isOn());
    const auto boxes = CategoryBoxes(outlets_);
    for (std::size_t i = 0; i < boxes.size(); ++i)
        filterSettings().setPredefIncludeFilter(CategoryOfBox(i), boxes[i]->isOn());
}

/// What is being stored does not change any more.
void orv_SharingWindowController::enableChoices() {
    for (Button* button : std::initializer_list<Button*>{
             &outlets_._allFilesButton, &outlets_._onlyTheseButton, &outlets_._excludeButton})
        button->setEnabled(!isSaving_);
    for (CheckBox* box : CategoryBoxes(outlets_))
        box->setEnabled(!isSaving_ && outlets_._onlyTheseButton.isOn());
}

void orv_SharingWindowController::setVisibilityOfBackupSets() {
    enableChoices();
    showExludeFiltersInfo();
    setIncludeFilters();
}

void orv_SharingWindowController::showExludeFiltersInfo() {
    const std::size_t count = exclude_ ? exclude_->count() : 0;
    if (count == 0) return outlets_._excludeInfo.setStringValue("");
    const std::string word = count == 1 ? GetLocalizedString("Sharing.Filter", "filter")
                                        : GetLocalizedString("Sharing.Filters", "filters");
    outlets_._excludeInfo.setStringValue(FormatLocalizedString(
        "Sharing.ExcludeInfo", "%u active exclude %@", {static_cast<std::int64_t>(count), word}));
}

/// What the server leaves out is read from its file.
void orv_SharingWindowController::filtersChanged() {
    isAsOpened_ = false;
    cancelAllrequests();
    computationStarted();
    ++pendingFilters_;
    auto filters = std::make_shared<ScannerFilters>();
    environment_.background.perform(
        [filters, settings = filterSettings()] { *filters = ScannerFilters::of(settings); },
        [this, life = std::weak_ptr(life_), filters] {
            if (life.expired() || isClosed_) return;
            if (--pendingFilters_ > 0) return;
            filters->unscannedFolders = tree_.unscannedFolders;
            facts_->filters = std::move(*filters);
            folderScanner.cancelAllRequests();
            folderScanner.setFilters(facts_->filters);
            ledger_.clear();
            startScanTopLevelFolders();
            refreshStorageSummary();
            reloadTree();
        });
}

void orv_SharingWindowController::excludeSheetClosed(bool patternsChanged) {
    setIncludeFilters();
    showExludeFiltersInfo();
    if (patternsChanged) filtersChanged();
}

}  // namespace orv

#include <algorithm>
#include <cstdint>

#include "backup/scanner/HiddenFolderCount.h"
#include "backup/sharing/SharingWindowController.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Saturating.h"
#include "widgets/SizeText.h"

// What the window says about the storage that the selection takes.

namespace orv {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

namespace {

std::int64_t asSigned(std::uint64_t bytes) {
    return static_cast<std::int64_t>(std::min<std::uint64_t>(bytes, INT64_MAX));
}

}  // namespace

void orv_SharingWindowController::initStorageQuotaSettings() {
    const orv_StorageQuotaInfo& info = facts_->records.storageQuotaInfo;
    StorageFigures figures = storage_.figures();
    figures.quota = info.haveQuota() ? info.quota() : quotaWithoutInformation;
    figures.otherComputers = info.totalOtherComputers();
    figures.thisComputer = info.totalThisComputer();
    storage_.setFigures(figures);
    selectionAtFirst_ = figures.thisComputer;
    storage_.setSyncEnabled(facts_->records.agentSettings.syncEnabled());
}

void orv_SharingWindowController::refreshStorageSummary() {
    std::int64_t total = 0;
    std::int64_t stored = 0;
    for (orv_FileSystemItem* item : tree_.tree->findTopLevelItems()) {
        const std::int64_t size = asSigned(item->getSelectionSize());
        total = quelm::SaturatingSum(total, size);
        const auto* const known =
            facts_->records.storageFoldersInfo.findInfoForPath(item->fullPath());
        if (known)
            stored =
                quelm::SaturatingSum(stored, std::clamp<std::int64_t>(known->stored(), 0, size));
    }
    storage_.setUserSelectionSize(total, stored);
    showStorage();
}

void orv_SharingWindowController::showStorage() {
    outlets_._pieChartView.setModel(storage_.figures());
    outlets_._summaryPanelView.setModel(storage_);
    storageInfoDidChange();
}

/// A selection that is no larger than it was may be stored in any case: what takes too much may be
/// elsewhere.
bool orv_SharingWindowController::chartAllows() const {
    const StorageFigures& figures = storage_.figures();
    return !IsOverQuota(figures) || figures.thisComputer <= selectionAtFirst_;
}

void orv_SharingWindowController::storageInfoDidChange() {
    const bool isReady = tree_.tree && !facts_->areRecordsUnreadable && !isSaving_;
    outlets_._okButton.setEnabled(isReady && !computationInProgress_ && chartAllows());
    const std::string inWords = DescriptionInWords(storage_.figures());
    outlets_._summaryLabel.setStringValue(
        chartAllows() || computationInProgress_
            ? inWords
            : inWords + "\n" +
                  GetLocalizedString("Sharing.OverQuota",
                                     "This is more than the storage holds: uncheck folders, or "
                                     "exclude files, to store the selection."));
}

void orv_SharingWindowController::showLeftOut() {
    ledger_.askTotals(selection(), [this](const ScanLedger::Totals& totals) {
        if (!isClosed_ && !computationInProgress_) countHidden(totals);
    });
}

void orv_SharingWindowController::countHidden(const ScanLedger::Totals& totals) {
    hiddenCount_.request_stop();
    hiddenCount_ = {};
    showLeftOutTotals(totals, !totals.hiddenFolders.empty());
    if (totals.hiddenFolders.empty()) return;
    auto whole = std::make_shared<ScanLedger::Totals>(totals);
    const std::stop_token stop = hiddenCount_.get_token();
    environment_.hiddenBackground.perform(
        [whole, stop] {
            const auto hidden = CountHiddenFolders(whole->hiddenFolders, stop);
            if (!hidden) return;
            whole->leftOutFiles += hidden->files;
            whole->leftOutBytes += hidden->bytes;
        },
        [this, life = std::weak_ptr(life_), stop, whole] {
            if (!life.expired() && !isClosed_ && !stop.stop_requested())
                showLeftOutTotals(*whole, false);
        });
}

void orv_SharingWindowController::showLeftOutTotals(const ScanLedger::Totals& totals,
                                                    bool isCounting) {
    const std::string size = FileSizeText(totals.leftOutBytes);
    const std::int64_t files = asSigned(totals.leftOutFiles);
    if (isCounting) {
        outlets_._leftOutInfo.setStringValue(FormatLocalizedString(
            "Sharing.LeftOutSoFar",
            "Hidden files and links are never backed up: %qd so far (%@), still counting…",
            {files, size}));
    } else if (files == 0) {
        outlets_._leftOutInfo.setStringValue(
            GetLocalizedString("Sharing.LeftOutNothing",
                               "Hidden files and links are never backed up. The selection has "
                               "none."));
    } else {
        outlets_._leftOutInfo.setStringValue(FormatLocalizedString(
            "Sharing.LeftOut",
            "Hidden files and links are never backed up. The selection has %qd of them (%@).",
            {files, size}));
    }
}

}  // namespace orv

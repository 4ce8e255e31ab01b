#include <utility>

#include "backup/sharing/SharingWindowController.h"
#include "backup/tree/DiskCatalogue.h"
#include "foundation/system/LocalizedString.h"

// What happens in the folder tree of the window.

namespace orv {

using quelm::FormatLocalizedString;

namespace {

/// The first from above whose scan is under way.
orv_FileSystemItem* highestScanning(orv_FileSystemItem& item) {
    orv_FileSystemItem* highest = nullptr;
    for (auto* above = &item; above; above = above->findParent()) {
        const auto state = above->getScanningState();
        if (state == orv_FileSystemItem::ScanRequested || state == orv_FileSystemItem::OwnSizeKnown)
            highest = above;
    }
    return highest;
}

Alert notBackedUp(const std::string& name) {
    return {
        .title = {},
        .message = FormatLocalizedString("Sharing.NotBackedUp", "%@ cannot be backed up.", {name}),
        .informativeText = quelm::GetLocalizedString(
            "Sharing.NotBackedUpDetail",
            "It is on a volume of the system itself, or on one of a kind that this account does "
            "not back up, such as a network drive or a removable disk."),
        .buttons = {quelm::GetLocalizedString("PrefPane.OK", "OK")}};
}

}  // namespace

void orv_SharingWindowController::loadChildren(orv_FileSystemItem& item) {
    if (!loading_.insert(item.number()).second) return;
    auto listing = std::make_shared<FolderListing>();
    const std::string path = item.fullPath();
    environment_.folderBackground.perform(
        [listing, path, rules = tree_.tree->rules(), &services = environment_.services] {
            *listing = DiskCatalogue(*services.workspace, *services.volumes).list(path);
            KeepShownFolders(*listing, path, rules);
        },
        [this, life = std::weak_ptr(life_), listing, path, number = item.number()] {
            if (life.expired() || isClosed_) return;
            loading_.erase(number);
            auto* const opened = tree_.tree->itemWithNumber(number);
            if (!opened || opened->hasLoadedChildren()) return;
            tree_.catalogue->give(path, std::move(*listing));
            opened->children();
            outlets_._folderTree.structureDidChange();
        });
}

void orv_SharingWindowController::itemExpanded(orv_FileSystemItem& item) {
    const bool isPartlyScanned = item.getScanningState() == orv_FileSystemItem::OwnSizeKnown;
    if (!item.checkFlag() || item.hasLoadedChildren() || !isPartlyScanned) return;
    if (auto* const top = highestScanning(item)) restartScanRequest(*top);
}

void orv_SharingWindowController::toggle(orv_FileSystemItem& item) {
    if (isSaving_ || !item.isCheckable()) return;
    if (!item.checkFlag() && tree_.isUnscanned(item.fullPath()))
        return environment_.alerts.show(notBackedUp(std::string(item.relativePath())), {});
    isAsOpened_ = false;
    item.changeStoreFlag(!item.checkFlag());
    selection_.reset();
    if (item.checkFlag()) {
        becameChecked(item);
    } else {
        becameUnchecked(item);
    }
    refreshStorageSummary();
    if (!computationInProgress_) showLeftOut();
    reloadTree();
}

void orv_SharingWindowController::becameChecked(orv_FileSystemItem& item) {
    const bool isScanned = item.getScanningState() == orv_FileSystemItem::SubtreeScanned;
    if (isScanned && !item.shoudStartScanForSubtree()) return;
    auto* const top = item.findParentTopItem();
    restartScanRequest(top ? *top : item);
}

void orv_SharingWindowController::becameUnchecked(orv_FileSystemItem& item) {
    const bool isScanned = item.getScanningState() == orv_FileSystemItem::SubtreeScanned;
    auto* const top = isScanned ? nullptr : item.findParentTopItem();
    if (top) {
        restartScanRequest(*top);
    } else if (item.canCancelScan()) {
        cancelScanRequest(item);
    }
    if (!tree_.tree->isComputationInTreeRunnig()) cancelAllrequests();
}

/// The tree is being drawn: nothing may change now.
void orv_SharingWindowController::scanWhenShown(orv_FileSystemItem& item) {
    const bool isPosted = !shownUnscanned_.empty();
    shownUnscanned_.insert(item.number());
    if (isPosted) return;
    environment_.services.runLoop->post([this, life = std::weak_ptr(life_)] {
        if (!life.expired() && !isClosed_) scanWhatIsShown();
    });
}

void orv_SharingWindowController::scanWhatIsShown() {
    for (const std::uint32_t number : std::exchange(shownUnscanned_, {})) {
        auto* const item = tree_.tree->itemWithNumber(number);
        if (!item->checkFlag() || item->getScanningState() != orv_FileSystemItem::Idle) continue;
        if (tree_.isUnscanned(item->fullPath())) {
            item->resetScanState(orv_FileSystemItem::SubtreeScanned);
            continue;
        }
        computationStarted();
        startScanRequest(*item);
    }
}

const quelm::Array& orv_SharingWindowController::selection() {
    if (!selection_) selection_ = tree_.tree->getPathsAndFlags();
    return *selection_;
}

void orv_SharingWindowController::reloadTree() {
    outlets_._folderTree.reloadData();
}

}  // namespace orv

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "backup/scanner/FolderScannerTask.h"
#include "backup/sharing/ExcludeSheet.h"
#include "backup/sharing/FolderOutline.h"
#include "backup/sharing/LeftOutSheet.h"
#include "backup/sharing/ScanLedger.h"
#include "backup/sharing/SharingEnvironment.h"
#include "backup/sharing/SharingFacts.h"
#include "backup/sharing/SharingOutlets.h"

namespace orv {

/// Who opened the window. Called at the end of it, when it may be destroyed later, but not at once.
class SharingDelegate {
 public:
    virtual ~SharingDelegate() = default;
    /// The selection was stored; its size in bytes.
    virtual void sharingDialogDidFinishWithSize(std::uint64_t size, const std::string& agentID) = 0;
    virtual void sharingDialogCancelled() = 0;
};

/// The window in which the person chooses what of this computer an account backs up. Lives for one
/// opening. Nothing is stored before OK. Main thread only; it waits for nothing.
class orv_SharingWindowController final : private FolderScannerDelegate {
 public:
    /// `storage` is what the panel shows of the storage; what is chosen takes the place of this
    /// computer's part.
    orv_SharingWindowController(const SharingEnvironment& environment, const Account& account,
                                const StorageFigures& storage);
    orv_SharingWindowController(const orv_SharingWindowController&) = delete;
    orv_SharingWindowController& operator=(const orv_SharingWindowController&) = delete;
    ~orv_SharingWindowController() override;

    void openSharingWindow() { openSharingWindowWithDelegate(nullptr); }
    /// Opens it, or raises it when it is open.
    void openSharingWindowWithDelegate(SharingDelegate* delegate);

    // What the buttons do.
    void okSharingWindow();
    void cancelSharingWindow();
    void allFilesButtonPressed();
    void onlyTheseButtonPressed();
    void includeFilterSelectionChanged();
    void excludeButtonPressed();
    void leftOutButtonPressed();

    [[nodiscard]] SharingOutlets& outlets() { return outlets_; }
    [[nodiscard]] const std::string& agentID() const { return agentID_; }
    /// Null until the folders have been looked at.
    [[nodiscard]] FileSystemTree* tree() { return tree_.tree.get(); }
    [[nodiscard]] bool computationInProgress() const { return computationInProgress_; }

 private:
    void wireActions();
    void unwireActions();

    // opening
    void loadRecords();
    void buildTree();
    void awakeFromNib(SharingTree made);
    void initializeTreeAndFilterSettings();
    void initializeFolderTree();
    void showNotice(std::string text);

    // the tree
    void loadChildren(orv_FileSystemItem& item);
    void itemExpanded(orv_FileSystemItem& item);
    void toggle(orv_FileSystemItem& item);
    void becameChecked(orv_FileSystemItem& item);
    void becameUnchecked(orv_FileSystemItem& item);
    void scanWhenShown(orv_FileSystemItem& item);
    void scanWhatIsShown();
    [[nodiscard]] const quelm::Array& selection();
    void reloadTree();

    // scanning
    void settleUnscanned();
    void startScanRequest(orv_FileSystemItem& item);
    void restartScanRequest(orv_FileSystemItem& item);
    void startScanTopLevelFolders();
    bool cancelScanRequest(orv_FileSystemItem& item);
    void cancelAllrequests();
    void computationStarted();
    void computationFinished();
    void showProgress();
    void folderScanResult(const orv_FolderScannerRequest& request) override;
    void folderSubtreeScanFinished(const orv_FolderScannerRequest& request) override;
    void folderScanningFinished() override;

    // filters
    void setIncludeFilters();
    void setVisibilityOfBackupSets();
    void enableChoices();
    void showExludeFiltersInfo();
    void filtersChanged();
    void excludeSheetClosed(bool patternsChanged);

    // the summary
    void initStorageQuotaSettings();
    void refreshStorageSummary();
    void showStorage();
    void storageInfoDidChange();
    [[nodiscard]] bool chartAllows() const;
    void showLeftOut();
    void countHidden(const ScanLedger::Totals& totals);
    void showLeftOutTotals(const ScanLedger::Totals& totals, bool isCounting);

    // the end
    struct Stored;
    void saveSettings();
    void settingsSaved(const Stored& stored);
    void closeDialogWithReturnCode(int code);
    void sharingSheetDidEnd(int code, std::uint64_t size);

    [[nodiscard]] orv_FilterSettings& filterSettings() { return facts_->records.filterSettings; }

    SharingEnvironment environment_;
    SharingOutlets outlets_;
    SharingDelegate* delegate_ = nullptr;
    std::string agentID_;
    /// Of the account, read anew; changed here and stored with OK.
    std::shared_ptr<SharingRecords> facts_;
    SharingTree tree_;
    FolderOutline outline_;
    ScanLedger ledger_;
    std::unique_ptr<ExcludeSheet> exclude_;
    LeftOutSheet leftOut_;
    SummaryPanel storage_;
    std::optional<quelm::Array> selection_;
    /// What was selected when the window opened, in bytes: as it was stored, until the first scan
    /// has computed it.
    std::int64_t selectionAtFirst_ = 0;
    /// Nothing was changed yet, and the first scan has not ended.
    bool isAsOpened_ = true;
    /// Changes of the filters that are being read.
    int pendingFilters_ = 0;
    std::set<std::uint32_t> loading_;
    std::set<std::uint32_t> shownUnscanned_;
    bool computationInProgress_ = false;
    bool isSaving_ = false;
    bool isClosed_ = false;
    std::uint64_t scannedFolders_ = 0;
    std::uint64_t scannedFiles_ = 0;
    std::stop_source hiddenCount_;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
    orv_FolderScannerTask folderScanner;
};

}  // namespace orv

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/filters/FilterSettings.h"
#include "backup/sharing/ExcludedFiles.h"
#include "backup/sharing/ScanLedger.h"
#include "backup/sharing/SharingOutlets.h"
#include "widgets/Alerts.h"
#include "widgets/FilePanels.h"

namespace orv {

/// The sheet in which files are excluded by patterns for their names or one by one. What it changes
/// is stored by nobody but the window's OK. Main thread only.
class ExcludeSheet final : public TableDataSource {
 public:
    /// What it changes and asks; all outlive it.
    struct Environment {
        orv_FilterSettings& filterSettings;
        ExcludedFiles& excludedFiles;
        ScanLedger& ledger;
        Alerts& alerts;
        FilePanels& filePanels;
        /// The rows of the selection as it is now.
        std::function<quelm::Array()> selection;
        /// Called with OK, and whether patterns were changed since it was opened.
        std::function<void(bool patternsChanged)> closed;
    };

    ExcludeSheet(ExcludeOutlets& outlets, Environment environment);
    ExcludeSheet(const ExcludeSheet&) = delete;
    ExcludeSheet& operator=(const ExcludeSheet&) = delete;
    ~ExcludeSheet();

    void open();
    void close();
    /// How many patterns and files are excluded.
    [[nodiscard]] std::size_t count() const;

    // What the buttons do.
    void addExcludeFilterWindow();
    void removeExcludeFilterWindow();
    void addExcludeFile();
    void removeExcludeFile();
    void okExcludeFilterWindow();

    void addExcludedFiles(const std::vector<std::string>& paths);
    void removeExcludedFiles(const std::vector<std::string>& paths);

    [[nodiscard]] std::size_t numberOfRowsInTableView(const TableView& table) const override;
    [[nodiscard]] std::optional<std::string> objectValue(const TableView& table,
                                                         std::string_view column,
                                                         std::size_t row) const override;

 private:
    [[nodiscard]] std::string typedPattern() const;
    void patternTyped();
    void showPreview(const ScanLedger::Preview& preview);
    void hidePreview();
    void reload();
    void updateButtons();

    ExcludeOutlets& outlets_;
    Environment environment_;
    std::vector<std::string> excludeFiltersArray;
    std::vector<ExcludePreview::Match> matches_;
    bool patternsChanged_ = false;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv

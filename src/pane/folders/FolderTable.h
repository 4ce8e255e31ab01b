#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "accounts/Account.h"
#include "accounts/FolderStatusText.h"
#include "foundation/threads/Background.h"
#include "foundation/threads/OneAtATime.h"
#include "widgets/TableView.h"

namespace orv {

/// The rows of the table of backup folders: what is selected on allowed volumes, and what already
/// holds stored data. The disk is asked in the background; the table shows what was found last.
/// Main thread only.
class FolderTable final : public TableDataSource {
 public:
    /// Columns.
    static constexpr const char* share = "share";
    static constexpr const char* path = "path";
    static constexpr const char* status = "status";

    /// Both outlive it; a volume that does not answer keeps the background waiting. `shown` is
    /// called whenever the rows have been looked up anew.
    FolderTable(TableView& table, quelm::Background& background, std::function<void()> shown);
    FolderTable(const FolderTable&) = delete;
    FolderTable& operator=(const FolderTable&) = delete;
    ~FolderTable();

    /// Takes the account's selection and what is stored of it, and looks up what has become of the
    /// folders. `exceptionsFile` is what the server excludes. The rows of the same paths stay
    /// selected.
    void loadStorageSettings(const AccountRecords& records, const std::string& exceptionsFile);
    /// Without these, until the next load; what is being looked up now is not shown.
    void removeRows(const std::vector<std::string>& paths);

    [[nodiscard]] std::vector<std::string> paths() const;
    /// Whether a folder that is not backed up is on a volume that is away, and the names of such
    /// volumes.
    [[nodiscard]] const std::vector<std::string>& offlineVolumes() const { return offline_; }
    [[nodiscard]] bool isOfflineIncomplete() const { return !offline_.empty(); }

    [[nodiscard]] std::size_t numberOfRowsInTableView(const TableView& table) const override;
    [[nodiscard]] std::optional<std::string> objectValue(const TableView& table,
                                                         std::string_view column,
                                                         std::size_t row) const override;

 private:
    struct Row {
        std::string path;
        std::string share;
        std::string status;
        /// The volume's name where it is away and the folder not backed up; else empty.
        std::string missingVolume;
        bool operator==(const Row&) const = default;
    };
    struct Question;

    static std::vector<Row> lookUp(const Question& question);
    void startLookUp();
    void take(std::vector<Row> rows);
    [[nodiscard]] std::set<std::string> selectedPaths() const;
    [[nodiscard]] std::set<std::size_t> rowsOf(const std::set<std::string>& paths) const;

    TableView& table_;
    quelm::Background& background_;
    std::function<void()> shown_;
    std::vector<Row> _storageSettingsArray;
    std::vector<std::string> offline_;
    std::shared_ptr<const Question> question_;
    quelm::OneAtATime lookUps_{[this] { startLookUp(); }};
    /// Rows were removed after the look-up that runs had begun.
    bool isOutdated_ = false;
    /// Gone when this is.
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv

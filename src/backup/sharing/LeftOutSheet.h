#pragma once

#include <memory>
#include <string>

#include "backup/sharing/LeftOutReasons.h"
#include "backup/sharing/SharingOutlets.h"
#include "foundation/threads/Background.h"

namespace orv {

/// Says why files and folders in a folder are not counted. Main thread only.
class LeftOutSheet final : public TableDataSource {
 public:
    /// Both outlive it; `background` may wait for a disk.
    LeftOutSheet(LeftOutOutlets& outlets, quelm::Background& background);
    LeftOutSheet(const LeftOutSheet&) = delete;
    LeftOutSheet& operator=(const LeftOutSheet&) = delete;
    ~LeftOutSheet();

    void open(const std::string& folder, const ScannerFilters& filters);
    void close();

    [[nodiscard]] std::size_t numberOfRowsInTableView(const TableView& table) const override;
    [[nodiscard]] std::optional<std::string> objectValue(const TableView& table,
                                                         std::string_view column,
                                                         std::size_t row) const override;

 private:
    void show(const std::string& folder, LeftOutList list);

    LeftOutOutlets& outlets_;
    quelm::Background& background_;
    LeftOutList list_;
    /// Counts the openings: an answer to an earlier one is not shown.
    unsigned opening_ = 0;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "widgets/PieChart.h"

namespace orv {

struct SummaryRow {
    std::string label;
    std::string size;
    StorageRole role = StorageRole::Quota;
    bool operator==(const SummaryRow&) const = default;
};

/// The quota summary beside the pie: who takes up how much, what is free, and the quota.
class SummaryPanel {
 public:
    /// The sizes; whether backup and sync are enabled is taken from the operations below alone.
    void setFigures(const StorageFigures& figures);
    void setBackupEnabled(bool enabled) { figures_.backupEnabled = enabled; }
    void setSyncEnabled(bool enabled) { figures_.syncEnabled = enabled; }

    /// While the person chooses what to back up: its size, and how much of it is stored, in bytes.
    void setUserSelectionSize(std::int64_t size, std::int64_t storedSize) {
        figures_.thisComputer = size;
        storedSize_ = storedSize;
    }

    /// What the pie is to show too.
    [[nodiscard]] const StorageFigures& figures() const { return figures_; }
    /// From the top.
    [[nodiscard]] std::vector<SummaryRow> rows() const;
    bool operator==(const SummaryPanel&) const = default;

 private:
    StorageFigures figures_;
    /// Negative while nothing is being chosen.
    std::int64_t storedSize_ = -1;
};

}  // namespace orv

#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "backup/scanner/FolderReader.h"
#include "backup/tree/FileSystemTree.h"

namespace orv {

/// A folder on the way of a walk through what is selected.
struct SelectionStep {
    FolderPlace place;
    /// Null for what the tree does not know of, which is as the folder that it is in.
    orv_FileSystemItem* item = nullptr;
    /// Otherwise it is on the way to a selected folder, and its own files do not count.
    bool isSelected = true;

    [[nodiscard]] const std::string& path() const { return place.path; }
};

/// Of each folder that was read, before those in it: what is directly in it that counts, and those
/// of its subfolders that come next.
using FolderVisitor = std::function<void(const SelectionStep& folder, const FolderTotals& found,
                                         std::span<const SelectionStep> subfolders)>;

/// Where a walk through everything that is selected begins.
[[nodiscard]] std::vector<SelectionStep> StepsOfSelection(FileSystemTree& tree);

/// A walk that begins at a folder, whatever is selected.
[[nodiscard]] SelectionStep StepOfFolder(std::string path);

/// Depth first, the folders in a folder as the disk lists them; what the scanner counts is what is
/// visited. Answers the folders that could not be read, at most 1,000 by name, and how many there
/// are. Waits for disks: any thread, which has the tree for itself.
struct UnreadFolders {
    std::uint64_t count = 0;
    std::vector<std::string> paths = {};
};
UnreadFolders WalkSelection(std::vector<SelectionStep> steps, const ScannerFilters& filters,
                            const std::atomic<bool>& isStopped, const FolderVisitor& visit);

}  // namespace orv

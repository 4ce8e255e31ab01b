#pragma once

#include <optional>

#include "backup/tree/DiskCatalogue.h"
#include "backup/tree/FileSystemTree.h"
#include "cli/Command.h"
#include "config/StorageSettings.h"

namespace orv::cli {

/// What is selected for backup. None, after a message, when there is a selection that cannot be
/// read.
[[nodiscard]] std::optional<orv_StorageSettings> LoadSelection(Console& console);

/// A selection as the tree of this computer's folders, with what the account hides. Needs the
/// process's volumes and workspace.
class SelectionTree {
 public:
    /// Rows on volumes that are not backed up are kept.
    explicit SelectionTree(const orv_StorageSettings& selection);

    [[nodiscard]] FileSystemTree& tree() { return tree_; }
    /// By its absolute path; null for what the tree does not show.
    [[nodiscard]] orv_FileSystemItem* find(const std::string& path);

 private:
    DiskCatalogue catalogue_;
    FileSystemTree tree_;
};

/// Stores what is checked in the tree in place of the selection that it was made of, shows it with
/// --json, and tells the agent. Refused, after a message, when the selection was changed meanwhile.
[[nodiscard]] ExitCode StoreSelection(SelectionTree& tree, const orv_StorageSettings& before,
                                      Console& console);

}  // namespace orv::cli

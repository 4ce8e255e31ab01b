#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "accounts/filters/FolderPatterns.h"
#include "backup/tree/FolderCatalogue.h"

namespace orv {

/// What the tree does not show. Copies are cheap; any thread may ask.
struct TreeRules {
    /// Mount points.
    std::vector<std::string> excludedVolumes = {};
    /// One folder to hide; empty for none.
    std::string excludedPath = {};
    FolderPatterns excludedFolders = {};

    /// Whether the path lies on an excluded volume.
    [[nodiscard]] bool isVolumeExcluded(std::string_view path) const;
    /// Whether an expression matches somewhere in the path.
    [[nodiscard]] bool isPathExcluded(std::string_view path) const;
};

/// Leaves in the listing of the folder at `path` what is shown: containers that are neither package
/// nor application, photo libraries, and nothing that the rules hide.
void KeepShownFolders(FolderListing& listing, const std::string& path, const TreeRules& rules);

/// The path of what is called `name` in the folder at `path`.
[[nodiscard]] std::string PathInFolder(std::string_view path, std::string_view name);

}  // namespace orv

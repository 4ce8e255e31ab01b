#pragma once

#include <memory>
#include <string>
#include <vector>

#include "accounts/Account.h"
#include "backup/scanner/ScannerFilters.h"
#include "backup/sharing/ExcludedFiles.h"
#include "backup/tree/FileSystemTree.h"
#include "backup/tree/PreparedCatalogue.h"
#include "platform/Services.h"

namespace orv {

/// What the files of an account say when its folders are to be chosen.
struct SharingRecords {
    explicit SharingRecords(const std::string& accountFolder)
        : folder(accountFolder), records(accountFolder), excludedFiles(accountFolder) {}

    /// Reads them anew. Waits for locks.
    void load();
    /// The paths that storage knows something of.
    [[nodiscard]] bool isStored(std::string_view path) const {
        return records.storageFoldersInfo.findInfoForPath(path) != nullptr;
    }

    std::string folder;
    AccountRecords records;
    ExcludedFiles excludedFiles;
    /// Without the folders that are never entered.
    ScannerFilters filters;
    /// The stored selection, its filters or the excluded files are there, and nobody knows what
    /// they say: they must not be replaced.
    bool areRecordsUnreadable = false;
    /// What a person should know of the files; empty for nothing.
    std::string problem = {};
};

/// The tree with the stored selection, and what it and the scanner leave out.
struct SharingTree {
    /// Asks the disk no more.
    std::unique_ptr<PreparedCatalogue> catalogue;
    std::unique_ptr<FileSystemTree> tree;
    PathSet unscannedFolders;
    /// Whether the path is, or lies in, a folder that is never entered.
    [[nodiscard]] bool isUnscanned(std::string_view path) const;
    /// Stored paths that the tree does not take.
    std::vector<std::string> refused;
};

/// Looks at disks, which may take long. Any thread.
[[nodiscard]] SharingTree BuildSharingTree(const SharingRecords& account,
                                           platform::Services& services);

/// Mount points that are never entered: of pseudo file systems and of excluded volumes.
[[nodiscard]] PathSet UnscannedFolders(platform::Volumes& volumes,
                                       const std::vector<std::string>& excludedVolumes);

}  // namespace orv

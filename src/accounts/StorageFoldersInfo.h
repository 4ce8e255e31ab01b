#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// How much of one folder is backed up.
class orv_StorageFolderStatus {
 public:
    [[nodiscard]] static orv_StorageFolderStatus statusWithPath(std::string_view path,
                                                                std::int64_t total,
                                                                std::int64_t stored) {
        return {path, total, stored};
    }
    /// In bytes. The path is kept in its plain form.
    orv_StorageFolderStatus(std::string_view path, std::int64_t total, std::int64_t stored);

    [[nodiscard]] const std::string& path() const { return _path; }
    [[nodiscard]] std::int64_t total() const { return _total; }
    [[nodiscard]] std::int64_t stored() const { return _stored; }
    [[nodiscard]] bool isBackedUp() const { return _stored == _total; }
    /// Paths are compared without regard to case.
    [[nodiscard]] bool isEqual(const orv_StorageFolderStatus& other) const;

 private:
    std::string _path;
    std::int64_t _total;
    std::int64_t _stored;
};

/// What the agent says of every backed-up folder, from the account's "storage_folders.xml". What
/// cannot be read leaves the previous values.
class orv_StorageFoldersInfo {
 public:
    /// `folder` is the account's.
    explicit orv_StorageFoldersInfo(const std::string& folder);

    /// Reads the account's file. Always answers false, which nobody looks at.
    bool load();
    bool loadAtPath(const std::string& path);
    bool loadData(std::string_view data);

    [[nodiscard]] const std::vector<orv_StorageFolderStatus>& list() const { return _folderList; }
    /// Sums over the list; at the ends of 64 bits they stay there.
    [[nodiscard]] std::int64_t total() const { return _total; }
    [[nodiscard]] std::int64_t stored() const { return _stored; }
    /// The first record of the path, by its exact name before one that differs in case; null
    /// without one. Valid until the next load.
    [[nodiscard]] const orv_StorageFolderStatus* findInfoForPath(std::string_view path) const;

 private:
    std::vector<orv_StorageFolderStatus> _folderList;
    std::int64_t _total = 0;
    std::int64_t _stored = 0;
    std::string _settingsPath;
};

}  // namespace orv

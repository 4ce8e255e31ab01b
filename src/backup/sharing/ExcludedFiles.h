#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// The files that are left out of the backup one by one: the paths in "excluded_files.plist" of an
/// account's folder. Several threads need a copy each.
class ExcludedFiles {
 public:
    /// `folder` is the account's configuration folder.
    explicit ExcludedFiles(const std::string& folder);

    /// A missing or empty file is an empty list, and what is no text in it is left out. False, with
    /// a line in the log and the list as it was, for a file that cannot be read. Waits for its
    /// lock.
    bool loadExcludedFiles();
    /// Replaces the file if the list was changed. False, with a line in the log, when that fails,
    /// and for a file that could not be read: it stays as it is. Waits for its lock.
    bool saveExcludedFiles();

    [[nodiscard]] const std::vector<std::string>& paths() const { return excludedFilesArray; }
    /// Without regard to case.
    [[nodiscard]] bool contains(std::string_view path) const;
    /// Puts an absolute path before the first that compares greater without regard to case. False
    /// for one that is there already, and for one that no property list can hold.
    bool add(std::string_view path);
    /// Takes out the first that is exactly the path; false when none is.
    bool remove(std::string_view path);
    /// Whether the list was changed since it was loaded or stored.
    [[nodiscard]] bool isModified() const { return excludedFilesModified; }

 private:
    std::string file_;
    std::vector<std::string> excludedFilesArray;
    bool isLoaded_ = false;
    bool excludedFilesModified = false;
};

}  // namespace orv

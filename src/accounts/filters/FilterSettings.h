#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "accounts/filters/FilterList.h"
#include "accounts/filters/FolderPatterns.h"
#include "platform/Value.h"

namespace orv {

/// Which files of the chosen folders the user wants in the backup: the file "filter_info.plist" of
/// an account. Keys that it does not know stay as they are. One thread at a time.
class orv_FilterSettings {
 public:
    /// In bytes; longer patterns are logged and not used.
    static constexpr std::size_t longestPattern = 1'024;

    /// The defaults, to be kept in a configuration folder; nothing is read yet. Without a folder
    /// there is no file.
    explicit orv_FilterSettings(const std::string& folder);

    /// Always true: a file that cannot be read leaves the settings as they are.
    bool load();
    bool loadFromSpecificPath(const std::string& file);
    /// False only without a file. One that cannot be written stays as it was, and is logged.
    bool store() const;
    bool storeToSpecificPath(const std::string& file) const;
    /// Whether both have the same keys with the same values; a default does not equal a missing
    /// key.
    [[nodiscard]] bool isEqualToAgentSettings(const orv_FilterSettings& other) const;

    /// While all files are included, neither categories nor own patterns count.
    [[nodiscard]] bool includeAllFiles() const;
    void setIncludeAllFiles(bool value);
    /// False for what is no category.
    [[nodiscard]] bool predefIncludeFilterValue(const std::string& category) const;
    /// Any name is kept, except one that no property list can hold.
    void setPredefIncludeFilter(const std::string& category, bool value);

    [[nodiscard]] std::vector<std::string> includeFilters() const;
    [[nodiscard]] std::vector<std::string> excludeFilters() const;
    /// False, with nothing changed, for one that is too long or that no property list can hold.
    bool addExcludeFilter(const std::string& pattern);
    /// Removes every entry that equals the pattern.
    void removeExcludeFilter(const std::string& pattern);

    /// In megabytes; 0 is no limit.
    [[nodiscard]] std::int64_t maxFileSize() const;
    void setMaxFileSize(std::int64_t megabytes);
    // The scanner does not use these two.
    [[nodiscard]] std::int64_t minFileSize() const;
    void setMinFileSize(std::int64_t megabytes);
    [[nodiscard]] bool fileSizeFiltering() const;
    void setFileSizeFiltering(bool value);

    /// What is backed up; everything when nothing is chosen.
    [[nodiscard]] orv_FilterList includeFilterList() const;
    /// What is left out: the user's patterns, then those of the server. Reads a file.
    [[nodiscard]] orv_FilterList excludeFilterList() const;

    // What the server leaves out, from "storage_exceptions.xml" of the active account, read anew
    // each time. Any thread that may wait for a file.
    [[nodiscard]] static FolderPatterns excludedFolderPatterns();
    [[nodiscard]] static std::vector<std::string> excludeFileTypes();

 private:
    std::string path;
    quelm::Dictionary settings;
};

}  // namespace orv

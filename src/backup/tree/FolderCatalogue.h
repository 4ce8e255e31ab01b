#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

/// A folder in a folder.
struct FolderEntry {
    std::string name;
    /// platform::ItemFlag bits.
    std::uint32_t flags = 0;
    bool operator==(const FolderEntry&) const = default;
};

struct FolderListing {
    bool isReadable = false;
    /// Without links and dot names, by name without regard to case.
    std::vector<FolderEntry> folders = {};
    /// What the rules of the tree leave out is not among them.
    bool isFiltered = false;
};

/// Answers which folders there are.
class FolderCatalogue {
 public:
    virtual ~FolderCatalogue() = default;

    [[nodiscard]] virtual FolderListing list(const std::string& path) = 0;
    /// platform::ItemFlag bits of what lies at the path; 0 for what cannot be asked.
    [[nodiscard]] virtual std::uint32_t flags(const std::string& path) = 0;
    /// Whether the path itself, not followed, is a symbolic link.
    [[nodiscard]] virtual bool isSymlink(const std::string& path) = 0;
};

}  // namespace orv

#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "backup/tree/ChildNames.h"
#include "backup/tree/FolderCatalogue.h"
#include "platform/Workspace.h"

namespace test_support {

/// A catalogue of folders that a test names, and that counts what it is asked.
class FakeCatalogue final : public orv::FolderCatalogue {
 public:
    /// Adds the folder and those above it.
    void add(const std::string& path, std::uint32_t flags = platform::ContainerItem) {
        for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
             slash = path.find('/', slash + 1)) {
            folders_.try_emplace(path.substr(0, slash), platform::ContainerItem);
        }
        folders_[path] = flags;
    }
    /// With all below it.
    void remove(const std::string& path) {
        std::erase_if(folders_, [&path](const auto& folder) {
            return folder.first == path || folder.first.starts_with(path + "/");
        });
    }
    /// It is there, and cannot be opened.
    void lock(const std::string& path) { locked_.insert(path); }

    orv::FolderListing list(const std::string& path) override {
        ++listed[path];
        if (locked_.contains(path) || (path != "/" && !folders_.contains(path))) return {};
        orv::FolderListing listing{.isReadable = true};
        const std::string begin = path == "/" ? "/" : path + "/";
        for (auto at = folders_.lower_bound(begin); at != folders_.end(); ++at) {
            const std::string_view whole = at->first;
            if (!whole.starts_with(begin)) break;
            const auto name = whole.substr(begin.size());
            if (!name.empty() && name.find('/') == std::string_view::npos)
                listing.folders.push_back({std::string(name), at->second});
        }
        std::ranges::sort(listing.folders, [](const auto& a, const auto& b) {
            return orv::CompareWithoutCase(a.name, b.name) < 0;
        });
        return listing;
    }
    std::uint32_t flags(const std::string& path) override {
        const auto found = folders_.find(path);
        return found == folders_.end() ? std::uint32_t{platform::ContainerItem} : found->second;
    }
    bool isSymlink(const std::string& /*path*/) override { return false; }

    /// How often each folder was read.
    std::map<std::string, int> listed;

 private:
    std::map<std::string, std::uint32_t> folders_;
    std::set<std::string> locked_;
};

}  // namespace test_support

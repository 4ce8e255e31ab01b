#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/Workspace.h"

namespace test_support {

class FakeWorkspace final : public platform::Workspace {
 public:
    std::optional<std::string> trash;
    /// Path to content type.
    std::map<std::string, std::string> types;
    /// Names of folders to their flags; any other is a plain folder.
    std::map<std::string, std::uint32_t, std::less<>> flags;
    /// Folder to the names that it hides.
    std::map<std::string, std::vector<std::string>> hidden;
    /// What `recordTrashed` was told: original path, trashed path.
    std::vector<std::pair<std::string, std::string>> trashed;
    /// What the calls of these names were given, and what they answer.
    std::vector<std::string> openedAddresses;
    std::vector<std::string> openedPaths;
    std::vector<std::vector<std::string>> startedPrograms;
    bool opens = true;

    std::optional<std::string> trashFolder() override { return trash; }

    void recordTrashed(const std::string& originalPath, const std::string& trashedPath) override {
        trashed.emplace_back(originalPath, trashedPath);
    }

    std::optional<std::string> contentType(const std::string& path) override {
        const auto found = types.find(path);
        return found != types.end() ? std::optional(found->second) : std::nullopt;
    }

    std::uint32_t folderFlags(std::string_view name) override {
        const auto found = flags.find(name);
        return found != flags.end() ? found->second : platform::ContainerItem;
    }

    std::vector<std::string> hiddenNames(const std::string& folder) override {
        const auto found = hidden.find(folder);
        return found != hidden.end() ? found->second : std::vector<std::string>();
    }

    bool openAddress(const std::string& address) override {
        openedAddresses.push_back(address);
        return opens;
    }

    bool openPath(const std::string& path) override {
        openedPaths.push_back(path);
        return opens;
    }

    bool startProgram(const std::vector<std::string>& words) override {
        startedPrograms.push_back(words);
        return opens;
    }
};

}  // namespace test_support

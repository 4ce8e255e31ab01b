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
    /// What `recordTrashed` was told: original path, trashed path.
    std::vector<std::pair<std::string, std::string>> trashed;

    std::optional<std::string> trashFolder() override { return trash; }

    void recordTrashed(const std::string& originalPath, const std::string& trashedPath) override {
        trashed.emplace_back(originalPath, trashedPath);
    }

    std::optional<std::string> contentType(const std::string& path) override {
        const auto found = types.find(path);
        return found != types.end() ? std::optional(found->second) : std::nullopt;
    }
};

}  // namespace test_support
